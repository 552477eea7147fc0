#include "sim/unit.h"

#include "sim/frame_reader.h"
#include "sim/parts.h"
#include "sim/scenario.h"

namespace sim {

struct Unit::Inside {
    Inside(platform::Clock& clock, platform::Timers& timers, platform::LineEnd& far, std::uint32_t seed)
        : parts(clock, timers, far, seed), reader([this](const std::string& frame) { OnFrame(parts, frame); }) {
        far.SetReceiver([this](std::string_view piece) { reader.Feed(piece); });
    }
    ~Inside() { parts.line.SetReceiver({}); }
    Inside(const Inside&) = delete;
    Inside& operator=(const Inside&) = delete;

    Parts parts;
    FrameReader reader;
};

Unit::Unit(platform::Clock& clock, platform::Timers& timers, platform::LineEnd& far, std::uint32_t seed)
    : inside_(std::make_unique<Inside>(clock, timers, far, seed)) {}

Unit::~Unit() = default;

void Unit::UseFiles(platform::Files& files, const platform::Path& folder) {
    inside_->parts.files = &files;
    inside_->parts.folder = folder;
}

Answer Unit::Line(std::string_view line) {
    return DoLine(inside_->parts, line);
}

Answer Unit::Load(std::string_view text) {
    return LoadScenario(inside_->parts, text);
}

Memory& Unit::Cells() {
    return inside_->parts.memory;
}

const Counters& Unit::Seen() const {
    return inside_->parts.counters;
}

std::string_view StandardScenario() {
    return "at 6 throttle 12 over 0.6\n"
           "at 9 throttle 4 over 0.5\n"
           "at 11 throttle 0\n"
           "at 17 throttle 22 over 0.4\n"
           "at 19 throttle 0\n"
           "at 26 throttle 8 over 1\n"
           "at 32 throttle 0 over 0.5\n"
           "at 40 loop\n";
}

}  // namespace sim
