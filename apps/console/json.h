#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

namespace console {

using Json = nlohmann::ordered_json;

// A text of the program, which is in code page 1252.
Json Text(std::string_view text);
Json Done();
Json Failure(std::string_view reason);  // code page 1252
// A figure: without a fraction where it has none.
Json Figure(double value);
// One line, without its end.
std::string OnOneLine(const Json& answer);

}  // namespace console
