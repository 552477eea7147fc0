#include "platform/virtual/faulty_files.h"

namespace platform::virt {

void FaultyFiles::FailNth(int nth, bool forEver) {
    failAt_ = nth == 0 ? 0 : operations_ + nth;
    forEver_ = forEver;
}

bool FaultyFiles::Fails(bool write) {
    ++operations_;
    const bool planned = failAt_ != 0 && (operations_ == failAt_ || (forEver_ && operations_ > failAt_));
    return planned || (write && failWrites_);
}

std::optional<std::string> FaultyFiles::Read(const Path& file, std::size_t limit) {
    return Fails(false) ? std::nullopt : real_.Read(file, limit);
}

bool FaultyFiles::Write(const Path& file, std::string_view content) {
    return !Fails(true) && real_.Write(file, content);
}

bool FaultyFiles::Append(const Path& file, std::string_view content) {
    return !Fails(true) && real_.Append(file, content);
}

bool FaultyFiles::Remove(const Path& file) {
    return !Fails(true) && real_.Remove(file);
}

bool FaultyFiles::Copy(const Path& from, const Path& to) {
    return !Fails(true) && real_.Copy(from, to);
}

bool FaultyFiles::Exists(const Path& file) {
    return !Fails(false) && real_.Exists(file);
}

std::optional<std::uint64_t> FaultyFiles::Size(const Path& file) {
    return Fails(false) ? std::nullopt : real_.Size(file);
}

std::vector<std::string> FaultyFiles::List(const Path& folder, std::string_view extension) {
    return Fails(false) ? std::vector<std::string>() : real_.List(folder, extension);
}

bool FaultyFiles::MakeFolders(const Path& folder) {
    return !Fails(true) && real_.MakeFolders(folder);
}

bool FaultyFiles::FolderExists(const Path& folder) {
    return !Fails(false) && real_.FolderExists(folder);
}

bool FaultyFiles::MakeCurrent(const Path& folder) {
    if (Fails(false)) return false;
    current_ = folder;
    return true;
}

}  // namespace platform::virt
