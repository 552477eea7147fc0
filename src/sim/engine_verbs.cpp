#include <algorithm>
#include <array>
#include <cmath>

#include "sim/bytes.h"
#include "sim/cells.h"
#include "sim/scenario.h"

namespace sim {

namespace {

Parsed Usage() {
    return Action{};  // an empty action: the usage is shown
}

struct Choice {
    std::string_view word;
    int value;
};

template <std::size_t N>
std::optional<int> Choose(const std::array<Choice, N>& choices, const Words& arguments) {
    if (arguments.size() != 1) return std::nullopt;
    const auto found = std::find_if(choices.begin(), choices.end(),
                                    [&](const Choice& choice) { return choice.word == arguments.front(); });
    return found == choices.end() ? std::nullopt : std::optional(found->value);
}

constexpr std::array<Choice, 2> OnOff{{{"off", 0}, {"on", 1}}};

// A figure of the drive with the range a scenario may give it.
struct Figure {
    std::string_view word;
    Ramp Drive::*ramp;
    double low;
    double high;
};
constexpr auto Figures = std::to_array<Figure>({
    {"throttle", &Drive::throttle, 0, 100},
    {"load", &Drive::load, 0, 100},
    {"temperature", &Drive::temperature, 0, 200},
    {"level", &Drive::level, 0, 1023},
    {"gas-pressure", &Drive::gasPressure, 0, 4000},
});

std::string Text(double value) {
    return std::to_string(static_cast<int>(value));
}

template <std::size_t Row>
Parsed ParseFigure(const Words& arguments) {
    constexpr const Figure& figure = Figures[Row];
    if (arguments.size() != 1 && (arguments.size() != 3 || arguments[1] != "over")) return Usage();
    const auto value = Number(arguments[0]);
    const auto over = arguments.size() == 3 ? Time(arguments[2]) : std::optional<std::int64_t>(0);
    if (!value || !over) return Usage();
    if (*value < figure.low || *value > figure.high) {
        return Parsed::Wrong(std::string(figure.word) + " goes from " + Text(figure.low) + " to " + Text(figure.high));
    }
    return Action([value = *value, micros = *over * 1000](Parts& parts) -> Answer {
        parts.engine.AdvanceTo(parts.clock.ElapsedMicros());
        (parts.engine.drive.*Figures[Row].ramp).Lead(value, parts.clock.ElapsedMicros(), micros);
        return {};
    });
}

Parsed ParseIgnition(const Words& arguments) {
    const auto on = Choose(OnOff, arguments);
    if (!on) return Usage();
    return Action([on = *on != 0](Parts& parts) -> Answer {
        SetIgnition(parts, on);
        return {};
    });
}

Parsed ParseStarter(const Words& arguments) {
    const auto on = Choose(OnOff, arguments);
    if (!on) return Usage();
    return Action([on = *on != 0](Parts& parts) -> Answer {
        if (on && !parts.engine.drive.ignition) return Refusal("the ignition is off");
        parts.engine.AdvanceTo(parts.clock.ElapsedMicros());
        parts.engine.drive.starter = on;
        return {};
    });
}

Parsed ParseEngine(const Words& arguments) {
    constexpr std::array<Choice, 2> states{{{"stopped", 0}, {"running", 1}}};
    const auto running = Choose(states, arguments);
    if (!running) return Usage();
    return Action([running = *running != 0](Parts& parts) -> Answer {
        if (running && !parts.engine.drive.ignition) return Refusal("the ignition is off");
        parts.engine.AdvanceTo(parts.clock.ElapsedMicros());
        parts.engine.drive.rpm.reset();
        parts.engine.SetRunning(running);
        return {};
    });
}

Parsed ParseRpm(const Words& arguments) {
    constexpr double fastest = 9999;
    if (arguments.size() != 1) return Usage();
    std::optional<double> rpm;
    if (arguments[0] != "auto") {
        rpm = Number(arguments[0]);
        if (!rpm || *rpm < 0 || *rpm > fastest) return Usage();
    }
    return Action([rpm](Parts& parts) -> Answer {
        parts.engine.AdvanceTo(parts.clock.ElapsedMicros());
        parts.engine.drive.rpm = rpm;
        return {};
    });
}

Parsed ParseSwitch(const Words& arguments) {
    constexpr std::array<Choice, 3> positions{{{"petrol", '0'}, {"gas", '1'}, {"auto", '2'}}};
    auto digit = Choose(positions, arguments);
    if (!digit && arguments.size() == 1 && arguments[0].size() == 1) digit = arguments[0].front();
    if (!digit || (*digit < '0' || *digit > '9')) return Usage();
    return Action([digit = static_cast<char>(*digit)](Parts& parts) -> Answer {
        parts.engine.AdvanceTo(parts.clock.ElapsedMicros());
        parts.engine.drive.switchDigit = digit;
        return {};
    });
}

Parsed ParseProbe(const Words& arguments) {
    constexpr std::array<Choice, 3> types{{{"0", 0}, {"1", 1}, {"2", 2}}};
    const auto type = Choose(types, arguments);
    if (!type) return Usage();
    return Action([type = *type](Parts& parts) -> Answer {
        parts.engine.AdvanceTo(parts.clock.ElapsedMicros());
        parts.engine.drive.probe = type;
        return {};
    });
}

Parsed ParseSensor(const Words& arguments) {
    constexpr std::array<Choice, 2> sensors{{{"integrated", 0}, {"absolute", 1}}};
    const auto sensor = Choose(sensors, arguments);
    if (!sensor) return Usage();
    return Action([sensor = *sensor](Parts& parts) -> Answer {
        parts.engine.AdvanceTo(parts.clock.ElapsedMicros());
        parts.engine.drive.sensor = sensor == 0 ? PressureSensor::Integrated : PressureSensor::Absolute;
        return {};
    });
}

Parsed ParseThrottleSensor(const Words& arguments) {
    constexpr std::array<Choice, 2> directions{{{"normal", 0}, {"inverted", 1}}};
    const auto inverted = Choose(directions, arguments);
    if (!inverted) return Usage();
    return Action([inverted = *inverted != 0](Parts& parts) -> Answer {
        parts.engine.drive.throttleInverted = inverted;
        return {};
    });
}

std::int64_t Flag(bool value) {
    return value ? 1 : 0;
}

Parsed ParseState(const Words& arguments) {
    if (!arguments.empty()) return Usage();
    return Action([](Parts& parts) -> Answer {
        const std::int64_t now = parts.clock.ElapsedMicros();
        parts.engine.AdvanceTo(now);
        const Readings seen = parts.engine.Look();
        const Drive& drive = parts.engine.drive;
        const std::array<char, 4> status = StatusDigits(seen, drive, parts.memory);
        Answer answer;
        answer.values = {
            {"ms", now / 1000},
            {"ignition", Flag(drive.ignition)},
            {"running", Flag(parts.engine.Running())},
            {"rpm", std::int64_t{seen.revolutions}},
            {"throttle", std::int64_t{seen.throttle}},
            {"pressure", std::int64_t{seen.pressure}},
            {"mbar", static_cast<std::int64_t>(std::lround(seen.pressureMbar))},
            {"lambda", std::int64_t{seen.lambda}},
            {"rich", Flag(seen.rich)},
            {"temperature", std::int64_t{seen.temperature}},
            {"level", std::int64_t{seen.level}},
            {"gasPressure", std::int64_t{seen.gasPressure}},
            {"step", std::int64_t{seen.step}},
            {"correction", std::int64_t{seen.correction}},
            {"zone", static_cast<std::int64_t>(seen.zone)},
            {"gas", Flag(seen.onGas)},
            {"closedLoop", Flag(seen.closedLoop)},
            {"status", std::string(status.begin(), status.end())},
            {"mode", std::int64_t{parts.memory.Byte(Area::Working, live::Mode)}},
            {"programmed", Flag(parts.memory.Programmed())},
            {"version", Escaped(parts.code.version)},
            {"stream", Flag(parts.stream.on)},
            {"length", std::int64_t{parts.stream.length}},
            {"cable", Flag(parts.line.Connected())},
            {"misbehaviours", static_cast<std::int64_t>(parts.misbehaviours.Size())},
            {"waiting", static_cast<std::int64_t>(parts.script.Size())},
            {"playing", Flag(parts.playing != Playing::No)},
        };
        return answer;
    });
}

}  // namespace

const std::vector<Verb>& EngineVerbs() {
    static const std::vector<Verb> verbs{
        {"ignition", "on|off", ParseIgnition},
        {"starter", "on|off", ParseStarter},
        {"engine", "running|stopped", ParseEngine},
        {"throttle", "PERCENT [over TIME]", ParseFigure<0>},
        {"load", "PERCENT [over TIME]", ParseFigure<1>},
        {"temperature", "DEGREES [over TIME]", ParseFigure<2>},
        {"level", "COUNTS [over TIME]", ParseFigure<3>},
        {"gas-pressure", "MBAR [over TIME]", ParseFigure<4>},
        {"rpm", "REVOLUTIONS|auto", ParseRpm},
        {"switch", "petrol|gas|auto|DIGIT", ParseSwitch},
        {"probe", "0|1|2", ParseProbe},
        {"sensor", "absolute|integrated", ParseSensor},
        {"throttle-sensor", "normal|inverted", ParseThrottleSensor},
        {"state", "", ParseState},
    };
    return verbs;
}

}  // namespace sim
