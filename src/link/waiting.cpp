#include "link/waiting.h"

#include <array>
#include <string>

#include "link/link.h"
#include "shell/settings.h"

namespace eculink {

namespace {

using shell::Fill;

constexpr std::int64_t Fresh = 3000;  // ms; what came earlier says nothing about the line now

// Everything that the checks look at, gathered once.
struct Facts {
    platform::PortFacts port;
    bool busy;           // the system does not give the device, though it is there and may be used
    std::string holder;  // of a busy device, as far as it can be seen
    const Link& link;
    bool frames;             // the line brings live frames
    std::int64_t silentFor;  // ms since the last byte
};

struct Check {
    Obstacle obstacle;
    int key;  // number of its three sentences in the section ATTESA
    bool (*holds)(const Facts&);
    std::string (*value1)(const Facts&);  // the evidence
    std::string (*value2)(const Facts&);
};

std::string Device(const Facts& facts) {
    return platform::FromUtf8(facts.link.shell.host.port.Device());
}
std::string Group(const Facts& facts) {
    return facts.port.group;
}
std::string User(const Facts& facts) {
    return facts.port.user;
}
std::string Holder(const Facts& facts) {
    return facts.holder.empty() ? facts.link.shell.TestoLingua("ALTRO.0", "ATTESA") : facts.holder;
}
std::string Settings(const Facts& facts) {
    const shell::SerialTexts& s = facts.link.shell.state.serial;
    return s.baud + " " + shell::ParityWord(facts.link.shell) + " " + s.dataBits + " " + s.stopBits;
}
std::string Bytes(const Facts& facts) {
    return std::to_string(facts.link.state.bytesReceived);
}
std::string Unanswered(const Facts& facts) {
    return std::to_string(facts.link.state.unanswered);
}
std::string SilentSeconds(const Facts& facts) {
    return std::to_string(facts.silentFor / 1000);
}

std::string Folder(const Facts& facts) {
    return facts.link.shell.state.CartellaProg;
}

// Characters that make no live frame.
bool Babbles(const Facts& facts) {
    return facts.link.state.bytesReceived > 0 && facts.silentFor < Fresh && !facts.frames;
}

// Once what can be seen from outside has been put right, the next attempt tells.
bool CannotOpen(const Facts& facts) {
    const bool triedAgain =
        facts.link.timers.Reopening->Enabled() && facts.link.shell.host.port.Fault() != platform::PortFault::Failed;
    return facts.link.state.portFailed && !triedAgain;
}

// In the order in which they hide each other.
constexpr std::array<Check, 8> Checks{{
    {Obstacle::PortAbsent, 0, [](const Facts& f) { return !f.port.present; }, Device, Device},
    {Obstacle::NoRights, 1, [](const Facts& f) { return !f.port.permitted; }, Device, Group},
    {Obstacle::Busy, 2, [](const Facts& f) { return f.busy; }, Device, Holder},
    {Obstacle::NotOpened, 6, CannotOpen, Device, Settings},
    {Obstacle::NotKept, 7, [](const Facts& f) { return f.frames && f.link.state.imageNotKept; }, Folder, Device},
    {Obstacle::Unanswered, 5, [](const Facts& f) { return f.frames && f.link.state.unanswered > 0; }, Unanswered,
     Device},
    {Obstacle::NoFrames, 4, Babbles, Bytes, Settings},
    {Obstacle::Silent, 3, [](const Facts& f) { return !f.frames; }, SilentSeconds, Device},
}};

Facts Gather(const Link& link) {
    const std::string device = link.shell.host.port.Device();
    platform::PortProbe& probe = link.shell.host.probe;
    const platform::PortFacts port = probe.Look(device);
    const bool busy = port.present && port.permitted && link.shell.host.port.Fault() == platform::PortFault::Refused;
    const std::int64_t now = NowMs(link);
    const bool frames = link.state.lastFrameAt && now - *link.state.lastFrameAt < Fresh;
    return {port, busy, busy ? probe.HolderOf(device) : std::string(), link, frames, now - link.state.lastByteAt};
}

const Check* FirstThatHolds(const Facts& facts) {
    for (const Check& check : Checks) {
        if (check.holds(facts)) return &check;
    }
    return nullptr;
}

// A unit that cannot be recognised is asked again and again; between two questions it is waited for all the same.
bool Waiting(const Link& link) {
    if (link.state.unanswered > 0 || link.state.imageNotKept) return true;
    return link.state.CentralinaDaRiconoscere == shell::True && link.state.StatoCmd == Idle;
}

std::string PortName(const Link& link) {
    return "COM" + std::to_string(shell::PortNumber(link.shell));
}

void ShowSentence(Link& link, pages::Label& label, const char* family, const Check* check, const std::string& first,
                  const std::string& second) {
    const std::string key = check == nullptr ? std::string() : family + std::to_string(check->key);
    label.SetText(Fill(link.shell.TestoLingua(key, "ATTESA"), first, second));
}

void ShowCheck(Link& link, const Facts& facts) {
    Grafici& page = link.grafici;
    const Check* check = FirstThatHolds(facts);
    ShowSentence(link, page.AttesaCausa, "CAUSA.", check, PortName(link), Device(facts));
    ShowSentence(link, page.AttesaValore, "VALORE.", check, check == nullptr ? "" : check->value1(facts),
                 check == nullptr ? "" : check->value2(facts));
    ShowSentence(link, page.AttesaRimedio, "RIMEDIO.", check, Group(facts), User(facts));
}

enum class Word { Waiting, Identifying, Reading, OldProgram, Ready, Command, Lost };
constexpr std::array<const char*, 7> Words{"ATTESA.0", "RICONOSCE.0", "LEGGE.0", "VECCHIA.0",
                                           "PRONTA.0", "COMANDO.0",   "PERSA.0"};

Word WordOf(const Link& link) {
    constexpr int Identification = 80;
    constexpr int SecondArea = 89;
    if (link.state.CentralinaDaRiconoscere == shell::True) return link.state.heard ? Word::Lost : Word::Waiting;
    if (link.state.StatoCmd == SecondArea) return Word::Reading;
    if (link.state.StatoCmd == Identification) {
        if (link.shell.state.FirmwareVecchio == shell::True && !link.timers.TimeOutComandi->Enabled())
            return Word::OldProgram;
        return link.state.VersioneECU.empty() ? Word::Identifying : Word::Reading;
    }
    return link.state.StatoCmd == Idle ? Word::Ready : Word::Command;
}

}  // namespace

void ForgetLine(Link& link) {
    link.state.bytesReceived = 0;
    link.state.lastFrameAt.reset();
    link.state.unanswered = 0;
    link.state.imageNotKept = false;
}

Obstacle FindObstacle(const Link& link) {
    const Check* check = FirstThatHolds(Gather(link));
    return check == nullptr ? Obstacle::None : check->obstacle;
}

void ShowWaiting(Link& link) {
    if (!Waiting(link)) return;
    ShowCheck(link, Gather(link));
}

void ShowLinkState(Link& link) {
    Grafici& page = link.grafici;
    const bool waiting = Waiting(link);
    const bool otherPort = link.state.shownPort != link.shell.state.serial.port;
    link.state.shownPort = link.shell.state.serial.port;
    if (waiting != page.Attesa.Visible() || otherPort) {
        page.Attesa.SetText(Fill(link.shell.TestoLingua("TITOLO.1", "ATTESA"), PortName(link),
                                 platform::FromUtf8(link.shell.host.port.Device())));
        for (pages::Label* label : {&page.Attesa, &page.AttesaCausa, &page.AttesaValore, &page.AttesaRimedio}) {
            label->SetVisible(waiting);
        }
        // What stood there belongs to an earlier wait; the next look at the line fills them.
        for (pages::Label* label : {&page.AttesaCausa, &page.AttesaValore, &page.AttesaRimedio}) label->SetText({});
    }
    const Word word = WordOf(link);
    const int index = static_cast<int>(word);
    if (index == link.state.shownWord && !otherPort) return;
    link.state.shownWord = index;
    link.shell.main.Collegamento.SetText(link.shell.TestoLingua(Words[static_cast<std::size_t>(index)], "STATO") +
                                         "  " + PortName(link));
    link.shell.main.Versione.SetText(link.state.VersioneECU.empty()
                                         ? std::string()
                                         : Fill(link.shell.TestoLingua("VERSIONE.0", "STATO"), link.state.VersioneECU));
    if (word == Word::Waiting || word == Word::Lost) link.shell.main.Codice.SetText({});
}

}  // namespace eculink
