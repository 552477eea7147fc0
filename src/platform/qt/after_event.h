#pragma once

#include <functional>
#include <utility>

namespace platform::qt {

// What follows every event: a front end sets the one action that brings its windows up to date, and each source of
// events (timers, port, simulated unit) runs it when the handler has returned.
class AfterEvent {
  public:
    void Set(std::function<void()> action) { action_ = std::move(action); }
    void Run() const {
        if (action_) action_();
    }

  private:
    std::function<void()> action_;
};

}  // namespace platform::qt
