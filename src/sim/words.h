#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

using Words = std::vector<std::string>;

// The words of a line, separated by blanks; a word with blanks stands in double quotes. "#" outside quotes begins a
// comment. Nothing when a quote is not closed.
std::optional<Words> SplitWords(std::string_view line);

// A decimal number with sign and decimal point, the whole of the text; nothing for anything else and beyond a million.
std::optional<double> Number(std::string_view text);

// "12", "2.5", "2.5s", "300ms", "1:30": milliseconds; nothing for anything else.
std::optional<std::int64_t> Time(std::string_view text);

// The text in double quotes for a reason, whatever it holds: what is not plain ASCII as \x..
std::string InQuotes(std::string_view text);

}  // namespace sim
