#pragma once

#include <string>
#include <string_view>

namespace frames {

inline constexpr char Stx = '\x02';
inline constexpr char Etx = '\x03';

// STX, letter, address, count, ETX. Address and count in four decimal digits each; a number above 9999 loses its high
// digits.
std::string ReadFrame(char letter, int address, int count);
// The same with `data` behind the count: two upper-case hexadecimal digits a byte.
std::string WriteFrame(char letter, int address, int count, std::string_view data);
// The one read of the code area: ten bytes at 32768, which hold the text of the unit's program version.
std::string IdentityFrame();
// STX, body, ETX.
std::string Frame(std::string_view body);

// The part of a chain up to and including its first ETX; the whole text when there is none.
std::string_view FirstFrame(std::string_view chain);

// Padding of hexadecimal data with "F" on the right to whole words of the memory that is written in words.
std::string PareggiaF(std::string_view data);

// Where a reply's payload stands: behind STX and the letter, in front of ETX. A frame too short has none.
std::string_view Payload(std::string_view frame);
// True for a write reply that carries "ok".
bool IsOk(std::string_view frame);

}  // namespace frames
