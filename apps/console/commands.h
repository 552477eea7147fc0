#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "console/json.h"
#include "console/words.h"

namespace program {
struct Program;
}

namespace sim {
class Unit;
}

namespace console {

// Time that a command lets pass before it is answered: until the condition holds, or until the time is over.
struct Wait {
    std::int64_t from = 0;        // microseconds of the program's clock
    std::int64_t until = 0;       // likewise
    std::function<bool()> holds;  // none: the time itself is what was asked for
};

// What a command works on.
struct Context {
    program::Program& program;
    sim::Unit* unit = nullptr;  // the simulated unit; none on a real line
    std::optional<Wait> wait;   // set by a command that is not answered yet
    bool quit = false;
};

// One command of the console: how many words it takes, and what it does with them. Words are in code page 1252.
struct Command {
    std::string_view name;
    std::string_view usage;  // what follows the name
    std::size_t least;
    std::size_t most;
    Json (*run)(Context& context, const Words& arguments);
    bool wholeLine = false;  // what follows the name is one argument, blanks and quotes included
};

// Null when there is no command of that name.
const Command* FindCommand(std::string_view name);

}  // namespace console
