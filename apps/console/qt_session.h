#pragma once

#include <QTimer>
#include <functional>

#include "console/qt_input.h"
#include "console/session.h"

namespace console {

// The console beside the event loop of a front end, in real time.
class QtSession {
  public:
    // `afterCommand` runs after each piece of input has been worked off, so that windows can follow. The program and
    // the unit (null on a real line) outlive the session.
    QtSession(program::Program& program, sim::Unit* unit, std::function<void()> afterCommand);

    // To be called after each event of the program, and once when the event loop has begun.
    void Advance();
    // `quit` or the end of input has been read, or the program has ended.
    bool Finished() const { return session_.Finished(); }

  private:
    static constexpr int Tick = 10;  // ms: how exactly the time of a wait is kept

    std::function<void()> afterCommand_;
    Interpreter interpreter_;
    Session session_;
    QTimer tick_;
    QtInput input_;
};

}  // namespace console
