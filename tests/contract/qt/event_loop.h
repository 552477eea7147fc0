#pragma once

#include <functional>

namespace contract {

// Runs the event loop of Qt until `done` answers true; false when it has not within some seconds.
bool RunEventsUntil(const std::function<bool()>& done);
// Runs the event loop until nothing has been under way for a while.
void RunEventsShortly();

}  // namespace contract
