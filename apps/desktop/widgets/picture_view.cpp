#include "desktop/widgets/picture_view.h"

#include <QPainter>
#include <algorithm>

#include "desktop/pictures.h"

namespace desktop {

namespace {

constexpr double PaleOpacity = 0.35;  // of a picture that tells nothing now

}  // namespace

PictureView::PictureView(QWidget* parent, double lines, const QString& name)
    : QWidget(parent), lines_(lines), name_(name) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PictureView::Show(const pages::Control& control, const Look&) {
    SetName(PictureOf(control.Name(), control.Index()));
}

void PictureView::SetName(const QString& name) {
    if (name == name_) return;
    name_ = name;
    drawn_ = {};
    update();
}

QSize PictureView::sizeHint() const {
    const int side = static_cast<int>(lines_ * fontMetrics().height());
    return {side, side};
}

void PictureView::paintEvent(QPaintEvent*) {
    const int side = std::min(width(), height());
    const qreal ratio = devicePixelRatioF();
    const QSize pixels = QSizeF(side * ratio, side * ratio).toSize();
    if (drawn_.size() != pixels) {
        drawn_ = QPixmap(pixels);
        drawn_.setDevicePixelRatio(ratio);
        drawn_.fill(Qt::transparent);
        QPainter painter(&drawn_);
        painter.setRenderHint(QPainter::Antialiasing);
        DrawPicture(painter, QRectF(0, 0, side, side), name_);
    }
    QPainter painter(this);
    if (!isEnabled()) painter.setOpacity(PaleOpacity);
    painter.drawPixmap((width() - side) / 2, (height() - side) / 2, drawn_);
}

}  // namespace desktop
