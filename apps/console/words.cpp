#include "console/words.h"

#include <charconv>

namespace console {

namespace {

constexpr std::string_view Blanks = " \t";
constexpr std::string_view Ends = " \t\r\n";
constexpr char Quote = '"';

// Reads a quoted word; `at` stands on its first quote and is left behind its last one. Nothing when that is missing.
std::optional<std::string> Quoted(std::string_view text, std::size_t& at) {
    std::string word;
    for (++at; at < text.size(); ++at) {
        if (text[at] == Quote) {
            if (at + 1 == text.size() || text[at + 1] != Quote) {
                ++at;
                return word;
            }
            ++at;
        }
        word += text[at];
    }
    return std::nullopt;
}

}  // namespace

std::string_view Trimmed(std::string_view line) {
    const std::size_t first = line.find_first_not_of(Ends);
    if (first == std::string_view::npos) return {};
    return line.substr(first, line.find_last_not_of(Ends) - first + 1);
}

FirstWord SplitFirst(std::string_view line) {
    line = Trimmed(line);
    const std::size_t end = line.find_first_of(Blanks);
    if (end == std::string_view::npos) return {line, {}};
    return {line.substr(0, end), Trimmed(line.substr(end))};
}

std::optional<Words> SplitWords(std::string_view text) {
    Words words;
    std::size_t at = 0;
    while (true) {
        at = text.find_first_not_of(Blanks, at);
        if (at == std::string_view::npos) return words;
        if (text[at] == Quote) {
            std::optional<std::string> word = Quoted(text, at);
            const bool apart = at >= text.size() || Blanks.find(text[at]) != std::string_view::npos;
            if (!word || !apart) return std::nullopt;
            words.push_back(std::move(*word));
            continue;
        }
        const std::size_t end = std::min(text.find_first_of(Blanks, at), text.size());
        words.emplace_back(text.substr(at, end - at));
        at = end;
    }
}

std::optional<long long> WholeNumber(std::string_view text, long long limit) {
    long long number = 0;
    const char* const end = text.data() + text.size();
    const auto [read, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || read != end || number > limit || number < -limit) return std::nullopt;
    return number;
}

}  // namespace console
