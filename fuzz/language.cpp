// Language files, as translators and editors leave them: every text is the one that the profile strings of a system
// would read, cut to the buffer that all texts share.

#include <cstdint>
#include <cstdlib>
#include <string>

#include "memory_files.h"
#include "platform/ini_file.h"
#include "shell/language.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

void CheckCaption(const std::string& text) {
    const std::string clean = shell::CaptionPulita(text);
    Require(clean.size() <= text.size());
    Require(text.find('&') != std::string::npos || clean == text);
    shell::Fill(text, text, clean);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t Longest = 255;
    const std::string_view content(reinterpret_cast<const char*>(data), size);
    MemoryFiles files;
    files.Write("PROVA.LNG", content);
    shell::Language language;
    language.Load(files, "PROVA.LNG");
    const platform::IniText profile(content);
    profile.ForEach([&](std::string_view section, std::string_view key, std::string_view value) {
        Require(profile.Get(section, key) == value);
        const std::string& text = language.Text(key, section);
        Require(text == value.substr(0, Longest));
        CheckCaption(text);
    });
    for (const char* key : {"TITOLO_2", "CAPTION", ""}) {
        Require(language.Text(key, "ERRORI") == profile.Get("ERRORI", key).value_or("").substr(0, Longest));
    }
    return 0;
}
