#include "platform/real/instance_lock.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

namespace fs = std::filesystem;
using platform::Instance;
using platform::real::InstanceLock;

class InstanceLocks : public ::testing::Test {
  protected:
    void SetUp() override {
        std::string name = (fs::temp_directory_path() / "marlovent-XXXXXX").string();
        ASSERT_NE(::mkdtemp(name.data()), nullptr);
        folder_ = name;
    }
    void TearDown() override { fs::remove_all(folder_); }

    fs::path folder_;
};

TEST_F(InstanceLocks, TheSecondProgramIsRefusedUntilTheFirstHasEnded) {
    {
        InstanceLock first;
        EXPECT_EQ(first.TryClaim(folder_), Instance::Claim::Mine);
        InstanceLock second;
        EXPECT_EQ(second.TryClaim(folder_), Instance::Claim::Taken);
    }
    InstanceLock later;
    EXPECT_EQ(later.TryClaim(folder_), Instance::Claim::Mine);
}

// Another user's lock, or that of a folder which nobody may write.
TEST_F(InstanceLocks, AFolderWhoseLockCannotBeWrittenIsStillClaimedOnce) {
    fs::create_directory(folder_ / ".marlovent.lock");
    InstanceLock first;
    EXPECT_EQ(first.TryClaim(folder_), Instance::Claim::Mine);
    InstanceLock second;
    EXPECT_EQ(second.TryClaim(folder_), Instance::Claim::Taken);
}

TEST_F(InstanceLocks, AFolderThatIsNotThereCannotBeWritten) {
    InstanceLock lock;
    EXPECT_EQ(lock.TryClaim(folder_ / "missing"), Instance::Claim::Unwritable);
}

}  // namespace
