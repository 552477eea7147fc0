#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "tuning/cell_reader.h"
#include "tuning/parameter_rows.h"

namespace tuning {

inline constexpr int NoWorkingAddress = -1;  // address 0 is a working copy here (probe type)

// How the byte of a choice stands in the cell; the record holds the index of the choice.
enum class Coding : std::uint8_t {
    Number,  // the cell holds the number itself
    Probe,   // 0, 1 or 2; anything else counts as 0
    Absorb,  // likewise, but 2 only where the family of the unit knows differential probes
    Binary,  // 0 or 1; anything else counts as 0
    OnOff,   // 0; anything else counts as 1
    Wheel,   // 255, 254, 170 are the choices 0, 1, 2; anything else counts as 0
    Sensor,  // 255 and 17 are the types 0 and 1; anything else is 2
};

// A quantity that an acquisition learns.
struct CalibrationRow {
    std::string_view name;
    int number = -1;  // -1 for a name that stands alone
    int Ind = NoAddress;
    int IndW = NoWorkingAddress;
    int Dim = 1;
    Coding coding = Coding::Number;
};

inline constexpr std::size_t CalibrationCount = 32;

// The records under the names of the acquisition log. The last thresholds of the probe are those of full load, and the
// over-speed threshold is the end of the last rev zone: cells that the trim pages show too.
inline constexpr std::array<CalibrationRow, CalibrationCount> CalibrationRows = {{
    {"Sonda_Lambda", 0, 3074, 0, 1, Coding::Probe},
    {"Sonda_Lambda", 1, 3075, 1, 1, Coding::Binary},
    {"Sonda_Lambda", 2, 3076, 2, 1, Coding::Absorb},
    {"Sonda_Lambda", 3, 3120, NoWorkingAddress, 2},
    {"Sonda_Lambda", 4, 3122, NoWorkingAddress, 2},
    {"Altri_Lambda", 0, 3124, 25, 2},
    {"Altri_Lambda", 1, 3126, 27, 2},
    {"Altri_Lambda", 2, 3128, 29, 2},
    {"Altri_Lambda", 3, 3130, 31, 2},
    {"Altri_Lambda", 4, 3132, 33, 2},
    {"Altri_Lambda", 5, 3134, 35, 2},
    {"TPS", 0, 3077, 4, 1, Coding::OnOff},
    {"TPS", 1, 3088, 8, 2},
    {"TPS", 2, 3090, 10, 2},
    {"TPS", 3, 3098, 18, 1, Coding::OnOff},
    {"TPS", 4, 3152, NoWorkingAddress, 2},
    {"TPS", 5, 3078, 5, 1, Coding::OnOff},
    {"Altri_TPS", 0, 3092, 12, 2},
    {"Altri_TPS", 1, 3094, 14, 2},
    {"Altri_TPS", 2, 3096, 16, 2},
    {"MAP", 0, 3104, NoWorkingAddress, 2},
    {"MAP", 1, 3106, NoWorkingAddress, 2},
    {"Altri_MAP", 0, 3108, 19, 2},
    {"Altri_MAP", 1, 3110, 21, 2},
    {"Altri_MAP", 2, 3112, 23, 2},
    {"Altri_MAP", 3, 3114, 179, 2},
    {"DIVGIRI_10", -1, 3079, 3, 1},
    {"DIVGIRI_1000", -1, 3208, 66, 2},
    {"RuotaFonica", -1, 3080, 77, 1, Coding::Wheel},
    {"SogliaFG", -1, 3150, 39, 2},
    {"RitornoFG", -1, 3148, 41, 2},  // revs below which gas comes back after an over-speed
    {"P1", -1, 3312, 122, 1, Coding::Sensor},
}};

// Number of a calibration record; CalibrationCount when there is none.
constexpr std::size_t CalibrationNumberOf(std::string_view name, int number = -1) {
    std::size_t at = 0;
    while (at < CalibrationCount && !(CalibrationRows[at].name == name && CalibrationRows[at].number == number)) ++at;
    return at;
}

struct CalibrationRecord {
    static constexpr std::string_view Formato = "#0";

    int Ind = NoAddress;          // cell in the image
    int IndW = NoWorkingAddress;  // live copy in the unit
    int Dim = 1;                  // width in bytes
    double Dato = 0;              // working value; -1 while not acquired
    double Letto = 0;             // value as it stands in the unit
    const CalibrationRow* row = nullptr;
};

// The calibration records by name.
struct CalibrationTable {
    std::array<CalibrationRecord, 5> Sonda_Lambda;
    std::array<CalibrationRecord, 6> Altri_Lambda;
    std::array<CalibrationRecord, 6> TPS;
    std::array<CalibrationRecord, 3> Altri_TPS;
    std::array<CalibrationRecord, 2> MAP;
    std::array<CalibrationRecord, 4> Altri_MAP;
    CalibrationRecord DIVGIRI_10;
    CalibrationRecord DIVGIRI_1000;
    CalibrationRecord RuotaFonica;
    CalibrationRecord SogliaFG;
    CalibrationRecord RitornoFG;
    CalibrationRecord P1;
};

// The record of a number below CalibrationCount.
CalibrationRecord& RecordAt(CalibrationTable& table, std::size_t number);
const CalibrationRecord& RecordAt(const CalibrationTable& table, std::size_t number);

// Every record with its addresses, both values 0.
void CostruisciCalibrazione(CalibrationTable& table);

// Takes both values of every record from an image; those of an image that is not programmed stay 0.
// `differentialProbes`: this family of units knows the third kind of probe (differential), for others it counts as 0.
void DecodeCalibration(CalibrationTable& table, const CellReader& cell, bool programmed, bool differentialProbes);

}  // namespace tuning
