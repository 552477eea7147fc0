#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "platform/timer.h"

namespace program {

struct Program;

// The state of the program by name, for whoever watches it from outside. A room that keeps state adds its rows.
using VariableValue = std::variant<std::int64_t, std::string>;  // texts in code page 1252

struct Variable {
    std::string_view name;
    VariableValue (*get)(const Program&);
};

struct NamedTimer {
    std::string_view name;
    const platform::Timer& (*get)(const Program&);
};

std::span<const Variable> Variables();
const Variable* FindVariable(std::string_view name);  // to the letter; null when there is none
std::span<const NamedTimer> NamedTimers();

}  // namespace program
