#include "contract/port_contract.h"

namespace contract {

namespace {

constexpr const char* Settings = "38400,N,8,1";
const std::string Frame = "\x02L10240032\x03";

std::string AllBytes() {
    std::string all;
    for (int code = 0; code < 256; ++code) all += static_cast<char>(code);
    return all;
}

}  // namespace

PortContract::PortContract() {
    port_.SetEvent([this](int value) {
        if (value != platform::EventReceived) return;
        ++events_;
        received_ += port_.Input();
    });
}

void PortContract::OpenPort() {
    port_.SetDevice(machine_->Device());
    ASSERT_TRUE(port_.SetSettings(Settings));
    ASSERT_TRUE(port_.Open());
}

bool PortContract::Heard(std::string_view text) {
    const bool done = machine_->RunUntil([&] { return received_.size() >= text.size(); }) && received_ == text;
    received_.clear();
    return done;
}

bool PortContract::FarHeard(std::string_view text) {
    const bool done = machine_->RunUntil([&] {
        farReceived_ += machine_->FarReceived();
        return farReceived_.size() >= text.size();
    }) && farReceived_ == text;
    farReceived_.clear();
    return done;
}

TEST_P(PortContract, RefusesSettingsThatNoLineCanHaveAndKeepsTheOldOnes) {
    ASSERT_TRUE(port_.SetSettings("9600,E,7,2"));
    for (const char* bad : {"", "38400", "38400,8,1", "38400,N,8", "38400,N,8,1,", "38400,n,8,1", "38400,N,9,1",
                            "38400,N,8,3", "0,N,8,1", "-5,N,8,1", "fast,N,8,1", " 38400,N,8,1"}) {
        EXPECT_FALSE(port_.SetSettings(bad)) << bad;
        EXPECT_EQ(port_.Settings(), "9600,E,7,2");
    }
}

TEST_P(PortContract, OpensWithEverySettingOfTheSettingsPage) {
    port_.SetDevice(machine_->Device());
    EXPECT_FALSE(port_.Open()) << "no settings yet";
    EXPECT_FALSE(port_.PortOpen());
    for (const char* settings : {"4800,N,8,1", "9600,E,7,1", "19200,O,8,2", "38400,N,8,1.5", Settings}) {
        ASSERT_TRUE(port_.SetSettings(settings));
        EXPECT_TRUE(port_.Open()) << settings;
        EXPECT_TRUE(port_.PortOpen());
        EXPECT_EQ(port_.Settings(), settings);
    }
    EXPECT_EQ(port_.Device(), machine_->Device());
}

TEST_P(PortContract, CarriesEveryByteBothWaysUnchanged) {
    OpenPort();
    const std::string all = AllBytes();
    machine_->FarWrites(all);
    EXPECT_TRUE(Heard(all));
    EXPECT_GE(events_, 1);
    EXPECT_TRUE(port_.Output(all));
    EXPECT_TRUE(FarHeard(all));
    machine_->RunShortly();
    EXPECT_EQ(received_, "") << "a line does not echo";
}

TEST_P(PortContract, InputTakesAllOnceAndClearInputDropsIt) {
    int events = 0;
    port_.SetEvent([&](int) { ++events; });
    OpenPort();
    machine_->FarWrites(Frame);
    ASSERT_TRUE(machine_->RunUntil([&] { return events > 0; }));
    machine_->RunShortly();
    EXPECT_EQ(port_.Input(), Frame);
    EXPECT_EQ(port_.Input(), "");
    machine_->FarWrites(Frame);
    machine_->RunShortly();
    port_.ClearInput();
    EXPECT_EQ(port_.Input(), "");
}

TEST_P(PortContract, AClosedPortHearsAndSendsNothingAndOpensEmpty) {
    OpenPort();
    machine_->FarWrites(Frame);
    ASSERT_TRUE(Heard(Frame));
    events_ = 0;
    port_.Close();
    EXPECT_FALSE(port_.PortOpen());
    EXPECT_FALSE(port_.Output(Frame));
    machine_->FarWrites("too early");
    machine_->RunShortly();
    EXPECT_EQ(events_, 0);
    OpenPort();
    machine_->RunShortly();
    machine_->FarWrites(Frame);
    EXPECT_TRUE(Heard(Frame));
}

TEST_P(PortContract, ADeviceThatIsGoneCannotBeOpened) {
    machine_->Vanish();
    port_.SetDevice(machine_->Device());
    ASSERT_TRUE(port_.SetSettings(Settings));
    EXPECT_FALSE(port_.Open());
    EXPECT_EQ(port_.Fault(), platform::PortFault::Absent);
    EXPECT_FALSE(port_.PortOpen());
    EXPECT_FALSE(port_.Output(Frame));
    machine_->Return();
    EXPECT_TRUE(port_.Open());
    EXPECT_EQ(port_.Fault(), platform::PortFault::None);
}

TEST_P(PortContract, ADeviceThatVanishesIsSilentAndWorksAgainWhenItIsBack) {
    OpenPort();
    for (int pull = 0; pull < 2; ++pull) {
        machine_->FarWrites(Frame);
        ASSERT_TRUE(Heard(Frame)) << pull;
        machine_->Vanish();
        EXPECT_TRUE(machine_->RunUntil([&] { return !port_.Output("x"); }));
        EXPECT_TRUE(port_.PortOpen());
        EXPECT_EQ(port_.Fault(), platform::PortFault::Absent);
        machine_->RunShortly();
        EXPECT_EQ(received_, "");
        machine_->Return();
        EXPECT_TRUE(machine_->RunUntil([&] { return port_.Output(Frame); }));
        EXPECT_EQ(port_.Fault(), platform::PortFault::None);
        EXPECT_TRUE(FarHeard(Frame));
    }
}

TEST_P(PortContract, ClosingWhileTheDeviceIsGoneEndsTheWaitForIt) {
    OpenPort();
    machine_->Vanish();
    ASSERT_TRUE(machine_->RunUntil([&] { return !port_.Output("x"); }));
    port_.Close();
    machine_->Return();
    machine_->RunShortly();
    EXPECT_FALSE(port_.PortOpen());
    EXPECT_FALSE(port_.Output(Frame));
}

TEST_P(PortContract, TheEventMayCloseThePort) {
    port_.SetEvent([this](int) {
        received_ += port_.Input();
        port_.Close();
    });
    OpenPort();
    machine_->FarWrites("a");
    ASSERT_TRUE(machine_->RunUntil([&] { return !received_.empty(); }));
    machine_->FarWrites("b");
    machine_->RunShortly();
    EXPECT_EQ(received_, "a");
}

}  // namespace contract
