#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "link/frames/pressure.h"
#include "tuning/calibration_map.h"
#include "tuning/parameter_map.h"

namespace tuning {

// What the conversion of a figure depends on besides its count.
struct Context {
    int tipoSonda = 0;              // signal type of the probe: 0, 1, 2
    bool risoluzionePiena = false;  // full display; otherwise probe and throttle are shown scaled to 0..255
    bool datiLunghi = false;        // the last live frame was a long one
    frames::MAPTable tabella;
    bool cutOffByPressure = true;  // what SogliaTM and SogliaMin select; otherwise the throttle
    bool idleByPressure = true;
    bool throttleTurned = false;  // the sensor falls when the throttle opens: the unit keeps its counts turned round
};

// The context that the calibration of a unit gives; selectors stay as they are by default.
Context ContextOf(const CalibrationTable& calibration, bool risoluzionePiena, bool datiLunghi);

// Steps a second from the period in a cell and back, in one function: (1000 / x) / 1.024, and 1 for 0.
double StepSpeed(double x);

// Percent of the scale and back.
double PercentOfCount(double count);
double CountOfPercent(double percent);

// Probe threshold as shown, and back; cut to whole numbers.
double LambdaShown(double count, const Context& context);
double LambdaCount(double shown, const Context& context);

// The count that the unit keeps for a reading of the throttle.
double ThrottleKept(double reading, const Context& context);

// Throttle count as shown, and back.
double ThrottleShown(double count, const Context& context);
double ThrottleCount(double shown, const Context& context);

// Whether a selector decides by which sensor the record is shown.
bool FollowsSelector(const Row& row);

// Whether the record holds a manifold reading that is shown in mbar.
bool IsPressure(const Row& row, const Context& context);

// The figure that stands for a count of the record's cell. Nothing for a pressure while no sensor has been acquired.
std::optional<double> ToShown(const Row& row, std::uint32_t count, const Context& context);
// The count for a figure, rounded to a whole number and held within the width of the cell. Nothing as above.
std::optional<std::uint32_t> ToRaw(const Row& row, double shown, const Context& context);

// Stands for a figure that there is none for.
inline constexpr std::string_view NoFigure = "****";

// Puts a count that was read into the record: Dato(0) and Dato(1) are the figure for it, or NoFigure.
void TakeRead(Record& record, std::uint32_t count, const Context& context);

// The edit is taken back: Dato(1) is Dato(0).
void TakeBack(Record& record);

// The count of Dato(`slot`) for the wire: a figure that stands as it was shown is the count that it was shown from, any
// other is converted back. Nothing when it cannot be.
std::optional<std::uint32_t> Outgoing(const Record& record, std::size_t slot, const Context& context);

// Whether the record has been edited: its figures differ as numbers, or what they were shown from.
bool Differ(const Record& record);

// Whether the working copy may hold something else than the record's initial value: what was last written there differs
// from it.
bool OnTrial(const Record& record);

// Shows Dato(1) anew after its selector has been moved; the count stays. Dato(0) stays as the unit's selector shows it.
void ShowAnew(Record& record, const Context& before, const Context& after);
// Shows Dato(0) anew: the unit's selector is another one now.
void ShowReadAnew(Record& record, const Context& context);

}  // namespace tuning
