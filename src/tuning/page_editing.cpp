#include "tuning/page_editing.h"

#include <algorithm>

#include "link/frames/numbers.h"
#include "tuning/limits.h"
#include "tuning/page_check.h"
#include "tuning/page_figures.h"
#include "tuning/tuning.h"

namespace tuning {

namespace {

using pages::Control;

void Call(const std::function<void()>& handler) {
    if (handler) handler();
}

// The thresholds whose selector has been moved are shown by their other sensor.
void FollowSelectors(Tuning& tuning, const Context& before) {
    const Context after = tuning.CurrentContext();
    if (before.cutOffByPressure == after.cutOffByPressure && before.idleByPressure == after.idleByPressure) return;
    for (Record& record : tuning.memoria) {
        if (FollowsSelector(*record.row)) ShowAnew(record, before, after);
    }
}

const GridControls* GridOf(const PageSet& set, const Control& control) {
    for (const TableControls& table : set.tables) {
        for (const GridControls& grid : table.grids) {
            if (grid.value == &control) return &grid;
        }
    }
    return nullptr;
}

}  // namespace

PageEditing::PageEditing(Tuning& tuning, PageControls& controls, pages::Label& message, std::string_view section)
    : tuning_(tuning), controls_(controls), message_(message), section_(section) {
    for (const PageSet& set : controls_.All()) {
        for (const FieldControls& field : set.fields) Wire(field);
        for (const TableControls& table : set.tables) {
            for (const GridControls& grid : table.grids) Wire(grid);
        }
    }
}

void PageEditing::Wire(const FieldControls& field) {
    field.value->takesSameEntry = field.row->IsList();
    field.value->onChange = [this, &field] {
        field.value->SetChanged(true);
        if (field.row->IsList()) {
            Take(field.row->record, std::to_string(field.value->Index()));
        } else {
            typed_ = field.row->record;
            if (onTyped) onTyped(field.row->record);
        }
        Call(onTouched);
    };
    if (!field.row->IsList()) field.value->onLeave = [this, &field] { FieldLeft(field); };
}

void PageEditing::Wire(const GridControls& grid) {
    Control& control = *grid.value;
    control.onCell = [this, &control](int row, int column, const std::string& text) {
        CellEdited(control, row, column, text);
    };
    control.onLeave = [this, &control] {
        if (const GridControls* shown = GridOf(controls_.Shown(), control)) CheckCells(*shown);
    };
}

// A field that nobody typed into is left without a check: the unit itself may hold what no page would accept, and a
// live figure that the field follows is no edit.
void PageEditing::FieldLeft(const FieldControls& field) {
    const std::size_t record = field.row->record;
    if (typed_ == record) {
        Take(record, field.value->Text());
        return;
    }
    field.value->pending = false;
    Show();
}

void PageEditing::CellEdited(const Control& grid, int row, int column, const std::string& text) {
    const GridControls* cells = GridOf(controls_.Shown(), grid);
    if (cells == nullptr) return;
    const std::size_t record =
        cells->row->RecordAt(row - cells->row->HeaderRows(), column - cells->row->HeaderColumns());
    if (record == MemoriaCount) return;
    Take(record, text);
    Call(onTouched);
}

// A table is left when none of its cells is refused any more.
void PageEditing::CheckCells(const GridControls& grid) {
    const std::map<std::size_t, std::string> kept = kept_;
    for (const auto& [record, text] : kept) {
        if (controls_.ValueOf(record) == grid.value && !Take(record, text)) return;
    }
}

bool PageEditing::Take(std::size_t record, const std::string& text) {
    if (Control* control = controls_.ValueOf(record)) control->pending = false;
    if (!text.empty()) {
        const double figure = frames::ValoreNum(text);
        if (const auto limits = WhyRefused(tuning_, record, figure)) {
            Keep(record, text);
            Refuse(record, *limits);
            Show();
            return false;
        }
        Accept(record, figure);
    }
    Release(record);
    Show();
    return true;
}

// What was typed stays to be put right: leaving it again checks it again.
void PageEditing::Keep(std::size_t record, const std::string& text) {
    Control* control = controls_.ValueOf(record);
    if (control == nullptr || control->GetKind() == pages::Kind::Combo) return;
    control->pending = true;
    if (control->GetKind() == pages::Kind::Grid) {
        kept_[record] = text;
        return;
    }
    typed_ = record;
    control->SetText(text);
}

void PageEditing::Release(std::size_t record) {
    if (typed_ == record) typed_.reset();
    kept_.erase(record);
    flagged_.erase(record);
    Control* control = controls_.ValueOf(record);
    if (control == nullptr || !control->Refused()) return;
    const auto here = [this, control](std::size_t other) { return controls_.ValueOf(other) == control; };
    control->pending = std::any_of(kept_.begin(), kept_.end(), [&here](const auto& cell) { return here(cell.first); });
    if (control->pending || std::any_of(flagged_.begin(), flagged_.end(), here)) return;
    if (!control->Legal().empty()) message_.SetText({});
    control->SetRefused(false);
}

void PageEditing::Accept(std::size_t record, double figure) {
    const Context before = tuning_.CurrentContext();
    Record& edited = tuning_.memoria[record];
    edited.Dato[1] = FigureText(figure);
    // A list in which something has been chosen goes out as that entry, also where it is the one that was read.
    if (edited.row->positions > 0) edited.shown.reset();
    ShareCell(record);
    ApplySpeed();
    FollowSelectors(tuning_, before);
    FollowNeighbour(tuning_, record);
}

// The limits of a list are its entries; those of a figure are in the unit that stands beside it.
std::string PageEditing::LimitWords(const Control& control, const Limits& limits) const {
    if (control.GetKind() == pages::Kind::Combo && !control.Items().empty())
        return control.Items().front() + " - " + control.Items().back();
    return frames::Format0(limits.Min) + " - " + frames::Format0(limits.Max);
}

void PageEditing::Refuse(std::size_t record, const Limits& limits) {
    tuning_.memory.link.shell.Beep();
    Flag(record);
    Control* control = controls_.ValueOf(record);
    if (control == nullptr) return;
    const std::string legal = LimitWords(*control, limits);
    control->SetRefused(true, legal);
    message_.Say(pages::Tone::Refused, legal);
    pages::CellPlace cell;
    if (controls_.GridOf(record, &cell) != nullptr) control->SetFocusCell(cell);
    control->Owner().SetFocus(control);
}

// What stands in a field or cell without having been taken, else the figure of the record.
std::string PageEditing::TypedOr(std::size_t record, const std::string& figure) const {
    if (const auto cell = kept_.find(record); cell != kept_.end()) return cell->second;
    const Control* control = controls_.ValueOf(record);
    return typed_ == record && control != nullptr ? control->Text() : figure;
}

bool PageEditing::CheckAll() {
    ClearFlags();
    for (const std::size_t number : controls_.Shown().records) {
        const Record& record = tuning_.memoria[number];
        const std::string figure = TypedOr(number, record.Dato[1]);
        if (!frames::IsNumeric(figure)) continue;  // a reading without a figure goes out as it was read
        const auto limits = WhyRefused(tuning_, number, frames::ValoreNum(figure));
        if (!limits) continue;
        Refuse(number, *limits);
        return false;
    }
    return true;
}

// Records of one cell hold one figure: the breakpoint that ends a row starts the next.
void PageEditing::ShareCell(std::size_t number) {
    const Record& record = tuning_.memoria[number];
    const Context context = tuning_.CurrentContext();
    const auto count = Outgoing(record, 1, context);
    for (Record& other : tuning_.memoria) {
        if (&other == &record || other.EE != record.EE || other.EE == NoAddress) continue;
        const bool alike = other.row->conversion == record.row->conversion;
        if (alike) other.Dato[1] = record.Dato[1];
        if (alike || !count) continue;
        if (const auto shown = ToShown(*other.row, *count, context)) other.Dato[1] = FigureText(*shown);
    }
}

bool PageEditing::FixedSpeed() const {
    for (const FieldControls& field : controls_.Shown().fields) {
        const Record& record = tuning_.memoria[field.row->record];
        if (record.row->conversion != Conversion::SpeedChoice) continue;
        return frames::ValoreNum(record.Dato[1]) != record.row->positions - 1;
    }
    return false;
}

// The last entry of the list of speeds gives the figures to the fitter.
void PageEditing::ApplySpeed() {
    if (!FixedSpeed()) return;
    for (const FieldControls& field : controls_.Shown().fields) {
        Record& record = tuning_.memoria[field.row->record];
        if (!field.row->IsList()) TakeBack(record);
    }
}

// A figure that the chosen speed fixes, and a pressure that cannot be converted back.
void PageEditing::LockFields() {
    using pages::Reason;
    const bool fixed = FixedSpeed();
    for (const FieldControls& field : controls_.Shown().fields) {
        if (field.row->IsList()) {
            field.value->SetWhy(why_);
            continue;
        }
        const bool none = ShownFigure(tuning_.memoria[field.row->record], 1) == NoFigure;
        const Reason lock = fixed ? Reason::FixedSpeed : none ? Reason::NoSensor : Reason::None;
        field.value->SetLocked(lock != Reason::None);
        field.value->SetWhy(why_ == Reason::None ? lock : why_);
    }
}

void PageEditing::Show() {
    ShowFigures(controls_.Shown(), tuning_, section_);
    MarkCells();
    controls_.ShowUnits(tuning_.CurrentContext());
    LockFields();
    Call(onFigures);
}

// Never from under a hand that is typing.
void PageEditing::BringUp(std::size_t record, Control& control) {
    pages::Page& page = control.Owner();
    const Control* hand = page.Focus();
    if (hand != nullptr && hand->pending) return;
    controls_.Reveal(record);
    if (hand != nullptr && !hand->Visible()) page.SetFocus(&control);
}

void PageEditing::Flag(std::size_t record) {
    Control* control = controls_.ValueOf(record);
    if (control == nullptr) return;
    if (!control->Visible()) BringUp(record, *control);
    if (!control->Refused()) control->SetRefused(true);
    if (controls_.GridOf(record) == nullptr) return;
    flagged_.insert(record);
    MarkCells();
}

void PageEditing::ClearFlags() {
    flagged_.clear();
    const auto clear = [](Control& control) {
        if (!control.pending) control.SetRefused(false);
    };
    for (const FieldControls& field : controls_.Shown().fields) clear(*field.value);
    for (const TableControls& table : controls_.Shown().tables) {
        for (const GridControls& grid : table.grids) clear(*grid.value);
    }
    MarkCells();
}

// The cells that are refused or flagged, with what was typed there.
void PageEditing::MarkCells() {
    for (const TableControls& table : controls_.Shown().tables) {
        for (const GridControls& grid : table.grids) {
            std::vector<pages::CellPlace> places;
            const auto mark = [&](std::size_t record) {
                pages::CellPlace cell;
                if (controls_.GridOf(record, &cell) == &grid) places.push_back(cell);
                return cell;
            };
            for (const std::size_t record : flagged_) {
                if (kept_.count(record) == 0) mark(record);
            }
            for (const auto& [record, text] : kept_) {
                if (controls_.ValueOf(record) != grid.value) continue;
                const pages::CellPlace cell = mark(record);
                grid.value->SetCell(cell.row, cell.column, text);
            }
            grid.value->SetRefusedCells(std::move(places));
        }
    }
}

void PageEditing::SetWhy(pages::Reason why) {
    why_ = why;
    LockFields();
    for (const TableControls& table : controls_.Shown().tables) {
        for (const GridControls& grid : table.grids) grid.value->SetWhy(why);
    }
}

void PageEditing::Forget() {
    typed_.reset();
    kept_.clear();
    flagged_.clear();
    for (Record& record : tuning_.memoria) TakeBack(record);
    SetLimits(tuning_);
}

}  // namespace tuning
