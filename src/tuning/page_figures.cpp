#include "tuning/page_figures.h"

#include "link/frames/numbers.h"
#include "platform/text.h"
#include "shell/shell.h"
#include "tuning/tuning.h"

namespace tuning {

namespace {

using pages::Control;

// The entry of a list; -1 for a figure that stands for none.
int EntryOf(const Control& list, const Record& record, std::size_t slot) {
    const double figure = frames::ValoreNum(record.Dato[slot]);
    const bool inside = figure >= 0 && figure < static_cast<double>(list.Items().size());
    return inside ? static_cast<int>(figure) : -1;
}

// The initial value; with its unit where its sensor is not the one that is now selected.
std::string InitialText(const FieldRow& field, const Tuning& tuning) {
    const Record& record = tuning.memoria[field.record];
    const bool pressure = IsPressure(*record.row, tuning.InitialContext());
    std::string text = ShownFigure(record, 0);
    if (pressure == IsPressure(*record.row, tuning.CurrentContext())) return text;
    return text + " " + tuning.memory.link.shell.TestoLingua(MeasureKey(field.measure, pressure), "MISURE");
}

void ShowField(const FieldControls& field, const Tuning& tuning) {
    const Record& record = tuning.memoria[field.row->record];
    Control& value = *field.value;
    if (field.row->IsList()) {
        const int entry = EntryOf(value, record, 0);
        value.SetIndex(EntryOf(value, record, 1));
        field.initial->SetText(entry < 0 ? ShownFigure(record, 0) : value.Items()[static_cast<std::size_t>(entry)]);
    } else {
        if (!value.pending) value.SetText(ShownFigure(record, 1));
        field.initial->SetText(InitialText(*field.row, tuning));
    }
    value.SetChanged(value.pending || Differ(record));
}

pages::Cells HeadsOf(const GridRow& grid, const shell::Shell& shell, std::string_view section) {
    if (grid.HeaderRows() == 0) return {};
    std::vector<std::string> heads;
    if (grid.HeaderColumns() > 0) heads.push_back(shell.TestoLingua(grid.corner, section));
    for (int column = 0; column < grid.columns; ++column) {
        heads.push_back(grid.heads.empty() ? std::string()
                                           : shell.TestoLingua({grid.heads, section}, grid.firstHead + column));
    }
    return {heads};
}

pages::Cells CellsOf(const GridRow& grid, const MemoriaTable& memoria, std::size_t slot, const shell::Shell& shell,
                     std::string_view section) {
    pages::Cells cells = HeadsOf(grid, shell, section);
    for (int row = 0; row < grid.rows; ++row) {
        std::vector<std::string> line;
        if (grid.HeaderColumns() > 0) line.push_back(std::to_string(row + 1));
        for (int column = 0; column < grid.columns; ++column) {
            const std::size_t record = grid.RecordAt(row, column);
            line.push_back(record < MemoriaCount ? ShownFigure(memoria[record], slot) : std::string());
        }
        cells.push_back(std::move(line));
    }
    return cells;
}

std::vector<pages::CellPlace> ChangedCells(const GridRow& grid, const MemoriaTable& memoria) {
    std::vector<pages::CellPlace> places;
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            const std::size_t record = grid.RecordAt(row, column);
            if (record < MemoriaCount && Differ(memoria[record]))
                places.push_back({row + grid.HeaderRows(), column + grid.HeaderColumns()});
        }
    }
    return places;
}

void MarkChanged(pages::Control& grid, std::vector<pages::CellPlace> places) {
    grid.SetChanged(!places.empty());
    grid.SetChangedCells(std::move(places));
}

}  // namespace

std::string ShownFigure(const Record& record, std::size_t slot) {
    return std::string(platform::Trim(record.Dato[slot]));
}

void ShowFigures(const PageSet& set, const Tuning& tuning, std::string_view section) {
    const MemoriaTable& memoria = tuning.memoria;
    const shell::Shell& shell = tuning.memory.link.shell;
    for (const FieldControls& field : set.fields) ShowField(field, tuning);
    for (const TableControls& table : set.tables) {
        for (const GridControls& grid : table.grids) {
            const GridRow& row = *grid.row;
            grid.value->SetCells(CellsOf(row, memoria, 1, shell, section), row.HeaderRows(), row.HeaderColumns());
            grid.initial->SetCells(CellsOf(row, memoria, 0, shell, section), row.HeaderRows(), row.HeaderColumns());
            MarkChanged(*grid.value, ChangedCells(row, memoria));
        }
    }
}

void ClearFigures(const PageSet& set) {
    for (const FieldControls& field : set.fields) {
        field.value->pending = false;
        field.value->SetText({});
        field.value->SetIndex(-1);
        field.initial->SetText({});
        field.value->SetChanged(false);
        field.value->SetRefused(false);
    }
    for (const TableControls& table : set.tables) {
        for (const GridControls& grid : table.grids) {
            for (Control* control : {grid.value, grid.initial}) control->SetCells({}, 0, 0);
            MarkChanged(*grid.value, {});
            grid.value->SetRefused(false);
            grid.value->SetRefusedCells({});
            grid.value->SetFocusCell({});
            grid.value->pending = false;
            grid.value->MarkCell(-1, -1);
        }
    }
}

}  // namespace tuning
