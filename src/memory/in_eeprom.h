#pragma once

#include "pages/page.h"

namespace memory {

struct Memory;

// Erases the unit, after two questions.
struct InEEPROM : pages::Page {
    explicit InEEPROM(Memory& owner);

    pages::Label MessaggioSel{*this, "MessaggioSel"};
    pages::Label Segnalazione{*this, "Segnalazione"};
    pages::Label Avanzamento{*this,
                             "Avanzamento"};  // how far the erasing is, in percent; hidden while nothing is erased
    pages::Button Inizializza{*this, "Inizializza"};
    pages::Button TastoSI{*this, "TastoSI"};
    pages::Button Esci{*this, "Esci"};

  protected:
    void Opening() override;

  private:
    // Buttons as they stand before the first question is answered.
    void FirstState();
    void SecondQuestion();
    void Erase();
    // The flow has ended: its words, if it has any, else the address at which it stood; the page is usable again.
    void Ended(pages::Tone tone, const char* key);

    Memory& memory_;
};

}  // namespace memory
