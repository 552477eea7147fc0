#pragma once

#include <chrono>

#include "platform/clock.h"

namespace platform::real {

// The clocks of the machine: the steady one for elapsed time, the wall clock in the local time zone.
class SystemClock : public Clock {
  public:
    std::int64_t ElapsedMicros() const override;
    WallTime Now() const override;

  private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace platform::real
