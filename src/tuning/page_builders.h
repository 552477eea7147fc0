#pragma once

#include <array>

#include "tuning/page_rows.h"
#include "tuning/parameter_table.h"

// Words in which the tables of pages are written; what they name is looked up while the program is compiled.
namespace tuning {

// A number in a field of an array, whose index is that of its record.
constexpr FieldRow Number(std::string_view name, int number, Measure measure, int caption) {
    return {name, number, caption, measure, {}, table::NumberOf(name, number)};
}
// The same where the caption has the number of the field.
constexpr FieldRow Number(std::string_view name, int number, Measure measure) {
    return Number(name, number, measure, number);
}
constexpr FieldRow Single(std::string_view name, Measure measure, int caption) {
    return {name, Alone, caption, measure, {}, table::NumberOf(name)};
}
constexpr FieldRow List(std::string_view name, shell::Text choices, int caption) {
    return {name, Alone, caption, Measure::None, choices, table::NumberOf(name)};
}

// Which records stand in a grid, and how.
struct Layout {
    int first;  // number of the first record of the name
    int rows;
    int columns;
    int rowStep;
    int columnStep;
    int records;
};

constexpr GridRow Grid(std::string_view name, const Layout& layout, std::string_view label, std::string_view caption) {
    return {name,
            label,
            caption,
            layout.rows,
            layout.columns,
            layout.rowStep,
            layout.columnStep,
            layout.records,
            {},
            0,
            {},
            table::NumberOf(name, layout.first)};
}
// With texts above the columns.
constexpr GridRow Headed(GridRow grid, std::string_view heads, int firstHead) {
    grid.heads = heads;
    grid.firstHead = firstHead;
    return grid;
}
// With numbered rows.
constexpr GridRow Numbered(GridRow grid, std::string_view corner) {
    grid.corner = corner;
    return grid;
}

// Whether every control of the pages has its record: a name that the map does not know would show nothing.
template <std::size_t N>
constexpr bool AllKnown(const std::array<PageRow, N>& pages) {
    for (const PageRow& page : pages) {
        for (const FieldRow& field : page.fields) {
            if (field.record >= MemoriaCount) return false;
        }
        for (const TableRow& tables : page.tables) {
            for (const GridRow& grid : tables.grids) {
                if (grid.record + static_cast<std::size_t>(grid.records) > MemoriaCount) return false;
            }
        }
    }
    return true;
}

}  // namespace tuning
