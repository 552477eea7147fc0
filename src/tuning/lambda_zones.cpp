#include "tuning/lambda_zones.h"

#include <array>
#include <optional>

#include "link/frames/numbers.h"
#include "tuning/parameter_table.h"
#include "tuning/tuning.h"

namespace tuning {

namespace {

constexpr int RevBreakpoints = 7;
constexpr int LoadBreakpoints = 4;
constexpr int LoadRows = LoadBreakpoints + 1;
constexpr int ModeOfUnit = 1;  // the sensor line that stands in the unit

constexpr std::size_t FirstRev = table::NumberOf("LabRPM", 0);
constexpr std::size_t FirstLoad = table::NumberOf("LabTPS", 0);
constexpr std::size_t FirstRich = table::NumberOf("T_LamSup", 0);
constexpr std::size_t FirstLean = table::NumberOf("T_LamInf", 0);
constexpr std::size_t AxisRecord = table::NumberOf("ScelgoMAP");

// Working zones with thresholds of their own, by their digit in the live frame.
struct OwnThresholds {
    char zone;
    std::size_t lean;
    std::size_t rich;
};
constexpr std::array<OwnThresholds, 2> OwnZones{{
    {'1', table::NumberOf("ValMin", 5), table::NumberOf("ValMin", 6)},
    {'3', table::NumberOf("ValPC", 11), table::NumberOf("ValPC", 12)},
}};

std::optional<double> Live(const Tuning& tuning, int channel) {
    const std::string& text = tuning.memory.link.RecCanali.Grezzo[static_cast<std::size_t>(channel)];
    if (!frames::IsNumeric(text)) return std::nullopt;
    return frames::ValoreNum(text);
}

double Held(const Tuning& tuning, std::size_t record) {
    return frames::ValoreNum(tuning.memoria[record].Dato[0]);
}

// How many breakpoints the figure has reached.
int ZoneOf(const Tuning& tuning, std::size_t first, int breakpoints, const std::optional<double>& figure) {
    if (!figure) return NoZone;
    int zone = 0;
    while (zone < breakpoints && *figure >= Held(tuning, first + static_cast<std::size_t>(zone))) ++zone;
    return zone;
}

// The load in the counts of the sensor on the axis.
std::optional<double> LiveLoad(const Tuning& tuning) {
    if (Held(tuning, AxisRecord) == 0) return Live(tuning, eculink::Tps);
    const auto pressure = Live(tuning, eculink::Map);
    if (!pressure) return std::nullopt;
    const Context context = tuning.CurrentContext();
    return frames::MAPCount(*pressure, ModeOfUnit, context.datiLunghi, context.tabella);
}

}  // namespace

int CheZonaGiri(const Tuning& tuning) {
    return ZoneOf(tuning, FirstRev, RevBreakpoints, Live(tuning, eculink::Giri));
}

int CheZonaMAP(const Tuning& tuning) {
    return ZoneOf(tuning, FirstLoad, LoadBreakpoints, LiveLoad(tuning));
}

ActiveThresholds ThresholdsNow(const Tuning& tuning) {
    const std::string& working = tuning.memory.link.RecCanali.Grezzo[eculink::Macro];
    for (const OwnThresholds& own : OwnZones) {
        if (working.find(own.zone) != std::string::npos) return {true, Held(tuning, own.lean), Held(tuning, own.rich)};
    }
    const int column = CheZonaGiri(tuning);
    const int row = CheZonaMAP(tuning);
    if (column == NoZone || row == NoZone) return {};
    const auto cell = static_cast<std::size_t>(column * LoadRows + row);
    return {true, Held(tuning, FirstLean + cell), Held(tuning, FirstRich + cell)};
}

}  // namespace tuning
