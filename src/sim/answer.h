#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace sim {

// What a scenario line asks for: a number, a text or a list of texts.
using Value = std::variant<std::int64_t, std::string, std::vector<std::string>>;

// The answer to one scenario line: `ok`, or the reason in plain words and nothing changed.
struct Answer {
    bool ok = true;
    std::string error;
    std::vector<std::pair<std::string, Value>> values;
};

inline Answer Refusal(std::string reason) {
    return {false, std::move(reason), {}};
}

}  // namespace sim
