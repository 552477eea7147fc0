#pragma once

#include <string>
#include <string_view>

#include "sim/memory.h"

namespace sim {

inline constexpr int CodeAddress = 32768;  // where the code area, and with it the version text, begins
inline constexpr int VersionLength = 10;
inline constexpr std::string_view StandardVersion = "01.04 A001";

// Commands are "R", "W" and so on with address and count; "X" reads the code area, "P" speaks to the loader.
inline constexpr std::string_view CommandLetters = "RWLIOSXP";

struct CodeArea {
    std::string version{StandardVersion};  // exactly VersionLength characters
};

// What the unit makes of one command (the text between STX and ETX).
struct Execution {
    bool understood = false;  // false: not one of the forms; such a frame is answered "no", or not at all
    bool refused = false;
    std::string reply;  // without STX and ETX; empty: no reply
};

// Executes a command on the memories. Never fails: whatever the text holds, it is executed, refused or ignored.
Execution Execute(std::string_view command, Memory& memory, const CodeArea& code);
// The refusal of a command: its letter in lower case and "no".
std::string RefusalOf(char letter);

}  // namespace sim
