#pragma once

#include "platform/instance.h"

namespace platform::real {

// A claim held by the operating system on a small file of the folder: it ends with the program, also after a crash.
class InstanceLock : public Instance {
  public:
    InstanceLock() = default;
    ~InstanceLock() override;
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;

    Claim TryClaim(const std::filesystem::path& folder) override;

  private:
    void Release();

    std::filesystem::path file_;
#ifdef _WIN32
    void* handle_ = nullptr;
#else
    int handle_ = -1;
#endif
};

}  // namespace platform::real
