#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/real/real_files.h"

namespace contract {

// Makes the files to test over those of the disk.
using MakeFiles = std::function<std::unique_ptr<platform::Files>(platform::Files& disk)>;

// A folder of its own on the disk, gone with the test.
class Folder {
  public:
    Folder();
    ~Folder();
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    platform::Path operator/(const char* name) const { return path_ / name; }
    const platform::Path& Path() const { return path_; }
    std::vector<std::string> Entries() const;  // names of all that is in it, sorted

  private:
    platform::Path path_;
};

class FilesContract : public ::testing::TestWithParam<MakeFiles> {
  protected:
    std::string Content(const platform::Path& file) { return files_->Read(file).value_or("(unreadable)"); }

    Folder folder_;
    platform::real::RealFiles disk_;
    std::unique_ptr<platform::Files> files_ = GetParam()(disk_);
};

}  // namespace contract
