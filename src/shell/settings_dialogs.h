#pragma once

#include "pages/page.h"

namespace shell {

struct Shell;

// What the small settings dialogs share: Salva (F1), Esci (Esc), the changed flag, and the question before an edit is
// lost.
struct SettingsPage : pages::Page {
    SettingsPage(Shell& owner, const std::string& name, std::string section);

    pages::Button Salva{*this, "Salva"};
    pages::Button Esci{*this, "Esci"};

    bool Changed() const { return changed_; }

  protected:
    void Opening() override;
    // Fills captions and present values.
    virtual void Fill() = 0;
    // Stores the choice; false keeps the dialog open.
    virtual bool Store() = 0;
    // Any edit of this control sets the changed flag.
    void Watch(pages::Control& control);
    // For the constructor of a dialog: its own controls come before the two buttons.
    void PutButtonsLast();
    // What was edited stands in the file, although the dialog may stay open: leaving asks nothing any more.
    void Stored() { changed_ = false; }
    // Says that the folder, or else this file in it, cannot be written; gives back false, which keeps the dialog open.
    bool TellUnwritable(const char* file);

    Shell& shell_;
    std::string section_;

  private:
    void Leave();

    bool changed_ = false;
};

// The serial line.
struct ConfSer : SettingsPage {
    explicit ConfSer(Shell& owner);

    pages::Array<pages::Label> LabSer{*this, "LabSer", 5};
    pages::Combo Seriali{*this, "Seriali"};
    pages::Combo BaudRate{*this, "BaudRate"};
    pages::Combo Parita{*this, "Parita"};
    pages::Combo BitDati{*this, "BitDati"};
    pages::Combo BitStop{*this, "BitStop"};

  protected:
    void Fill() override;
    bool Store() override;
};

struct SceltaLingua : SettingsPage {
    explicit SceltaLingua(Shell& owner);

    pages::Label LabLingua{*this, "LabLingua"};
    pages::List ListaLingue{*this, "ListaLingue"};

  protected:
    void Fill() override;
    bool Store() override;
};

struct TipoComp : SettingsPage {
    explicit TipoComp(Shell& owner);

    pages::Array<pages::Option> Velocita{*this, "Velocita", 2};

  protected:
    void Fill() override;
    bool Store() override;
};

// How raw figures are shown.
struct Risoluz : SettingsPage {
    explicit Risoluz(Shell& owner);

    pages::Label LabCana{*this, "LabCana"};
    pages::Combo TipoRisol{*this, "TipoRisol"};

  protected:
    void Fill() override;
    bool Store() override;
};

// What the program is and which version.
struct Infor : pages::Page {
    explicit Infor(Shell& owner);

    pages::Label lblTitle{*this, "lblTitle"};
    pages::Label lblVersion{*this, "lblVersion"};
    pages::Label lblDescription{*this, "lblDescription"};
    pages::Button OK{*this, "OK"};

  protected:
    void Opening() override;

  private:
    Shell& shell_;
};

}  // namespace shell
