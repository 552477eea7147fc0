#include "link/map_sensor.h"

#include <algorithm>

namespace eculink {

namespace {

constexpr int CodeType0 = 255;
constexpr int CodeType1 = 17;
constexpr double LowPressure = 380;
constexpr double PressureSpan = 620;  // from 380 to 1000 mbar
constexpr double LeastPressure = 100;

}  // namespace

int SensorTypeOfCode(int code) {
    if (code == CodeType0) return SensorType0;
    return code == CodeType1 ? SensorType1 : SensorOnOff;
}

std::optional<double> ConverteMAP(double valore, int modo, bool lungo, int tipoSensore, const MapTable& tabella) {
    if (lungo && tipoSensore == SensorType0) return valore * 121 / 50 + 93;
    if (lungo && tipoSensore == SensorType1) return (valore - 182) * 3230 / 1023;
    const MapPoints& points = tabella.at(static_cast<std::size_t>(modo));
    if (points.at1000 == points.at380) return std::nullopt;
    const double pressure = PressureSpan / (points.at1000 - points.at380) * (valore - points.at380) + LowPressure;
    return std::max(pressure, LeastPressure);
}

}  // namespace eculink
