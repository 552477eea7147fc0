#include "platform/virtual/world.h"

#include <algorithm>

namespace platform::virt {

namespace {

constexpr std::int64_t MicrosPerMilli = 1000;
constexpr std::int64_t MicrosPerSecond = 1000000;
constexpr std::int64_t SecondsPerDay = 86400;

// Days since 1970-01-01 of a day of the calendar, and back (proleptic Gregorian calendar).
std::int64_t DaysFromCivil(int year, int month, int day) {
    const std::int64_t y = month <= 2 ? year - 1 : year;
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const std::int64_t yearOfEra = y - era * 400;
    const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

void CivilFromDays(std::int64_t days, WallTime& out) {
    days += 719468;
    const std::int64_t era = (days >= 0 ? days : days - 146096) / 146097;
    const std::int64_t dayOfEra = days - era * 146097;
    const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t shifted = (5 * dayOfYear + 2) / 153;
    out.day = static_cast<int>(dayOfYear - (153 * shifted + 2) / 5 + 1);
    out.month = static_cast<int>(shifted < 10 ? shifted + 3 : shifted - 9);
    out.year = static_cast<int>(yearOfEra + era * 400 + (out.month <= 2 ? 1 : 0));
}

// A timer's arming is a shared count: an entry of the queue whose count is stale does nothing.
class VirtualTimer : public Timer {
  public:
    VirtualTimer(World& world, int milliseconds) : world_(world) { SetInterval(milliseconds); }
    ~VirtualTimer() override { ++*arming_; }

    void SetInterval(int milliseconds) override {
        interval_ = std::max(1, milliseconds);
        if (enabled_) Arm();
    }
    int Interval() const override { return interval_; }
    void SetEnabled(bool on) override {
        enabled_ = on;
        ++*arming_;
        if (on) Arm();
    }
    bool Enabled() const override { return enabled_; }
    void SetHandler(Handler handler) override { handler_ = std::move(handler); }

  private:
    void Arm() {
        const std::int64_t mine = ++*arming_;
        world_.After(interval_ * MicrosPerMilli, [this, mine, arming = arming_] {
            if (*arming == mine) Fire();
        });
    }
    void Fire() {
        Arm();
        if (handler_) {
            const Handler handler = handler_;  // the handler may set another one
            handler();
        }
    }

    World& world_;
    Handler handler_;
    std::shared_ptr<std::int64_t> arming_ = std::make_shared<std::int64_t>(0);
    int interval_ = 1;
    bool enabled_ = false;
};

}  // namespace

WallTime World::Now() const {
    std::int64_t seconds = DaysFromCivil(start_.year, start_.month, start_.day) * SecondsPerDay + start_.hour * 3600 +
                           start_.minute * 60 + start_.second;
    const std::int64_t micros = now_ + start_.millisecond * MicrosPerMilli;
    seconds += micros / MicrosPerSecond;
    WallTime out;
    CivilFromDays(seconds / SecondsPerDay, out);
    const auto rest = static_cast<int>(seconds % SecondsPerDay);
    out.hour = rest / 3600;
    out.minute = rest / 60 % 60;
    out.second = rest % 60;
    out.millisecond = static_cast<int>(micros % MicrosPerSecond / MicrosPerMilli);
    return out;
}

std::unique_ptr<Timer> World::Make(int milliseconds) {
    return std::make_unique<VirtualTimer>(*this, milliseconds);
}

void World::After(std::int64_t delay, Action action) {
    const bool fromOutside = driver_ != nullptr && !running_;
    // "From now" means the real now, but nothing that is still to be run may fall behind it.
    if (fromOutside) now_ = std::max(now_, std::min(driver_->Micros(), NextDue()));
    queue_.push({now_ + std::max<std::int64_t>(0, delay), sequence_++, std::move(action)});
    if (fromOutside) driver_->Rearm();
}

std::int64_t World::NextDue() const {
    return queue_.empty() ? Never : queue_.top().due;
}

void World::RunNext() {
    Entry entry = queue_.top();
    queue_.pop();
    now_ = std::max(now_, entry.due);
    entry.action();
}

void World::RunUntil(std::int64_t micros) {
    running_ = true;
    while (NextDue() <= micros) RunNext();
    running_ = false;
    now_ = std::max(now_, micros);
}

void World::RunOne(std::int64_t micros) {
    running_ = true;
    if (NextDue() <= micros) {
        RunNext();
    } else {
        now_ = std::max(now_, micros);
    }
    running_ = false;
}

}  // namespace platform::virt
