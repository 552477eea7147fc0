#include "platform/qt/qt_port.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>

#include "contract/qt/event_loop.h"
#include "contract/qt/pseudo_terminal.h"

namespace contract {

namespace {

constexpr int NoRetry = 60'000;  // a port that takes its device for lost stays deaf for the whole test
constexpr int Rounds = 20;

// Commands as a script sends them: through a pipe, which the event loop looks at before the port.
class Commands {
  public:
    Commands() { opened_ = ::pipe2(ends_.data(), O_NONBLOCK) == 0; }
    ~Commands() {
        for (const int end : ends_) ::close(end);
    }
    Commands(const Commands&) = delete;
    Commands& operator=(const Commands&) = delete;

    bool Opened() const { return opened_; }
    int Descriptor() const { return ends_[0]; }
    bool Send() { return ::write(ends_[1], "x", 1) == 1; }
    bool Take() {
        char taken = 0;
        return ::read(ends_[0], &taken, 1) == 1;
    }

  private:
    std::array<int, 2> ends_{-1, -1};
    bool opened_ = false;
};

// Command and bytes are there in one turn of the event loop, and the command drops what the loop is about to fetch.
TEST(QtPort, DroppingBytesThatTheEventLoopIsAboutToFetchLosesNeitherTheDeviceNorLaterBytes) {
    Commands commands;
    ASSERT_TRUE(commands.Opened());
    QSocketNotifier notifier(commands.Descriptor(), QSocketNotifier::Read);
    const platform::qt::AfterEvent after;
    PseudoTerminal terminal;
    platform::qt::QtPort port(after, NoRetry);
    std::string received;
    port.SetEvent([&](int) { received += port.Input(); });
    port.SetDevice(terminal.Device());
    ASSERT_TRUE(port.SetSettings("38400,N,8,1"));
    ASSERT_TRUE(port.Open());
    int rounds = 0;
    QObject::connect(&notifier, &QSocketNotifier::activated, [&] {
        EXPECT_TRUE(commands.Take());
        port.ClearInput();
        if (++rounds == Rounds) return;
        terminal.Write("old");
        EXPECT_TRUE(commands.Send());
    });
    ASSERT_TRUE(commands.Send());
    ASSERT_TRUE(RunEventsUntil([&] { return rounds == Rounds; }));
    RunEventsShortly();
    received.clear();  // what the loop fetched before a command
    terminal.Write("new");
    EXPECT_TRUE(RunEventsUntil([&] { return received.size() >= 3; }));
    EXPECT_EQ(received, "new");
}

TEST(QtPort, ADeviceThatAnotherPortHoldsIsRefusedUntilItIsFree) {
    const platform::qt::AfterEvent after;
    const PseudoTerminal terminal;
    platform::qt::QtPort holder(after, NoRetry);
    platform::qt::QtPort port(after, NoRetry);
    for (platform::qt::QtPort* each : {&holder, &port}) {
        each->SetDevice(terminal.Device());
        ASSERT_TRUE(each->SetSettings("38400,N,8,1"));
    }
    ASSERT_TRUE(holder.Open());
    EXPECT_FALSE(port.Open());
    EXPECT_EQ(port.Fault(), platform::PortFault::Refused);
    holder.Close();
    EXPECT_TRUE(port.Open());
    EXPECT_EQ(port.Fault(), platform::PortFault::None);
}

TEST(QtPort, SendsEveryStopBitThatTheLineCanHave) {
    struct Case {
        const char* settings;
        bool two;
    };
    const platform::qt::AfterEvent after;
    const PseudoTerminal terminal;
    platform::qt::QtPort port(after, NoRetry);
    port.SetDevice(terminal.Device());
    // A device keeps what it was last set to: each case finds the other number.
    for (const Case& c : {Case{"38400,N,8,1", false}, Case{"38400,N,8,1.5", true}, Case{"38400,N,8,1", false},
                          Case{"38400,N,8,2", true}}) {
        ASSERT_TRUE(port.SetSettings(c.settings));
        ASSERT_TRUE(port.Open()) << c.settings;
        EXPECT_EQ(terminal.TwoStopBits(), c.two) << c.settings;
    }
}

}  // namespace

}  // namespace contract
