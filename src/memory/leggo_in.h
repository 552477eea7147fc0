#pragma once

#include "pages/page.h"

namespace memory {

struct Memory;

// The small page that follows a recognition. Not modal: the engine can be watched meanwhile.
struct LeggoIn : pages::Page {
    explicit LeggoIn(Memory& owner);

    pages::Label Segnalazione{*this, "Segnalazione"};
    pages::Label Avanzamento{*this, "Avanzamento"};  // how far the read is, in percent; hidden while that is not known
    pages::Button Continua{*this, "Continua"};
    pages::Button Esci{*this, "Esci"};
    pages::Button EsciP{*this, "EsciP"};

    // The read has reached this address.
    void ShowProgress(int address);
    // The unit did not answer: the page can be left.
    void ShowSilence();
    // The unit's program is too old; the fitter decides.
    void ShowOldProgram();

  protected:
    void Opening() override;

  private:
    Memory& memory_;
};

}  // namespace memory
