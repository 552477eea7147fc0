#include "platform/real/real_files.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <memory>
#include <system_error>

#include "platform/text.h"

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace platform::real {

namespace {

// The entry of `folder` whose name equals `name` whatever the case of letters; the name itself when there is none.
Path FindEntry(const Path& folder, const Path& name) {
    std::error_code error;
    if (fs::exists(folder / name, error)) return folder / name;
    const std::string wanted = UpperCase(FromUtf8(name.string()));
    for (fs::directory_iterator entry(folder.empty() ? Path(".") : folder, error), end; !error && entry != end;
         entry.increment(error)) {
        if (UpperCase(FromUtf8(entry->path().filename().string())) == wanted) return folder / entry->path().filename();
    }
    return folder / name;
}

// The path as it stands on the disk, every part found whatever the case of its letters.
Path Resolve(const Path& path) {
    std::error_code error;
    if (path.empty() || fs::exists(path, error)) return path;
    Path out = path.root_path();
    for (const Path& part : path.relative_path()) out = FindEntry(out, part);
    return out;
}

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

File OpenFile(const Path& path, const char* mode) {
    return File(std::fopen(path.string().c_str(), mode));
}

bool FlushToDisk(std::FILE* file) {
    if (std::fflush(file) != 0) return false;
#ifdef _WIN32
    return _commit(_fileno(file)) == 0;
#else
    return fsync(fileno(file)) == 0;
#endif
}

// An empty text may have no address at all, which fwrite does not allow.
bool Put(std::string_view content, std::FILE* file) {
    return content.empty() || std::fwrite(content.data(), 1, content.size(), file) == content.size();
}

bool WriteAll(const Path& path, std::string_view content) {
    File file = OpenFile(path, "wb");
    if (!file) return false;
    const bool written = Put(content, file.get());
    return FlushToDisk(file.get()) && std::fclose(file.release()) == 0 && written;
}

}  // namespace

std::optional<std::string> RealFiles::Read(const Path& file, std::size_t limit) {
    const Path path = Resolve(file);
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return std::nullopt;
    std::ifstream in(path, std::ios::binary);
    if (!in) return std::nullopt;
    const std::uintmax_t size = fs::file_size(path, error);
    if (error) return std::nullopt;
    std::string content(static_cast<std::size_t>(std::min<std::uintmax_t>(size, limit)), '\0');
    in.read(content.data(), static_cast<std::streamsize>(content.size()));
    content.resize(static_cast<std::size_t>(in.gcount()));
    return content;
}

bool RealFiles::Write(const Path& file, std::string_view content) {
    const Path path = Resolve(file);
    Path beside = path;
    beside += ".new~";
    std::error_code error;
    // A file that its owner has locked against writing stays as it is, although the folder would let it be replaced.
    if (fs::exists(path, error) && !OpenFile(path, "r+b")) return false;
    if (WriteAll(beside, content)) {
        fs::rename(beside, path, error);
        if (!error) return true;
    }
    fs::remove(beside, error);
    return false;
}

bool RealFiles::Append(const Path& file, std::string_view content) {
    const Path path = Resolve(file);
    std::error_code error;
    const bool existed = fs::exists(path, error);
    const std::uintmax_t before = existed ? fs::file_size(path, error) : 0;
    if (error) return false;
    File out = OpenFile(path, "ab");
    if (!out) return false;
    const bool written = Put(content, out.get());
    const bool closed = std::fclose(out.release()) == 0;
    if (written && closed) return true;
    if (existed) {
        fs::resize_file(path, before, error);
    } else {
        fs::remove(path, error);
    }
    return false;
}

bool RealFiles::Remove(const Path& file) {
    std::error_code error;
    fs::remove(Resolve(file), error);
    return !error;
}

bool RealFiles::Copy(const Path& from, const Path& to) {
    const auto content = Read(from, DefaultLimit + 1);
    return content && content->size() <= DefaultLimit && Write(to, *content);
}

bool RealFiles::Exists(const Path& file) {
    std::error_code error;
    return fs::is_regular_file(Resolve(file), error);
}

std::optional<std::uint64_t> RealFiles::Size(const Path& file) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(Resolve(file), error);
    if (error) return std::nullopt;
    return size;
}

std::vector<std::string> RealFiles::List(const Path& folder, std::string_view extension) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(Resolve(folder), error), end; !error && entry != end; entry.increment(error)) {
        std::error_code ignored;
        if (!entry->is_regular_file(ignored)) continue;
        if (EqualsIgnoringCase(entry->path().extension().string(), extension)) {
            names.push_back(FromUtf8(entry->path().filename().string()));
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

bool RealFiles::MakeFolders(const Path& folder) {
    std::error_code error;
    const Path path = Resolve(folder);
    fs::create_directories(path, error);
    return fs::is_directory(path, error);
}

bool RealFiles::FolderExists(const Path& folder) {
    std::error_code error;
    return fs::is_directory(Resolve(folder), error);
}

bool RealFiles::MakeCurrent(const Path& folder) {
    std::error_code error;
    fs::current_path(Resolve(folder), error);
    return !error;
}

}  // namespace platform::real
