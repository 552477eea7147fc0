#include "platform/real/system_clock.h"

#include <ctime>

namespace platform::real {

namespace {

constexpr int FirstYear = 1900;  // struct tm counts its years from here

std::tm LocalTime(std::time_t time) {
    std::tm out{};
#ifdef _WIN32
    localtime_s(&out, &time);
#else
    localtime_r(&time, &out);
#endif
    return out;
}

}  // namespace

std::int64_t SystemClock::ElapsedMicros() const {
    return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start_).count();
}

WallTime SystemClock::Now() const {
    const auto now = std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now());
    const auto second = std::chrono::floor<std::chrono::seconds>(now);
    const std::tm local = LocalTime(std::chrono::system_clock::to_time_t(second));
    return {local.tm_year + FirstYear,
            local.tm_mon + 1,
            local.tm_mday,
            local.tm_hour,
            local.tm_min,
            local.tm_sec,
            static_cast<int>((now - second).count())};
}

}  // namespace platform::real
