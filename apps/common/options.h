#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/files.h"
#include "shell/state.h"

namespace common {

enum class FrontEnd { Console, Desktop };

// What the command line asks for.
struct CommandLine {
    std::optional<platform::Path> folder;
    std::map<int, std::string> ports;  // devices by port number, 1 to 10; absolute like all paths here
    bool simulate = false;
    std::optional<platform::Path> scenario;  // a file, or the name of a shipped one; none: the standard scenario. As
                                             // given: it is read before the program goes to its directory
    bool virtualTime = false;                // of the console alone
    bool console = false;                    // of the desktop alone: commands on standard input beside the windows
    shell::Variant variant = shell::Variant::None;
    std::optional<platform::Path> trace;
};

// A command line that was read, or why the program ends at once: with status 0 and what was asked for on standard
// output, or with status 2 and one line on standard error.
struct Reading {
    std::optional<CommandLine> line;
    int exitStatus = 0;
    std::string message;  // UTF-8, without the last line end
};

inline constexpr int BadOptions = 2;

// `arguments` are those behind the program's name.
Reading ReadCommandLine(FrontEnd frontEnd, const std::vector<std::string>& arguments);

// Writes what a command line that is not to be run asks for, and gives the exit status.
int Tell(const Reading& reading);
// One line on standard error; gives the exit status of bad options.
int Complain(FrontEnd frontEnd, const std::string& message);

}  // namespace common
