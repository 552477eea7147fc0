#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

using Path = std::filesystem::path;

// Every file operation of the program. Nothing is thrown; what cannot be done answers false or nothing, and the file is
// then as it was. An existing file or folder is found whatever the case of its name; new names are written as given.
class Files {
  public:
    virtual ~Files() = default;
    // The whole content, at most `limit` bytes of it; nothing when the file cannot be read.
    virtual std::optional<std::string> Read(const Path& file, std::size_t limit = DefaultLimit) = 0;
    // Written beside its place, flushed to the disk and renamed over it: either the old content stands or the new one.
    virtual bool Write(const Path& file, std::string_view content) = 0;
    // Opened, appended to and closed; makes the file when it is missing. On a failure it is cut back to what it held.
    virtual bool Append(const Path& file, std::string_view content) = 0;
    virtual bool Remove(const Path& file) = 0;  // true also when there was nothing to remove
    virtual bool Copy(const Path& from, const Path& to) = 0;
    virtual bool Exists(const Path& file) = 0;  // a file, not a folder
    virtual std::optional<std::uint64_t> Size(const Path& file) = 0;
    // Names, sorted, of the files of a folder whose extension equals the one given (".LNG") whatever the case of
    // letters.
    virtual std::vector<std::string> List(const Path& folder, std::string_view extension) = 0;
    virtual bool MakeFolders(const Path& folder) = 0;
    virtual bool FolderExists(const Path& folder) = 0;
    // The folder that names without one are looked for in from now on, by the whole process.
    virtual bool MakeCurrent(const Path& folder) = 0;

    static constexpr std::size_t DefaultLimit = 16U << 20U;
};

}  // namespace platform
