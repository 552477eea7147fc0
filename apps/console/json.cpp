#include "console/json.h"

#include <cmath>

#include "platform/text.h"

namespace console {

namespace {

constexpr unsigned char Delete = 0x7F;
constexpr unsigned char HighControlLead = 0xC2;  // of the characters 128 to 159 in UTF-8
constexpr unsigned char HighControlEnd = 0xA0;

// How many bytes of the control character stand here that JSON would let through as they are; 0 for none. A terminal
// may act on them.
std::size_t ControlLength(std::string_view text, std::size_t at) {
    const auto byte = static_cast<unsigned char>(text[at]);
    if (byte == Delete) return 1;
    if (byte != HighControlLead || at + 1 == text.size()) return 0;
    return static_cast<unsigned char>(text[at + 1]) < HighControlEnd ? 2 : 0;
}

// The second byte of a high control character is its code.
void AppendEscape(std::string& out, unsigned char code) {
    constexpr std::string_view Digits = "0123456789abcdef";
    out += "\\u00";
    out += Digits[code >> 4U];
    out += Digits[code & 0xFU];
}

}  // namespace

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
    const std::string plain = answer.dump(-1, ' ', false, Json::error_handler_t::replace);
    std::string out;
    out.reserve(plain.size());
    for (std::size_t i = 0; i < plain.size(); ++i) {
        const std::size_t length = ControlLength(plain, i);
        if (length == 0) {
            out += plain[i];
            continue;
        }
        i += length - 1;
        AppendEscape(out, static_cast<unsigned char>(plain[i]));
    }
    return out;
}

}  // namespace console
