#include "tuning/conversions.h"

#include <algorithm>
#include <cmath>

#include "link/frames/numbers.h"

namespace tuning {
namespace {

constexpr double FullScale = 1023;
constexpr double ReducedScale = 255;
constexpr double SecondProbeScale = 470;
constexpr int ModeOfUnit = 1;  // the line that stands in the unit
constexpr std::uint32_t SecondPosition = 255;
// Full scale of a probe whose thresholds are shown reduced; 0 for one that is shown as it is.
double LambdaScale(const Context& context) {
    if (context.risoluzionePiena) return 0;
    if (context.tipoSonda == 1) return SecondProbeScale;
    return context.tipoSonda == 2 ? FullScale : 0;
}

double ChoiceShown(const Row& row, std::uint32_t count) {
    if (IsSwitch(row)) return count == 0 ? 0 : 1;
    const auto last = static_cast<std::uint32_t>(row.positions - 1);
    return row.conversion == Conversion::SpeedChoice ? std::min(count, last) : count;
}

double ChoiceCount(const Row& row, double shown) {
    if (IsSwitch(row)) return shown == 0 ? 0 : SecondPosition;
    return shown;
}

bool IsThrottle(const Row& row, const Context& context) {
    return row.conversion == Conversion::Throttle ||
           (row.conversion == Conversion::CutOffThreshold && !context.cutOffByPressure) ||
           (row.conversion == Conversion::IdleThreshold && !context.idleByPressure);
}

// The count of a figure before rounding.
std::optional<double> CountOf(const Row& row, double shown, const Context& context) {
    if (IsPressure(row, context)) return frames::MAPCount(shown, ModeOfUnit, context.datiLunghi, context.tabella);
    if (IsThrottle(row, context)) return ThrottleCount(shown, context);
    switch (row.conversion) {
        case Conversion::Lambda:
            return LambdaCount(shown, context);
        case Conversion::Speed:
            return StepSpeed(shown);
        case Conversion::Choice:
        case Conversion::SpeedChoice:
            return ChoiceCount(row, shown);
        default:
            return shown;
    }
}

bool SameFigure(const std::string& a, const std::string& b) {
    if (!frames::IsNumeric(a) || !frames::IsNumeric(b)) return a == b;
    return frames::ValoreNum(a) == frames::ValoreNum(b);
}

std::string TextOf(const std::optional<double>& figure) {
    constexpr std::size_t Width = 8;
    return figure ? FigureText(*figure) : frames::RightAlign(std::string(NoFigure), Width);
}

// The figure of Dato(1) as it was shown, untouched since.
bool Stands(const Record& record) {
    return record.shown && SameFigure(record.Dato[1], record.shown->figure);
}

}  // namespace

Context ContextOf(const CalibrationTable& calibration, bool risoluzionePiena, bool datiLunghi) {
    Context context;
    context.tipoSonda = static_cast<int>(calibration.Sonda_Lambda[0].Letto);
    context.risoluzionePiena = risoluzionePiena;
    context.datiLunghi = datiLunghi;
    context.tabella.tipoSensoreMAP = static_cast<int>(calibration.P1.Letto);
    context.throttleTurned = calibration.TPS[3].Letto == 1;
    context.tabella.linea = {
        {{calibration.MAP[0].Dato, calibration.MAP[1].Dato}, {calibration.MAP[0].Letto, calibration.MAP[1].Letto}}};
    return context;
}

double StepSpeed(double x) {
    return x == 0 ? 1 : 1000 / x / 1.024;
}

double PercentOfCount(double count) {
    return count * 1.024 / 100;
}
double CountOfPercent(double percent) {
    return percent * 100 / 1.024;
}

double LambdaShown(double count, const Context& context) {
    const double scale = LambdaScale(context);
    return scale == 0 ? count : frames::Scala(count, scale, ReducedScale, true);
}

double LambdaCount(double shown, const Context& context) {
    const double scale = LambdaScale(context);
    return scale == 0 ? shown : frames::Scala(shown, ReducedScale, scale, true);
}

double ThrottleKept(double reading, const Context& context) {
    return context.throttleTurned ? FullScale - reading : reading;
}

double ThrottleShown(double count, const Context& context) {
    return context.risoluzionePiena ? count : frames::Scala(count, FullScale, ReducedScale, true);
}

double ThrottleCount(double shown, const Context& context) {
    return context.risoluzionePiena ? shown : frames::Scala(shown, ReducedScale, FullScale, true);
}

bool FollowsSelector(const Row& row) {
    return row.conversion == Conversion::CutOffThreshold || row.conversion == Conversion::IdleThreshold;
}

bool IsPressure(const Row& row, const Context& context) {
    return row.conversion == Conversion::Pressure ||
           (row.conversion == Conversion::CutOffThreshold && context.cutOffByPressure) ||
           (row.conversion == Conversion::IdleThreshold && context.idleByPressure);
}

std::optional<double> ToShown(const Row& row, std::uint32_t count, const Context& context) {
    if (IsPressure(row, context)) return frames::ConverteMAP(count, ModeOfUnit, context.datiLunghi, context.tabella);
    if (IsThrottle(row, context)) return ThrottleShown(count, context);
    switch (row.conversion) {
        case Conversion::Lambda:
            return LambdaShown(count, context);
        case Conversion::Speed:
            return StepSpeed(count);
        case Conversion::Choice:
        case Conversion::SpeedChoice:
            return ChoiceShown(row, count);
        default:
            return count;
    }
}

std::optional<std::uint32_t> ToRaw(const Row& row, double shown, const Context& context) {
    const std::optional<double> count = CountOf(row, shown, context);
    if (!count || !std::isfinite(*count)) return std::nullopt;
    const double largest = row.NByte == 1 ? 0xFF : 0xFFFF;
    return static_cast<std::uint32_t>(std::clamp(frames::RoundHalfEven(*count), 0.0, largest));
}

void TakeRead(Record& record, std::uint32_t count, const Context& context) {
    record.raw = count;
    record.tried.reset();
    record.Dato[0] = TextOf(ToShown(*record.row, count, context));
    TakeBack(record);
}

void TakeBack(Record& record) {
    record.Dato[1] = record.Dato[0];
    record.shown.reset();
    if (record.raw) record.shown = {*record.raw, record.Dato[0]};
}

std::optional<std::uint32_t> Outgoing(const Record& record, std::size_t slot, const Context& context) {
    const std::string& text = record.Dato[slot];
    if (slot == 0 && record.raw) return record.raw;
    if (slot == 1 && Stands(record)) return record.shown->count;
    if (!frames::IsNumeric(text)) return std::nullopt;
    return ToRaw(*record.row, frames::ValoreNum(text), context);
}

void ShowAnew(Record& record, const Context& before, const Context& after) {
    const std::optional<std::uint32_t> count = Outgoing(record, 1, before);
    if (!count) return;
    record.Dato[1] = TextOf(ToShown(*record.row, *count, after));
    record.shown = {*count, record.Dato[1]};
}

void ShowReadAnew(Record& record, const Context& context) {
    if (record.raw) record.Dato[0] = TextOf(ToShown(*record.row, *record.raw, context));
}

bool OnTrial(const Record& record) {
    return record.tried && record.tried != record.raw;
}

bool Differ(const Record& record) {
    if (Stands(record)) return record.shown->count != record.raw;
    return frames::ValoreNum(record.Dato[0]) != frames::ValoreNum(record.Dato[1]);
}

}  // namespace tuning
