#include "desktop/binder.h"

#include <QAbstractScrollArea>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScrollArea>
#include <algorithm>

#include "desktop/hints.h"
#include "desktop/keys.h"
#include "desktop/widgets/shows.h"

namespace desktop {

namespace {

bool IsByKey(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
}

// Where the page puts the hand is to be seen, also where what surrounds it scrolls.
void ScrollTo(QWidget& widget) {
    for (QWidget* around = widget.parentWidget(); around != nullptr; around = around->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(around)) area->ensureWidgetVisible(&widget);
    }
}

// What lines do by themselves as the keyboard leaves and comes; those of a window that lies behind hear of neither.
void ChooseText(QWidget* left, QWidget& entered) {
    if (auto* line = qobject_cast<QLineEdit*>(left)) line->deselect();
    if (auto* line = qobject_cast<QLineEdit*>(&entered)) line->selectAll();
}

}  // namespace

PageView::PageView(pages::Page& page, QWidget& root, Hands& hands, const Look& look)
    : page_(page), root_(root), hands_(hands), look_(look) {}

void PageView::BindAll() {
    for (pages::Control* control : page_.Controls()) {
        if (WidgetOf(*control) == nullptr) Bind(*control);
    }
}

void PageView::Bind(pages::Control& control) {
    const QString name = QString::fromStdString(control.Name());
    const KindRow& row = RowOf(control.GetKind());
    auto* widget = root_.findChild<QWidget*>(name);
    if (widget == nullptr) widget = row.make(control, &root_);
    widget->setObjectName(name);
    row.wire(control, *widget, hands_);
    index_.insert(widget, static_cast<int>(bound_.size()));
    widget->installEventFilter(this);
    if (auto* area = qobject_cast<QAbstractScrollArea*>(widget)) {
        index_.insert(area->viewport(), static_cast<int>(bound_.size()));
        area->viewport()->installEventFilter(this);
    }
    bound_.push_back({&control, widget, &row, 0, {}});
}

QWidget* PageView::WidgetOf(const pages::Control& control) const {
    const auto found =
        std::find_if(bound_.begin(), bound_.end(), [&](const Bound& bound) { return bound.control == &control; });
    return found == bound_.end() ? nullptr : found->widget;
}

void PageView::SetNameOf(const pages::Control& label, const pages::Control& control) {
    for (Bound& bound : bound_) {
        if (bound.control == &label) bound.named.push_back(WidgetOf(control));
    }
}

bool PageView::Sync() {
    if (page_.Version() == seen_) return false;
    seen_ = page_.Version();
    pushing_ = true;
    for (Bound& bound : bound_) {
        if (bound.control->Version() != bound.seen) Push(bound);
    }
    if (root_.isEnabled() != page_.Enabled()) {
        root_.setEnabled(page_.Enabled());
        root_.setToolTip(page_.Enabled() ? QString() : look_.Why(pages::Reason::PageDisabled));
        focusDirty_ = true;
    }
    pushing_ = false;
    if (page_.Focus() != seenFocus_) focusDirty_ = true;
    if (focusDirty_) PushFocus();
    return true;
}

void PageView::Push(Bound& bound) {
    const pages::Control& control = *bound.control;
    QWidget& widget = *bound.widget;
    bound.seen = control.Version();
    bound.row->push(control, widget, look_);
    if (widget.isEnabledTo(&root_) != control.Enabled()) widget.setEnabled(control.Enabled());
    const QString why = look_.Why(control.Why());
    if (widget.toolTip() != why) widget.setToolTip(why);
    SetHint(widget, why);
    if (widget.isHidden() == control.Visible()) widget.setVisible(control.Visible());
    for (QWidget* named : bound.named) named->setAccessibleName(Words(shell::CaptionPulita(control.Text())));
}

void PageView::PushFocus() {
    focusDirty_ = false;
    seenFocus_ = page_.Focus();
    QWidget* wanted = seenFocus_ == nullptr ? nullptr : WidgetOf(*seenFocus_);
    if (wanted == nullptr || wanted->window()->focusWidget() == wanted) return;
    QWidget* left = wanted->window()->focusWidget();
    wanted->setFocus(Qt::TabFocusReason);
    if (!wanted->window()->isActiveWindow()) ChooseText(left, *wanted);
    ScrollTo(*wanted);
}

const PageView::Bound* PageView::Find(const QObject* widget) const {
    const auto found = index_.constFind(widget);
    return found == index_.constEnd() ? nullptr : &bound_[static_cast<std::size_t>(*found)];
}

bool PageView::eventFilter(QObject* watched, QEvent* event) {
    const Bound* bound = Find(watched);
    if (bound == nullptr) return false;
    switch (event->type()) {
        case QEvent::MouseButtonPress:
            return !TakesPress(*bound);
        case QEvent::MouseButtonDblClick:
            if (!bound->control->onDoubleClick) return false;
            hands_.DoubleClick(*bound->control);
            return true;
        case QEvent::FocusIn:
            FollowFocus(*bound, static_cast<QFocusEvent*>(event)->reason());
            return false;
        case QEvent::FocusOut:
        case QEvent::EnabledChange:
            if (pushing_) focusDirty_ = true;
            return false;
        case QEvent::Hide:
            DropHint(*bound->widget);
            return false;
        case QEvent::KeyPress:
            return KeyOn(*bound, *static_cast<QKeyEvent*>(event));
        case QEvent::Wheel:
            // A wheel that was meant for the page must not change a choice in passing.
            if (qobject_cast<QComboBox*>(watched) == nullptr) return false;
            event->ignore();
            return true;
        default:
            return false;
    }
}

// A press moves the focus first: where the field left for it holds a refused value, nothing else happens.
bool PageView::TakesPress(const Bound& bound) {
    if (!pages::TakesFocus(*bound.control) || page_.Focus() == bound.control) return true;
    if (hands_.FocusOn(*bound.control)) return true;
    // The window has moved its own focus already.
    PushFocus();
    return false;
}

void PageView::FollowFocus(const Bound& bound, Qt::FocusReason reason) {
    if (pushing_ || page_.Focus() == bound.control || !IsByKey(reason) || !pages::TakesFocus(*bound.control)) return;
    // The answer may put the focus back, also on the very control that the page believes it never left.
    focusDirty_ = true;
    hands_.FocusOn(*bound.control);
    if (focusDirty_) PushFocus();
}

bool PageView::KeyOn(const Bound& bound, const QKeyEvent& event) {
    const std::string name = KeyName(event);
    if (name.empty()) return false;
    if (event.key() == Qt::Key_Backtab) {
        if (!root_.isWindow()) return false;
        if (pages::Control* before = page_.PreviousFocus(bound.control)) hands_.FocusOn(*before);
        return true;
    }
    if (name == "Tab") {
        // A page that shares its window leaves Tab to it.
        return root_.isWindow() && page_.Focus() == bound.control && hands_.Key(page_, name);
    }
    if (name == "Enter") {
        if (page_.Focus() != bound.control) return false;
        const auto* shows = dynamic_cast<const Shows*>(bound.widget);
        return (shows != nullptr && shows->HoldsHand()) || hands_.Key(page_, name);
    }
    return IsCommand(event) && hands_.Key(page_, name);
}

bool PageView::Key(const QKeyEvent& event) {
    const std::string name = KeyName(event);
    const bool moves = name == "Enter" || name == "Tab";
    return !name.empty() && (moves || IsCommand(event)) && hands_.Key(page_, name);
}

}  // namespace desktop
