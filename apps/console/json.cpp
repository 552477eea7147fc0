#include "console/json.h"

#include <cmath>

#include "platform/text.h"

namespace console {

Json Text(std::string_view text) {
    return platform::ToUtf8(text);
}

Json Done() {
    return {{"ok", true}};
}

Json Failure(std::string_view reason) {
    return {{"ok", false}, {"error", Text(reason)}};
}

Json Figure(double value) {
    constexpr double Widest = 1e15;
    if (std::abs(value) < Widest && value == std::trunc(value)) return static_cast<std::int64_t>(value);
    return value;
}

std::string OnOneLine(const Json& answer) {
    return answer.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace console
