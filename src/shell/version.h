#pragma once

#include <string>

namespace shell {

inline constexpr int MajorVersion = 1;
inline constexpr int MinorVersion = 0;

// Major, a point, minor in two digits: "1.00".
inline std::string VersionText() {
    const std::string minor = std::to_string(MinorVersion);
    return std::to_string(MajorVersion) + "." + (minor.size() < 2 ? "0" : "") + minor;
}

}  // namespace shell
