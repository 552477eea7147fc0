#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "pages/page.h"
#include "shell/menus.h"

namespace shell {

struct Shell;

// A panel of the status bar, found by its key.
struct Panel {
    std::string_view key;
    pages::Label* label;
};

// The main window: menus, toolbar, status bar, reception lamps. It is the bottom page and stays open.
struct Marlovent : pages::Page {
    explicit Marlovent(Shell& owner);

    pages::Label Label1{*this, "Label1"};  // what stands in the receive buffer
    pages::Lamp RxOK{*this, "RxOK"};
    pages::Lamp RxKO{*this, "RxKO"};
    pages::Label Collegamento{*this, "Collegamento"};  // the link in one word, with the port
    pages::Label Versione{*this, "Versione"};          // program version of the unit
    pages::Label Codice{*this, "Codice"};              // its acquisition code
    pages::Label VisReg{*this, "VisReg"};
    pages::Label Campioni{*this, "Campioni"};

    std::array<std::vector<MenuItem>, static_cast<std::size_t>(MenuId::Count)> menus;
    std::vector<ToolItem> tools;
    std::vector<Panel> panels;

    std::vector<MenuItem>& Menu(MenuId id) { return menus[static_cast<std::size_t>(id)]; }
    MenuItem& Item(MenuId id, int index) { return Menu(id).at(static_cast<std::size_t>(index)); }
    ToolItem& Tool(std::string_view key);
    // Menus and toolbar have changed: whoever shows them looks again.
    std::int64_t MenuVersion() const { return menuVersion_; }
    void TouchMenus() { ++menuVersion_; }

  private:
    std::int64_t menuVersion_ = 1;
};

// Captions of menus and toolbar, window title, status panel, from the language.
void LoadMainTexts(Shell& shell);

// Menus and toolbar on (-1) or off (0), as a stream comes and goes and around long operations.
void AbilitaComandi(Shell& shell, int flag);
// Only what needs no programmed unit.
void SoloSenzaCentralina(Shell& shell);
// Which of the two submenus of the self-adaptation shows, by the unit's program.
void ShowAdaptationMenu(Shell& shell);

// The title that the menus give to a page which serves several entries, for the entry with that argument; empty when
// none in the menus opens it.
std::string EntryTitle(Shell& shell, std::string_view page, int argument);

// The inputs on menus and toolbar.
pages::Outcome ChooseMenu(Shell& shell, MenuId menu, int index);
pages::Outcome PressTool(Shell& shell, std::string_view key);

// Names of entries whose page this version does not have; they open nothing.
bool IsFuturePage(std::string_view name);

}  // namespace shell
