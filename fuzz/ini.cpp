// Files of sections and keys, as people and other programs leave them: CONFIG.INI, MARLO.INI and the language files.

#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/ini_file.h"

namespace {

using platform::IniText;

void Require(bool holds) {
    if (!holds) std::abort();
}

std::size_t Lines(const std::string& content) {
    std::size_t lines = 0;
    for (const char c : content) lines += c == '\n' ? 1 : 0;
    return lines;
}

// Writing a key must give it back, and touch at most its own line and the one of its section.
void CheckSet(const IniText& before, const char* section, const char* key) {
    constexpr const char* Value = "38400";
    const bool existed = before.Get(section, key).has_value();
    IniText after = before;
    after.Set(section, key, Value);
    const IniText again(after.Content());
    Require(again.Get(section, key) == Value);
    const std::size_t added = Lines(after.Content()) - Lines(before.Content());
    Require(existed ? added == 0 : added == 1 || added == 2);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const IniText text(std::string_view(reinterpret_cast<const char*>(data), size));
    const std::string content = text.Content();
    Require(IniText(content).Content() == content);
    Require(IniText(content).Get("SERIALE", "COM") == text.Get("SERIALE", "COM"));
    CheckSet(text, "SERIALE", "COM");
    CheckSet(text, "ERRORI", "ERRORE_15");
    return 0;
}
