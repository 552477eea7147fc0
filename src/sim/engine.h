#pragma once

#include <cstdint>
#include <optional>

#include "sim/memory.h"
#include "sim/random.h"

namespace sim {

// A figure that a scenario sets: at once, or evenly over a time.
class Ramp {
  public:
    explicit Ramp(double value) : from_(value), to_(value) {}
    void Set(double value) { *this = Ramp(value); }
    void Lead(double value, std::int64_t now, std::int64_t micros);
    double At(std::int64_t micros) const;

  private:
    double from_;
    double to_;
    std::int64_t start_ = 0;
    std::int64_t length_ = 0;
};

// Pressure sensors as the unit's cell 3312 tells them apart: 17 the absolute one, 255 the one built in with the gas
// pressure.
enum class PressureSensor : std::uint8_t { Integrated, Absolute };

// What drives the engine: the driver, the road, the fitter's choice of sensors.
struct Drive {
    bool ignition = true;
    bool starter = false;
    char switchDigit = '1';
    Ramp throttle{0};           // percent
    Ramp load{0};               // percent
    Ramp temperature{85};       // degrees
    Ramp level{360};            // tank, converter counts
    Ramp gasPressure{1500};     // mbar, absolute
    std::optional<double> rpm;  // holds the revolutions whatever throttle and load say
    int probe = 0;              // 0: 0-1 V, 1: 0.7-1.6 V, 2: 0-5 V
    PressureSensor sensor = PressureSensor::Absolute;
    bool throttleInverted = false;
};

// Where in the map the control stands.
enum class Zone : std::uint8_t { Idle = 1, Normal = 2, FullLoad = 3, CutOff = 4, OverSpeed = 5, Transient = 6 };

// What the unit measures and shows. Counts are those of its converter, 0 to 1023.
struct Readings {
    int revolutions = 0;
    int lambda = 0;
    int throttle = 0;
    int pressure = 0;
    int temperature = 0;
    int level = 0;
    int gasPressure = 0;
    int step = 0;
    int correction = 0;  // -128 to 127
    int mapCell = 0;     // column x 8 + row
    Zone zone = Zone::Idle;
    bool rich = false;
    bool onGas = false;
    bool closedLoop = false;
    bool waitingForGas = false;  // switch on automatic, still on petrol
    double pressureMbar = 0;
};

// A petrol engine on gas with the unit's closed loop round it. It moves in steps of 20 ms of the clock, so that a run
// does not depend on how often it is looked at. The loop works with the live copies in the unit's working memory: its
// speeds, thresholds and map change what it does at once. An erased cell counts as its usual value.
class Engine {
  public:
    Engine(const Memory& memory, std::uint32_t seed);

    Drive drive;

    void AdvanceTo(std::int64_t micros);
    void SetRunning(bool running);
    bool Running() const { return running_; }
    Readings Look() const;  // the true figures
    Readings Measure();     // with the sensors' noise, as a live frame carries it

  private:
    template <class Noise>
    Readings Read(Noise noise) const;
    void Step(std::int64_t now);
    void Turn(std::int64_t now);
    void Breathe(std::int64_t now);
    void ChooseFuel(std::int64_t now);
    void ChooseZone(std::int64_t now);
    void Control();
    void Probe(std::int64_t now);

    bool Beyond(Zone zone, double value, double in, double out) const;
    bool Closed() const;
    bool Idling() const;
    bool FullyLoaded() const;
    int Cell(int address, int usual) const;      // a word of the working memory
    int ByteCell(int address, int usual) const;  // a byte
    double MapAt(double rpm, double counts, int& cell) const;
    double PressureCounts() const;
    int ThrottleCounts(double percent) const;
    double Revolutions() const;

    const Memory& memory_;
    Random dice_;
    std::int64_t time_ = 0;
    bool running_ = true;
    bool onGas_ = true;
    bool overSpeed_ = false;
    Zone zone_ = Zone::Idle;
    double cranked_ = 0;
    double rpm_ = 850;
    double throttle_ = 0;
    double throttleRate_ = 0;  // percent a second
    double mbar_ = 380;
    double step_ = 46;
    double base_ = 46;
    double mixture_ = 0;  // how far the stepper stands from the engine's need, as the probe sees it
    double lambda_ = 100;
    bool rich_ = false;
    int mapCell_ = 0;
    std::int64_t transientUntil_ = 0;
};

}  // namespace sim
