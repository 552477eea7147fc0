#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/clock.h"
#include "platform/files.h"
#include "platform/line_end.h"
#include "platform/timer.h"
#include "sim/answer.h"
#include "sim/log.h"
#include "sim/memory.h"

namespace sim {

// A whole simulated unit on the far end of a line. From the start the ignition is on, the engine warm and idling on
// gas, the memory holds a complete installation, and live frames of 51 characters go out ten times a second. Clock,
// timers and line outlive it. The same seed and the same lines at the same moments give the same bytes.
class Unit {
  public:
    Unit(platform::Clock& clock, platform::Timers& timers, platform::LineEnd& far, std::uint32_t seed = 1);
    ~Unit();
    Unit(const Unit&) = delete;
    Unit& operator=(const Unit&) = delete;

    // Lets the lines `image` and `play` read files; without it they are refused.
    // Names without a folder are looked for in the one given, whatever becomes the current one later.
    void UseFiles(platform::Files& files, const platform::Path& folder = {});

    // One line of the scenario language, now ("at 2 ..." counts from now). A bad line changes nothing.
    Answer Line(std::string_view line);
    // A whole scenario in place of the one that runs; lines without a time are done at once. With a bad line in it
    // nothing is done, and the answer names it.
    Answer Load(std::string_view text);

    Memory& Cells();
    const Counters& Seen() const;

  private:
    struct Inside;
    std::unique_ptr<Inside> inside_;
};

// The scenario that runs when nobody names one: a warm engine at idle with light strokes of the throttle.
std::string_view StandardScenario();

}  // namespace sim
