#pragma once

#include <array>
#include <optional>

namespace eculink {

// The converter values that the pressure sensor gave at two known pressures, 380 and 1000 mbar; -1: not acquired.
struct MapPoints {
    double at380 = -1;
    double at1000 = -1;
};

// Mode 0 takes the points as acquired, mode 1 those read from the unit's image.
using MapTable = std::array<MapPoints, 2>;

// Kinds of absolute pressure sensor by the code that the unit keeps of it.
inline constexpr int SensorType0 = 0;
inline constexpr int SensorType1 = 1;
inline constexpr int SensorOnOff = 2;
int SensorTypeOfCode(int code);  // 255 is 0, 17 is 1, anything else is 2

// Pressure in mbar from the raw converter value. Units with long frames have a linear sensor of a known kind; every
// other case goes through the two-point line of `modo`. Nothing when the two points are equal: the line has no value.
std::optional<double> ConverteMAP(double valore, int modo, bool lungo, int tipoSensore, const MapTable& tabella);

}  // namespace eculink
