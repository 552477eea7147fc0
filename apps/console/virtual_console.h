#pragma once

#include "common/options.h"

namespace console {

// The console on virtual time: time passes only while a command waits. Gives the exit status.
int RunOnVirtualTime(const common::CommandLine& line, const platform::Path& executable);

}  // namespace console
