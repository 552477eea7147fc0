#include "sim/schedule.h"

#include <algorithm>

namespace sim {

namespace {

constexpr std::int64_t MicrosPerMilli = 1000;
constexpr std::int64_t LongestWait = 60000;  // a longer wait is cut into several

}  // namespace

Schedule::Schedule(platform::Clock& clock, platform::Timers& timers) : clock_(clock), timer_(timers.Make(1)) {
    timer_->SetHandler([this] { RunDue(); });
}

void Schedule::After(std::int64_t milliseconds, Action action) {
    At(clock_.ElapsedMicros() + std::max<std::int64_t>(0, milliseconds) * MicrosPerMilli, std::move(action));
}

void Schedule::At(std::int64_t micros, Action action) {
    actions_.emplace(std::pair(micros, order_++), std::move(action));
    Arm();
}

void Schedule::Clear() {
    actions_.clear();
    timer_->SetEnabled(false);
}

void Schedule::Arm() {
    if (actions_.empty()) {
        timer_->SetEnabled(false);
        return;
    }
    const std::int64_t wait = actions_.begin()->first.first - clock_.ElapsedMicros();
    const std::int64_t millis = (wait + MicrosPerMilli - 1) / MicrosPerMilli;
    timer_->SetInterval(static_cast<int>(std::clamp<std::int64_t>(millis, 1, LongestWait)));
    timer_->SetEnabled(true);
}

// An action may put further ones in, or clear the schedule.
void Schedule::RunDue() {
    const std::int64_t now = clock_.ElapsedMicros();
    const std::int64_t upTo = order_;
    while (!actions_.empty() && actions_.begin()->first.first <= now && actions_.begin()->first.second < upTo) {
        const Action action = std::move(actions_.begin()->second);
        actions_.erase(actions_.begin());
        action();
    }
    Arm();
}

}  // namespace sim
