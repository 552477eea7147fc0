#pragma once

#include <string>
#include <string_view>

namespace platform {

// Inside the program a text is one byte a character in code page 1252, as on the wire and in every file. These two
// convert at the edges. A byte that the code page leaves undefined becomes the control character of the same number and
// comes back as that byte; a character that the code page lacks becomes "?". Bad UTF-8 is read byte by byte, as code
// page 1252.
std::string ToUtf8(std::string_view text1252);
std::string FromUtf8(std::string_view utf8);

// Letters of the code page to upper case, as file names and keys are compared.
std::string UpperCase(std::string_view text1252);
// Without blanks at both ends.
std::string_view Trim(std::string_view text);
bool EqualsIgnoringCase(std::string_view a, std::string_view b);

}  // namespace platform
