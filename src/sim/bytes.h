#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sim {

using Bytes = std::vector<std::uint8_t>;

inline constexpr char Stx = '\x02';
inline constexpr char Etx = '\x03';

// The value of one hexadecimal digit of either case; -1 for any other character.
int HexDigit(char c);
// Two upper-case digits a byte.
std::string ToHex(const Bytes& bytes);
// The bytes of a text of digit pairs, either case; nothing when a character is no digit or one is left over.
std::optional<Bytes> FromHex(std::string_view text);
// A decimal number of digits alone, at most nine of them; nothing otherwise.
std::optional<int> Decimal(std::string_view text);
// STX, text, ETX.
std::string Framed(std::string_view text);

// Control characters, bytes beyond ASCII and the backslash as \x02; everything else as it stands. And back: nothing
// when an escape is broken.
std::string Escaped(std::string_view bytes);
std::optional<std::string> Unescaped(std::string_view text);

}  // namespace sim
