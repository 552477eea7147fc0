#pragma once

#include <cstdint>

namespace tuning {

struct Tuning;

inline constexpr int NoZone = -1;

// The rev column, 0 to 7, and the load row, 0 to 4, of the lambda map in which the engine runs now, by the breakpoints
// that the unit works with: those on trial, otherwise those it holds. NoZone while the live figures say nothing.
int CheZonaGiri(const Tuning& tuning);
int CheZonaMAP(const Tuning& tuning);

// What the engine does decides whose thresholds hold: idle and full load have their own, everywhere else those of the
// zone of the map do.
enum class Ruler : std::uint8_t { Nothing, Zone, Idle, FullLoad };

// A lean and a rich threshold that the unit works with, as the page shows them.
struct Thresholds {
    Ruler ruler = Ruler::Nothing;
    double lean = 0;
    double rich = 0;
};
// Those by which the unit controls now.
Thresholds ThresholdsNow(const Tuning& tuning);
// Those of a zone of the map; Nothing outside it.
Thresholds ThresholdsOf(const Tuning& tuning, int column, int row);

}  // namespace tuning
