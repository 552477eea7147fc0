#pragma once

#include <cstdint>
#include <string_view>

namespace tuning {

inline constexpr int NoAddress = -1;  // a record without a cell of its own
inline constexpr int NoWorkingCopy = 0;
inline constexpr int FirstInterna = 3072;  // below it a cell lies in ESTERNA, from it in INTERNA

// How the count of a cell becomes the figure that the fitter sees.
enum class Conversion : std::uint8_t {
    Count,            // the count itself
    Lambda,           // probe threshold: scaled to 0..255 in the reduced display, by probe type
    Speed,            // the cell holds the period of a step, the page shows steps a second
    Pressure,         // the cell holds a reading of the manifold sensor, the page shows mbar
    CutOffThreshold,  // throttle or manifold reading, as SogliaTM selects
    IdleThreshold,    // throttle or manifold reading, as SogliaMin selects
    Throttle,         // reading of the throttle, whatever is selected
    Choice,           // index in a list
    SpeedChoice,      // index in the list of adaptation speeds, whose last entry stands for all others
};

// Where a limit comes from. A limit that is named by a cell means that cell of the image held, or the record that
// owns the cell.
enum class Source : std::uint8_t {
    Constant,    // `value`
    Cell,        // the word in the cell `value`
    Dato0,       // the figure read for the record of the cell `value`
    Dato1,       // the figure as now edited of the record of the cell `value`
    SensorLow,   // lower end of the sensor that the threshold's selector names
    SensorHigh,  // upper end of it
    SameCell,    // the limit of the record that shares the cell and has one of its own
};

struct Bound {
    Source source = Source::Constant;
    int value = 0;
};

// A parameter of the unit. `name` and `number` are those of its field on the page (`ValMin`, 5); a field that stands
// alone has the number -1; a spare row has no name. Constant limits are in the unit of the page, except for probe
// and throttle thresholds, whose limits are counts and go through the conversion with the figure.
struct Row {
    std::string_view name;
    int number = -1;
    int EE = NoAddress;
    int RAM = NoWorkingCopy;
    int NByte = 1;
    Bound min;
    Bound max;
    Conversion conversion = Conversion::Count;
    int positions = 0;  // entries of a list
    // The working address is the working copy of another cell: nothing of this one is written there.
    bool borrowsRAM = false;
};

// True for the lists of two entries in a cell of one byte, which the unit keeps as 0 and 255.
constexpr bool IsSwitch(const Row& row) {
    return row.conversion == Conversion::Choice && row.positions == 2 && row.NByte == 1;
}

}  // namespace tuning
