#include "link/link.h"

#include "link/lamps.h"
#include "link/reception.h"
#include "link/transaction.h"
#include "link/waiting.h"

namespace eculink {

namespace {

constexpr int StoredCommandLimit = 1000;  // until the first command sets its own

std::unique_ptr<platform::Timer> MakeTimer(Link& link, int interval, void (*tick)(Link&)) {
    auto timer = link.shell.host.timers.Make(interval);
    timer->SetHandler([&link, tick] { tick(link); });
    return timer;
}

void Process(Link& link) {
    EstraiFrame(link);
    AggiornaPagina(link);
    ShowLinkState(link);
}

}  // namespace

Link::Link(shell::Shell& owner) : shell(owner) {
    timers.Elaborazione = MakeTimer(*this, ProcessingInterval, Process);
    timers.TimeOutComandi = MakeTimer(*this, StoredCommandLimit, CommandTimedOut);
    timers.TimeOutDati = MakeTimer(*this, StreamLimit, StreamLost);
    timers.Lampeggio = MakeTimer(*this, BlinkInterval, AnimateRow);
    timers.LampeggioC = MakeTimer(*this, BlinkInterval, AnimateCentre);
    timers.Checks = MakeTimer(*this, CheckInterval, ShowWaiting);
    timers.Reopening = MakeTimer(*this, CheckInterval, OpenAgain);
    shell.stack.Register(grafici);
    shell.hooks.ApriPorta = [this] { return ApriPorta(*this); };
    shell.hooks.resolutionChanged.push_back([this] { state.refresh = true; });
    shell.host.port.SetEvent([this](int event) {
        if (event == platform::EventReceived) Received(*this);
    });
    AzzeraDati(*this);
}

// The port outlives the program and must not call into it any more.
Link::~Link() {
    shell.host.port.SetEvent({});
}

std::int64_t NowMs(const Link& link) {
    return link.shell.host.clock.ElapsedMicros() / 1000;
}

}  // namespace eculink
