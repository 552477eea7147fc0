#include "desktop/keys.h"

#include <QKeySequence>

namespace desktop {

std::string KeyName(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Control:
        case Qt::Key_Shift:
        case Qt::Key_Alt:
        case Qt::Key_AltGr:
        case Qt::Key_Meta:
        case Qt::Key_unknown:
            return {};
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return "Enter";
        default:
            break;
    }
    const auto modifiers = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier);
    return QKeySequence(QKeyCombination(modifiers, static_cast<Qt::Key>(event.key())))
        .toString(QKeySequence::PortableText)
        .toStdString();
}

bool IsCommand(const QKeyEvent& event) {
    const bool function = event.key() >= Qt::Key_F1 && event.key() <= Qt::Key_F35;
    const bool modified = (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
    return function || modified || event.key() == Qt::Key_Escape;
}

}  // namespace desktop
