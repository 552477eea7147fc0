#include "desktop/widgets/chart_view.h"

#include <QPainter>

namespace desktop {

namespace {

constexpr int Divisions = 6;

}  // namespace

ChartView::ChartView(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void ChartView::Show(const pages::Control&, const Look& look) {
    name_ = look.Text("STRISCIA.0", "GRAFICI");
    ground_ = look.theme.surface;
    line_ = look.theme.line;
    ink_ = look.theme.quiet;
    setAccessibleName(name_);
    update();
}

void ChartView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), ground_);
    QColor faint = line_;
    faint.setAlphaF(0.35F);
    painter.setPen(faint);
    for (int i = 1; i < Divisions; ++i) {
        painter.drawLine(width() * i / Divisions, 0, width() * i / Divisions, height());
        painter.drawLine(0, height() * i / Divisions, width(), height() * i / Divisions);
    }
    painter.setPen(line_);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(ink_);
    painter.drawText(rect(), Qt::AlignCenter, name_);
}

}  // namespace desktop
