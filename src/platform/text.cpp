#include "platform/text.h"

#include <array>
#include <cstdint>

namespace platform {

namespace {

// The characters of the codes 128 to 159; the five undefined codes stand for themselves.
constexpr std::array<char32_t, 32> High{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                        0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                        0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                        0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr unsigned FirstHigh = 0x80;
constexpr unsigned FirstLatin = 0xA0;

char32_t CodePoint(unsigned char byte) {
    return byte >= FirstHigh && byte < FirstLatin ? High[byte - FirstHigh] : char32_t{byte};
}

char FromCodePoint(char32_t code) {
    if (code < FirstHigh || (code >= FirstLatin && code <= 0xFF)) return static_cast<char>(code);
    for (std::size_t i = 0; i < High.size(); ++i) {
        if (High[i] == code) return static_cast<char>(FirstHigh + i);
    }
    return '?';
}

void AppendUtf8(std::string& out, char32_t code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

// The forms of a character in UTF-8: how its first byte is marked, how many bytes follow, and the smallest character
// that needs that many.
struct Utf8Form {
    unsigned mask;
    unsigned mark;
    std::size_t more;
    char32_t smallest;
};
constexpr std::array<Utf8Form, 4> Utf8Forms{{
    {0x80, 0x00, 0, 0},
    {0xE0, 0xC0, 1, 0x80},
    {0xF0, 0xE0, 2, 0x800},
    {0xF8, 0xF0, 3, 0x10000},
}};
constexpr char32_t FirstSurrogate = 0xD800;
constexpr char32_t LastSurrogate = 0xDFFF;
constexpr char32_t LastCharacter = 0x10FFFF;

bool ReadForm(const Utf8Form& form, std::string_view bytes, char32_t& code) {
    if (bytes.size() <= form.more) return false;
    code = static_cast<unsigned char>(bytes[0]) & ~form.mask & 0xFFU;
    for (const char c : bytes.substr(1, form.more)) {
        const auto next = static_cast<unsigned char>(c);
        if ((next & 0xC0U) != 0x80U) return false;
        code = (code << 6) | (next & 0x3FU);
    }
    const bool half = code >= FirstSurrogate && code <= LastSurrogate;
    return code >= form.smallest && code <= LastCharacter && !half;
}

// Reads one character at `at` and moves behind it; false when the bytes are no UTF-8.
bool ReadUtf8(std::string_view text, std::size_t& at, char32_t& code) {
    const unsigned first = static_cast<unsigned char>(text[at]);
    for (const Utf8Form& form : Utf8Forms) {
        if ((first & form.mask) != form.mark) continue;
        if (!ReadForm(form, text.substr(at), code)) return false;
        at += form.more + 1;
        return true;
    }
    return false;
}

char UpperLetter(char c) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 'a' && byte <= 'z') return static_cast<char>(byte - 0x20);
    if (byte >= 0xE0 && byte <= 0xFE && byte != 0xF7) return static_cast<char>(byte - 0x20);
    if (byte == 0x9A || byte == 0x9C || byte == 0x9E) return static_cast<char>(byte - 0x10);
    return byte == 0xFF ? static_cast<char>(0x9F) : c;
}

}  // namespace

std::string ToUtf8(std::string_view text1252) {
    std::string out;
    out.reserve(text1252.size() + text1252.size() / 8);
    for (const char c : text1252) AppendUtf8(out, CodePoint(static_cast<unsigned char>(c)));
    return out;
}

std::string FromUtf8(std::string_view utf8) {
    std::string out;
    out.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        char32_t code = 0;
        if (ReadUtf8(utf8, at, code)) {
            out += FromCodePoint(code);
        } else {
            out += utf8[at++];
        }
    }
    return out;
}

std::string UpperCase(std::string_view text1252) {
    std::string out(text1252);
    for (char& c : out) c = UpperLetter(c);
    return out;
}

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (UpperLetter(a[i]) != UpperLetter(b[i])) return false;
    }
    return true;
}

}  // namespace platform
