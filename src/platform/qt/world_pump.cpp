#include "platform/qt/world_pump.h"

#include <algorithm>

namespace platform::qt {

namespace {

constexpr std::int64_t MicrosPerMilli = 1000;
constexpr std::int64_t NanosPerMicro = 1000;
// Bytes gather for this long before they are handed on, as in a serial adapter: at 38400 baud one is due every 260
// microseconds, and waking up for each would cost more than all the rest.
constexpr std::int64_t ShortestWait = 4;
constexpr std::int64_t LongestWait = 60000;

}  // namespace

WorldPump::WorldPump(virt::World& world, const AfterEvent& after)
    : world_(world), after_(after), start_(world.ElapsedMicros()) {
    elapsed_.start();
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Run(); });
    world_.SetDriver(this);
    Rearm();
}

WorldPump::~WorldPump() {
    world_.SetDriver(nullptr);
}

std::int64_t WorldPump::Micros() const {
    return start_ + elapsed_.nsecsElapsed() / NanosPerMicro;
}

void WorldPump::Rearm() {
    if (world_.NextDue() == virt::World::Never) {
        timer_.stop();
        return;
    }
    const std::int64_t micros = std::max<std::int64_t>(0, world_.NextDue() - Micros());
    const std::int64_t wait = (micros + MicrosPerMilli - 1) / MicrosPerMilli;
    timer_.start(static_cast<int>(std::clamp(wait, ShortestWait, LongestWait)));
}

void WorldPump::Run() {
    world_.RunUntil(Micros());
    Rearm();
    after_.Run();
}

}  // namespace platform::qt
