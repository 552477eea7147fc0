#include "tuning/lambda_zones.h"

#include <array>
#include <optional>

#include "link/frames/numbers.h"
#include "tuning/parameter_table.h"
#include "tuning/tuning.h"

namespace tuning {

namespace {

constexpr int RevBreakpoints = 7;
constexpr int RevColumns = RevBreakpoints + 1;
constexpr int LoadBreakpoints = 4;
constexpr int LoadRows = LoadBreakpoints + 1;
constexpr int ModeOfUnit = 1;  // the sensor line that stands in the unit

constexpr std::size_t FirstRev = table::NumberOf("LabRPM", 0);
constexpr std::size_t FirstLoad = table::NumberOf("LabTPS", 0);
constexpr std::size_t FirstRich = table::NumberOf("T_LamSup", 0);
constexpr std::size_t FirstLean = table::NumberOf("T_LamInf", 0);
constexpr std::size_t AxisRecord = table::NumberOf("ScelgoMAP");

// What the engine does, by the digit of the live frame, and its own thresholds.
struct OwnThresholds {
    Ruler ruler;
    char digit;
    std::size_t lean;
    std::size_t rich;
    bool diesel;  // whether the diesel build knows it: there the digit of full load is normal running
};
constexpr std::array<OwnThresholds, 2> OwnZones{{
    {Ruler::Idle, '1', table::NumberOf("ValMin", 5), table::NumberOf("ValMin", 6), true},
    {Ruler::FullLoad, '3', table::NumberOf("ValPC", 11), table::NumberOf("ValPC", 12), false},
}};

std::optional<double> Live(const Tuning& tuning, int channel) {
    const std::string& text = tuning.memory.link.RecCanali.Grezzo[static_cast<std::size_t>(channel)];
    if (!frames::IsNumeric(text)) return std::nullopt;
    return frames::ValoreNum(text);
}

// The figure that the unit works with.
double Working(const Tuning& tuning, std::size_t number) {
    const Record& record = tuning.memoria[number];
    const auto count = record.tried ? record.tried : record.raw;
    if (!count) return frames::ValoreNum(record.Dato[0]);
    return ToShown(*record.row, *count, tuning.InitialContext()).value_or(0);
}

// How many breakpoints the figure has reached.
int ZoneOf(const Tuning& tuning, std::size_t first, int breakpoints, const std::optional<double>& figure) {
    if (!figure) return NoZone;
    int zone = 0;
    while (zone < breakpoints && *figure >= Working(tuning, first + static_cast<std::size_t>(zone))) ++zone;
    return zone;
}

// The load in the counts of the sensor on the axis.
std::optional<double> LiveLoad(const Tuning& tuning) {
    const Context context = tuning.InitialContext();
    if (Working(tuning, AxisRecord) == 0) {
        const auto throttle = Live(tuning, eculink::Tps);
        return throttle ? std::optional(ThrottleKept(*throttle, context)) : std::nullopt;
    }
    const auto pressure = Live(tuning, eculink::Map);
    if (!pressure) return std::nullopt;
    return frames::MAPCount(*pressure, ModeOfUnit, context.datiLunghi, context.tabella);
}

}  // namespace

int CheZonaGiri(const Tuning& tuning) {
    return ZoneOf(tuning, FirstRev, RevBreakpoints, Live(tuning, eculink::Giri));
}

int CheZonaMAP(const Tuning& tuning) {
    return ZoneOf(tuning, FirstLoad, LoadBreakpoints, LiveLoad(tuning));
}

Thresholds ThresholdsNow(const Tuning& tuning) {
    const std::string& working = tuning.memory.link.RecCanali.Grezzo[eculink::Macro];
    const bool diesel = tuning.memory.link.shell.state.VarianteQT == shell::True;
    for (const OwnThresholds& own : OwnZones) {
        if ((diesel && !own.diesel) || working.find(own.digit) == std::string::npos) continue;
        return {own.ruler, Working(tuning, own.lean), Working(tuning, own.rich)};
    }
    return ThresholdsOf(tuning, CheZonaGiri(tuning), CheZonaMAP(tuning));
}

Thresholds ThresholdsOf(const Tuning& tuning, int column, int row) {
    if (column < 0 || column >= RevColumns || row < 0 || row >= LoadRows) return {};
    const auto cell = static_cast<std::size_t>(column * LoadRows + row);
    return {Ruler::Zone, Working(tuning, FirstLean + cell), Working(tuning, FirstRich + cell)};
}

}  // namespace tuning
