#pragma once

#include <cstdint>

namespace platform {

// A moment of the wall clock in local time; years in full (2026), months and days from 1.
struct WallTime {
    int year = 2000;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int millisecond = 0;
};

// Elapsed time and wall time apart: only the first may be used to measure.
class Clock {
  public:
    virtual ~Clock() = default;
    // Microseconds since an arbitrary start; never goes back.
    virtual std::int64_t ElapsedMicros() const = 0;
    virtual WallTime Now() const = 0;
};

}  // namespace platform
