#include "link/frames/numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "platform/text.h"

namespace frames {

namespace {

constexpr std::size_t MostHexDigits = 8;
constexpr double Largest = 9e15;  // whole numbers above this are not exact any more

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

double HexNumber(std::string_view digits) {
    double value = 0;
    for (std::size_t i = 0; i < digits.size() && i < MostHexDigits && HexDigit(digits[i]) >= 0; ++i) {
        value = value * 16 + HexDigit(digits[i]);
    }
    return value;
}

// How many characters from the front form a number: sign, digits, one point, digits.
std::size_t NumberLength(std::string_view text) {
    std::size_t at = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
    std::size_t digits = 0;
    bool point = false;
    for (; at < text.size(); ++at) {
        if (IsDigit(text[at])) {
            ++digits;
        } else if (text[at] == '.' && !point) {
            point = true;
        } else {
            break;
        }
    }
    return digits > 0 ? at : 0;
}

double Parse(std::string_view number) {
    if (!number.empty() && number.front() == '+') number.remove_prefix(1);
    double value = 0;
    std::from_chars(number.data(), number.data() + number.size(), value, std::chars_format::fixed);
    return value;
}

std::string WithPoint(std::string_view text) {
    std::string out(text);
    const std::size_t comma = out.find(',');
    if (comma != std::string::npos) out[comma] = '.';
    return out;
}

}  // namespace

double ValoreNum(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return 0;
    text.remove_prefix(first);
    if (text.size() >= 2 && text[0] == '&' && (text[1] == 'H' || text[1] == 'h')) return HexNumber(text.substr(2));
    const std::string number = WithPoint(text);
    return Parse(std::string_view(number).substr(0, NumberLength(number)));
}

bool IsNumeric(std::string_view text) {
    text = platform::Trim(text);
    if (text.empty()) return false;
    const std::string number = WithPoint(text);
    return NumberLength(number) == number.size();
}

std::optional<std::int32_t> HexInt(std::string_view text) {
    std::int64_t value = 0;
    for (std::size_t at = 0; at < text.size(); at += 2) {
        value = value * 256 + static_cast<std::int64_t>(HexNumber(text.substr(at, 2)));
        if (value > std::numeric_limits<std::int32_t>::max()) return std::nullopt;
    }
    return static_cast<std::int32_t>(value);
}

std::string HexChr(std::string_view pair) {
    if (pair.size() != 2 || HexDigit(pair[0]) < 0 || HexDigit(pair[1]) < 0) return {};
    return std::string(1, static_cast<char>(HexDigit(pair[0]) * 16 + HexDigit(pair[1])));
}

double SommaParole(std::string_view text) {
    double sum = 0;
    for (std::size_t at = 0; at < text.size(); at += 4) {
        const std::string_view word = text.substr(at, 4);
        sum += HexNumber(word.substr(0, 2)) * 256 + HexNumber(word.size() > 2 ? word.substr(2) : std::string_view());
    }
    return sum;
}

std::string Format0(double value) {
    if (!std::isfinite(value)) return "0";
    return std::to_string(static_cast<std::int64_t>(std::round(std::clamp(value, -Largest, Largest))));
}

double RoundHalfEven(double value) {
    const double floor = std::floor(value);
    const double rest = value - floor;
    if (rest != 0.5) return std::floor(value + 0.5);
    return std::fmod(floor, 2.0) == 0.0 ? floor : floor + 1;
}

std::string RightAlign(std::string_view text, std::size_t width) {
    if (text.size() >= width) return std::string(text.substr(text.size() - width));
    std::string out(width - text.size(), ' ');
    out += text;
    return out;
}

std::string Hex(std::uint32_t value, int bytes) {
    constexpr std::string_view Digits = "0123456789ABCDEF";
    std::string out(static_cast<std::size_t>(std::max(0, bytes)) * 2, '0');
    for (std::size_t i = out.size(); i-- > 0 && value != 0; value >>= 4) out[i] = Digits[value & 0xFU];
    return out;
}

double ScalaValore(double valore, double daMax, double aMax, bool limita) {
    const double scaled = valore * aMax / daMax;
    return limita ? std::clamp(RoundHalfEven(scaled), 0.0, aMax) : scaled;
}

double Scala(double value, double from, double to, bool limit) {
    const double scaled = std::trunc(value * to / from);
    return limit ? std::clamp(scaled, 0.0, to) : scaled;
}

}  // namespace frames
