#pragma once

#include <filesystem>

namespace platform {

// Two programs on one program directory would write the same files: the first one claims it until it ends.
class Instance {
  public:
    enum class Claim { Mine, Taken, Unwritable };

    virtual ~Instance() = default;
    // Unwritable: the folder cannot be written; it is claimed all the same where it can be opened.
    virtual Claim TryClaim(const std::filesystem::path& folder) = 0;
};

}  // namespace platform
