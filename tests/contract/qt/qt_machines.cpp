#include "contract/port_contract.h"
#include "contract/qt/event_loop.h"
#include "contract/qt/pseudo_terminal.h"
#include "contract/timers_contract.h"
#include "platform/qt/qt_host.h"

namespace contract {

namespace {

constexpr int RetryMillis = 20;

class QtTimersMachine : public TimersMachine {
  public:
    platform::Timers& Timers() override { return host_.Get().timers; }
    platform::Clock& Clock() override { return host_.Get().clock; }
    bool RunUntil(const std::function<bool()>& done) override { return RunEventsUntil(done); }

  private:
    platform::qt::QtHost host_;
};

class QtPortMachine : public PortMachine {
  public:
    platform::SerialPort& Port() override { return port_; }
    std::string Device() const override { return terminal_.Device(); }
    void FarWrites(std::string_view bytes) override { terminal_.Write(bytes); }
    std::string FarReceived() override { return terminal_.Received(); }
    void Vanish() override { terminal_.Vanish(); }
    void Return() override { terminal_.Return(); }
    bool RunUntil(const std::function<bool()>& done) override { return RunEventsUntil(done); }
    void RunShortly() override { RunEventsShortly(); }

  private:
    platform::qt::AfterEvent after_;
    PseudoTerminal terminal_;
    platform::qt::QtPort port_{after_, RetryMillis};
};

INSTANTIATE_TEST_SUITE_P(Qt, TimersContract,
                         ::testing::Values(MakeTimersMachine([] { return std::make_unique<QtTimersMachine>(); })));
INSTANTIATE_TEST_SUITE_P(PseudoTerminal, PortContract,
                         ::testing::Values(MakePortMachine([] { return std::make_unique<QtPortMachine>(); })));

}  // namespace

}  // namespace contract
