// The simulated unit: lines of its scenario language, and, behind ">", bytes that come in from the line. Whatever they
// hold, the unit goes on streaming and answers a good command when it behaves again.

#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/virtual/line.h"
#include "platform/virtual/world.h"
#include "sim/bytes.h"
#include "sim/unit.h"

namespace {

constexpr int MostLines = 200;

void Require(bool holds) {
    if (!holds) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    platform::virt::World world;
    platform::virt::Line line(world);
    line.Port().SetSettings("38400,N,8,1");
    line.Port().Open();
    sim::Unit unit(world, world, line.Far());

    std::string_view text(reinterpret_cast<const char*>(data), size);
    for (int count = 0; !text.empty() && count < MostLines; ++count) {
        const std::size_t end = text.find('\n');
        const std::string_view one = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (one.starts_with('>')) {
            line.Port().Output(one.substr(1));
        } else {
            const sim::Answer answer = unit.Line(one);
            Require(answer.ok == answer.error.empty());
        }
        world.RunFor(20);
        line.Port().Input();
    }
    for (const char* last : {"play stop", "behave", "cable in", "ignition off", "ignition on", "stream off"}) {
        Require(unit.Line(last).ok);
    }
    line.Port().Output(sim::Framed("R01270001"));
    world.RunFor(1);
    Require(line.Port().Input() == sim::Framed("r00"));
    return 0;
}
