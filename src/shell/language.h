#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/files.h"

namespace shell {

// A text of the language: its key and section. Of a family the key ends with the point in front of the number.
struct Text {
    std::string_view key;
    std::string_view section;
};

// The texts of one language file, read once. Anything may stand in the file: what is no section and no key is passed
// over.
class Language {
  public:
    // A missing or unreadable file leaves every text empty.
    void Load(platform::Files& files, const platform::Path& file);

    // The text behind a key of a section, whatever the case of letters, cut to 255 bytes; empty when it is missing.
    // There is no fall-back to another language.
    const std::string& Text(std::string_view key, std::string_view section) const;

  private:
    std::unordered_map<std::string, std::string> texts_;
};

// The text without the character that marks an access key; a doubled mark stands for itself.
std::string CaptionPulita(std::string_view text);

// Puts the arguments into the places "%1", "%2" of a text.
std::string Fill(std::string_view text, std::string_view first, std::string_view second = {});

}  // namespace shell
