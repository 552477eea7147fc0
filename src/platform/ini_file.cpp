#include "platform/ini_file.h"

#include <algorithm>
#include <set>

#include "platform/text.h"

namespace platform {

namespace {

constexpr std::size_t NotFound = std::string::npos;
constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";  // some editors put it in front of the first line

std::string_view TrimAll(std::string_view text) {
    constexpr std::string_view Blanks = " \t\r";
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(Blanks) - first + 1);
}

// The name between the brackets of a section's line; nothing for any other line.
std::optional<std::string_view> SectionName(std::string_view line) {
    if (line.starts_with(Utf8Mark)) line.remove_prefix(Utf8Mark.size());
    line = TrimAll(line);
    if (line.empty() || line.front() != '[') return std::nullopt;
    const std::size_t close = line.find(']');
    if (close == std::string_view::npos) return std::nullopt;
    return TrimAll(line.substr(1, close - 1));
}

// The name in front of the "=" of a key's line; nothing for any other line.
std::optional<std::string_view> KeyName(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return std::nullopt;
    return TrimAll(line.substr(0, equals));
}

bool IsKey(std::string_view line, std::string_view key) {
    const auto name = KeyName(line);
    return name && EqualsIgnoringCase(*name, key);
}

std::string_view Unquoted(std::string_view value) {
    const bool quoted =
        value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front();
    return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string_view ValueOf(std::string_view line) {
    return Unquoted(TrimAll(line.substr(line.find('=') + 1)));
}

}  // namespace

IniText::IniText(std::string_view content) {
    while (!content.empty()) {
        const std::size_t end = content.find('\n');
        std::string_view line = content.substr(0, end);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        lines_.emplace_back(line);
        content.remove_prefix(end == std::string_view::npos ? content.size() : end + 1);
    }
}

std::size_t IniText::FindSection(std::string_view section) const {
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const auto name = SectionName(lines_[i]);
        if (name && EqualsIgnoringCase(*name, section)) return i;
    }
    return NotFound;
}

std::size_t IniText::FindKey(std::string_view section, std::string_view key) const {
    const std::size_t head = FindSection(section);
    if (head == NotFound) return NotFound;
    for (std::size_t i = head + 1; i < lines_.size() && !SectionName(lines_[i]); ++i) {
        if (IsKey(lines_[i], key)) return i;
    }
    return NotFound;
}

std::optional<std::string> IniText::Get(std::string_view section, std::string_view key) const {
    const std::size_t at = FindKey(section, key);
    if (at == NotFound) return std::nullopt;
    return std::string(ValueOf(lines_[at]));
}

void IniText::ForEach(const Visit& visit) const {
    std::set<std::string> sections;
    std::set<std::string> keys;
    std::optional<std::string_view> section;
    for (const std::string& line : lines_) {
        if (const auto name = SectionName(line)) {
            section = sections.insert(UpperCase(*name)).second ? name : std::nullopt;
            keys.clear();
            continue;
        }
        const auto key = section ? KeyName(line) : std::nullopt;
        if (key && keys.insert(UpperCase(*key)).second) visit(*section, *key, ValueOf(line));
    }
}

void IniText::Insert(std::size_t at, std::string line) {
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), std::move(line));
}

// A new section stands in front of the first one that the order has behind it.
std::size_t IniText::MakeSection(std::string_view section, IniOrder order) {
    const auto isThis = [section](const IniKey& row) { return EqualsIgnoringCase(row.section, section); };
    std::size_t at = lines_.size();
    for (auto row = std::find_if(order.begin(), order.end(), isThis); row != order.end(); ++row) {
        const std::size_t later = isThis(*row) ? NotFound : FindSection(row->section);
        if (later != NotFound) at = std::min(at, later);
    }
    Insert(at, "[" + std::string(section) + "]");
    return at;
}

// A new key stands behind the last one that the order has in front of it, or else in front of the first one that the
// order has behind it.
std::size_t IniText::PlaceOfKey(std::size_t head, std::string_view section, std::string_view key,
                                IniOrder order) const {
    std::size_t end = head + 1;
    while (end < lines_.size() && !SectionName(lines_[end])) ++end;
    while (end > head + 1 && TrimAll(lines_[end - 1]).empty()) --end;
    const auto isThis = [&](const IniKey& row) {
        return EqualsIgnoringCase(row.section, section) && EqualsIgnoringCase(row.key, key);
    };
    const auto own = std::find_if(order.begin(), order.end(), isThis);
    if (own == order.end()) return end;
    const auto lineOf = [&](const IniKey& row) {
        return EqualsIgnoringCase(row.section, section) ? FindKey(section, row.key) : NotFound;
    };
    std::size_t behind = NotFound;
    for (auto row = order.begin(); row != own; ++row) {
        const std::size_t line = lineOf(*row);
        if (line != NotFound) behind = behind == NotFound ? line : std::max(behind, line);
    }
    if (behind != NotFound) return behind + 1;
    for (auto row = own; row != order.end(); ++row) end = std::min(end, lineOf(*row));
    return end;
}

void IniText::Set(std::string_view section, std::string_view key, std::string_view value, IniOrder order) {
    std::string line = std::string(key) + "=" + std::string(value);
    const std::size_t at = FindKey(section, key);
    if (at != NotFound) {
        lines_[at] = std::move(line);
        return;
    }
    std::size_t head = FindSection(section);
    if (head == NotFound) head = MakeSection(section, order);
    Insert(PlaceOfKey(head, section, key, order), std::move(line));
}

std::string IniText::Content() const {
    std::string out;
    for (const std::string& line : lines_) out += line + "\r\n";
    return out;
}

std::string GetPrivateProfileString(Files& files, std::string_view section, std::string_view key,
                                    std::string_view otherwise, const Path& file) {
    const auto content = files.Read(file);
    if (!content) return std::string(otherwise);
    return IniText(*content).Get(section, key).value_or(std::string(otherwise));
}

bool WritePrivateProfileString(Files& files, std::string_view section, std::string_view key, std::string_view value,
                               const Path& file, IniOrder order) {
    return WritePrivateProfileStrings(files, section, {{key, value}}, file, order);
}

bool WritePrivateProfileStrings(Files& files, std::string_view section, const std::vector<IniValue>& values,
                                const Path& file, IniOrder order) {
    const auto content = files.Read(file, Files::DefaultLimit + 1);
    const bool whole = content ? content->size() <= Files::DefaultLimit : !files.Exists(file);
    if (!whole) return false;
    IniText text(content.value_or(std::string()));
    for (const IniValue& row : values) text.Set(section, row.key, row.value, order);
    return files.Write(file, text.Content());
}

}  // namespace platform
