#include "link/frames/pressure.h"

#include <algorithm>

#include "link/frames/numbers.h"

namespace frames {
namespace {

constexpr double LowPressure = 380;  // mbar at the reading a
constexpr double Span = 620;         // mbar from the reading a to the reading b
constexpr double Least = 100;        // mbar, below it the line is not believed
constexpr double LargestCount = 1023;

const MAPTable::Line& LineOf(int modo, const MAPTable& tabella) {
    return tabella.linea[modo == 0 ? 0 : 1];
}

}  // namespace

std::optional<double> ConverteMAP(double valore, int modo, bool lungo, const MAPTable& tabella) {
    if (lungo && tabella.tipoSensoreMAP == 0) return valore * 121 / 50 + 93;
    if (lungo && tabella.tipoSensoreMAP == 1) return (valore - 182) * 3230 / 1023;
    const auto [a, b] = LineOf(modo, tabella);
    if (a == b) return std::nullopt;
    return std::max(Span / (b - a) * (valore - a) + LowPressure, Least);
}

std::optional<double> MAPCount(double mbar, int modo, bool lungo, const MAPTable& tabella) {
    double count = 0;
    if (lungo && tabella.tipoSensoreMAP == 0) {
        count = (mbar - 93) * 50 / 121;
    } else if (lungo && tabella.tipoSensoreMAP == 1) {
        count = mbar * 1023 / 3230 + 182;
    } else {
        const auto [a, b] = LineOf(modo, tabella);
        if (a == b) return std::nullopt;
        count = (mbar - LowPressure) * (b - a) / Span + a;
    }
    return std::clamp(RoundHalfEven(count), 0.0, LargestCount);
}

}  // namespace frames
