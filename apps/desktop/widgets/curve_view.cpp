#include "desktop/widgets/curve_view.h"

#include <QPainter>
#include <algorithm>

namespace desktop {

namespace {

constexpr int Margin = 10;
constexpr int LeastWidth = 270;
constexpr int PlotLines = 7;  // height of the plot in lines of text
constexpr double DotRadius = 4;
constexpr double ReachedRadius = 7;

}  // namespace

CurveView::CurveView(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void CurveView::Show(const pages::Control& control, const Look& look) {
    theme_ = &look.theme;
    points_.clear();
    low_ = 0;
    high_ = 1;
    for (const auto& row : control.GetCells()) {
        Point point;
        if (!row.empty()) point.name = Words(platform::Trim(row[0]));
        if (row.size() > 1) point.figure = Words(platform::Trim(row[1]));
        point.value = point.figure.toDouble(&point.known);
        if (point.known) high_ = std::max(high_, point.value);
        points_.push_back(point);
    }
    live_ = Words(platform::Trim(control.Text()));
    liveValue_ = live_.toDouble(&liveKnown_);
    if (liveKnown_) high_ = std::max(high_, liveValue_);
    reached_ = control.MarkedRow();
    update();
}

QSize CurveView::sizeHint() const {
    return {LeastWidth, (PlotLines + 2) * fontMetrics().height()};
}

int CurveView::PlaceOf(int index) const {
    const int count = std::max(2, Points());
    const int room = width() - 4 * Margin;
    return 2 * Margin + room * index / (count - 1);
}

double CurveView::HeightOf(double value) const {
    const double top = fontMetrics().height() + Margin;
    const double bottom = height() - Margin;
    return bottom - (bottom - top) * (value - low_) / (high_ - low_);
}

void CurveView::paintEvent(QPaintEvent*) {
    if (theme_ == nullptr) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(theme_->line);
    painter.setBrush(theme_->surface);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    QPolygonF curve;
    for (int i = 0; i < Points(); ++i) {
        const Point& point = points_[static_cast<std::size_t>(i)];
        if (point.known) curve << QPointF(PlaceOf(i), HeightOf(point.value));
    }
    painter.setPen(QPen(theme_->quiet, 2));
    painter.drawPolyline(curve);
    for (int i = 0; i < Points(); ++i) {
        const Point& point = points_[static_cast<std::size_t>(i)];
        if (!point.known) continue;
        const double radius = i == reached_ ? ReachedRadius : DotRadius;
        painter.setPen(QPen(i == reached_ ? theme_->accent : theme_->quiet, 2));
        painter.setBrush(i == reached_ ? theme_->accent : theme_->surface);
        painter.drawEllipse(QPointF(PlaceOf(i), HeightOf(point.value)), radius, radius);
        painter.setPen(theme_->text);
        const int wide = fontMetrics().horizontalAdvance(point.figure);
        const int left = std::clamp(PlaceOf(i) - wide / 2, 2, std::max(2, width() - wide - 2));
        painter.drawText(left, static_cast<int>(HeightOf(point.value) - ReachedRadius - 3), point.figure);
    }
    if (!liveKnown_) return;
    painter.setPen(QPen(theme_->accent, 2, Qt::DashLine));
    painter.drawLine(QPointF(2, HeightOf(liveValue_)), QPointF(width() - 2, HeightOf(liveValue_)));
}

}  // namespace desktop
