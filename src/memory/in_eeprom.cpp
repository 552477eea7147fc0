#include "memory/in_eeprom.h"

#include "memory/memory.h"

namespace memory {

namespace {

constexpr const char* Section = "INEEPROM";
constexpr int ErasingExternal = 97;  // the one state of the flow whose silence has words

}  // namespace

InEEPROM::InEEPROM(Memory& owner) : Page("InEEPROM"), memory_(owner) {
    Inizializza.onPress = [this] { SecondQuestion(); };
    TastoSI.onPress = [this] { Erase(); };
    Esci.onPress = [this] { memory_.link.shell.stack.ClosePage(*this); };
    BindKey("Esc", Esci);
    onClose = [this] {
        if (Enabled()) memory_.link.shell.stack.ClosePage(*this);
    };
    FlowEvents& events = EventsOf(memory_, Flow::Erasing);
    events.progress = [this](int address) {
        Segnalazione.Say(pages::Tone::Progress,
                         ProgressText(memory_.link.shell.TestoLingua("SEGNALAZIONE_3", Section), address));
        Avanzamento.SetText(std::to_string(PercentWritten(address)));
        Avanzamento.SetVisible(true);
    };
    events.done = [this] { Ended(pages::Tone::Done, "SEGNALAZIONE_1"); };
    events.refused = [this] { Ended(pages::Tone::Refused, "SEGNALAZIONE_2"); };
    events.silent = [this](int state) {
        Ended(pages::Tone::Failed, state == ErasingExternal ? "SEGNALAZIONE_6" : nullptr);
    };
}

void InEEPROM::Opening() {
    shell::Shell& shell = memory_.link.shell;
    MessaggioSel.SetText(shell.TestoLingua("MESSAGGIOSEL", Section));
    Inizializza.SetText(shell.TestoLingua("INIZIALIZZA.0", Section));
    TastoSI.SetText(shell.TestoLingua("SI.0", "TASTI"));
    Esci.SetText(shell.TestoLingua("ESCI.0", "TASTI"));
    Segnalazione.SetText(shell.TestoLingua("SEGNALAZIONE_4", Section));
    Avanzamento.SetText({});
    Avanzamento.SetVisible(false);
    FirstState();
}

// The focus stands on the way out: Enter never answers a question that destroys something with yes.
void InEEPROM::FirstState() {
    Inizializza.SetVisible(true);
    TastoSI.SetVisible(false);
    SetFocus(&Esci);
}

void InEEPROM::SecondQuestion() {
    Segnalazione.SetText(memory_.link.shell.TestoLingua("SEGNALAZIONE_5", Section));
    Inizializza.SetVisible(false);
    TastoSI.SetVisible(true);
    SetFocus(&Esci);
}

void InEEPROM::Erase() {
    if (!StartErasing(memory_)) return Ended(pages::Tone::Failed, "SEGNALAZIONE_2");
    SetEnabled(false);
}

void InEEPROM::Ended(pages::Tone tone, const char* key) {
    Segnalazione.Say(tone, key == nullptr ? Segnalazione.Text() : memory_.link.shell.TestoLingua(key, Section));
    Avanzamento.SetVisible(false);
    SetEnabled(true);
    FirstState();
}

}  // namespace memory
