#include "tuning/calibration_map.h"

#include <span>

namespace tuning {
namespace {

// In the order of the rows.
template <class Table>
auto& Find(Table& table, std::size_t number) {
    const std::array groups = {
        std::span(table.Sonda_Lambda.data(), table.Sonda_Lambda.size()),
        std::span(table.Altri_Lambda.data(), table.Altri_Lambda.size()),
        std::span(table.TPS.data(), table.TPS.size()),
        std::span(table.Altri_TPS.data(), table.Altri_TPS.size()),
        std::span(table.MAP.data(), table.MAP.size()),
        std::span(table.Altri_MAP.data(), table.Altri_MAP.size()),
        std::span(&table.DIVGIRI_10, 1),
        std::span(&table.DIVGIRI_1000, 1),
        std::span(&table.RuotaFonica, 1),
        std::span(&table.SogliaFG, 1),
        std::span(&table.RitornoFG, 1),
    };
    for (const auto& group : groups) {
        if (number < group.size()) return group[number];
        number -= group.size();
    }
    return table.P1;
}

constexpr std::array<std::uint32_t, 3> WheelCodes = {255, 254, 170};
constexpr std::array<std::uint32_t, 2> SensorCodes = {255, 17};

// Index of a byte in a list of codes; `other` when it is none of them.
double IndexOfCode(std::span<const std::uint32_t> codes, std::uint32_t byte, double other) {
    for (std::size_t i = 0; i < codes.size(); ++i) {
        if (codes[i] == byte) return static_cast<double>(i);
    }
    return other;
}

double UpTo(std::uint32_t byte, std::uint32_t largest) {
    return byte <= largest ? byte : 0;
}

double Decoded(Coding coding, std::uint32_t value, bool differentialProbes) {
    switch (coding) {
        case Coding::Number:
            return value;
        case Coding::Probe:
            return UpTo(value, 2);
        case Coding::Absorb:
            return UpTo(value, differentialProbes ? 2 : 1);
        case Coding::Binary:
            return UpTo(value, 1);
        case Coding::OnOff:
            return value == 0 ? 0 : 1;
        case Coding::Wheel:
            return IndexOfCode(WheelCodes, value, 0);
        case Coding::Sensor:
            return IndexOfCode(SensorCodes, value, SensorCodes.size());
    }
    return 0;
}

}  // namespace

CalibrationRecord& RecordAt(CalibrationTable& table, std::size_t number) {
    return Find(table, number);
}
const CalibrationRecord& RecordAt(const CalibrationTable& table, std::size_t number) {
    return Find(table, number);
}

void CostruisciCalibrazione(CalibrationTable& table) {
    for (std::size_t i = 0; i < CalibrationCount; ++i) {
        const CalibrationRow& row = CalibrationRows[i];
        RecordAt(table, i) = {row.Ind, row.IndW, row.Dim, 0, 0, &row};
    }
}

void DecodeCalibration(CalibrationTable& table, const CellReader& cell, bool programmed, bool differentialProbes) {
    CostruisciCalibrazione(table);
    if (!programmed) return;
    for (std::size_t i = 0; i < CalibrationCount; ++i) {
        CalibrationRecord& record = RecordAt(table, i);
        record.Dato = record.Letto = Decoded(record.row->coding, cell(record.Ind, record.Dim), differentialProbes);
    }
}

}  // namespace tuning
