#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>

#include "platform/clock.h"
#include "platform/timer.h"

namespace sim {

// Actions with their moments, to the millisecond; those of one moment run in the order in which they were put in.
// Put in for now or the past, an action runs when the timers next run.
class Schedule {
  public:
    using Action = std::function<void()>;

    Schedule(platform::Clock& clock, platform::Timers& timers);
    void After(std::int64_t milliseconds, Action action);
    void At(std::int64_t micros, Action action);  // by the clock's elapsed time
    void Clear();
    bool Empty() const { return actions_.empty(); }
    std::size_t Size() const { return actions_.size(); }

  private:
    void Arm();
    void RunDue();

    platform::Clock& clock_;
    std::unique_ptr<platform::Timer> timer_;
    std::map<std::pair<std::int64_t, std::int64_t>, Action> actions_;  // by (moment, order)
    std::int64_t order_ = 0;
};

}  // namespace sim
