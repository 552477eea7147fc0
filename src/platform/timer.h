#pragma once

#include <functional>
#include <memory>

namespace platform {

// A repeating timer with a millisecond interval. It starts off.
// Switching it on, or setting the interval while it is on, arms it afresh from now; it is armed again before its
// handler runs, so a handler may switch it off or change the interval. A timer that is off never fires.
class Timer {
  public:
    using Handler = std::function<void()>;

    virtual ~Timer() = default;
    virtual void SetInterval(int milliseconds) = 0;  // at least 1; less counts as 1
    virtual int Interval() const = 0;
    virtual void SetEnabled(bool on) = 0;
    virtual bool Enabled() const = 0;
    virtual void SetHandler(Handler handler) = 0;
};

class Timers {
  public:
    virtual ~Timers() = default;
    // A new timer, off, with the interval given. It must not outlive its maker.
    virtual std::unique_ptr<Timer> Make(int milliseconds) = 0;
};

}  // namespace platform
