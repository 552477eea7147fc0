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

// Throttle reading as shown, and back.
double ThrottleShown(double count, const Context& context);
double ThrottleCount(double shown, const Context& context);

// Whether the record holds a manifold reading that is shown in mbar.
bool IsPressure(const Row& row, const Context& context);

// The figure that stands for a count of the record's cell. Nothing for a pressure while no sensor has been acquired.
std::optional<double> ToShown(const Row& row, std::uint32_t count, const Context& context);
// The count for a figure, rounded to a whole number and held within the width of the cell. Nothing as above.
std::optional<std::uint32_t> ToRaw(const Row& row, double shown, const Context& context);

// Puts a count that was read into the record: Dato(0) and Dato(1) are the figure for it ("****" when there is none).
void TakeRead(Record& record, std::uint32_t count, const Context& context);

// The count of Dato(`slot`) for the wire: a figure equal to the one read is the count as it was read (an edited list of
// two positions is always 0 or 255), any other is converted back. Nothing when it cannot be.
std::optional<std::uint32_t> Outgoing(const Record& record, std::size_t slot, const Context& context);

// Shows both figures anew after a change of what they are shown by (a selector, the display); the counts stay.
void ShowAnew(Record& record, const Context& before, const Context& after);

}  // namespace tuning
