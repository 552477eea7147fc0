#include "desktop/hints.h"

#include <QCoreApplication>
#include <QStatusTipEvent>

namespace desktop {

namespace {

void Say(QWidget& widget, const QString& hint) {
    QStatusTipEvent tell(hint);
    QCoreApplication::sendEvent(&widget, &tell);
}

}  // namespace

void SetHint(QWidget& widget, const QString& hint) {
    if (widget.statusTip() == hint) return;
    widget.setStatusTip(hint);
    if (widget.underMouse()) Say(widget, hint);
}

void DropHint(QWidget& widget) {
    if (widget.underMouse() && !widget.statusTip().isEmpty()) Say(widget, {});
}

}  // namespace desktop
