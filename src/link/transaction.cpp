#include "link/transaction.h"

#include <algorithm>
#include <array>
#include <exception>

#include "link/frames/build.h"
#include "link/lamps.h"
#include "link/link.h"
#include "link/waiting.h"

namespace eculink {

namespace {

using shell::False;
using shell::True;

constexpr const char* TraceName = "TXMESS.TXT";

void Write(Link& link, std::string_view frame) {
    if (link.shell.host.port.Output(frame) && link.trace) link.trace(Direction::Sent, frame);
}

// Sends the first frame of the chain and waits for its reply; every frame has the whole limit.
void SendFirst(Link& link) {
    link.timers.TimeOutComandi->SetInterval(CommandLimit);
    Write(link, frames::FirstFrame(link.state.ComandoTx));
    link.timers.TimeOutComandi->SetEnabled(true);
}

void BecomeIdle(Link& link) {
    link.timers.TimeOutComandi->SetEnabled(false);
    link.shell.state.pointer = shell::Pointer::Normal;
    link.state.StatoCmd = Idle;
}

void RestoreWatchdog(Link& link, Watchdog watchdog) {
    const bool on = watchdog == Watchdog::On || (watchdog == Watchdog::Restored && link.state.FlussoAttivo == True);
    link.timers.TimeOutDati->SetEnabled(on);
}

// How a silence of this state is told now.
const ReactionRow& ReactionNow(const Link& link, const Catalogue::Entry* entry) {
    const ReactionRow& row = ReactionOf(entry == nullptr ? TimeOut::None : entry->row.timeOut);
    return row.duringStep || link.shell.state.FaseAcq == shell::NoPhase ? row : ReactionOf(TimeOut::None);
}

// Whether a reply counts now: unless the row says otherwise it bears the small letter of the command that is waited
// for.
bool Counts(const Link& link, const StateRow& row, const std::string& frame) {
    constexpr char ToLower = 'a' - 'A';
    if (row.counting == Counting::Alike) return true;
    return link.state.ComandoTx.size() > 1 && frame[1] == link.state.ComandoTx[1] + ToLower;
}

bool IsWriteReply(char letter) {
    return letter == 'i' || letter == 's' || letter == 'w';
}

// The handler's work; whatever goes wrong inside is a failure, never more.
bool Handle(const ReplyHandler& handler, const std::string& frame) {
    try {
        return handler(frame);
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace

bool StartTransaction(Link& link, int state, std::string chain) {
    if (link.state.StatoCmd != Idle) return false;
    link.state.ComandoTx = std::move(chain);
    link.timers.TimeOutDati->SetEnabled(false);
    link.state.StatoCmd = state;
    link.shell.state.pointer = shell::Pointer::Wait;
    link.shell.host.port.ClearInput();
    SendFirst(link);
    return true;
}

void SendFrame(Link& link, int state, std::string frame) {
    link.state.ComandoTx = std::move(frame);
    link.state.StatoCmd = state;
    link.shell.state.pointer = shell::Pointer::Wait;
    link.timers.TimeOutDati->SetEnabled(false);
    link.timers.TimeOutComandi->SetEnabled(false);
    SendFirst(link);
}

bool ContinueChain(Link& link) {
    std::string& chain = link.state.ComandoTx;
    chain.erase(0, frames::FirstFrame(chain).size());
    if (chain.find(frames::Etx) == std::string::npos) {
        EndTransaction(link);
        return false;
    }
    link.timers.TimeOutDati->SetEnabled(false);
    SendFirst(link);
    return true;
}

void EndTransaction(Link& link) {
    BecomeIdle(link);
    RestoreWatchdog(link, Watchdog::On);
}

void EndWithoutWatchdog(Link& link) {
    BecomeIdle(link);
}

void EndRefused(Link& link) {
    BecomeIdle(link);
    RestoreWatchdog(link, Watchdog::Restored);
}

void SendAlone(Link& link, const std::string& frame) {
    Write(link, frame);
}

void DispatchReply(Link& link, const std::string& frame) {
    const int saved = link.state.StatoCmd;
    const Catalogue::Entry* entry = saved == Idle ? nullptr : link.catalogue.Find(saved);
    const ReplyHandler* handler =
        entry == nullptr || !Counts(link, entry->row, frame) ? nullptr : entry->HandlerOf(frame);
    if (handler == nullptr) return;
    link.timers.TimeOutComandi->SetEnabled(false);
    if (IsWriteReply(frame[1]) && !frames::IsOk(frame)) {
        EndRefused(link);
        if (entry->refused) entry->refused();
        return;
    }
    if (Handle(*handler, frame)) return;
    link.timers.TimeOutComandi->SetInterval(FailureLimit);
    link.state.StatoCmd = saved;
    link.timers.TimeOutComandi->SetEnabled(true);
}

bool FailedInside(const Link& link) {
    return link.timers.TimeOutComandi->Interval() == FailureLimit;
}

void CommandTimedOut(Link& link) {
    link.timers.TimeOutComandi->SetEnabled(false);
    link.shell.state.pointer = shell::Pointer::Normal;
    const int state = link.state.StatoCmd;
    const Catalogue::Entry* entry = link.catalogue.Find(state);
    const ReactionRow& reaction = ReactionNow(link, entry);
    // Files that cannot be written fail again with every live frame; the bell tells it once.
    const bool told = FailedInside(link) && link.state.imageNotKept;
    if (reaction.beep && !told) link.shell.Beep();
    if (entry != nullptr && entry->timeOut) entry->timeOut(state);
    RestoreWatchdog(link, reaction.watchdog);
    link.state.StatoCmd = Idle;
}

void StreamLost(Link& link) {
    link.timers.TimeOutDati->SetEnabled(false);
    BecomeIdle(link);
    link.shell.state.FaseAcq = shell::NoPhase;
    link.state.FlussoAttivo = False;
    link.state.restartMark = False;
    link.state.BufferRx.clear();
    link.state.CentralinaDaRiconoscere = True;
    link.shell.state.SenzaImmagine = True;
    link.shell.state.ImmagineProgrammata = True;  // no image is held that could be blank
    ForgetVersion(link);
    ForgetLine(link);
    link.shell.main.SetEnabled(true);
    if (link.loss.CloseRecording) link.loss.CloseRecording();
    AzzeraDati(link);
    ChiudiPagine(link);
    shell::AbilitaComandi(link.shell, True);
    if (link.loss.ResetCalibration) link.loss.ResetCalibration();
    MarkLost(link);
}

void ForgetVersion(Link& link) {
    link.state.VersioneECU.clear();
    link.shell.state.FirmwareVecchio = False;
    shell::ShowAdaptationMenu(link.shell);
}

void ChiudiPagine(Link& link) {
    const std::array<const pages::Page*, 3> staying{&link.shell.main, &link.grafici, &link.shell.systemMessage};
    const std::vector<pages::Page*> open = link.shell.stack.Open();
    for (auto page = open.rbegin(); page != open.rend(); ++page) {
        if (std::find(staying.begin(), staying.end(), *page) == staying.end()) link.shell.stack.ClosePage(**page);
    }
}

void TracciaTx(Link& link, std::string_view text) {
    std::string lines;
    while (!text.empty()) {
        const std::string_view frame = frames::FirstFrame(text);
        lines += frame;
        lines += "\r\n";
        text.remove_prefix(frame.size());
    }
    link.shell.host.files.Write(link.shell.FileInFolder(TraceName), lines);
}

}  // namespace eculink
