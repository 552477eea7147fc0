#pragma once

#include <optional>
#include <string>

#include "common/options.h"
#include "platform/files.h"
#include "shell/state.h"

namespace program {
struct Program;
}

namespace common {

// The folder of the executable that runs; `argv0` is the name it was called by, for systems that do not tell.
platform::Path ExecutableFolder(const char* argv0);

// What the program is started with: the program directory and what ships, found from the command line, the environment
// and the place of the executable.
shell::Options ProgramOptions(const CommandLine& line, const platform::Path& executable, platform::Files& files);

// Starts the trace that the command line asks for; false when its file cannot be written.
bool Trace(program::Program& program, const CommandLine& line);
// The exit status of a program that ends: what it asked for, or 0 when its input just ended.
int ExitStatus(const program::Program& program);

}  // namespace common
