#include "platform/real/real_probe.h"

#include <gtest/gtest.h>

#ifdef __linux__

#include <fcntl.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <string>

#include "support/plain_user.h"
#include "support/temporary_folder.h"

namespace platform::real {

namespace {

// A pseudo-terminal as the device, and another process that may hold it open.
class Device {
  public:
    Device() : master_(posix_openpt(O_RDWR | O_NOCTTY)) {
        grantpt(master_);
        unlockpt(master_);
        name_ = ptsname(master_);
    }
    ~Device() {
        Release();
        close(master_);
    }
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;
    const std::string& Name() const { return name_; }

    // A child that has the device open until it is released; true when it has.
    bool HoldElsewhere() {
        std::array<int, 2> opened{};
        std::array<int, 2> released{};
        if (pipe(opened.data()) != 0 || pipe(released.data()) != 0) return false;
        child_ = fork();
        char byte = 0;
        if (child_ == 0) {
            close(released[1]);
            if (open(name_.c_str(), O_RDWR | O_NOCTTY) < 0 || write(opened[1], &byte, 1) != 1) _exit(1);
            _exit(read(released[0], &byte, 1) == 0 ? 0 : 1);
        }
        close(opened[1]);
        close(released[0]);
        release_ = released[1];
        const bool isOpen = read(opened[0], &byte, 1) == 1;
        close(opened[0]);
        return isOpen;
    }
    void Release() {
        if (child_ <= 0) return;
        close(release_);
        waitpid(child_, nullptr, 0);
        child_ = 0;
    }

  private:
    int master_;
    std::string name_;
    pid_t child_ = 0;
    int release_ = -1;
};

}  // namespace

TEST(RealProbe, TellsWhoHoldsTheDeviceAndNeverCountsItself) {
    Device device;
    const int own = open(device.Name().c_str(), O_RDWR | O_NOCTTY);
    ASSERT_GE(own, 0);
    RealProbe probe;
    PortFacts facts = probe.Look(device.Name());
    EXPECT_TRUE(facts.present);
    EXPECT_TRUE(facts.permitted);
    EXPECT_FALSE(facts.user.empty());
    EXPECT_FALSE(facts.group.empty());
    EXPECT_EQ(probe.HolderOf(device.Name()), "");

    ASSERT_TRUE(device.HoldElsewhere());
    EXPECT_EQ(probe.HolderOf(device.Name()), "test_platform");
    device.Release();
    EXPECT_EQ(probe.HolderOf(device.Name()), "");
    close(own);
}

// The system's own short names end after 15 characters.
TEST(RealProbe, NamesTheHolderInFull) {
    const Device device;
    const support::TemporaryFolder folder;
    const std::filesystem::path program = folder.Path() / "un programma dal nome lungo";
    std::filesystem::copy_file("/bin/sleep", program);
    const pid_t child = fork();
    if (child == 0) {
        if (open(device.Name().c_str(), O_RDWR | O_NOCTTY) >= 0)
            execl(program.c_str(), program.c_str(), "60", static_cast<char*>(nullptr));
        _exit(1);
    }
    RealProbe probe;
    std::string holder;
    // Until the child has become the other program it bears the name of this one.
    for (int i = 0; i < 1000 && holder != program.filename(); ++i) {
        holder = probe.HolderOf(device.Name());
        usleep(1000);
    }
    EXPECT_EQ(holder, program.filename());
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

TEST(RealProbe, AMissingDeviceIsAbsentAndALockedOneForbidden) {
    RealProbe probe;
    for (const char* missing : {"/dev/no-such-device", "", "/dev/null/inside"}) {
        const PortFacts facts = probe.Look(missing);
        EXPECT_FALSE(facts.present) << missing;
        EXPECT_EQ(probe.HolderOf(missing), "") << missing;
    }
    const Device device;
    ASSERT_EQ(chmod(device.Name().c_str(), 0), 0);
    const support::PlainUser user;
    if (!user.Holds()) GTEST_SKIP() << "nothing is forbidden to root";
    const PortFacts facts = probe.Look(device.Name());
    EXPECT_TRUE(facts.present);
    EXPECT_FALSE(facts.permitted);
}

}  // namespace platform::real

#endif
