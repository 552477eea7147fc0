#pragma once

#include <array>
#include <optional>

namespace frames {

// What turns the reading of the manifold sensor into mbar.
struct MAPTable {
    // Converter counts at 380 mbar (idle) and at 1000 mbar (engine stopped), as an acquisition found them.
    struct Line {
        double a = 0;
        double b = 0;
    };

    int tipoSensoreMAP = 2;     // 0 and 1: sensors with a known curve; any other: the line through the two readings
    std::array<Line, 2> linea;  // by mode: 0 as just acquired, 1 as it stands in the unit
};

// Pressure in mbar of a reading of the manifold sensor. The curves of the types 0 and 1 hold for long live frames
// (51 characters) only; everything else goes over the line of `modo` (any other than 0 counts as 1) and is at least
// 100 mbar. Nothing while the two ends of that line are equal: no sensor has been acquired.
std::optional<double> ConverteMAP(double valore, int modo, bool lungo, const MAPTable& tabella);

// The way back: the whole count, 0..1023, that stands for a pressure in mbar. Nothing where ConverteMAP has nothing.
std::optional<double> MAPCount(double mbar, int modo, bool lungo, const MAPTable& tabella);

}  // namespace frames
