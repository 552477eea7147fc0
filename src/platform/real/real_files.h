#pragma once

#include "platform/files.h"

namespace platform::real {

// The files of the disk.
class RealFiles : public Files {
  public:
    std::optional<std::string> Read(const Path& file, std::size_t limit) override;
    bool Write(const Path& file, std::string_view content) override;
    bool Append(const Path& file, std::string_view content) override;
    bool Remove(const Path& file) override;
    bool Copy(const Path& from, const Path& to) override;
    bool Exists(const Path& file) override;
    std::optional<std::uint64_t> Size(const Path& file) override;
    std::vector<std::string> List(const Path& folder, std::string_view extension) override;
    bool MakeFolders(const Path& folder) override;
    bool FolderExists(const Path& folder) override;
    bool MakeCurrent(const Path& folder) override;
};

}  // namespace platform::real
