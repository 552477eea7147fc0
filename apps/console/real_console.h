#pragma once

#include "common/options.h"

namespace console {

// The console in real time, on a serial device or on the simulated unit. Gives the exit status.
int RunInRealTime(int argc, char** argv, const common::CommandLine& line, const platform::Path& executable);

}  // namespace console
