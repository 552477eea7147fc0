#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "console/commands.h"

namespace console {

// Understands the lines of the console and acts on the program. Whoever owns it reads the lines, lets time pass and
// writes the answers.
class Interpreter {
  public:
    // `unit` is the simulated unit, or null on a real line. Both outlive the interpreter.
    Interpreter(program::Program& program, sim::Unit* unit) : context_{program, unit, std::nullopt, false} {}

    // One line of input in UTF-8. Gives its answer, one line of UTF-8; nothing for an empty line or a remark; nothing
    // yet for a command that waits. Must not be called while one waits.
    std::optional<std::string> Do(std::string_view line);
    // A command waits: its answer comes from Poll.
    bool Waiting() const { return context_.wait.has_value(); }
    // The answer of the command that waits, once its condition holds or its time is over; to be asked for after each
    // event of the program.
    std::optional<std::string> Poll();
    // What the waiting command waits for has come; a command that waits for the time alone has its answer at the end.
    bool Holds() const { return context_.wait && context_.wait->holds && context_.wait->holds(); }
    // When the time of the command that waits is over, in microseconds of the program's clock.
    std::int64_t Deadline() const { return context_.wait ? context_.wait->until : 0; }
    // Nothing more is to be done: `quit` was read, or the program has ended.
    bool Finished() const;

  private:
    Context context_;
};

}  // namespace console
