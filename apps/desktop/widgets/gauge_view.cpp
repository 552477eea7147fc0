#include "desktop/widgets/gauge_view.h"

#include <QEvent>
#include <algorithm>

#include "desktop/widgets/curve_view.h"

namespace desktop {

namespace {

constexpr int Gap = 6;
constexpr int FirstLamp = 1;  // the point below which the first lamp stands

}  // namespace

void GaugeView::SetParts(CurveView& curve, std::vector<QWidget*> lamps, std::vector<QWidget*> below) {
    curve_ = &curve;
    lamps_ = std::move(lamps);
    below_ = std::move(below);
    curve.setParent(this);
    for (const auto* parts : {&lamps_, &below_}) {
        for (QWidget* part : *parts) {
            part->setParent(this);
            part->installEventFilter(this);
        }
    }
    curve.installEventFilter(this);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

std::vector<QWidget*> GaugeView::Shown(const std::vector<QWidget*>& all) const {
    std::vector<QWidget*> shown;
    std::copy_if(all.begin(), all.end(), std::back_inserter(shown),
                 [](const QWidget* part) { return !part->isHidden(); });
    return shown;
}

// Without its curve the gauge takes no room.
QSize GaugeView::sizeHint() const {
    if (curve_ == nullptr || curve_->isHidden()) return {0, 0};
    int high = curve_->sizeHint().height();
    int lamp = 0;
    for (const QWidget* part : Shown(lamps_)) lamp = std::max(lamp, part->sizeHint().height() + Gap);
    for (const QWidget* part : Shown(below_)) high += part->sizeHint().height() + Gap;
    return {curve_->sizeHint().width(), high + lamp};
}

void GaugeView::Arrange() {
    if (curve_ == nullptr || curve_->isHidden()) return;
    int top = curve_->sizeHint().height();
    curve_->setGeometry(0, 0, width(), top);
    top += Gap;
    int lampHeight = 0;
    for (std::size_t i = 0; i < lamps_.size(); ++i) {
        const QSize size = lamps_[i]->sizeHint();
        const int place = curve_->PlaceOf(static_cast<int>(i) + FirstLamp);
        lamps_[i]->setGeometry(place - size.width() / 2, top, size.width(), size.height());
        if (!lamps_[i]->isHidden()) lampHeight = std::max(lampHeight, size.height() + Gap);
    }
    top += lampHeight;
    for (QWidget* part : Shown(below_)) {
        part->setGeometry(0, top, width(), part->sizeHint().height());
        top += part->sizeHint().height() + Gap;
    }
}

void GaugeView::resizeEvent(QResizeEvent*) {
    Arrange();
}

// A part has come or gone.
bool GaugeView::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent) {
        setHidden(curve_->isHidden());
        updateGeometry();
        Arrange();
    }
    return false;
}

// A part has changed its size.
bool GaugeView::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) {
        updateGeometry();
        Arrange();
    }
    return QWidget::event(event);
}

}  // namespace desktop
