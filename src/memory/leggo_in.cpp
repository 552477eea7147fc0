#include "memory/leggo_in.h"

#include "memory/memory.h"
#include "memory/recognition.h"

namespace memory {

LeggoIn::LeggoIn(Memory& owner) : Page("LeggoIn"), memory_(owner) {
    Continua.onPress = [this] {
        Continua.SetVisible(false);
        EsciP.SetVisible(false);
        ContinueRecognition(memory_);
    };
    Esci.onPress = [this] { memory_.link.shell.stack.ClosePage(*this); };
    EsciP.onPress = [this] { memory_.link.shell.End(0); };
    BindKey("Esc", Esci);
    // The page goes when the read has ended; by hand it can be closed only where Esci can be pressed.
    whyNotClose = [this] { return Esci.Visible() ? Esci.Why() : pages::Reason::Transaction; };
}

void LeggoIn::Opening() {
    shell::Shell& shell = memory_.link.shell;
    SetTitle(shell.TestoLingua("CAPTION", "LEGGOIN"));
    Continua.SetText(shell.TestoLingua("CONTINUA.0", "LEGGOIN"));
    Esci.SetText(shell.TestoLingua("ESCI.0", "LEGGOIN"));
    EsciP.SetText(shell.TestoLingua("ESCIP.0", "LEGGOIN"));
    // Where files fail each attempt ends at once: the words of the last one stand, so that they can be read.
    const bool again = memory_.link.state.imageNotKept;
    Segnalazione.Say(again ? pages::Tone::Failed : pages::Tone::Plain,
                     shell.TestoLingua(again ? "SEGNALAZIONE_2" : "SEGNALAZIONE_3", "LEGGOIN"));
    Avanzamento.SetText({});
    Avanzamento.SetVisible(false);
    Continua.SetVisible(false);
    EsciP.SetVisible(false);
    Esci.SetVisible(true);
    Esci.Enable(false, pages::Reason::Transaction);
}

void LeggoIn::ShowProgress(int address) {
    Segnalazione.Say(pages::Tone::Progress,
                     ProgressText(memory_.link.shell.TestoLingua("SEGNALAZIONE_1", "LEGGOIN"), address));
    Avanzamento.SetText(std::to_string(PercentRead(address)));
    Avanzamento.SetVisible(true);
}

void LeggoIn::ShowSilence() {
    Segnalazione.Say(pages::Tone::Failed, memory_.link.shell.TestoLingua("SEGNALAZIONE_2", "LEGGOIN"));
    Avanzamento.SetVisible(false);
    Continua.SetVisible(false);
    EsciP.SetVisible(false);
    Esci.SetVisible(true);
    Esci.Enable(true);
    SetFocus(&Esci);
}

void LeggoIn::ShowOldProgram() {
    shell::Shell& shell = memory_.link.shell;
    Segnalazione.SetText(shell.TestoLingua("SEGNALAZIONE_4", "LEGGOIN") + "\r\n" +
                         shell.TestoLingua("SEGNALAZIONE_5", "LEGGOIN"));
    Esci.SetVisible(false);
    Continua.SetVisible(true);
    Continua.Enable(true);
    EsciP.SetVisible(true);
    EsciP.Enable(true);
    SetFocus(&Continua);  // which only reads
}

}  // namespace memory
