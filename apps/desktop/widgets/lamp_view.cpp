#include "desktop/widgets/lamp_view.h"

#include <QPainter>
#include <algorithm>

namespace desktop {

namespace {

constexpr double PaleOpacity = 0.35;  // of a lamp that tells nothing now
const QColor MarkColour(20, 24, 30);

// The marks, on a circle of radius 1 around the origin.
void DrawMark(QPainter& painter, const std::string& colour) {
    constexpr double Arm = 0.38;
    if (colour == "red") {
        painter.setPen(QPen(Qt::white, 0.22, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(-Arm, -Arm), QPointF(Arm, Arm));
        painter.drawLine(QPointF(-Arm, Arm), QPointF(Arm, -Arm));
    } else if (colour == "green") {
        painter.setPen(QPen(Qt::white, 0.2));
        painter.setBrush(Qt::NoBrush);
        painter.drawEllipse(QPointF(0, 0), Arm, Arm);
    } else if (colour == "yellow") {
        painter.setPen(QPen(MarkColour, 0.22, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(0, -0.5), QPointF(0, 0.1));
        painter.drawPoint(QPointF(0, 0.48));
    } else if (colour == "blue") {
        painter.setPen(QPen(Qt::white, 0.22, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(QPointF(0, -0.1), QPointF(0, 0.5));
        painter.drawPoint(QPointF(0, -0.45));
    }
}

}  // namespace

LampView::LampView(QWidget* parent, double lines) : QWidget(parent), lines_(lines) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void LampView::Show(const pages::Control& control, const Look& look) {
    colour_ = control.Colour().empty() ? "white" : control.Colour();
    frame_ = look.theme.quiet;
    hollow_ = look.theme.dark ? look.theme.surface : QColor(Qt::white);
    setAccessibleDescription(QString::fromStdString(colour_));
    update();
}

QSize LampView::sizeHint() const {
    const int side = static_cast<int>(lines_ * fontMetrics().height());
    return {side, side};
}

void LampView::paintEvent(QPaintEvent*) {
    const int side = std::min(width(), height());
    const qreal ratio = devicePixelRatioF();
    QPixmap& lamp = drawn_[colour_];
    if (lamp.size() != QSizeF(side * ratio, side * ratio).toSize()) lamp = Draw(side);
    QPainter painter(this);
    if (!isEnabled()) painter.setOpacity(PaleOpacity);
    painter.drawPixmap((width() - side) / 2, (height() - side) / 2, lamp);
}

QPixmap LampView::Draw(int side) const {
    const qreal ratio = devicePixelRatioF();
    QPixmap lamp(QSizeF(side * ratio, side * ratio).toSize());
    lamp.setDevicePixelRatio(ratio);
    lamp.fill(Qt::transparent);
    QPainter painter(&lamp);
    painter.setRenderHint(QPainter::Antialiasing);
    const double radius = side / 2.0 - 1;
    painter.translate(side / 2.0, side / 2.0);
    painter.scale(radius, radius);
    const bool lit = colour_ != "white";
    painter.setPen(QPen(frame_, 0.14));
    painter.setBrush(lit ? LampColour(colour_) : hollow_);
    painter.drawEllipse(QPointF(0, 0), 0.9, 0.9);
    if (lit) DrawMark(painter, colour_);
    return lamp;
}

}  // namespace desktop
