#include "pages/stack.h"

#include <algorithm>

namespace pages {

namespace {

bool Passes(KeyFilter filter, char key) {
    if (static_cast<unsigned char>(key) < ' ') return false;
    return filter == KeyFilter::Any || (key >= '0' && key <= '9');
}

std::string Filtered(const Control& field, std::string_view text) {
    std::string out;
    for (const char key : text) {
        if (field.MaxLength() != 0 && out.size() >= field.MaxLength()) break;
        if (Passes(field.filter, key)) out += key;
    }
    return out;
}

void Call(const Control::Handler& handler) {
    if (handler) handler();
}

bool IsPressable(const Control& control) {
    const Kind kind = control.GetKind();
    return kind == Kind::Button || kind == Kind::Option || kind == Kind::Check;
}

// Of the options of a group (all options of a page whose names differ in the index alone) only one is on.
void TurnOn(Control& option) {
    const std::string_view group = std::string_view(option.Name()).substr(0, option.Name().find('('));
    for (Control* other : option.Owner().Controls()) {
        const std::string_view name = other->Name();
        if (other->GetKind() == Kind::Option && name.substr(0, name.find('(')) == group)
            other->SetSelected(other == &option);
    }
}

}  // namespace

Page* PageStack::Find(std::string_view name) const {
    const auto found = std::find_if(all_.begin(), all_.end(), [name](const Page* p) { return p->Name() == name; });
    return found == all_.end() ? nullptr : *found;
}

void PageStack::OpenPage(Page& page, bool modal) {
    std::erase(open_, &page);
    const auto place =
        modal ? open_.end() : std::find_if(open_.begin(), open_.end(), [](const Page* p) { return p->Modal(); });
    open_.insert(place, &page);
    ++version_;
    page.open_ = true;
    page.modal_ = modal;
    page.SetEnabled(true);
    page.SetFocus(nullptr);
    for (Control* control : page.controls_) control->pending = false;
    page.Opening();
    if (page.Focus() == nullptr) page.SetFocus(page.controls_.empty() ? nullptr : page.NextFocus(nullptr));
    page.Touch();
}

void PageStack::ClosePage(Page& page) {
    if (!page.open_) return;
    std::erase(open_, &page);
    ++version_;
    page.open_ = false;
    page.Touch();
    page.Closed();
}

bool PageStack::Covered(const Page& page) const {
    const auto at = std::find(open_.begin(), open_.end(), &page);
    return at != open_.end() && std::any_of(at + 1, open_.end(), [](const Page* p) { return p->Modal(); });
}

Reason PageStack::WhyNot(const Page& page) const {
    if (!page.IsOpen()) return Reason::Closed;
    if (Covered(page)) return Reason::PageCovered;
    return page.Enabled() ? Reason::None : Reason::PageDisabled;
}

Reason PageStack::WhyNot(const Control& control) const {
    const Reason page = WhyNot(control.Owner());
    if (page != Reason::None) return page;
    if (!control.Visible()) return Reason::Hidden;
    return control.Why();
}

bool PageStack::LeavePending(Page& page, const Control* next) {
    Control* focused = page.Focus();
    if (focused == nullptr || focused == next || !focused->pending) return true;
    focused->pending = false;
    page.SetFocus(nullptr);
    Call(focused->onLeave);
    focused->pending = page.Focus() == focused;  // a refused value goes on holding the focus
    return !focused->pending;
}

// What every input on a control has in common: it must be reachable, and the field left for it must hold a legal value.
Outcome PageStack::Reach(Control& control) {
    const Reason why = WhyNot(control);
    if (why != Reason::None) return Outcome::Refused(why);
    if (!LeavePending(control.Owner(), &control) && !control.escapes) return Outcome::Refused(Reason::ValueRefused);
    // Leaving a field may itself have changed what can be reached.
    const Reason after = WhyNot(control);
    return after == Reason::None ? Outcome::Done() : Outcome::Refused(after);
}

Outcome PageStack::ReachEditable(Control& control, const std::function<bool()>& legal) {
    if (const Reason why = WhyNot(control); why != Reason::None) return Outcome::Refused(why);
    if (control.Locked()) return Outcome::Refused(Reason::Locked);
    if (!legal()) return Outcome::Refused(Reason::NoSuchEntry);
    if (const Outcome reached = Reach(control); !reached.ok) return reached;
    // Leaving a field may itself have changed what can be edited.
    if (control.Locked()) return Outcome::Refused(Reason::Locked);
    return legal() ? Outcome::Done() : Outcome::Refused(Reason::NoSuchEntry);
}

Outcome PageStack::Press(Control& control) {
    if (!IsPressable(control)) return Outcome::Refused(Reason::UnknownControl);
    if (const Outcome reached = ReachEditable(control); !reached.ok) return reached;
    control.Owner().SetFocus(&control);
    if (control.GetKind() == Kind::Option) TurnOn(control);
    if (control.GetKind() == Kind::Check) control.SetSelected(!control.Selected());
    if (control.GetKind() != Kind::Button) Call(control.onChange);
    Call(control.onPress);
    return Outcome::Done();
}

Outcome PageStack::Type(Control& control, std::string_view text) {
    if (control.GetKind() != Kind::Field) return Outcome::Refused(Reason::UnknownControl);
    if (const Outcome reached = ReachEditable(control); !reached.ok) return reached;
    control.Owner().SetFocus(&control);
    const std::string typed = Filtered(control, text);
    if (typed.empty() && !text.empty()) return Outcome::Done();  // every key was dropped: the selection stands
    control.SetText(typed);
    control.pending = true;
    Call(control.onChange);
    return Outcome::Done();
}

Outcome PageStack::Edit(Control& control, std::string_view text) {
    if (Filtered(control, text).size() != text.size()) return Outcome::Refused(Reason::KeyDoesNothing);
    return Type(control, text);
}

Outcome PageStack::Leave(Control& control) {
    // Only what can have the focus can be left; whoever has it now must let go first.
    if (const Reason why = WhyNot(control); why != Reason::None) return Outcome::Refused(why);
    if (!TakesFocus(control)) return Outcome::Refused(control.Locked() ? Reason::Locked : Reason::UnknownControl);
    if (const Outcome reached = Reach(control); !reached.ok) return reached;
    Page& page = control.Owner();
    page.SetFocus(page.NextFocus(&control));
    control.pending = false;
    Call(control.onLeave);
    if (control.GetKind() == Kind::Field) control.pending = page.Focus() == &control;
    return Outcome::Done();
}

Outcome PageStack::Select(Control& control, std::vector<int> indices) {
    if (control.GetKind() != Kind::Combo && control.GetKind() != Kind::List)
        return Outcome::Refused(Reason::UnknownControl);
    const auto legal = [&] {
        const int count = static_cast<int>(control.Items().size());
        const bool inside = std::all_of(indices.begin(), indices.end(), [count](int i) { return i >= 0 && i < count; });
        return !indices.empty() && inside && (indices.size() == 1 || control.Multiple());
    };
    if (const Outcome reached = ReachEditable(control, legal); !reached.ok) return reached;
    control.Owner().SetFocus(&control);
    control.SetSelection(std::move(indices));
    Call(control.onChange);
    return Outcome::Done();
}

Outcome PageStack::EditCell(Control& control, int row, int column, std::string_view text) {
    if (control.GetKind() != Kind::Grid || !control.onCell) return Outcome::Refused(Reason::UnknownControl);
    const auto legal = [&] {
        const auto rows = static_cast<int>(control.GetCells().size());
        return row >= control.HeaderRows() && row < rows && column >= control.HeaderColumns() &&
               column < static_cast<int>(control.GetCells()[static_cast<std::size_t>(row)].size());
    };
    if (const Outcome reached = ReachEditable(control, legal); !reached.ok) return reached;
    control.Owner().SetFocus(&control);
    const std::string typed = Filtered(control, text);
    if (typed.empty() && !text.empty()) return Outcome::Done();  // every key was dropped: the cell stands
    control.onCell(row, column, typed);
    return Outcome::Done();
}

Outcome PageStack::DoubleClick(Control& control) {
    if (!control.onDoubleClick) return Outcome::Refused(Reason::UnknownControl);
    if (const Outcome reached = ReachEditable(control); !reached.ok) return reached;
    control.onDoubleClick();
    return Outcome::Done();
}

Outcome PageStack::Key(Page& page, std::string_view key) {
    if (const Reason why = WhyNot(page); why != Reason::None) return Outcome::Refused(why);
    if (Button* button = page.KeyButton(key)) return Press(*button);
    Control* focus = page.Focus();
    if ((key == "Enter" || key == "Tab") && focus != nullptr) {
        if (key == "Enter" && IsPressable(*focus)) return Press(*focus);
        return Leave(*focus);
    }
    if (key == "Space" && focus != nullptr && IsPressable(*focus)) return Press(*focus);
    if (key == "Delete" && focus != nullptr && focus->GetKind() == Kind::Field) return Type(*focus, {});
    if (key == "Backspace" && focus != nullptr && focus->GetKind() == Kind::Field && !focus->Text().empty()) {
        return Type(*focus, std::string_view(focus->Text()).substr(0, focus->Text().size() - 1));
    }
    return Outcome::Refused(Reason::KeyDoesNothing);
}

Outcome PageStack::Close(Page& page) {
    if (const Reason why = WhyNot(page); why != Reason::None) return Outcome::Refused(why);
    // A page whose way out is barred, by an exchange that runs, cannot be closed by its window either.
    for (const Control* control : page.controls_) {
        if (control->escapes && control->Visible() && !control->Enabled()) return Outcome::Refused(control->Why());
    }
    if (const Reason why = page.whyNotClose ? page.whyNotClose() : Reason::None; why != Reason::None) {
        return Outcome::Refused(why);
    }
    LeavePending(page, nullptr);
    if (page.onClose) {
        page.onClose();
    } else {
        ClosePage(page);
    }
    return Outcome::Done();
}

Outcome PageStack::FocusOn(Control& control) {
    if (const Outcome reached = Reach(control); !reached.ok) return reached;
    control.Owner().SetFocus(&control);
    return Outcome::Done();
}

}  // namespace pages
