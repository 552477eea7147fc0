#include "contract/port_contract.h"
#include "contract/timers_contract.h"
#include "platform/virtual/line.h"
#include "platform/virtual/world.h"

namespace contract {

namespace {

using platform::virt::Pace;
using platform::virt::World;

constexpr int PatienceMillis = 5000;
constexpr int ShortMillis = 1000;

bool RunWorldUntil(World& world, const std::function<bool()>& done) {
    for (int i = 0; i < PatienceMillis; ++i) {
        if (done()) return true;
        world.RunFor(1);
    }
    return false;
}

class VirtualTimers : public TimersMachine {
  public:
    platform::Timers& Timers() override { return world_; }
    platform::Clock& Clock() override { return world_; }
    bool RunUntil(const std::function<bool()>& done) override { return RunWorldUntil(world_, done); }

  private:
    World world_;
};

class VirtualLine : public PortMachine {
  public:
    explicit VirtualLine(Pace pace) {
        line_.SetPace(pace);
        line_.Far().SetReceiver([this](std::string_view bytes) { received_ += bytes; });
    }

    platform::SerialPort& Port() override { return line_.Port(); }
    std::string Device() const override { return "COM1"; }
    void FarWrites(std::string_view bytes) override { line_.Far().Write(bytes); }
    std::string FarReceived() override { return std::exchange(received_, {}); }
    void Vanish() override { line_.SetPresent(false); }
    void Return() override { line_.SetPresent(true); }
    bool RunUntil(const std::function<bool()>& done) override { return RunWorldUntil(world_, done); }
    void RunShortly() override { world_.RunFor(ShortMillis); }

  private:
    World world_;
    platform::virt::Line line_{world_};
    std::string received_;
};

MakePortMachine LineAt(Pace pace) {
    return [pace] { return std::make_unique<VirtualLine>(pace); };
}

INSTANTIATE_TEST_SUITE_P(Virtual, TimersContract,
                         ::testing::Values(MakeTimersMachine([] { return std::make_unique<VirtualTimers>(); })));
INSTANTIATE_TEST_SUITE_P(AtOnce, PortContract, ::testing::Values(LineAt(Pace::AtOnce)));
INSTANTIATE_TEST_SUITE_P(ByteByByte, PortContract, ::testing::Values(LineAt(Pace::ByteByByte)));
INSTANTIATE_TEST_SUITE_P(BaudRate, PortContract, ::testing::Values(LineAt(Pace::BaudRate)));

}  // namespace

}  // namespace contract
