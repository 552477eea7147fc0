#include "tuning/page_rows.h"

#include <array>

namespace tuning {

namespace {

struct MeasureRow {
    Measure measure;
    std::string_view key;
};

// texts of MISURE
constexpr std::array<MeasureRow, 9> Measures{{
    {Measure::None, "MISURA.0"},
    {Measure::Counts, "MISURA.2"},
    {Measure::Revolutions, "MISURA.3"},
    {Measure::StepSpeed, "MISURA.4"},
    {Measure::Tenths, "MISURA.5"},
    {Measure::Millibar, "MISURA.6"},
    {Measure::Cycles, "MISURA.7"},
    {Measure::Throttle, "MISURA.2"},
    {Measure::Steps, "MISURA.9"},
}};

}  // namespace

std::size_t GridRow::RecordAt(int row, int column) const {
    if (row < 0 || row >= rows || column < 0 || column >= columns) return MemoriaCount;
    const int offset = row * rowStep + column * columnStep;
    return offset < records ? record + static_cast<std::size_t>(offset) : MemoriaCount;
}

std::vector<std::size_t> RecordsOf(const PageRow& page) {
    std::vector<std::size_t> records;
    for (const FieldRow& field : page.fields) records.push_back(field.record);
    for (const TableRow& table : page.tables) {
        for (const GridRow& grid : table.grids) {
            for (int i = 0; i < grid.records; ++i) records.push_back(grid.record + static_cast<std::size_t>(i));
        }
    }
    return records;
}

std::string MeasureKey(Measure measure, bool pressure) {
    if (measure == Measure::OfSensor) measure = pressure ? Measure::Millibar : Measure::Throttle;
    for (const MeasureRow& row : Measures) {
        if (row.measure == measure) return std::string(row.key);
    }
    return {};
}

std::string FullName(std::string_view name, int number) {
    return number == Alone ? std::string(name) : std::string(name) + "(" + std::to_string(number) + ")";
}

std::string TwinName(std::string_view name, int number) {
    constexpr std::string_view Value = "Val";
    const bool shortened = number != Alone && name.substr(0, Value.size()) == Value;
    return FullName(std::string(shortened ? name.substr(Value.size()) : name) + "Def", number);
}

}  // namespace tuning
