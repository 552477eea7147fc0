#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "console/interpreter.h"

namespace console {

// One run of the console: bytes of input become lines, lines become answers, in order. While a command waits the lines
// behind it stay where they are.
class Session {
  public:
    using Print = std::function<void(std::string_view answer)>;
    static constexpr std::size_t LongestLine = 64 * 1024;  // bytes; a longer one is answered with an error

    Session(Interpreter& interpreter, Print print) : interpreter_(interpreter), print_(std::move(print)) {}

    void Feed(std::string_view bytes);
    void EndOfInput() { inputEnded_ = true; }
    // Goes as far as it can: ends a wait that is over, then does the lines that are there. After each event.
    void Advance();
    // Nothing is left to do without further input.
    bool Hungry() const;
    bool Finished() const;

  private:
    std::optional<std::string> NextLine();
    void DoLine(const std::string& line);

    Interpreter& interpreter_;
    Print print_;
    std::string input_;
    bool tooLong_ = false;  // the line being read is dropped up to its end
    bool atStart_ = true;
    bool inputEnded_ = false;
    bool advancing_ = false;
};

// Standard output, flushed after each line: whoever reads the answers waits for them.
void PrintLine(std::string_view answer);
// The next piece of standard input, waiting for it; empty at its end.
std::string ReadInput();

}  // namespace console
