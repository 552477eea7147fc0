#include "console/qt_session.h"

namespace console {

QtSession::QtSession(program::Program& program, sim::Unit* unit, std::function<void()> afterCommand)
    : afterCommand_(std::move(afterCommand)),
      interpreter_(program, unit),
      session_(interpreter_, PrintLine),
      input_([this](const std::string& piece) {
          if (piece.empty()) session_.EndOfInput();
          session_.Feed(piece);
          Advance();
          afterCommand_();
      }) {
    tick_.setInterval(Tick);
    tick_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&tick_, &QTimer::timeout, &tick_, [this] {
        Advance();
        afterCommand_();
    });
}

void QtSession::Advance() {
    session_.Advance();
    if (session_.Hungry()) input_.Ask();
    if (interpreter_.Waiting() && !tick_.isActive()) tick_.start();
    if (!interpreter_.Waiting()) tick_.stop();
}

}  // namespace console
