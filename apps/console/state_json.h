#pragma once

#include "console/json.h"

namespace program {
struct Program;
}

namespace console {

// Every state variable under its own name, the timers and the port.
Json OfState(const program::Program& program);
// The live record: texts, running limits and scales of every channel; pairs are by view.
Json OfChannels(const program::Program& program);

}  // namespace console
