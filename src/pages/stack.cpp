#include "pages/stack.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "platform/text.h"

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

void PutText(Control& field, std::string text) {
    field.SetText(std::move(text));
    field.pending = true;
    Call(field.onChange);
}

bool IsPressable(const Control& control) {
    const Kind kind = control.GetKind();
    return kind == Kind::Button || kind == Kind::Option || kind == Kind::Check;
}

// The entry of a list to which an arrow key goes, the first where none is chosen; nothing for other keys and controls.
std::optional<int> IndexAfterKey(const Control& list, std::string_view key) {
    const bool one = (list.GetKind() == Kind::Combo || list.GetKind() == Kind::List) && !list.Multiple();
    if (!one || list.Items().empty()) return std::nullopt;
    const int last = static_cast<int>(list.Items().size()) - 1;
    if (key == "Up") return std::max(list.Index() - 1, 0);
    if (key == "Down") return std::min(list.Index() + 1, last);
    if (key == "Home") return 0;
    if (key == "End") return last;
    return std::nullopt;
}

// The letter behind the mark of a caption, in upper case; a doubled mark stands for itself.
std::string AccessKey(std::string_view caption) {
    for (std::size_t at = caption.find('&'); at != std::string_view::npos && at + 1 < caption.size();
         at = caption.find('&', at + 2)) {
        if (caption[at + 1] != '&') return platform::UpperCase(caption.substr(at + 1, 1));
    }
    return {};
}

// What "Alt+S" presses: the visible control whose caption marks that letter; null when there is none.
Control* WithAccessKey(const Page& page, std::string_view key) {
    constexpr std::string_view Alt = "Alt+";
    if (!key.starts_with(Alt) || key.size() != Alt.size() + 1) return nullptr;
    const std::string letter = platform::UpperCase(key.substr(Alt.size()));
    for (Control* control : page.Controls()) {
        if (IsPressable(*control) && control->Visible() && AccessKey(control->Text()) == letter) return control;
    }
    return nullptr;
}

// Whether the grid has that cell, and it is no header.
bool HasCell(const Control& grid, int row, int column) {
    const auto rows = static_cast<int>(grid.GetCells().size());
    return row >= grid.HeaderRows() && row < rows && column >= grid.HeaderColumns() &&
           column < static_cast<int>(grid.GetCells()[static_cast<std::size_t>(row)].size());
}

// Whether a refused figure holds the hand in another cell of the table.
bool HeldElsewhere(const Control& grid, CellPlace cell) {
    const std::vector<CellPlace>& refused = grid.RefusedCells();
    return grid.pending && grid.FocusCell() != cell &&
           std::find(refused.begin(), refused.end(), grid.FocusCell()) != refused.end();
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
    const bool refilled =
        control.fills && control.Owner().Focus() != nullptr && control.fills() == control.Owner().Focus();
    if (!refilled && !LeavePending(control.Owner(), &control) && !control.escapes)
        return Outcome::Refused(Reason::ValueRefused);
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
    if (!IsPressable(control)) return Outcome::Refused(Reason::WrongKind);
    if (const Outcome reached = ReachEditable(control); !reached.ok) return reached;
    // A way out that is not taken in the end leaves the hand with the refused figure.
    Page& page = control.Owner();
    const bool held = control.escapes && page.Focus() != nullptr && page.Focus()->pending;
    if (!held) page.SetFocus(&control);
    if (control.GetKind() == Kind::Option) TurnOn(control);
    if (control.GetKind() == Kind::Check) control.SetSelected(!control.Selected());
    if (control.GetKind() != Kind::Button) Call(control.onChange);
    Call(control.onPress);
    return Outcome::Done();
}

Outcome PageStack::Replace(Control& field, std::string_view text) {
    if (field.GetKind() != Kind::Field) return Outcome::Refused(Reason::WrongKind);
    if (const Outcome reached = ReachEditable(field); !reached.ok) return reached;
    field.Owner().SetFocus(&field);
    PutText(field, std::string(text));
    return Outcome::Done();
}

Outcome PageStack::Type(Control& control, std::string_view text) {
    if (text.empty()) return Replace(control, {});
    if (control.GetKind() != Kind::Field) return Outcome::Refused(Reason::WrongKind);
    if (const Outcome reached = ReachEditable(control); !reached.ok) return reached;
    Page& page = control.Owner();
    page.SetFocus(&control);
    bool selected = true;  // the whole of the text: the first key takes its place
    for (const char key : text) {
        std::string now = selected ? std::string() : control.Text();
        if (!Passes(control.filter, key)) continue;
        if (control.MaxLength() != 0 && now.size() >= control.MaxLength()) break;
        PutText(control, std::move(now) + key);
        selected = false;
        // What the page does about a key may take the field away from under the hand.
        if (page.Focus() != &control || control.Locked() || WhyNot(control) != Reason::None) break;
    }
    return Outcome::Done();
}

Outcome PageStack::Edit(Control& control, std::string_view text) {
    if (Filtered(control, text).size() != text.size()) return Outcome::Refused(Reason::KeyDoesNothing);
    return Replace(control, text);
}

Outcome PageStack::Leave(Control& control) {
    return LeaveTowards(control, Towards::Next);
}

// From a control that has been put out of reach meanwhile there is nothing to leave.
Outcome PageStack::MoveOn(Control& from, Towards towards) {
    Page& page = from.Owner();
    page.SetFocus(towards == Towards::Next ? page.NextFocus(&from) : page.PreviousFocus(&from));
    return Outcome::Done();
}

Outcome PageStack::LeaveTowards(Control& control, Towards towards) {
    // Only what can have the focus can be left; whoever has it now must let go first.
    if (const Reason why = WhyNot(control); why != Reason::None) return Outcome::Refused(why);
    if (!TakesFocus(control)) return Outcome::Refused(control.Locked() ? Reason::Locked : Reason::WrongKind);
    if (const Outcome reached = Reach(control); !reached.ok) return reached;
    Page& page = control.Owner();
    page.SetFocus(towards == Towards::Next ? page.NextFocus(&control) : page.PreviousFocus(&control));
    control.pending = false;
    Call(control.onLeave);
    if (control.GetKind() == Kind::Field) control.pending = page.Focus() == &control;
    return Outcome::Done();
}

Outcome PageStack::Select(Control& control, std::vector<int> indices) {
    if (control.GetKind() != Kind::Combo && control.GetKind() != Kind::List) return Outcome::Refused(Reason::WrongKind);
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
    if (control.GetKind() != Kind::Grid || !control.onCell) return Outcome::Refused(Reason::WrongKind);
    const auto legal = [&] { return HasCell(control, row, column); };
    if (const Outcome reached = ReachEditable(control, legal); !reached.ok) return reached;
    if (HeldElsewhere(control, {row, column})) return Outcome::Refused(Reason::ValueRefused);
    control.Owner().SetFocus(&control);
    control.SetFocusCell({row, column});
    const std::string typed = Filtered(control, text);
    if (typed.empty() && !text.empty()) return Outcome::Done();  // every key was dropped: the cell stands
    control.onCell(row, column, typed);
    return Outcome::Done();
}

Outcome PageStack::PointAtCell(Control& control, int row, int column) {
    if (control.GetKind() != Kind::Grid) return Outcome::Refused(Reason::WrongKind);
    if (!HasCell(control, row, column)) return Outcome::Refused(Reason::NoSuchEntry);
    if (const Outcome reached = Reach(control); !reached.ok) return reached;
    if (HeldElsewhere(control, {row, column})) return Outcome::Refused(Reason::ValueRefused);
    control.Owner().SetFocus(&control);
    control.SetFocusCell({row, column});
    return Outcome::Done();
}

Outcome PageStack::DoubleClick(Control& control) {
    if (!control.onDoubleClick) return Outcome::Refused(Reason::WrongKind);
    if (const Outcome reached = ReachEditable(control); !reached.ok) return reached;
    control.onDoubleClick();
    return Outcome::Done();
}

// The keys of a table move the hand: the arrows to the neighbour, Enter down and on to the next column. At its edge the
// hand stays, and from the last cell Enter leaves the table.
Outcome PageStack::KeyOnGrid(Control& grid, std::string_view key) {
    struct Row {
        std::string_view key;
        int rows;
        int columns;
    };
    constexpr std::array<Row, 5> keys{
        {{"Up", -1, 0}, {"Down", 1, 0}, {"Left", 0, -1}, {"Right", 0, 1}, {"Enter", 1, 0}}};
    const auto row = std::find_if(keys.begin(), keys.end(), [key](const Row& each) { return each.key == key; });
    if (row == keys.end()) return Outcome::Refused(Reason::KeyDoesNothing);
    const int top = grid.HeaderRows();
    CellPlace hand = grid.FocusCell();
    if (!HasCell(grid, hand.row, hand.column)) return PointAtCell(grid, top, grid.HeaderColumns());
    hand = {hand.row + row->rows, hand.column + row->columns};
    if (HasCell(grid, hand.row, hand.column)) return PointAtCell(grid, hand.row, hand.column);
    if (key != "Enter") return Outcome::Done();
    return HasCell(grid, top, hand.column + 1) ? PointAtCell(grid, top, hand.column + 1) : Leave(grid);
}

// The keys of the control that has the focus.
Outcome PageStack::KeyOn(Control& focus, std::string_view key) {
    if (focus.GetKind() == Kind::Grid) {
        const Outcome moved = KeyOnGrid(focus, key);
        if (moved.ok || moved.why != Reason::KeyDoesNothing) return moved;
    }
    if (key == "Enter" && IsPressable(focus)) return Press(focus);
    const Towards towards = key == "Shift+Tab" ? Towards::Previous : Towards::Next;
    const bool tab = key == "Tab" || key == "Shift+Tab";
    if (tab && !TakesFocus(focus)) return MoveOn(focus, towards);
    if (tab || key == "Enter") return LeaveTowards(focus, towards);
    if (key == "Space" && IsPressable(focus)) return Press(focus);
    if (focus.GetKind() == Kind::Field && key == "Delete") return Replace(focus, {});
    if (focus.GetKind() == Kind::Field && key == "Backspace" && !focus.Text().empty()) {
        return Replace(focus, std::string(focus.Text(), 0, focus.Text().size() - 1));
    }
    if (const std::optional<int> index = IndexAfterKey(focus, key)) {
        return *index == focus.Index() ? Outcome::Done() : Select(focus, {*index});
    }
    return Outcome::Refused(Reason::KeyDoesNothing);
}

Outcome PageStack::Key(Page& page, std::string_view key) {
    if (const Reason why = WhyNot(page); why != Reason::None) return Outcome::Refused(why);
    if (Button* button = page.KeyButton(key)) return Press(*button);
    if (Control* control = WithAccessKey(page, key)) return Press(*control);
    if (page.Focus() == nullptr) return Outcome::Refused(Reason::KeyDoesNothing);
    return KeyOn(*page.Focus(), key);
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
