#include "sim/bytes.h"

namespace sim {

namespace {

constexpr std::string_view Digits = "0123456789ABCDEF";
constexpr std::size_t LongestNumber = 9;  // nine digits fit an int
constexpr char FirstPrintable = ' ';
constexpr char LastPrintable = '~';

}  // namespace

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

std::string ToHex(const Bytes& bytes) {
    std::string out;
    out.reserve(bytes.size() * 2);
    for (const std::uint8_t byte : bytes) {
        out += Digits[byte >> 4U];
        out += Digits[byte & 15U];
    }
    return out;
}

std::optional<Bytes> FromHex(std::string_view text) {
    if (text.size() % 2 != 0) return std::nullopt;
    Bytes out;
    out.reserve(text.size() / 2);
    for (std::size_t i = 0; i < text.size(); i += 2) {
        const int high = HexDigit(text[i]);
        const int low = HexDigit(text[i + 1]);
        if (high < 0 || low < 0) return std::nullopt;
        out.push_back(static_cast<std::uint8_t>(high * 16 + low));
    }
    return out;
}

std::optional<int> Decimal(std::string_view text) {
    if (text.empty() || text.size() > LongestNumber) return std::nullopt;
    int value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') return std::nullopt;
        value = value * 10 + (c - '0');
    }
    return value;
}

std::string Framed(std::string_view text) {
    std::string out;
    out.reserve(text.size() + 2);
    out += Stx;
    out += text;
    out += Etx;
    return out;
}

std::string Escaped(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size() + 8);
    for (const char c : bytes) {
        if (c >= FirstPrintable && c <= LastPrintable && c != '\\') {
            out += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            out += "\\x";
            out += Digits[byte >> 4U];
            out += Digits[byte & 15U];
        }
    }
    return out;
}

std::optional<std::string> Unescaped(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            out += text[i];
            continue;
        }
        if (i + 1 < text.size() && text[i + 1] == '\\') {
            out += '\\';
            ++i;
            continue;
        }
        if (i + 3 >= text.size() || text[i + 1] != 'x') return std::nullopt;
        const int high = HexDigit(text[i + 2]);
        const int low = HexDigit(text[i + 3]);
        if (high < 0 || low < 0) return std::nullopt;
        out += static_cast<char>(high * 16 + low);
        i += 3;
    }
    return out;
}

}  // namespace sim
