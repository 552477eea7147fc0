#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"

namespace memory {

// A name that a person or a table gives as one part of a path, in code page 1252. Nothing when it could leave its
// folder or cannot be a name on the common file systems: empty, separators, "..", control characters and the signs
// <>:"|?*, reserved device names, points or blanks at the end.
std::optional<platform::Path> SafeName(std::string_view name);

// ARCHIVI\EEPROM below the program directory, then make, model and file with the image's extension, all trimmed.
// Nothing when one of the three is no safe name.
std::optional<platform::Path> ArchiveImagePath(const platform::Path& folder, std::string_view make,
                                               std::string_view model, std::string_view file);

}  // namespace memory
