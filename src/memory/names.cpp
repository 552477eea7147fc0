#include "memory/names.h"

#include <algorithm>
#include <array>

#include "platform/text.h"

namespace memory {

namespace {

constexpr std::string_view Forbidden = "/\\<>:\"|?*";
constexpr std::array<std::string_view, 4> Devices{"CON", "PRN", "AUX", "NUL"};
constexpr std::size_t LongestName = 120;

bool IsControl(char c) {
    return static_cast<unsigned char>(c) < ' ';
}

// CON, COM1, LPT9 and the like, also with an extension.
bool IsDevice(std::string_view name) {
    const std::string stem = platform::UpperCase(platform::Trim(name.substr(0, name.find('.'))));
    if (std::find(Devices.begin(), Devices.end(), stem) != Devices.end()) return true;
    return stem.size() == 4 && (stem.starts_with("COM") || stem.starts_with("LPT")) && stem[3] >= '0' && stem[3] <= '9';
}

}  // namespace

std::optional<platform::Path> SafeName(std::string_view name) {
    if (name.empty() || name.size() > LongestName || name.find_first_of(Forbidden) != std::string_view::npos)
        return std::nullopt;
    if (std::any_of(name.begin(), name.end(), IsControl) || name.back() == '.' || name.back() == ' ')
        return std::nullopt;
    if (IsDevice(name)) return std::nullopt;
    return platform::Path(platform::ToUtf8(name));
}

std::optional<platform::Path> ArchiveImagePath(const platform::Path& folder, std::string_view make,
                                               std::string_view model, std::string_view file) {
    platform::Path path = folder / "ARCHIVI" / "EEPROM";
    for (const std::string_view part : {make, model}) {
        const auto safe = SafeName(platform::Trim(part));
        if (!safe) return std::nullopt;
        path /= *safe;
    }
    const auto name = SafeName(std::string(platform::Trim(file)) + ".MVN");
    if (platform::Trim(file).empty() || !name) return std::nullopt;
    return path / *name;
}

}  // namespace memory
