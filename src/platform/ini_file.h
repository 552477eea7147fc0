#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"

namespace platform {

// A key that a file may hold; a table of them is the order in which they are written.
struct IniKey {
    std::string_view section;
    std::string_view key;
};
using IniOrder = std::span<const IniKey>;

// The text of a file of sections and keys: lines "[SECTION]" and "KEY=value". Section and key are compared whatever the
// case of letters; the first of two equal keys counts. Any bytes are accepted: a line that is neither is kept and
// ignored.
class IniText {
  public:
    IniText() = default;
    explicit IniText(std::string_view content);

    // The value behind the key, blanks around it and one pair of quotes taken off; nothing when the key is missing.
    std::optional<std::string> Get(std::string_view section, std::string_view key) const;
    // All that Get finds: of sections, and of keys within one, those of the same name behind the first do not count.
    using Visit = std::function<void(std::string_view section, std::string_view key, std::string_view value)>;
    void ForEach(const Visit& visit) const;
    // Replaces the key's line, or adds it where `order` has it among those that are there, and its section likewise;
    // what the order does not name goes to the end. Every other line stays as it stands.
    void Set(std::string_view section, std::string_view key, std::string_view value, IniOrder order = {});
    // The file's text, with CR LF behind each line.
    std::string Content() const;

  private:
    std::size_t FindSection(std::string_view section) const;
    std::size_t FindKey(std::string_view section, std::string_view key) const;
    void Insert(std::size_t at, std::string line);
    std::size_t MakeSection(std::string_view section, IniOrder order);
    std::size_t PlaceOfKey(std::size_t head, std::string_view section, std::string_view key, IniOrder order) const;

    std::vector<std::string> lines_;
};

struct IniValue {
    std::string_view key;
    std::string_view value;
};

// The profile strings of an operating system: one read, one write; several keys go out in one write. A missing or
// unreadable file gives the default; a file that cannot be written, or not be read whole first, answers false and stays
// as it is.
std::string GetPrivateProfileString(Files& files, std::string_view section, std::string_view key,
                                    std::string_view otherwise, const Path& file);
bool WritePrivateProfileString(Files& files, std::string_view section, std::string_view key, std::string_view value,
                               const Path& file, IniOrder order = {});
bool WritePrivateProfileStrings(Files& files, std::string_view section, const std::vector<IniValue>& values,
                                const Path& file, IniOrder order = {});

}  // namespace platform
