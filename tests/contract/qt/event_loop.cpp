#include "contract/qt/event_loop.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <memory>

namespace contract {

namespace {

constexpr int PatienceMillis = 10000;
constexpr int ShortMillis = 60;
constexpr int WakeMillis = 5;

class Application : public ::testing::Environment {
  public:
    void SetUp() override { app_ = std::make_unique<QCoreApplication>(argc_, argv_.data()); }
    void TearDown() override { app_.reset(); }

  private:
    std::string name_ = "test_contract";
    std::array<char*, 2> argv_{name_.data(), nullptr};
    int argc_ = 1;
    std::unique_ptr<QCoreApplication> app_;
};

const ::testing::Environment* const application = ::testing::AddGlobalTestEnvironment(new Application);

}  // namespace

bool RunEventsUntil(const std::function<bool()>& done) {
    QTimer wake;  // the far side of a line is no object of the loop
    wake.start(WakeMillis);
    QElapsedTimer elapsed;
    elapsed.start();
    while (!done()) {
        if (elapsed.elapsed() > PatienceMillis) return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

void RunEventsShortly() {
    QElapsedTimer elapsed;
    elapsed.start();
    RunEventsUntil([&elapsed] { return elapsed.elapsed() > ShortMillis; });
}

}  // namespace contract
