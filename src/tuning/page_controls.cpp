#include "tuning/page_controls.h"

#include <algorithm>

#include "shell/shell.h"

namespace tuning {

namespace {

using pages::Control;
using pages::Kind;

constexpr std::size_t FigureWidth = 8;

int RowsOfAll(std::span<const PageRow> pages) {
    int count = 0;
    for (const PageRow& page : pages) {
        for (const FieldRow& field : page.fields) count = std::max(count, field.caption + 1);
    }
    return count;
}

bool Holds(const GridRow& grid, std::size_t record) {
    return record >= grid.record && record < grid.record + static_cast<std::size_t>(grid.records);
}

// The table whose grids hold the record; null for one that has a field.
const TableControls* TableOf(const PageSet& set, std::size_t record) {
    for (const TableControls& table : set.tables) {
        for (const GridControls& grid : table.grids) {
            if (Holds(*grid.row, record)) return &table;
        }
    }
    return nullptr;
}

}  // namespace

PageControls::PageControls(pages::Page& page, const shell::Shell& shell, std::string_view section,
                           std::span<const PageRow> rows)
    : page_(page),
      shell_(shell),
      section_(section),
      captions_(page, "LabMP", RowsOfAll(rows)),
      units_(page, "Umi", RowsOfAll(rows)) {
    for (const PageRow& row : rows) MakeButtons(row);
    for (const PageRow& row : rows) sets_.push_back(MakeSet(row));
}

// They stand above the rows, and so before them in reading order.
void PageControls::MakeButtons(const PageRow& row) {
    for (const TableRow& table : row.tables) {
        Make(std::string(table.button), Kind::Button);
        Make(TwinName(table.button, Alone), Kind::Button);
    }
}

// Pages that name a control alike share it.
Control& PageControls::Make(std::string name, Kind kind) {
    if (Control* made = page_.Find(name)) return *made;
    made_.push_back(std::make_unique<Control>(page_, std::move(name), kind));
    return *made_.back();
}

PageSet PageControls::MakeSet(const PageRow& row) {
    PageSet set{&row, {}, {}, RecordsOf(row)};
    for (const FieldRow& field : row.fields) set.fields.push_back(MakeField(field));
    for (const TableRow& table : row.tables) set.tables.push_back(MakeTable(table));
    return set;
}

FieldControls PageControls::MakeField(const FieldRow& row) {
    Control& initial = Make(TwinName(row.name, row.number), Kind::Field);
    initial.SetLocked(true);
    Control& value = Make(FullName(row.name, row.number), row.IsList() ? Kind::Combo : Kind::Field);
    value.filter = pages::KeyFilter::Digits;
    value.SetMaxLength(row.IsList() ? 0 : FigureWidth);
    value.beside = {&captions_[row.caption], &initial, &units_[row.caption]};
    return {&row, &value, &initial};
}

TableControls PageControls::MakeTable(const TableRow& row) {
    TableControls table{
        &row, &Make(std::string(row.button), Kind::Button), &Make(TwinName(row.button, Alone), Kind::Button), {}};
    table.button->onPress = [this, &row] { Press(row.button, false); };
    table.initialButton->onPress = [this, &row] { Press(row.button, true); };
    for (const GridRow& grid : row.grids) table.grids.push_back(MakeGrid(grid));
    return table;
}

GridControls PageControls::MakeGrid(const GridRow& row) {
    Control& caption = Make(std::string(row.label), Kind::Label);
    Control& initial = Make(TwinName(row.name, Alone), Kind::Grid);
    initial.SetLocked(true);
    Control& value = Make(std::string(row.name), Kind::Grid);
    value.filter = pages::KeyFilter::Digits;
    value.SetMaxLength(FigureWidth);
    value.beside = {&caption, &initial, nullptr};
    return {&row, &value, &initial};
}

void PageControls::Show(std::size_t page) {
    shown_ = std::min(page, sets_.size() - 1);
    open_ = {};
    LoadTexts();
    ShowView();
}

void PageControls::Reveal(std::size_t record) {
    const TableControls* table = TableOf(Shown(), record);
    open_ = table == nullptr ? std::string_view() : table->row->button;
    valuesOpen_ = initialsOpen_ = table != nullptr;
    ShowView();
}

// From the list the button opens both columns, from its tables the way back; the twin opens and closes one of them.
void PageControls::Press(std::string_view button, bool initial) {
    if (open_ != button) valuesOpen_ = initialsOpen_ = false;
    if (initial) {
        initialsOpen_ = !initialsOpen_;
    } else {
        valuesOpen_ = initialsOpen_ = !valuesOpen_;
    }
    open_ = valuesOpen_ || initialsOpen_ ? button : std::string_view();
    ShowView();
}

void PageControls::ShowView() {
    for (auto* labels : {&captions_, &units_}) {
        for (const auto& label : *labels) label->SetVisible(false);
    }
    for (const PageSet& set : sets_) {
        if (&set == &Shown()) continue;
        for (const FieldControls& field : set.fields) ShowField(field, false);
        for (const TableControls& table : set.tables) {
            table.button->SetVisible(false);
            table.initialButton->SetVisible(false);
            ShowTable(table, false, false);
        }
    }
    for (const FieldControls& field : Shown().fields) ShowField(field, open_.empty());
    for (const TableControls& table : Shown().tables) {
        const bool open = open_ == table.row->button;
        ShowButtons(table);
        ShowTable(table, open && valuesOpen_, open && initialsOpen_);
    }
    if (onView) onView();
}

// The twin is worded by the column that it shows, and leaves the access key to the other.
void PageControls::ShowButtons(const TableControls& table) {
    const std::string& list = shell_.TestoLingua({table.row->captions, section_}, 0);
    table.button->SetText(Caption(table.row->button));
    table.initialButton->SetText(shell_.TestoLingua({"LABTXT.", section_}, 0) + ": " + shell::CaptionPulita(list));
    table.button->SetVisible(true);
    table.initialButton->SetVisible(true);
}

void PageControls::ShowField(const FieldControls& field, bool visible) {
    for (Control* control : {field.value, field.initial}) control->SetVisible(visible);
    if (!visible) return;
    field.value->beside.label->SetVisible(true);
    field.value->beside.unit->SetVisible(true);
}

void PageControls::ShowTable(const TableControls& table, bool values, bool initials) {
    for (const GridControls& grid : table.grids) {
        grid.value->SetVisible(values);
        grid.initial->SetVisible(initials);
        grid.value->beside.label->SetVisible(values || initials);
    }
}

void PageControls::LoadTexts() {
    const PageRow& row = *Shown().row;
    for (const FieldControls& field : Shown().fields) {
        field.value->beside.label->SetText(shell_.TestoLingua({row.captions, section_}, field.row->caption));
        if (field.row->IsList()) field.value->SetItems(Entries(*field.row));
    }
    for (const TableControls& table : Shown().tables) {
        for (const GridControls& grid : table.grids) {
            grid.value->beside.label->SetText(shell_.TestoLingua(grid.row->caption, section_));
        }
    }
}

std::vector<std::string> PageControls::Entries(const FieldRow& row) const {
    std::vector<std::string> entries;
    for (int i = 0; i < ParameterRows[row.record].positions; ++i) entries.push_back(shell_.TestoLingua(row.choices, i));
    return entries;
}

void PageControls::ShowUnits(const Context& context) {
    for (const FieldControls& field : Shown().fields) {
        const bool pressure = IsPressure(ParameterRows[field.row->record], context);
        field.value->beside.unit->SetText(shell_.TestoLingua(MeasureKey(field.row->measure, pressure), "MISURE"));
    }
}

Control* PageControls::ValueOf(std::size_t record) const {
    for (const FieldControls& field : Shown().fields) {
        if (field.row->record == record) return field.value;
    }
    const GridControls* grid = GridOf(record);
    return grid == nullptr ? nullptr : grid->value;
}

const GridControls* PageControls::GridOf(std::size_t record, pages::CellPlace* cell) const {
    const TableControls* table = TableOf(Shown(), record);
    if (table == nullptr) return nullptr;
    const auto grid = std::find_if(table->grids.begin(), table->grids.end(),
                                   [record](const GridControls& controls) { return Holds(*controls.row, record); });
    for (int place = 0; cell != nullptr && place < grid->row->rows * grid->row->columns; ++place) {
        const int row = place / grid->row->columns;
        const int column = place % grid->row->columns;
        if (grid->row->RecordAt(row, column) == record)
            *cell = {row + grid->row->HeaderRows(), column + grid->row->HeaderColumns()};
    }
    return &*grid;
}

std::string PageControls::Caption(std::string_view button) const {
    for (const TableControls& table : Shown().tables) {
        if (table.row->button == button)
            return shell_.TestoLingua({table.row->captions, section_}, IsOpen(button) ? 1 : 0);
    }
    return {};
}

bool PageControls::IsOpen(std::string_view button) const {
    return open_ == button;
}

}  // namespace tuning
