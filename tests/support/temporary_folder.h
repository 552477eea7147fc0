#pragma once

#include <atomic>
#include <filesystem>
#include <string>

#ifdef _WIN32
#include <process.h>
#else
#include <unistd.h>
#endif

namespace support {

inline long ProcessNumber() {
#ifdef _WIN32
    return _getpid();
#else
    return getpid();
#endif
}

// A folder of its own for each test; gone with it.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        static std::atomic<int> count{0};
        path_ = std::filesystem::temp_directory_path() /
                ("marlovent-" + std::to_string(ProcessNumber()) + "-" + std::to_string(++count));
        std::filesystem::create_directories(path_);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    const std::filesystem::path& Path() const { return path_; }

  private:
    std::filesystem::path path_;
};

}  // namespace support
