#include "sim/trace.h"

#include <optional>

#include "sim/bytes.h"

namespace sim {

namespace {

// Milliseconds of a long session do not fit nine digits.
std::optional<std::int64_t> Millis(std::string_view text) {
    constexpr std::size_t Longest = 15;
    if (text.empty() || text.size() > Longest) return std::nullopt;
    std::int64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') return std::nullopt;
        value = value * 10 + (c - '0');
    }
    return value;
}

std::optional<TraceEntry> ReadEntry(std::string_view line) {
    const std::size_t blank = line.find(' ');
    if (blank == std::string_view::npos || line.size() < blank + 4 || line[blank + 2] != ' ') return std::nullopt;
    const char direction = line[blank + 1];
    const auto millis = Millis(line.substr(0, blank));
    auto bytes = Unescaped(line.substr(blank + 3));
    if (!millis || !bytes || (direction != '<' && direction != '>')) return std::nullopt;
    return TraceEntry{*millis, direction, std::move(*bytes)};
}

}  // namespace

Trace ReadTrace(std::string_view text) {
    Trace out;
    std::int64_t before = 0;
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (line.ends_with('\r')) line.remove_suffix(1);
        if (line.empty() || line.front() == '#') continue;
        auto entry = ReadEntry(line);
        if (!entry || entry->millis < before || out.entries.size() == LongestTrace) {
            return {{}, "line " + std::to_string(number) + ": no frame of a trace"};
        }
        before = entry->millis;
        out.entries.push_back(std::move(*entry));
    }
    return out;
}

}  // namespace sim
