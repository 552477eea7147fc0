#include "sim/engine.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "sim/cells.h"

namespace sim {

namespace {

constexpr std::int64_t StepMicros = 20000;
constexpr double StepSeconds = 0.02;
constexpr std::int64_t MostSteps = 3000;  // after a longer pause the last minute alone is worked out
constexpr double MicrosPerSecond = 1e6;

// The engine.
constexpr double IdleRpm = 850;
constexpr double FastestRpm = 6600;
constexpr double CrankingRpm = 230;
constexpr double CrankingSeconds = 0.9;
constexpr double StandingRpm = 50;
constexpr double WarmAt = 70;
constexpr double ColdRpmPerDegree = 6;
constexpr double AtmosphereMbar = 1000;
constexpr double IdleMbar = 380;
constexpr double OverrunMbar = 260;
constexpr double OverrunRpm = 1500;
constexpr double OpenMbar = 980;

// Its sensors.
constexpr int CountsMax = 1023;
constexpr double ThrottleClosed = 80;
constexpr double ThrottleOpen = 940;
constexpr double LoopFrom = 50;   // degrees from which the loop closes
constexpr double ProbeFrom = 30;  // degrees from which the probe swings
struct ProbeRange {
    double low;
    double high;
};
constexpr std::array<ProbeRange, 3> Probes{{{20, 180}, {160, 310}, {100, 900}}};

// What the cells usually hold, for a unit whose cells are erased.
constexpr int UsualIdleIn = 1100;
constexpr int UsualIdleOut = 1300;
constexpr int UsualThrottleCutOff = 103;
constexpr int UsualCutOffIn = 1800;
constexpr int UsualCutOffOut = 1500;
constexpr int UsualOverSpeed = 6200;
constexpr int UsualOverSpeedReturn = 5800;
constexpr int UsualChangeOver = 2000;
constexpr int UsualChangeOverDegrees = 40;
constexpr int UsualPeriod = 49;  // of the stepper: 20 steps a second
constexpr int UsualStep = 90;
constexpr int UsualThousandths = 1000;
constexpr int ChangeOverDegreesCell = 3206;

constexpr double StepMin = 5;
constexpr double StepMax = 210;
constexpr double Reach = 60;  // how far the loop goes away from the map
constexpr double TransientRate = 80;
constexpr std::int64_t TransientMicros = 500000;

double Towards(double value, double target, double seconds) {
    return value + (target - value) * std::min(1.0, StepSeconds / seconds);
}

// Position of a value on a rising axis: the index below it and how far on it stands.
template <std::size_t N>
std::pair<std::size_t, double> Place(const std::array<double, N>& axis, double value) {
    if (value <= axis.front()) return {0, 0.0};
    for (std::size_t i = 0; i + 1 < N; ++i) {
        if (value < axis[i + 1]) {
            const double width = axis[i + 1] - axis[i];
            return {i, width > 0 ? (value - axis[i]) / width : 0.0};
        }
    }
    return {N - 2, 1.0};
}

// The stepper position that this engine really needs: near the usual base map, never quite on it.
double Need(double rpm, double mbar) {
    const double byRpm = std::clamp((rpm - 600) / 400, 0.0, 15.0) * 6.2;
    const double byLoad = std::clamp((mbar - 280) / 103, 0.0, 7.0) * 8.4;
    return 34 + byRpm + byLoad;
}

// Of a sensor that counts upwards.
int TrueThrottleCounts(double percent) {
    const double counts = ThrottleClosed + (ThrottleOpen - ThrottleClosed) * std::clamp(percent / 100, 0.0, 1.0);
    return static_cast<int>(std::lround(counts));
}

}  // namespace

void Ramp::Lead(double value, std::int64_t now, std::int64_t micros) {
    from_ = At(now);
    to_ = value;
    start_ = now;
    length_ = std::max<std::int64_t>(0, micros);
}

double Ramp::At(std::int64_t micros) const {
    if (length_ == 0 || micros >= start_ + length_) return to_;
    if (micros <= start_) return from_;
    return from_ + (to_ - from_) * static_cast<double>(micros - start_) / static_cast<double>(length_);
}

Engine::Engine(const Memory& memory, std::uint32_t seed) : memory_(memory), dice_(seed) {}

int Engine::Cell(int address, int usual) const {
    const int value = memory_.Word(Area::Working, address);
    return value == ErasedWord || value == 0 ? usual : value;
}

int Engine::ByteCell(int address, int usual) const {
    const int value = memory_.Byte(Area::Working, address);
    return value == ErasedByte || value == 0 ? usual : value;
}

void Engine::AdvanceTo(std::int64_t micros) {
    const std::int64_t behind = (micros - time_) / StepMicros;
    if (behind > MostSteps) time_ += (behind - MostSteps) * StepMicros;
    while (time_ + StepMicros <= micros) {
        time_ += StepMicros;
        Step(time_);
    }
}

void Engine::SetRunning(bool running) {
    running_ = running && drive.ignition;
    cranked_ = 0;
    if (running_) {
        rpm_ = IdleRpm;
        mbar_ = IdleMbar;
    } else {
        rpm_ = 0;
        mbar_ = AtmosphereMbar;
    }
}

void Engine::Step(std::int64_t now) {
    const double before = throttle_;
    throttle_ = drive.throttle.At(now);
    throttleRate_ = Towards(throttleRate_, (throttle_ - before) / StepSeconds, 0.1);
    Turn(now);
    Breathe(now);
    ChooseFuel(now);
    ChooseZone(now);
    Control();
    Probe(now);
}

void Engine::Turn(std::int64_t now) {
    if (!drive.ignition) running_ = false;
    if (drive.rpm) {
        rpm_ = Towards(rpm_, *drive.rpm, 0.1);
        if (std::abs(rpm_ - *drive.rpm) < 1) rpm_ = *drive.rpm;
        running_ = drive.ignition && *drive.rpm > StandingRpm;
        return;
    }
    if (!running_ && drive.ignition && drive.starter) {
        cranked_ += StepSeconds;
        rpm_ = Towards(rpm_, CrankingRpm, 0.1);
        if (cranked_ < CrankingSeconds) return;
        running_ = true;
        drive.starter = false;
        cranked_ = 0;
    }
    if (!running_) {
        rpm_ = Towards(rpm_, 0, 0.3);
        if (rpm_ < 1) rpm_ = 0;
        return;
    }
    const double cold = std::max(0.0, WarmAt - drive.temperature.At(now));
    const double idle = IdleRpm + cold * ColdRpmPerDegree;
    const double opened = std::pow(std::clamp(throttle_ / 100, 0.0, 1.0), 0.7);
    const double target = idle + (FastestRpm - idle) * opened / (1 + drive.load.At(now) / 80);
    rpm_ = Towards(rpm_, target, target > rpm_ ? 0.6 : 0.9);
}

void Engine::Breathe(std::int64_t now) {
    double target = AtmosphereMbar;
    if (rpm_ > StandingRpm) {
        const double open = std::clamp(throttle_ / 100, 0.0, 1.0);
        const double loaded = std::min(1.0, 0.5 + drive.load.At(now) / 200 + open * open / 2);
        target = IdleMbar + (OpenMbar - IdleMbar) * std::pow(open, 0.6) * loaded;
        if (throttle_ < 1 && rpm_ > OverrunRpm) target = OverrunMbar;
    }
    mbar_ = Towards(mbar_, target, 0.15);
}

void Engine::ChooseFuel(std::int64_t now) {
    const double shown = Revolutions();
    const int fastest = Cell(live::OverSpeed, UsualOverSpeed);
    if (shown < std::min(fastest, Cell(live::OverSpeedReturn, UsualOverSpeedReturn))) overSpeed_ = false;
    if (shown > fastest) overSpeed_ = true;
    if (!running_ || drive.switchDigit == '0') {
        onGas_ = false;
    } else if (drive.switchDigit != '2') {
        onGas_ = true;
    } else if (!onGas_) {
        const int cell = memory_.Word(Area::Interna, ChangeOverDegreesCell);
        const int degrees = cell == ErasedWord ? UsualChangeOverDegrees : cell;
        onGas_ = drive.temperature.At(now) >= degrees && shown > Cell(live::ChangeOver, UsualChangeOver);
    }
}

void Engine::ChooseZone(std::int64_t now) {
    if (std::abs(throttleRate_) > TransientRate) transientUntil_ = now + TransientMicros;
    if (overSpeed_) {
        zone_ = Zone::OverSpeed;
    } else if (Closed() && Beyond(Zone::CutOff, Revolutions(), Cell(live::CutOffIn, UsualCutOffIn),
                                  Cell(live::CutOffOut, UsualCutOffOut))) {
        zone_ = Zone::CutOff;
    } else if (Idling()) {
        zone_ = Zone::Idle;
    } else if (FullyLoaded()) {
        zone_ = Zone::FullLoad;
    } else {
        zone_ = now < transientUntil_ ? Zone::Transient : Zone::Normal;
    }
}

// Whether a value has passed the threshold into a zone, or, within the zone, not yet the one out of it.
bool Engine::Beyond(Zone zone, double value, double in, double out) const {
    return value > (zone_ == zone ? out : in);
}

bool Engine::Closed() const {
    return TrueThrottleCounts(throttle_) < Cell(live::ThrottleCutOff, UsualThrottleCutOff);
}

bool Engine::Idling() const {
    const double in = Cell(live::IdleIn, UsualIdleIn);
    const double out = std::max(in, static_cast<double>(Cell(live::IdleOut, UsualIdleOut)));
    return Revolutions() < (zone_ == Zone::Idle ? out : in);
}

bool Engine::FullyLoaded() const {
    const int in = Cell(live::FullLoadIn, CountsMax + 1);
    return Beyond(Zone::FullLoad, PressureCounts(), in, Cell(live::FullLoadOut, in)) &&
           Revolutions() > Cell(live::FullLoadRevolutions, 0);
}

double Engine::Revolutions() const {
    return rpm_ * Cell(live::DividerThousandths, UsualThousandths) / UsualThousandths;
}

double Engine::PressureCounts() const {
    const double counts =
        drive.sensor == PressureSensor::Absolute ? mbar_ * CountsMax / 3230 + 182 : (mbar_ - 93) * 50 / 121;
    return std::clamp(counts, 0.0, static_cast<double>(CountsMax));
}

// The base position that the map in working memory holds for the place where the engine runs.
double Engine::MapAt(double rpm, double counts, int& cell) const {
    std::array<double, MapColumns> columns{};
    columns[0] = memory_.Word(Area::Working, live::FirstBreakpoint);
    for (std::size_t i = 1; i + 1 < columns.size(); ++i) {
        columns[i] = memory_.Word(Area::Working, live::Breakpoints + 2 * static_cast<int>(i - 1));
    }
    columns.back() = memory_.Word(Area::Working, live::LastBreakpoint);
    std::array<double, MapRows> rows{};
    rows[0] = memory_.Word(Area::Working, live::FirstZone);
    for (std::size_t i = 1; i + 1 < rows.size(); ++i) {
        rows[i] = memory_.Word(Area::Working, live::Zones + 2 * static_cast<int>(i - 1));
    }
    rows.back() = memory_.Word(Area::Working, live::LastZone);

    const auto [column, along] = Place(columns, rpm);
    const auto [row, up] = Place(rows, counts);
    const auto nearest = [](std::size_t place, double beyond) { return static_cast<int>(place) + (beyond > 0.5); };
    cell = nearest(column, along) * MapRows + nearest(row, up);
    const auto at = [this](std::size_t c, std::size_t r) {
        return ByteCell(live::Map + MapRows * static_cast<int>(c) + static_cast<int>(r), UsualStep);
    };
    const double low = at(column, row) * (1 - up) + at(column, row + 1) * up;
    const double high = at(column + 1, row) * (1 - up) + at(column + 1, row + 1) * up;
    return low * (1 - along) + high * along;
}

void Engine::Control() {
    base_ = MapAt(Revolutions(), PressureCounts(), mapCell_);
    if (!onGas_ || overSpeed_) {
        step_ = Towards(step_, base_, 0.5);
        return;
    }
    if (zone_ == Zone::CutOff || zone_ == Zone::FullLoad) {
        const int table = zone_ == Zone::CutOff ? live::CutOffReset : live::FullLoadReset;
        step_ = Towards(step_, ByteCell(table + mapCell_ / MapRows, static_cast<int>(base_)), 0.3);
        return;
    }
    const int period = zone_ == Zone::Idle ? Cell(live::IdleSpeed, UsualPeriod) : Cell(live::NormalSpeed, UsualPeriod);
    const double stepsASecond = 1000.0 / period / 1.024;
    step_ += (rich_ ? -stepsASecond : stepsASecond) * StepSeconds;
    step_ = std::clamp(step_, std::max(StepMin, base_ - Reach), std::min(StepMax, base_ + Reach));
}

// The probe follows the mixture with the delay of the gas on its way, then of the probe itself.
void Engine::Probe(std::int64_t now) {
    const ProbeRange range = Probes[static_cast<std::size_t>(std::clamp(drive.probe, 0, 2))];
    const double middle = (range.low + range.high) / 2;
    double target = range.low + (range.high - range.low) * 0.45;
    if (rpm_ > StandingRpm && drive.temperature.At(now) >= ProbeFrom) {
        const bool petrol = !onGas_ || overSpeed_;
        const double cycle = static_cast<double>(now) / MicrosPerSecond;
        double apart = petrol ? 5 * std::sin(cycle * 5) : step_ - Need(rpm_, mbar_);
        if (zone_ == Zone::CutOff) apart = -20;
        if (zone_ == Zone::FullLoad) apart = 20;
        mixture_ = Towards(mixture_, apart, 0.2);
        target = range.low + (range.high - range.low) / (1 + std::exp(-mixture_ * 1.5));
    } else if (rpm_ <= StandingRpm) {
        target = range.low;
        mixture_ = 0;
    }
    lambda_ = Towards(lambda_, target, 0.08);
    const double width = (range.high - range.low) * 0.03;
    const double upper = Cell(live::LambdaUpper, static_cast<int>(middle + width));
    const double lower = Cell(live::LambdaLower, static_cast<int>(middle - width));
    if (lambda_ > upper) rich_ = true;
    if (lambda_ < lower) rich_ = false;
}

int Engine::ThrottleCounts(double percent) const {
    const int counts = TrueThrottleCounts(percent);
    return drive.throttleInverted ? CountsMax - counts : counts;
}

// Each figure is drawn with its own width of noise, always in the same order.
template <class Noise>
Readings Engine::Read(Noise noise) const {
    Readings out;
    const bool turning = rpm_ > StandingRpm;
    const auto counts = [&noise](double value, double width) {
        return static_cast<int>(std::lround(std::clamp(value + noise(width), 0.0, double{CountsMax})));
    };
    const double unsteady = turning && !drive.rpm ? 9 : 0;
    out.revolutions = static_cast<int>(std::lround(std::clamp(Revolutions() + noise(unsteady), 0.0, 9999.0)));
    out.lambda = counts(lambda_, turning ? 1.5 : 0.6);
    out.throttle = ThrottleCounts(throttle_);
    out.pressure = counts(PressureCounts(), turning ? 1.0 : 0.4);
    out.temperature = static_cast<int>(std::lround(drive.temperature.At(time_)));
    out.level = counts(drive.level.At(time_), 1.0);
    const double gas = drive.gasPressure.At(time_);
    out.gasPressure = counts(
        drive.sensor == PressureSensor::Absolute ? gas * CountsMax / 4444 + 41 : (gas - mbar_ + 565) * 100 / 483, 1.0);
    out.step = static_cast<int>(std::lround(std::clamp(step_, 0.0, 255.0)));
    out.correction = std::clamp(out.step - static_cast<int>(std::lround(base_)), -128, 127);
    out.mapCell = mapCell_;
    out.zone = zone_;
    out.rich = rich_;
    out.onGas = onGas_ && !overSpeed_;
    out.waitingForGas = running_ && !onGas_ && drive.switchDigit == '2';
    out.closedLoop =
        out.onGas && drive.temperature.At(time_) >= LoopFrom && zone_ != Zone::CutOff && zone_ != Zone::FullLoad;
    out.pressureMbar = mbar_;
    return out;
}

Readings Engine::Look() const {
    return Read([](double) { return 0.0; });
}

Readings Engine::Measure() {
    return Read([this](double width) { return dice_.Spread() * width; });
}

}  // namespace sim
