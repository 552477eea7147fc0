#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

// One frame of a recorded session: when, which way ('<' the program received it, '>' it sent it), its bytes.
struct TraceEntry {
    std::int64_t millis = 0;
    char direction = '<';
    std::string bytes;
};

struct Trace {
    std::vector<TraceEntry> entries;
    std::string error;  // "line 3: ..." when a line is none of a trace; the entries are then empty
};

inline constexpr std::size_t LongestTrace = 2000000;  // entries

// Reads lines "MILLISECONDS < FRAME" and "MILLISECONDS > FRAME", control characters as \x02; empty lines and lines that
// begin with # count for nothing. The times must not fall.
Trace ReadTrace(std::string_view text);

}  // namespace sim
