#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "shell/language.h"
#include "tuning/parameter_map.h"

// What a page of the tuning dialogs is made of. A page is a row of a table; its controls, its frames and its checks all
// follow from it.
namespace tuning {

inline constexpr int Alone = -1;  // a control or record without an index

// Unit of a field. Two kinds stand for the throttle, whose live reading may be taken into the field.
enum class Measure : std::uint8_t {
    None,
    Counts,
    Revolutions,
    StepSpeed,
    Tenths,  // of a second
    Millibar,
    Cycles,
    Steps,
    Throttle,  // counts
    OfSensor,  // counts of the throttle or mbar of the manifold, as the selector says
};

// A parameter in its own row of the page: its field or list, which bears the name of its record.
struct FieldRow {
    std::string_view name;
    int number = Alone;
    int caption = 0;  // number of its caption in the page's family
    Measure measure = Measure::None;
    shell::Text choices;  // family of a list's entries; none for a number
    std::size_t record = MemoriaCount;

    constexpr bool IsList() const { return !choices.key.empty(); }
};

// A grid whose cells are records that follow each other.
struct GridRow {
    std::string_view name;     // of the control and of the records
    std::string_view label;    // of the control that names the grid
    std::string_view caption;  // key of that name
    int rows = 0;
    int columns = 0;
    int rowStep = 0;  // what a row, a column further means for the number of the record
    int columnStep = 0;
    int records = 0;         // cells beyond that many hold nothing
    std::string_view heads;  // family of the texts above the columns; none: no header
    int firstHead = 0;
    std::string_view corner;  // key of the head above the numbers of the rows; none: no numbers
    std::size_t record = MemoriaCount;

    // The record of a cell, from 0 without headers; MemoriaCount where there is none.
    std::size_t RecordAt(int row, int column) const;
    int HeaderRows() const { return heads.empty() && corner.empty() ? 0 : 1; }
    int HeaderColumns() const { return corner.empty() ? 0 : 1; }
};

// Cells that are read in one frame.
struct Block {
    int address = 0;
    int count = 0;
};

// The tables of a page that one button shows in place of the list of parameters.
struct TableRow {
    std::string_view button;    // its twin, with "Def" behind, shows the initial values
    std::string_view captions;  // family: 0 shows the tables, 1 the list
    std::span<const GridRow> grids;
    std::span<const Block> blocks;  // how the tables are read
};

// A live channel beside the fields.
struct LiveChannel {
    int channel = 0;
    bool raw = false;  // as the converter gives it, like the fields beside it, whatever display is set
};

struct PageRow {
    std::string_view heading;   // key
    std::string_view captions;  // family of the rows' captions
    std::span<const FieldRow> fields;
    std::span<const TableRow> tables;
    std::span<const Block> further;     // cells of other pages that are read along
    std::span<const LiveChannel> live;  // channels that tell the effect of the page
    bool newProgram = false;            // only for units with a program of 01.04 or newer
};

// The records of a page in its order: fields, then tables.
std::vector<std::size_t> RecordsOf(const PageRow& page);

// Key of a unit's text in the section MISURE.
std::string MeasureKey(Measure measure, bool pressure);

// "Name(3)", or the name alone.
std::string FullName(std::string_view name, int number);
// Name of the control that shows the initial value: "ValLam" has "LamDef", "T_LamInf" has "T_LamInfDef".
std::string TwinName(std::string_view name, int number);

}  // namespace tuning
