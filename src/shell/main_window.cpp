#include "shell/main_window.h"

#include <algorithm>
#include <cstdlib>

#include "shell/message.h"
#include "shell/shell.h"

namespace shell {

namespace {

using pages::Outcome;
using pages::Reason;

// The pages of the main menu that need no unit with an image.
constexpr std::array<int, 8> MainWithoutUnit{0, 1, 2, 4, 6, 7, 8, 9};
constexpr std::array<std::string_view, 7> ToolsWithoutUnit{"PROGRAMMA", "EEPROM_PROG",    "OFFLINE", "IMPOSTAZIONI",
                                                           "UTILITA",   "CONFIGURAZIONE", "ESCI"};
constexpr int ProgrammingItem = 2;  // of MainMenu: always on
constexpr int OfflineItem = 3;      // of MenuEEPROM: always on
constexpr int OpenFileItem = 0;     // of MenuDati
constexpr int CloseFileItem = 1;
constexpr int AdaptationItem = 11;  // of MenuPunto
constexpr int OldAdaptationItem = 12;

// Pages of later versions. Whoever builds one takes its name out of here.
constexpr auto FuturePages = std::to_array<std::string_view>({
    "Memorf",  "ChiudiFile", "CancFileD", "Infile",   "VisOff", "CancFile",   "Programma", "ProgFlash", "RipriF",
    "SalvatF", "CancFileS",  "AutoTar",   "ModMappa", "Ident",  "AutoTarOff", "StoricoA",  "Salvat",    "Ripri",
    "SalvatP", "RipriP",     "SalvatM",   "SalvatPM", "RipriM", "RipriPM",    "CancFileB", "Anomalie",
});

template <class Range, class Value>
bool Contains(const Range& range, const Value& value) {
    return std::find(std::begin(range), std::end(range), value) != std::end(range);
}

Reason WhyOff(bool on, Reason reason) {
    return on ? Reason::None : reason;
}

// Opening and closing a recording follow the recording, and the flag.
void EnableRecording(Shell& shell, bool on, Reason reason) {
    const bool recording = !shell.state.FileRegistrazione.empty();
    const Reason openWhy = recording ? Reason::Recording : WhyOff(on, reason);
    const Reason closeWhy = recording ? WhyOff(on, reason) : Reason::NoRecording;
    shell.main.Tool("APRI_FILE").why = openWhy;
    shell.main.Tool("CHIUDI_FILE").why = closeWhy;
    shell.main.Item(MenuId::MenuDati, OpenFileItem).why = openWhy;
    shell.main.Item(MenuId::MenuDati, CloseFileItem).why = closeWhy;
}

bool GuardHolds(Shell& shell, Guard guard) {
    switch (guard) {
        case Guard::None:
            return true;
        case Guard::Image:
            if (shell.state.SenzaImmagine != True) return true;
            Tell(shell, shell.TestoLingua("SEGNALAZIONE_1", "MARLOVENT"));
            return false;
        case Guard::NewProgram:
            if (shell.state.FirmwareVecchio != True) return true;
            Tell(shell, shell.TestoLingua("ERRORE_23", "ERRORI") + "\r\n" + shell.TestoLingua("ERRORE_24", "ERRORI"));
            return false;
    }
    return true;
}

Outcome Run(Shell& shell, Call call, Guard guard) {
    if (!GuardHolds(shell, guard)) return Outcome::Done();
    const Commands::Run* run = shell.commands.Find(call.name);
    if (run == nullptr) return Outcome::Refused(Reason::NotAvailable);
    (*run)(call);
    return Outcome::Done();
}

// The entry that pops up this menu, for the sub-title of its pages.
const EntryRow* ParentOf(MenuId menu) {
    const std::string_view name = Menus()[static_cast<std::size_t>(menu)].name;
    for (const EntryRow& row : Entries()) {
        if (row.target == Target::Submenu && row.name == name) return &row;
    }
    return nullptr;
}

std::string EntryTitle(Shell& shell, const MenuItem& item) {
    std::string title = CaptionPulita(item.caption);
    const EntryRow* parent = item.row->subtitle ? ParentOf(item.row->menu) : nullptr;
    if (parent == nullptr) return title;
    return CaptionPulita(shell.main.Item(parent->menu, parent->index).caption) + " - " + title;
}

Reason WhyMainNot(Shell& shell) {
    return shell.stack.WhyNot(shell.main);
}

// A menu can be reached through any entry and any toolbar button that pops it up, as long as one of them is on.
Reason WhyMenuNot(Shell& shell, MenuId menu) {
    if (menu == MenuId::MainMenu) return Reason::None;
    const std::string_view name = Menus()[static_cast<std::size_t>(menu)].name;
    Reason why = Reason::None;
    const auto isWay = [&why](Reason obstacle) {
        if (why == Reason::None) why = obstacle;
        return obstacle == Reason::None;
    };
    for (const EntryRow& row : Entries()) {
        if (row.target != Target::Submenu || row.name != name) continue;
        const MenuItem& item = shell.main.Item(row.menu, row.index);
        const Reason above = WhyMenuNot(shell, row.menu);
        const Reason own = item.visible ? item.why : Reason::Hidden;
        if (isWay(above == Reason::None ? own : above)) return Reason::None;
    }
    for (const ToolItem& tool : shell.main.tools) {
        if (tool.row->target == Target::Submenu && tool.row->name == name && isWay(tool.why)) return Reason::None;
    }
    return why;
}

// The prefix of a menu's caption keys; the diesel build words its settings menu differently.
std::string CaptionPrefix(const Shell& shell, const MenuRow& menu) {
    const bool diesel = menu.id == MenuId::MenuImp && shell.state.VarianteQT == True;
    return diesel ? "MENUIMPQT" : std::string(menu.prefix);
}

std::string_view VariantSuffix(const State& state) {
    if (state.VarianteAVX == True) return " (AVX)";
    return state.VarianteQT == True ? " (DIESEL)" : "";
}

}  // namespace

Marlovent::Marlovent(Shell& owner) : Page("Marlovent") {
    for (const EntryRow& row : Entries()) Menu(row.menu).push_back({&row, {}, Reason::None, true});
    for (const ToolRow& row : Tools()) tools.push_back({&row, {}, {}, Reason::None});
    panels = {{"Collegamento", &Collegamento},
              {"Versione", &Versione},
              {"Codice", &Codice},
              {"VisReg", &VisReg},
              {"Campioni", &Campioni}};
    SetTitle("C V N - INSTALLAZIONE MARLO VENT");  // until the texts are there
    RxOK.SetColour("white");
    RxKO.SetColour("white");
    onClose = [&owner] {
        owner.state.InChiusura = True;
        owner.End(0);
    };
}

ToolItem& Marlovent::Tool(std::string_view key) {
    const auto found = std::find_if(tools.begin(), tools.end(), [key](const ToolItem& t) { return t.row->key == key; });
    if (found == tools.end()) std::abort();  // keys come from the program's own tables
    return *found;
}

void LoadMainTexts(Shell& shell) {
    Marlovent& main = shell.main;
    for (const MenuRow& menu : Menus()) {
        const std::string prefix = CaptionPrefix(shell, menu);
        for (MenuItem& item : main.Menu(menu.id)) {
            item.caption = shell.TestoLingua(prefix + "." + std::to_string(item.row->index), "MARLOVENT");
        }
    }
    for (ToolItem& tool : main.tools) {
        tool.caption = shell.TestoLingua(std::string("TOOL.").append(tool.row->key), "MARLOVENT");
        tool.tooltip = shell.TestoLingua("TOOLTIP", tool.row->key);
    }
    main.SetTitle(shell.TestoLingua("CAPTION", "MARLOVENT") + std::string(VariantSuffix(shell.state)));
    ShowAdaptationMenu(shell);
}

void AbilitaComandi(Shell& shell, int flag) {
    Marlovent& main = shell.main;
    const bool on = flag != False;
    if (pages::Page* charts = shell.stack.Find("Grafici")) charts->SetEnabled(on);
    for (MenuItem& item : main.Menu(MenuId::MainMenu)) item.why = WhyOff(on, Reason::LongOperation);
    main.Item(MenuId::MainMenu, ProgrammingItem).why = Reason::None;
    main.Item(MenuId::MenuEEPROM, OfflineItem).why = Reason::None;
    for (std::size_t i = 1; i + 1 < main.tools.size(); ++i) main.tools[i].why = WhyOff(on, Reason::LongOperation);
    main.Tool("PROGRAMMA").why = Reason::None;
    EnableRecording(shell, on, Reason::LongOperation);
    main.TouchMenus();
}

std::string EntryTitle(Shell& shell, std::string_view page, int argument) {
    for (const EntryRow& row : Entries()) {
        if (row.name != page || row.argument != argument) continue;
        const EntryRow* parent = ParentOf(row.menu);
        const bool shown = parent == nullptr || shell.main.Item(parent->menu, parent->index).visible;
        if (shown) return EntryTitle(shell, shell.main.Item(row.menu, row.index));
    }
    return {};
}

void SoloSenzaCentralina(Shell& shell) {
    Marlovent& main = shell.main;
    for (MenuItem& item : main.Menu(MenuId::MainMenu)) {
        item.why = WhyOff(Contains(MainWithoutUnit, item.row->index), Reason::BlankUnit);
    }
    for (ToolItem& tool : main.tools) tool.why = WhyOff(Contains(ToolsWithoutUnit, tool.row->key), Reason::BlankUnit);
    main.TouchMenus();
}

void ShowAdaptationMenu(Shell& shell) {
    const bool old = shell.state.FirmwareVecchio == True;
    shell.main.Item(MenuId::MenuPunto, AdaptationItem).visible = !old;
    shell.main.Item(MenuId::MenuPunto, OldAdaptationItem).visible = old;
    shell.main.TouchMenus();
}

Outcome ChooseMenu(Shell& shell, MenuId menu, int index) {
    if (const Reason why = WhyMainNot(shell); why != Reason::None) return Outcome::Refused(why);
    std::vector<MenuItem>& items = shell.main.Menu(menu);
    if (index < 0 || static_cast<std::size_t>(index) >= items.size()) return Outcome::Refused(Reason::NoSuchEntry);
    const MenuItem& item = items[static_cast<std::size_t>(index)];
    if (item.row->target == Target::Separator) return Outcome::Refused(Reason::NoSuchEntry);
    if (!item.visible) return Outcome::Refused(Reason::Hidden);
    if (const Reason why = WhyMenuNot(shell, menu); why != Reason::None) return Outcome::Refused(why);
    if (item.why != Reason::None) return Outcome::Refused(item.why);
    if (item.row->idle && shell.state.FaseAcq != NoPhase) return Outcome::Refused(Reason::Calibration);
    if (item.row->target == Target::Submenu) return Outcome::Done();
    return Run(shell, {std::string(item.row->name), item.row->argument, EntryTitle(shell, item)}, item.row->guard);
}

Outcome PressTool(Shell& shell, std::string_view key) {
    if (const Reason why = WhyMainNot(shell); why != Reason::None) return Outcome::Refused(why);
    const std::string upper = platform::UpperCase(key);
    for (const ToolItem& tool : shell.main.tools) {
        if (tool.row->key != upper) continue;
        if (tool.why != Reason::None) return Outcome::Refused(tool.why);
        if (tool.row->idle && shell.state.FaseAcq != NoPhase) return Outcome::Refused(Reason::Calibration);
        if (tool.row->target == Target::Submenu) return Outcome::Done();
        return Run(shell, {std::string(tool.row->name), 0, tool.tooltip}, tool.row->guard);
    }
    return Outcome::Refused(Reason::NoSuchButton);
}

bool IsFuturePage(std::string_view name) {
    return Contains(FuturePages, name);
}

}  // namespace shell
