#include "platform/qt/qt_timers.h"

#include <QTimer>
#include <algorithm>

namespace platform::qt {

namespace {

class QtTimer : public Timer {
  public:
    QtTimer(const AfterEvent& after, int milliseconds) : after_(after) {
        timer_.setTimerType(Qt::PreciseTimer);
        SetInterval(milliseconds);
        QObject::connect(&timer_, &QTimer::timeout, [this] { Fire(); });
    }

    void SetInterval(int milliseconds) override {
        const int interval = std::max(1, milliseconds);
        if (timer_.isActive()) {
            timer_.start(interval);
        } else {
            timer_.setInterval(interval);
        }
    }
    int Interval() const override { return timer_.interval(); }
    void SetEnabled(bool on) override { on ? timer_.start() : timer_.stop(); }
    bool Enabled() const override { return timer_.isActive(); }
    void SetHandler(Handler handler) override { handler_ = std::move(handler); }

  private:
    void Fire() {
        // The handler may set another one, or end this very timer: nothing of it is touched afterwards.
        const Handler handler = handler_;
        const AfterEvent& after = after_;
        if (handler) handler();
        after.Run();
    }

    const AfterEvent& after_;
    QTimer timer_;
    Handler handler_;
};

}  // namespace

std::unique_ptr<Timer> QtTimers::Make(int milliseconds) {
    return std::make_unique<QtTimer>(after_, milliseconds);
}

}  // namespace platform::qt
