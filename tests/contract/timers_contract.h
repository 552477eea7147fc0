#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "platform/clock.h"
#include "platform/timer.h"

namespace contract {

// A machine whose timers are put to the test. Time passes only inside RunUntil.
class TimersMachine {
  public:
    virtual ~TimersMachine() = default;
    virtual platform::Timers& Timers() = 0;
    virtual platform::Clock& Clock() = 0;
    // Lets time pass until `done` answers true; false when it has not within a few seconds of the machine's time.
    virtual bool RunUntil(const std::function<bool()>& done) = 0;
};

using MakeTimersMachine = std::function<std::unique_ptr<TimersMachine>()>;

class TimersContract : public ::testing::TestWithParam<MakeTimersMachine> {
  protected:
    std::unique_ptr<TimersMachine> machine_ = GetParam()();
};

}  // namespace contract
