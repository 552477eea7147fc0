#include "tuning/page_editing.h"

#include <cmath>

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

bool FollowsSelector(const Record& record) {
    return record.row->conversion == Conversion::CutOffThreshold || record.row->conversion == Conversion::IdleThreshold;
}

// The thresholds whose selector has been moved are shown by their other sensor.
void FollowSelectors(Tuning& tuning, const Context& before) {
    const Context after = tuning.CurrentContext();
    if (before.cutOffByPressure == after.cutOffByPressure && before.idleByPressure == after.idleByPressure) return;
    for (Record& record : tuning.memoria) {
        if (FollowsSelector(record)) ShowAnew(record, before, after);
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
    field.value->onChange = [this, &field] {
        field.value->SetChanged(true);
        if (field.row->IsList()) Take(field.row->record, std::to_string(field.value->Index()));
        Call(onTouched);
    };
    if (!field.row->IsList()) field.value->onLeave = [this, &field] { FieldLeft(field); };
}

void PageEditing::Wire(const GridControls& grid) {
    Control& control = *grid.value;
    control.onCell = [this, &control](int row, int column, const std::string& text) {
        CellEdited(control, row, column, text);
    };
}

// A field that stands as it was read is left without a check: the unit itself may hold what no page would accept.
void PageEditing::FieldLeft(const FieldControls& field) {
    const std::size_t record = field.row->record;
    const std::string& text = field.value->Text();
    const bool untouched = text == ShownFigure(tuning_.memoria[record], 1);
    Take(record, untouched ? std::string() : text);
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

bool PageEditing::Take(std::size_t record, const std::string& text) {
    if (!text.empty()) {
        const double figure = frames::ValoreNum(text);
        if (const auto limits = WhyRefused(tuning_, record, figure)) {
            Refuse(record, limits->Min, limits->Max);
            Control* control = controls_.ValueOf(record);
            if (control != nullptr && control->GetKind() == pages::Kind::Field) {
                // What was typed stays to be put right: leaving it again checks it again.
                control->SetText(text);
                control->pending = true;
            }
            Show();
            return false;
        }
        Accept(record, figure);
    }
    if (Control* control = controls_.ValueOf(record); control != nullptr && control->Refused()) {
        control->SetRefused(false);
        message_.SetText({});
    }
    Show();
    return true;
}

void PageEditing::Accept(std::size_t record, double figure) {
    const Context before = tuning_.CurrentContext();
    tuning_.memoria[record].Dato[1] = FigureText(figure);
    ShareCell(record);
    ApplySpeed();
    FollowSelectors(tuning_, before);
    FollowNeighbour(tuning_.memoria, record, tuning_.Cells(), tuning_.CurrentContext());
}

void PageEditing::Refuse(std::size_t record, double least, double most) {
    Control* control = controls_.ValueOf(record);
    tuning_.memory.link.shell.Beep();
    std::string words = frames::Format0(least) + " - " + frames::Format0(most);
    if (control != nullptr && control->beside.unit != nullptr && !control->beside.unit->Text().empty())
        words += " " + control->beside.unit->Text();
    message_.SetText(words);
    if (control == nullptr) return;
    if (!control->Visible()) controls_.Reveal(record);
    control->SetRefused(true);
    control->Owner().SetFocus(control);
}

bool PageEditing::CheckAll() {
    for (const std::size_t number : controls_.Shown().records) {
        const Record& record = tuning_.memoria[number];
        if (!frames::IsNumeric(record.Dato[1])) continue;  // a reading without a figure goes out as it was read
        const auto limits = WhyRefused(tuning_, number, frames::ValoreNum(record.Dato[1]));
        if (!limits) continue;
        Refuse(number, limits->Min, limits->Max);
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

// A fixed speed leaves the page's figures at those read; the last entry of the list gives them to the fitter.
void PageEditing::ApplySpeed() {
    if (!FixedSpeed()) return;
    for (const FieldControls& field : controls_.Shown().fields) {
        Record& record = tuning_.memoria[field.row->record];
        if (!field.row->IsList()) record.Dato[1] = record.Dato[0];
    }
}

void PageEditing::LockBySpeed() {
    const bool fixed = FixedSpeed();
    for (const FieldControls& field : controls_.Shown().fields) {
        if (!field.row->IsList()) field.value->SetLocked(fixed);
    }
}

void PageEditing::Show() {
    const shell::Shell& shell = tuning_.memory.link.shell;
    ShowFigures(controls_.Shown(), tuning_.memoria, shell, section_);
    controls_.ShowUnits(tuning_.CurrentContext());
    LockBySpeed();
    Call(onFigures);
}

void PageEditing::Flag(std::size_t record) {
    Control* control = controls_.ValueOf(record);
    if (control == nullptr) return;
    if (!control->Visible()) controls_.Reveal(record);
    control->SetRefused(true);
}

void PageEditing::ClearFlags() {
    const auto clear = [](Control& control) {
        if (!control.pending) control.SetRefused(false);
    };
    for (const FieldControls& field : controls_.Shown().fields) clear(*field.value);
    for (const TableControls& table : controls_.Shown().tables) {
        for (const GridControls& grid : table.grids) clear(*grid.value);
    }
}

void PageEditing::SetWhy(pages::Reason why) {
    for (const FieldControls& field : controls_.Shown().fields) field.value->SetWhy(why);
    for (const TableControls& table : controls_.Shown().tables) {
        for (const GridControls& grid : table.grids) grid.value->SetWhy(why);
    }
}

void PageEditing::Forget() {
    const Context before = tuning_.CurrentContext();
    for (Record& record : tuning_.memoria) record.Dato[1] = record.Dato[0];
    FollowSelectors(tuning_, before);
    SetLimits(tuning_.memoria, tuning_.Cells(), tuning_.CurrentContext());
}

}  // namespace tuning
