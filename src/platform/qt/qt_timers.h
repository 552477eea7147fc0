#pragma once

#include <memory>

#include "platform/qt/after_event.h"
#include "platform/timer.h"

namespace platform::qt {

// Timers on the event loop of Qt, precise to the millisecond. Two that are due together fire in the order in which they
// were armed. A tick that the loop was too busy for is dropped, not made up for.
class QtTimers : public Timers {
  public:
    explicit QtTimers(const AfterEvent& after) : after_(after) {}
    std::unique_ptr<Timer> Make(int milliseconds) override;

  private:
    const AfterEvent& after_;
};

}  // namespace platform::qt
