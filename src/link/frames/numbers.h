#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace frames {

// The leading number of a text: the first comma counts as a point, blanks in front are skipped, and what is no number
// is 0. A text that starts with "&H" is read as hexadecimal (at most 8 digits count; a longer run is cut there).
double ValoreNum(std::string_view text);

// True when, blanks around it aside, the whole text is one decimal number (sign, digits, one point or comma).
bool IsNumeric(std::string_view text);

// Value of hexadecimal digit pairs, most significant first; a last odd digit counts as a pair. Digits that are none
// read as 0. Nothing when the result leaves 32 signed bits.
std::optional<std::int32_t> HexInt(std::string_view text);

// The character whose code is the value of a digit pair; empty for a bad pair.
std::string HexChr(std::string_view pair);

// Sum of the 16-bit words of a text of hexadecimal digits, four digits a word; a short last word counts as it stands.
double SommaParole(std::string_view text);

// The format "#0": a whole number without separators, a half rounded away from zero.
std::string Format0(double value);

// Rounded to a whole number, a half to the even neighbour.
double RoundHalfEven(double value);

// The text against the right edge of a field of `width`; a longer text keeps its rightmost characters.
std::string RightAlign(std::string_view text, std::size_t width);

// A number as 2 x bytes upper-case hexadecimal digits, zeros on the left; higher bytes are lost.
std::string Hex(std::uint32_t value, int bytes);

// Value x aMax / daMax. With `limita`: rounded to a whole number and held within 0..aMax.
double ScalaValore(double valore, double daMax, double aMax, bool limita);

// Value x to / from, truncated to an integer, then, with `limit`, held within 0..to.
double Scala(double value, double from, double to, bool limit);

}  // namespace frames
