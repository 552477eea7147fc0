#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <queue>
#include <vector>

#include "platform/clock.h"
#include "platform/timer.h"

namespace platform::virt {

// Virtual time: one queue of (due time in microseconds, order of arming). Clock, timers and the in-memory line all live
// on it, so a run repeats exactly and an hour passes in an instant. Nothing here knows of real time; a program that
// wants it calls RunUntil with a real clock's reading (the simulated ECU does, inside the desktop program and on a
// pseudo-terminal).
class World : public Clock, public Timers {
  public:
    using Action = std::function<void()>;
    static constexpr std::int64_t Never = INT64_MAX;

    // Lets the world keep pace with a real clock. It is asked only about what enters the queue between two runs.
    class Driver {
      public:
        virtual ~Driver() = default;
        virtual std::int64_t Micros() const = 0;  // the real clock's reading, on the world's own scale
        virtual void Rearm() = 0;                 // NextDue may have changed
    };

    World() = default;
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    std::int64_t ElapsedMicros() const override { return now_; }
    // The wall clock's start (default 2026-01-05 08:00:00) plus the elapsed time.
    WallTime Now() const override;
    void SetStart(const WallTime& start) { start_ = start; }

    std::unique_ptr<Timer> Make(int milliseconds) override;
    void SetDriver(Driver* driver) { driver_ = driver; }  // nullptr: none

    // Puts an action into the queue, `delay` microseconds from now (at least 0).
    void After(std::int64_t delay, Action action);
    // When the next thing is due; Never when the queue is empty.
    std::int64_t NextDue() const;
    // Runs everything that is due up to that moment, in order, and leaves the clock there.
    void RunUntil(std::int64_t micros);
    // Runs the next thing that is due up to that moment; with nothing due the clock moves there.
    void RunOne(std::int64_t micros);
    void RunFor(std::int64_t milliseconds) { RunUntil(now_ + milliseconds * 1000); }

  private:
    struct Entry {
        std::int64_t due;
        std::int64_t sequence;
        Action action;
    };
    struct Later {
        bool operator()(const Entry& a, const Entry& b) const {
            return a.due != b.due ? a.due > b.due : a.sequence > b.sequence;
        }
    };

    void RunNext();

    std::int64_t now_ = 0;
    std::int64_t sequence_ = 0;
    Driver* driver_ = nullptr;
    bool running_ = false;
    WallTime start_{2026, 1, 5, 8, 0, 0, 0};
    std::priority_queue<Entry, std::vector<Entry>, Later> queue_;
};

}  // namespace platform::virt
