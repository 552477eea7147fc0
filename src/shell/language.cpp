#include "shell/language.h"

#include <algorithm>

#include "platform/text.h"

namespace shell {

namespace {

constexpr std::size_t LongestText = 255;
constexpr std::size_t LargestFile = 4U << 20U;
constexpr char Mark = '&';

std::string_view TrimBlanks(std::string_view text) {
    constexpr std::string_view Blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

std::string_view WithoutQuotes(std::string_view value) {
    const bool quoted =
        value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front();
    return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string Address(std::string_view section, std::string_view key) {
    return platform::UpperCase(section) + '\n' + platform::UpperCase(key);
}

}  // namespace

void Language::Load(platform::Files& files, const platform::Path& file) {
    texts_.clear();
    const auto content = files.Read(file, LargestFile);
    if (!content) return;
    std::string_view rest = *content;
    std::string section;
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n');
        const std::string_view line = TrimBlanks(rest.substr(0, end));
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        if (!line.empty() && line.front() == '[') {
            section = TrimBlanks(line.substr(1, line.find(']') - 1));
            continue;
        }
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) continue;
        const std::string_view value = WithoutQuotes(TrimBlanks(line.substr(equals + 1)));
        texts_.emplace(Address(section, TrimBlanks(line.substr(0, equals))), value.substr(0, LongestText));
    }
}

const std::string& Language::Text(std::string_view key, std::string_view section) const {
    static const std::string Nothing;
    const auto found = texts_.find(Address(section, key));
    return found == texts_.end() ? Nothing : found->second;
}

std::string CaptionPulita(std::string_view text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == Mark && (i + 1 >= text.size() || text[i + 1] != Mark)) continue;
        if (text[i] == Mark) ++i;
        out += text[i];
    }
    return out;
}

std::string Fill(std::string_view text, std::string_view first, std::string_view second) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char next = text[i] == '%' && i + 1 < text.size() ? text[i + 1] : '\0';
        if (next == '1' || next == '2') {
            out += next == '1' ? first : second;
            ++i;
        } else {
            out += text[i];
        }
    }
    return out;
}

}  // namespace shell
