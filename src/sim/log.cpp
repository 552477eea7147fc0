#include "sim/log.h"

#include <algorithm>
#include <numeric>

#include "sim/bytes.h"

namespace sim {

namespace {

constexpr std::int64_t MicrosPerMilli = 1000;
constexpr std::size_t LongestLogged = 600;

}  // namespace

std::int64_t Counters::Of(char letter) const {
    if (letter == 'D') return live;
    if (letter < 'A' || letter > 'Z') return 0;
    return commands[static_cast<std::size_t>(letter - 'A')];
}

std::int64_t Counters::All() const {
    return std::accumulate(commands.begin(), commands.end(), std::int64_t{0});
}

void Log::Add(std::int64_t micros, char direction, std::string_view bytes) {
    if (entries_.size() == Kept) entries_.pop_front();
    entries_.push_back({micros / MicrosPerMilli, direction, std::string(bytes.substr(0, LongestLogged))});
}

std::vector<std::string> Log::Last(std::size_t count) const {
    std::vector<std::string> out;
    const std::size_t from = entries_.size() - std::min(count, entries_.size());
    for (std::size_t i = from; i < entries_.size(); ++i) {
        const Entry& entry = entries_[i];
        out.push_back(std::to_string(entry.millis) + ' ' + entry.direction + ' ' + Escaped(entry.bytes));
    }
    return out;
}

}  // namespace sim
