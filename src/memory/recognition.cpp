#include "memory/recognition.h"

#include <array>

#include "link/frames/build.h"
#include "link/frames/numbers.h"
#include "link/lamps.h"
#include "link/reception.h"
#include "link/transaction.h"
#include "memory/memory.h"

namespace memory {

namespace {

using eculink::Link;
using shell::False;
using shell::True;

constexpr int Identification = 80;
constexpr std::array<const char*, 3> OldFiles{InternalFile, ExternalFile, InspectorFile};

bool RispostaX(Memory& memory, const std::string& frame) {
    Link& link = memory.link;
    shell::Shell& shell = link.shell;
    link.state.unanswered = 0;
    link.state.VersioneECU = ReadVersion(frame);
    shell.state.FirmwareVecchio = shell::Flag(IsOldVersion(link.state.VersioneECU));
    shell::ShowAdaptationMenu(shell);
    for (const char* name : OldFiles) {
        if (!shell.host.files.Remove(shell.FileInFolder(name))) return false;
    }
    if (shell.state.FirmwareVecchio == False) {
        BeginConnectionRead(memory);
        return true;
    }
    link.state.imageNotKept = false;
    // Nothing is asked of the unit until the fitter decides; the state stays, so that live frames go no further.
    link.state.ComandoTx.clear();
    shell.state.pointer = shell::Pointer::Normal;
    memory.leggoIn.ShowOldProgram();
    return true;
}

void Silent(Memory& memory) {
    Link& link = memory.link;
    link.state.CentralinaDaRiconoscere = True;
    if (link.shell.state.FaseAcq != shell::NoPhase) return;
    link.state.imageNotKept = eculink::FailedInside(link);
    if (link.state.VersioneECU.empty()) ++link.state.unanswered;
    eculink::ForgetVersion(link);
    eculink::MarkLost(link);
    memory.leggoIn.ShowSilence();
}

void Recognised(Memory& memory) {
    shell::Shell& shell = memory.link.shell;
    memory.link.state.CentralinaDaRiconoscere = False;
    shell.stack.ClosePage(memory.leggoIn);
    if (shell.state.ImmagineProgrammata == False) shell::SoloSenzaCentralina(shell);
    shell.main.Codice.SetText(shell::Fill(shell.TestoLingua("CODICE.0", "STATO"), memory.state.CodiceAcq));
    if (memory.hooks.Proceed) memory.hooks.Proceed();
}

// The run begins anew, but the frame that brought the unit stays to be seen.
void NewRun(Link& link) {
    if (link.loss.CloseRecording) link.loss.CloseRecording();
    const auto raw = link.RecCanali.Grezzo;
    eculink::AzzeraDati(link);
    link.RecCanali.Grezzo = raw;
}

}  // namespace

void AddRecognition(Memory& memory) {
    Link& link = memory.link;
    link.live.StartRecognition = [&memory] { StartRecognition(memory); };
    FlowEvents& events = EventsOf(memory, Flow::Connection);
    events.progress = [&memory](int address) {
        bool& notKept = memory.link.state.imageNotKept;
        if (address > 0) notKept = false;
        if (!notKept) memory.leggoIn.ShowProgress(address);
    };
    events.done = [&memory] { Recognised(memory); };
    events.silent = [&memory](int) { Silent(memory); };
    link.catalogue.AddReply(Identification, 'x',
                            [&memory](const std::string& frame) { return RispostaX(memory, frame); });
}

void StartRecognition(Memory& memory) {
    Link& link = memory.link;
    // A command that was sent before the unit came has lost its meaning.
    eculink::EndWithoutWatchdog(link);
    NewRun(link);
    eculink::ChiudiPagine(link);
    shell::AbilitaComandi(link.shell, True);
    link.state.CentralinaDaRiconoscere = False;
    eculink::ForgetVersion(link);
    link.shell.stack.OpenPage(memory.leggoIn, false);
    eculink::StartTransaction(link, Identification, frames::IdentityFrame());
}

void ContinueRecognition(Memory& memory) {
    BeginConnectionRead(memory);
}

std::string ReadVersion(const std::string& frame) {
    constexpr std::size_t Longest = 10;
    const std::string_view payload = frames::Payload(frame);
    std::string version;
    for (std::size_t at = 0; at < payload.size() && version.size() < Longest; at += 2) {
        version += frames::HexChr(payload.substr(at, 2));
    }
    return version;
}

bool IsOldVersion(std::string_view version) {
    constexpr double FirstMajor = 1;
    constexpr double FirstMinor = 4;
    const double major = frames::ValoreNum(version.substr(0, 2));
    if (major != FirstMajor) return major < FirstMajor;
    return frames::ValoreNum(version.size() > 3 ? version.substr(3, 2) : std::string_view()) < FirstMinor;
}

}  // namespace memory
