#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace console {

using Words = std::vector<std::string>;

// Blanks and tabs at both ends taken off, and the carriage return of a line from another system.
std::string_view Trimmed(std::string_view line);

// The first word of a line and what stands behind it. A command's name is never quoted.
struct FirstWord {
    std::string_view word;
    std::string_view rest;
};
FirstWord SplitFirst(std::string_view line);

// The words of a text, separated by blanks and tabs. A word in double quotes may hold blanks, and two quotes in it
// stand for one; "" is an empty word. Nothing when a quote is not closed, or when something follows it without a blank.
std::optional<Words> SplitWords(std::string_view text);

// A decimal whole number, sign included, the whole of the text; nothing for anything else or beyond `limit` either way.
std::optional<long long> WholeNumber(std::string_view text, long long limit);

}  // namespace console
