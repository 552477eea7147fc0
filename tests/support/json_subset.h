#pragma once

#include <string>

#include "console/json.h"

// Where `actual` lacks what `expected` names; empty when it holds all of it. Objects may hold more, lists must match
// item by item, and the text "*" stands for any value.
inline std::string Mismatch(const console::Json& actual, const console::Json& expected, const std::string& at = "") {
    if (expected == "*") return {};
    if (expected.is_object()) {
        for (const auto& [key, value] : expected.items()) {
            if (!actual.contains(key)) return at + "/" + key + " is missing";
            if (std::string found = Mismatch(actual.at(key), value, at + "/" + key); !found.empty()) return found;
        }
        return {};
    }
    if (expected.is_array() && actual.is_array() && actual.size() == expected.size()) {
        for (std::size_t i = 0; i < expected.size(); ++i) {
            if (std::string found = Mismatch(actual[i], expected[i], at + "/" + std::to_string(i)); !found.empty())
                return found;
        }
        return {};
    }
    return actual == expected ? std::string() : at + " is " + actual.dump() + ", not " + expected.dump();
}
