#pragma once

namespace tuning {

struct Tuning;

inline constexpr int NoZone = -1;

// The rev column, 0 to 7, and the load row, 0 to 4, of the lambda map in which the engine runs now, by the breakpoints
// that the unit holds; NoZone while the live figures say nothing.
int CheZonaGiri(const Tuning& tuning);
int CheZonaMAP(const Tuning& tuning);

// The lean and the rich threshold by which the unit controls now, as the page shows them.
struct ActiveThresholds {
    bool known = false;
    double lean = 0;
    double rich = 0;
};
// Idle and full load have thresholds of their own; everywhere else those of the zone of the map hold.
ActiveThresholds ThresholdsNow(const Tuning& tuning);

}  // namespace tuning
