#include "shell/language.h"

#include "platform/ini_file.h"
#include "platform/text.h"

namespace shell {

namespace {

constexpr std::size_t LongestText = 255;
constexpr std::size_t LargestFile = 4U << 20U;
constexpr char Mark = '&';

std::string Address(std::string_view section, std::string_view key) {
    return platform::UpperCase(section) + '\n' + platform::UpperCase(key);
}

}  // namespace

void Language::Load(platform::Files& files, const platform::Path& file) {
    texts_.clear();
    const auto content = files.Read(file, LargestFile);
    if (!content) return;
    platform::IniText(*content).ForEach([this](auto section, auto key, auto value) {
        texts_.emplace(Address(section, key), value.substr(0, LongestText));
    });
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
