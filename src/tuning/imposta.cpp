#include "tuning/imposta.h"

#include <algorithm>

#include "tuning/imposta_pages.h"
#include "tuning/settings_step.h"
#include "tuning/tuning.h"

namespace tuning {

namespace {

using eculink::TimeOut;
using shell::Text;

constexpr std::string_view Section = "IMPOSTA";
constexpr Text Refusal{"SEGNALAZIONE_2", "IMPOSTA"};
constexpr Text NoBaseMap{"ERRORE_9", "ERRORI"};
constexpr Text NotWritten{"ERRORE_10", "ERRORI"};

// texts of IMPOSTA
constexpr DialogRow Dialog{
    Section,
    {85, "lo", TimeOut::F2},
    "is",
    TimeOut::Q,
    {{
        {Work::TryingNew, 115, 1, Homes::Permanent, false, "SEGNALAZIONE_8", "SEGNALAZIONE_4", Refusal},
        {Work::TryingInitial, 116, 0, Homes::Permanent, false, "SEGNALAZIONE_8", "SEGNALAZIONE_5", Refusal},
        {Work::Storing, 119, 1, Homes::Permanent, false, "SEGNALAZIONE_6", "SEGNALAZIONE_1", Refusal},
        {Work::Leaving, 116, 0, Homes::Permanent, false, "SEGNALAZIONE_7", "", Refusal},
    }},
    false,
    false,
};

constexpr int LastStepPage = 2;

}  // namespace

Imposta::Imposta(Tuning& owner)
    : Page("Imposta"),
      controls(*this, owner.memory.link.shell, Section, ImpostaPages()),
      tank(*this, owner, controls),
      live(*this, owner),
      editing(owner, controls, foot.Segnalazione, Section),
      cycle(owner, Dialog, {*this, head, controls, live, foot, editing}),
      tuning_(owner) {
    Avanti.onPress = [this] { Next(); };
    Annulla.escapes = true;
    Annulla.onPress = [this] { LeaveStep(); };
    tank.onTaken = [this](std::size_t record, const std::string& figure) {
        editing.Take(record, figure);
        if (!figure.empty()) editing.onTouched();
    };
    tank.onNoReading = [this] {
        tuning_.memory.link.shell.Beep();
        cycle.TellNotRead();
    };
    editing.onTyped = [this](std::size_t record) { tank.Typed(record); };
    live.onTick = [this] { tank.Follow(); };
    cycle.onShown = [this] { tank.Show(cycle.Page() == TankPage); };
    cycle.onEditable = [this](pages::Reason why) {
        if (cycle.Running()) tank.Rest();
        tank.SetWhy(why);
        Avanti.SetWhy(why);
    };
    // In the step every way out is the same.
    foot.Esci.onPress = onClose = [this] { step_ ? LeaveStep() : cycle.Leave(); };
}

void Imposta::Opening() {
    const shell::Shell& shell = tuning_.memory.link.shell;
    SetTitle(shell.TestoLingua("CAPTION", "IMPOSTA"));
    Avanti.SetText(shell.TestoLingua("AVANTI.0", "TASTI"));
    Annulla.SetText(shell.TestoLingua("ANNULLA.0", "TASTI"));
    step_ = shell.state.FaseAcq == SettingsPhase;
    if (step_) {
        OpenStep(std::clamp(shell.state.PaginaMessaP, 0, LastStepPage));
    } else {
        cycle.Open(shell.state.PaginaMessaP);
    }
    Avanti.SetVisible(step_);
    Annulla.SetVisible(step_);
    live.Follow(true);
}

void Imposta::Closed() {
    live.Follow(false);
    tank.Show(false);
    cycle.Forget();
}

void Imposta::OpenStep(int page) {
    const std::vector<std::size_t>& records = controls.All()[static_cast<std::size_t>(page)].records;
    if (TakeFromBaseMap(tuning_, records)) {
        cycle.ShowKnown(page);
    } else {
        cycle.ShowUnread(page, NoBaseMap);
    }
}

void Imposta::Next() {
    if (!editing.CheckAll()) return;
    const bool last = cycle.Page() == LastStepPage;
    if (!PutIntoBaseMap(tuning_, controls.Shown().records, last)) {
        tuning_.memory.link.shell.Beep();
        return cycle.Tell(pages::Tone::Failed, NotWritten);
    }
    if (!last) return OpenStep(cycle.Page() + 1);
    tuning_.memory.link.shell.stack.ClosePage(*this);
    if (onStepDone) onStepDone();
}

void Imposta::LeaveStep() {
    tuning_.memory.link.shell.state.FaseAcq = shell::NoPhase;
    tuning_.memory.link.shell.stack.ClosePage(*this);
    if (onStepLeft) onStepLeft();
}

void OpenSettingsStep(Tuning& tuning) {
    shell::Shell& shell = tuning.memory.link.shell;
    shell.state.FaseAcq = SettingsPhase;
    shell.state.PaginaMessaP = 0;
    shell.stack.OpenPage(tuning.imposta, true);
}

}  // namespace tuning
