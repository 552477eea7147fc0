#pragma once

#include <array>

#include "tuning/parameter_map.h"
#include "tuning/parameter_pages.h"

// The whole table, put together at compile time: the tables of cells that follow a rule, then the single parameters.
namespace tuning::table {

class TableBuilder {
  public:
    constexpr void Add(const Row& row) { rows_[next_++] = row; }
    constexpr void AddSpare() { ++next_; }
    constexpr void SkipTo(std::size_t number) { next_ = number; }
    constexpr std::size_t Next() const { return next_; }
    constexpr const std::array<Row, MemoriaCount>& Rows() const { return rows_; }

  private:
    std::array<Row, MemoriaCount> rows_{};
    std::size_t next_ = 0;
};

// `count` cells of a table: names and addresses rise by `step` bytes in both homes.
struct Rule {
    std::string_view name;
    int firstNumber;
    int count;
    int NByte;
    int EE;
    int RAM;
    int step;
    int max;
    Conversion conversion = Count;
};

constexpr void AddRule(TableBuilder& table, const Rule& rule) {
    for (int i = 0; i < rule.count; ++i) {
        table.Add({rule.name, rule.firstNumber + i, rule.EE + rule.step * i, rule.RAM + rule.step * i, rule.NByte,
                   At(0), At(rule.max), rule.conversion});
    }
}

inline constexpr int LambdaZones = 8;

// Rows of revs, upper and lower threshold. The revs are the cells of LabRPM and one more, whose working address the
// unit has given to the first load breakpoint, LabTPS(0). The ninth row closes the last zone at the over-speed
// threshold and has no thresholds of its own.
constexpr void AddGiriLambda(TableBuilder& table) {
    for (int i = 0; i < LambdaZones; ++i) {
        Row revs{"Giri_Lambda", 3 * i, 3328 + 2 * i, 1192 + 2 * i, 2, At(0), At(WordLimit)};
        revs.borrowsRAM = i == LambdaZones - 1;
        table.Add(revs);
        table.Add({"Giri_Lambda", 3 * i + 1, 3520 + 4 * i, 1407 + 4 * i, 2, At(0), At(WordLimit), Lambda});
        table.Add({"Giri_Lambda", 3 * i + 2, 3522 + 4 * i, 1409 + 4 * i, 2, At(0), At(WordLimit), Lambda});
    }
    table.Add({"Giri_Lambda", 3 * LambdaZones, OverSpeed, 39, 2, Shared, Shared});
    table.AddSpare();
    table.AddSpare();
}

// Where one of the two transient tables lives.
struct TransientHome {
    int firstNumber;
    std::array<int, 6> EE;
    std::array<int, 2> RAM;  // only the breakpoints have working copies
};

inline constexpr int TransientRows = 4;
inline constexpr TransientHome Accelerations{0, {3584, 3586, 3600, 3616, 3632, 3640}, {142, 144}};
inline constexpr TransientHome Releases{24, {3712, 3714, 3728, 3752, 3760, 3768}, {155, 157}};

// Row i runs from breakpoint i to breakpoint i + 1: the end of a row and the start of the next are one cell. The last
// column is one byte wide.
constexpr void AddTransients(TableBuilder& table, const TransientHome& home) {
    constexpr int columns = 6;
    for (int i = 0; i < TransientRows; ++i) {
        for (int column = 0; column < columns; ++column) {
            const bool last = column == columns - 1;
            const auto at = static_cast<std::size_t>(column);
            table.Add({"TransitT", home.firstNumber + columns * i + column, home.EE[at] + (last ? 1 : 2) * i,
                       at < home.RAM.size() ? home.RAM[at] + 2 * i : NoWorkingCopy, last ? 1 : 2, At(0),
                       At(last ? ByteLimit : WordLimit)});
        }
    }
}

// Rev zones of the learned map. The working copies of the first and the last stand apart from the others.
constexpr void AddRPMZone(TableBuilder& table) {
    table.Add({"RPMZone", 0, 0, 217, 2, At(0), At(WordLimit)});
    AddRule(table, {"RPMZone", 1, 15, 2, 2, 1024, 2, WordLimit});
    table.Add({"RPMZone", 16, OverSpeed, 39, 2, Shared, Shared});
}

constexpr std::array<Row, MemoriaCount> BuildRows() {
    TableBuilder table;
    AddRule(table, {"LabRPM", 0, 7, 2, 3328, 1192, 2, WordLimit});
    AddRule(table, {"LabTPS", 0, 4, 2, 3344, 1206, 2, ConverterLimit});
    AddRule(table, {"T_LamSup", 0, 40, 2, 3360, 1214, 4, WordLimit, Lambda});
    AddRule(table, {"T_LamInf", 0, 40, 2, 3362, 1216, 4, WordLimit, Lambda});
    AddRule(table, {"Giri_ResCO", 0, 16, 1, 176, 1374, 1, ByteLimit});
    AddRule(table, {"Giri_ResCO", 16, 16, 1, 192, 1390, 1, ByteLimit});
    AddGiriLambda(table);
    AddTransients(table, Accelerations);
    AddTransients(table, Releases);
    AddRPMZone(table);
    for (const Row& row : Singles) table.Add(row);
    table.SkipTo(FirstSetting);
    for (const Row& row : Settings) table.Add(row);
    return table.Rows();
}

inline constexpr std::array<Row, MemoriaCount> Rows = BuildRows();

// Number of the record of a field; MemoriaCount when there is none. For constants of the code that names fields.
constexpr std::size_t NumberOf(std::string_view name, int number = -1) {
    std::size_t at = 0;
    while (at < Rows.size() && !(Rows[at].name == name && Rows[at].number == number)) ++at;
    return at;
}

// The first record of a cell whose limit is its own; MemoriaCount when there is none.
constexpr std::size_t OwnerOf(int address, Bound Row::*bound) {
    std::size_t at = 0;
    while (at < Rows.size() && !(Rows[at].EE == address && (Rows[at].*bound).source != Source::SameCell)) ++at;
    return at;
}

}  // namespace tuning::table
