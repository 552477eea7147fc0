#include "sim/words.h"

#include <cmath>

#include "sim/bytes.h"

namespace sim {

namespace {

constexpr double Million = 1e6;
constexpr double MillisPerSecond = 1000;
constexpr int SecondsPerMinute = 60;

bool Blank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

}  // namespace

std::optional<Words> SplitWords(std::string_view line) {
    Words out;
    std::size_t i = 0;
    while (true) {
        while (i < line.size() && Blank(line[i])) ++i;
        if (i == line.size() || line[i] == '#') return out;
        std::string word;
        if (line[i] == '"') {
            const std::size_t end = line.find('"', i + 1);
            if (end == std::string_view::npos) return std::nullopt;
            word = line.substr(i + 1, end - i - 1);
            i = end + 1;
        } else {
            while (i < line.size() && !Blank(line[i])) word += line[i++];
        }
        out.push_back(std::move(word));
    }
}

std::optional<double> Number(std::string_view text) {
    const bool negative = !text.empty() && text.front() == '-';
    if (negative) text.remove_prefix(1);
    const std::size_t point = text.find('.');
    const auto whole = Decimal(text.substr(0, point));
    if (!whole) return std::nullopt;
    double value = *whole;
    if (point != std::string_view::npos) {
        const std::string_view digits = text.substr(point + 1);
        const auto fraction = Decimal(digits);
        if (!fraction) return std::nullopt;
        value += *fraction / std::pow(10.0, static_cast<double>(digits.size()));
    }
    if (value > Million) return std::nullopt;
    return negative ? -value : value;
}

std::optional<std::int64_t> Time(std::string_view text) {
    double scale = MillisPerSecond;
    double minutes = 0;
    if (text.ends_with("ms")) {
        scale = 1;
        text.remove_suffix(2);
    } else if (text.ends_with('s')) {
        text.remove_suffix(1);
    } else if (const std::size_t colon = text.find(':'); colon != std::string_view::npos) {
        const auto value = Decimal(text.substr(0, colon));
        if (!value || *value > Million) return std::nullopt;
        minutes = *value;
        text.remove_prefix(colon + 1);
    }
    const auto value = Number(text);
    if (!value || *value < 0) return std::nullopt;
    return std::llround(*value * scale + minutes * SecondsPerMinute * MillisPerSecond);
}

std::string InQuotes(std::string_view text) {
    return '"' + Escaped(text) + '"';
}

}  // namespace sim
