#pragma once

#include <functional>

#include "platform/files.h"

namespace platform::virt {

// Files that work until a test says otherwise: the nth operation from now on fails, or all from the nth on do, as on a
// disk that fills up. Writes alone can be made to fail, as on a read-only folder.
class FaultyFiles : public Files {
  public:
    explicit FaultyFiles(Files& real) : real_(real) {}

    void FailNth(int nth, bool forEver = false);  // 1 is the next operation; 0 never
    void FailWrites(bool fail) { failWrites_ = fail; }
    int Operations() const { return operations_; }

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
    // Noted, not done: the process goes on in its own folder.
    bool MakeCurrent(const Path& folder) override;
    const Path& Current() const { return current_; }

  private:
    bool Fails(bool write);

    Files& real_;
    int operations_ = 0;
    int failAt_ = 0;
    bool forEver_ = false;
    bool failWrites_ = false;
    Path current_;
};

}  // namespace platform::virt
