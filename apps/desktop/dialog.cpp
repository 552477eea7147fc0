#include "desktop/dialog.h"

#include <QCloseEvent>
#include <QLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusTipEvent>
#include <algorithm>
#include <array>

namespace desktop {

namespace {

bool Runs(const PagePlan& plan) {
    return std::any_of(plan.progress.begin(), plan.progress.end(),
                       [](const pages::Control* bar) { return bar->Visible(); });
}

bool IsRefused(const pages::Control* value) {
    return value->Refused() && value->Visible();
}

bool Refuses(const LimitLabels& labels) {
    return std::any_of(labels.begin(), labels.end(), [](const LimitLabel& label) {
        return std::any_of(label.values.begin(), label.values.end(), IsRefused);
    });
}

// The control in which the hand stands, when its figure was refused for what it is; of a table, that of the cell. Null
// for none.
const pages::Control* RefusedInHand(const pages::Page& page) {
    const pages::Control* hand = page.Focus();
    if (hand == nullptr || !IsRefused(hand) || hand->Legal().empty()) return nullptr;
    const std::vector<pages::CellPlace>& cells = hand->RefusedCells();
    const bool elsewhere =
        hand->GetKind() == pages::Kind::Grid && std::find(cells.begin(), cells.end(), hand->FocusCell()) == cells.end();
    return elsewhere ? nullptr : hand;
}

void SetShown(QWidget& widget, bool shown) {
    if (widget.isHidden() == shown) widget.setVisible(shown);
}

// By what the message tells. Each has a shape of its own; a plain one has the picture of its page.
constexpr std::array<const char*, 5> TonePictures{nullptr, "busy", "done", "exclamation", "stop"};

const char* StripPicture(const pages::Page& page, const PagePlan& plan, bool refuses) {
    if (plan.strip->Text().empty()) return "";
    if (!page.Enabled() || Runs(plan)) return "busy";
    const char* const told = TonePictures[static_cast<std::size_t>(plan.strip->GetTone())];
    if (told != nullptr) return told;
    return refuses ? "exclamation" : plan.stripPicture;
}

// What the window manager draws around a window.
QMargins FrameOf(const QWidget& window) {
    const QRect outside = window.frameGeometry();
    const QRect inside = window.geometry();
    return {inside.left() - outside.left(), inside.top() - outside.top(), outside.right() - inside.right(),
            outside.bottom() - inside.bottom()};
}

}  // namespace

Dialog::Dialog(pages::Page& page, Hands& hands, const Look& look, std::function<void(const QString&)> hint)
    : page_(page), hands_(hands), hint_(std::move(hint)), plan_(PlanOf(page)), view_(page, *this, hands, look) {
    setObjectName(QString::fromStdString(page.Name()));
    parts_ = DialogBuilder(*this, view_, plan_, look).Build();
}

void Dialog::Sync() {
    if (!view_.Sync()) return;
    ShowTitle();
    if (plan_.strip == nullptr) return;
    ShowStripPicture();
    ShowLimits();
}

// A list or table without a caption of its own is called as its page is.
void Dialog::ShowTitle() {
    const QString title = Words(page_.Title());
    if (windowTitle() == title) return;
    setWindowTitle(title);
    for (const pages::Control* control : page_.Controls()) {
        const bool table = control->GetKind() == pages::Kind::Grid || control->GetKind() == pages::Kind::List;
        QWidget* widget = view_.WidgetOf(*control);
        if (table && widget->accessibleName().isEmpty()) widget->setAccessibleName(title);
    }
}

void Dialog::ShowStripPicture() {
    parts_.stripPicture->SetName(QString::fromLatin1(StripPicture(page_, plan_, Refuses(parts_.limits))));
}

// What would be legal stands beside the figure that was refused just now, where the eye is.
void Dialog::ShowLimits() {
    const pages::Control* hand = RefusedInHand(page_);
    const LimitLabel* told = nullptr;
    for (const LimitLabel& limits : parts_.limits) {
        const bool refused = std::find(limits.values.begin(), limits.values.end(), hand) != limits.values.end();
        if (refused) {
            told = &limits;
            limits.words->setText(Words(hand->Legal()));
        }
        SetShown(*limits.words, refused);
    }
    // Fields of one row have one unit.
    for (const LimitLabel& limits : parts_.limits) {
        for (const pages::Control* part : limits.covered) {
            if (part == nullptr) continue;
            const bool covered =
                told != nullptr && std::find(told->covered.begin(), told->covered.end(), part) != told->covered.end();
            SetShown(*view_.WidgetOf(*part), part->Visible() && !covered);
        }
    }
}

void Dialog::Present(QWidget& parent, const PageAreas& areas) {
    if (parentWidget() != &parent) setParent(&parent, windowFlags());
    Sync();
    if (isVisible()) return;
    areas_ = areas;
    for (QRect& area : areas_) area = area.marginsRemoved(FrameOf(parent));
    Place();
    if (page_.Modal()) {
        open();
    } else {
        setWindowModality(Qt::NonModal);
        show();
    }
}

// A page is folded, and scrolled up and down, rather than hide more; but it does not scroll sideways. A bar that comes
// and goes moves no window.
void Dialog::ChooseArea() {
    QSize least = layout()->totalMinimumSize();
    for (const QScrollArea* scroll : findChildren<QScrollArea*>()) {
        const int inside =
            scroll->widget()->minimumSizeHint().width() + scroll->verticalScrollBar()->sizeHint().width();
        least.rwidth() += std::max(0, inside - scroll->minimumSizeHint().width());
    }
    for (const pages::Control* bar : plan_.progress) {
        if (bar->Visible()) least.rheight() -= view_.WidgetOf(*bar)->minimumSizeHint().height() + layout()->spacing();
    }
    const auto fits = [&least](const QRect& area) {
        return least.width() <= area.width() && least.height() <= area.height();
    };
    const auto found = std::find_if(areas_.begin(), areas_.end(), fits);
    area_ = found == areas_.end() ? areas_.back() : *found;
}

// In the middle, as large as the page wants or as the hand left it.
void Dialog::Place() {
    // What was shown or hidden while the window was hidden has told nobody, least of all through what scrolls.
    for (QScrollArea* scroll : findChildren<QScrollArea*>()) {
        if (QLayout* inside = scroll->widget()->layout(); inside != nullptr) inside->activate();
        scroll->updateGeometry();
    }
    layout()->invalidate();
    layout()->activate();
    ChooseArea();
    PutInMiddle(Wanted(0).expandedTo(byHand_));
}

void Dialog::PutInMiddle(QSize size) {
    placed_ = QRect(QPoint(0, 0), size.boundedTo(area_.size()));
    placed_.moveCenter(areas_.back().center());
    placed_.moveRight(std::min(placed_.right(), area_.right()));
    placed_.moveBottom(std::min(placed_.bottom(), area_.bottom()));
    placed_.moveLeft(std::max(placed_.left(), area_.left()));
    placed_.moveTop(std::max(placed_.top(), area_.top()));
    setGeometry(placed_);
}

// The size that the page wants, at this width or at its own, as far as the area is wide.
QSize Dialog::Wanted(int wide) const {
    QSize wanted = sizeHint();
    wanted.setWidth(std::min(std::max(wide, wanted.width()), area_.width()));
    if (layout()->hasHeightForWidth()) wanted.setHeight(layout()->totalHeightForWidth(wanted.width()));
    return wanted.expandedTo(layout()->totalMinimumSize());
}

// A page that shows more than before gets its room, as far as the area allows.
void Dialog::Grow() {
    const bool middle = geometry().topLeft() == placed_.topLeft();
    const QRect before = area_;
    ChooseArea();
    if (middle && area_ != before) return Place();
    const QSize grown = size().expandedTo(Wanted(width()).boundedTo(area_.size()));
    if (grown == (middle ? placed_.size() : size()) || grown == byHand_) return;
    if (middle) return PutInMiddle(grown);
    QRect inside(geometry().topLeft(), grown);
    inside.moveRight(std::min(inside.right(), area_.right()));
    inside.moveBottom(std::min(inside.bottom(), area_.bottom()));
    setGeometry(inside);
}

bool Dialog::event(QEvent* event) {
    if (event->type() == QEvent::StatusTip) {
        hint_(static_cast<QStatusTipEvent*>(event)->tip());
        return true;
    }
    const bool taken = QDialog::event(event);
    if (event->type() == QEvent::LayoutRequest && isVisible()) Grow();
    return taken;
}

// A size that the hand has given is kept.
void Dialog::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    if (!event->spontaneous()) {
        given_ = event->size();
    } else if (isVisible() && event->size() != given_) {
        byHand_ = event->size();
    }
}

void Dialog::closeEvent(QCloseEvent* event) {
    event->ignore();
    hands_.Close(page_);
}

void Dialog::keyPressEvent(QKeyEvent* event) {
    if (view_.Key(*event)) return event->accept();
    if (event->key() != Qt::Key_Escape) QDialog::keyPressEvent(event);
}

}  // namespace desktop
