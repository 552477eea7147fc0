#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "sim/answer.h"
#include "sim/parts.h"
#include "sim/words.h"

namespace sim {

using Action = std::function<Answer(Parts&)>;

// A line checked and ready to be done; with a text in `error` it is none. A line without a word has no action.
struct Parsed {
    Parsed(Action done) : action(std::move(done)) {}  // NOLINT(google-explicit-constructor)
    static Parsed Wrong(std::string reason) {
        Parsed out{Action{}};
        out.error = std::move(reason);
        return out;
    }

    Action action;
    std::string error;
    std::optional<std::int64_t> millis;  // of "at TIME ..."
};

// One word of the language: what follows it, and how it is read.
struct Verb {
    std::string_view word;
    std::string_view usage;
    Parsed (*parse)(const Words& arguments);
};

// The language is the tables of its three sides.
const std::vector<Verb>& EngineVerbs();  // what the driver and the engine do
const std::vector<Verb>& MemoryVerbs();  // what the unit holds
const std::vector<Verb>& LineVerbs();    // what goes over the line

Parsed ParseLine(std::string_view line);
Answer DoLine(Parts& parts, std::string_view line);
Answer LoadScenario(Parts& parts, std::string_view text);
// Starts the timed lines of the scenario again from now.
void RestartScenario(Parts& parts);

}  // namespace sim
