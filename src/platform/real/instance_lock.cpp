#include "platform/real/instance_lock.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace platform::real {

namespace {

constexpr const char* LockName = ".marlovent.lock";

}  // namespace

InstanceLock::~InstanceLock() {
    Release();
}

#ifdef _WIN32

Instance::Claim InstanceLock::TryClaim(const std::filesystem::path& folder) {
    Release();
    file_ = folder / LockName;
    HANDLE handle = CreateFileW(file_.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                                FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return GetLastError() == ERROR_SHARING_VIOLATION ? Claim::Taken : Claim::Unwritable;
    }
    handle_ = handle;
    return Claim::Mine;
}

void InstanceLock::Release() {
    if (handle_ != nullptr) CloseHandle(handle_);
    handle_ = nullptr;
}

#else

namespace {

// The lock may be another user's, or nobody may write the folder: to hold it no right to write is needed, and where no
// file can be made the folder itself serves.
int OpenLock(const std::filesystem::path& file) {
    for (const int flags : {O_RDONLY | O_CREAT, O_RDONLY}) {
        const int handle = open(file.c_str(), flags | O_CLOEXEC, 0644);
        if (handle >= 0) return handle;
    }
    return open(file.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

}  // namespace

Instance::Claim InstanceLock::TryClaim(const std::filesystem::path& folder) {
    Release();
    file_ = folder / LockName;
    const int handle = OpenLock(file_);
    if (handle < 0) return Claim::Unwritable;
    if (flock(handle, LOCK_EX | LOCK_NB) != 0) {
        close(handle);
        return Claim::Taken;
    }
    handle_ = handle;
    return access(folder.c_str(), W_OK) == 0 ? Claim::Mine : Claim::Unwritable;
}

void InstanceLock::Release() {
    if (handle_ < 0) return;
    // The file stays: taking it away could pull it from under a program that has just opened it.
    close(handle_);
    handle_ = -1;
}

#endif

}  // namespace platform::real
