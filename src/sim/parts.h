#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/files.h"
#include "platform/line_end.h"
#include "platform/timer.h"
#include "sim/commands.h"
#include "sim/engine.h"
#include "sim/log.h"
#include "sim/memory.h"
#include "sim/misbehaviour.h"
#include "sim/random.h"
#include "sim/schedule.h"
#include "sim/stream.h"

namespace sim {

// A cable that comes off by itself: with the command, or the live frame, behind the given number of them.
struct CablePull {
    bool byStream = false;
    int left = 0;
};

// Whether a recorded session is on the line: of the whole of it, the unit itself keeps quiet; of its live frames alone,
// the unit answers commands.
enum class Playing : std::uint8_t { No, Live, Whole };

// One line of a scenario that has a time: milliseconds from the scenario's start, and what it does.
struct TimedAction {
    std::int64_t millis = 0;
    std::function<void(struct Parts&)> action;
};

// Everything one simulated unit is made of. The scenario's words and the unit's own work act on it.
struct Parts {
    Parts(platform::Clock& unitClock, platform::Timers& timers, platform::LineEnd& far, std::uint32_t seed);

    platform::Clock& clock;
    platform::LineEnd& line;
    platform::Files* files = nullptr;  // without it no image, trace or scenario can be read by name
    platform::Path folder;             // where names without a folder are looked for

    Memory memory;
    CodeArea code;
    Engine engine;
    StreamSettings stream;
    Misbehaviours misbehaviours;
    Counters counters;
    Log log;
    Random dice;
    std::optional<CablePull> pull;
    Playing playing = Playing::No;
    std::vector<TimedAction> scenario;  // what `loop` starts again
    std::int64_t restUntil = 0;
    std::unique_ptr<platform::Timer> beat;  // of the stream
    Schedule replies;
    Schedule script;
    Schedule playback;
};

// Puts the bytes on the line and into the log.
void Send(Parts& parts, const std::string& bytes);
// Off: the working memory is lost, nothing is sent and nothing answered. On: it is filled again, the engine stands.
void SetIgnition(Parts& parts, bool on);
// Frames a second, above 0 and at most 1000.
void SetRate(Parts& parts, double rate);
// One moment of the stream: the engine moves on, and a live frame goes out unless the stream rests.
void Beat(Parts& parts);
// One text between STX and ETX that came in.
void OnFrame(Parts& parts, const std::string& frame);

}  // namespace sim
