#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

// What the unit has seen and sent since the start or the last clearing.
struct Counters {
    std::array<std::int64_t, 26> commands{};  // by letter, whether they were answered or not
    std::int64_t bad = 0;                     // frames that are no command: unknown letter, wrong form
    std::int64_t refused = 0;                 // answered with "no"
    std::int64_t answered = 0;                // replies of any kind
    std::int64_t live = 0;                    // live frames sent

    std::int64_t Of(char letter) const;  // 0 for what is no capital letter; 'D' counts the live frames sent
    std::int64_t All() const;
};

// The frames of the last exchanges, oldest first, in the form of a trace: milliseconds, "<" for what the program
// received and ">" for what it sent, the frame with its control characters escaped.
class Log {
  public:
    static constexpr std::size_t Kept = 256;

    void Add(std::int64_t micros, char direction, std::string_view bytes);
    std::vector<std::string> Last(std::size_t count) const;

  private:
    struct Entry {
        std::int64_t millis;
        char direction;
        std::string bytes;
    };
    std::deque<Entry> entries_;
};

}  // namespace sim
