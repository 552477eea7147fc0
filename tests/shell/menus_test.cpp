#include "shell/menus.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <vector>

#include "shell/message.h"
#include "support/machine.h"

namespace shell {

namespace {

using pages::Reason;
using Rows = std::vector<std::string>;

// What the fitter finds in each menu: ">" a submenu, "-" a separator, else a page or command with its argument.
const std::map<std::string, Rows> Expected{
    {"MainMenu",
     {">MenuDati", ">MenuEEPROM", ">MenuFlash", ">MenuPunto", ">MenuImp", "Anomalie 0", ">MenuStorico", ">MenuUtil",
      ">MenuConf", "Esci 0"}},
    {"MenuDati", {"Memorf 0", "ChiudiFile 0", "-", "CancFileD 0"}},
    {"MenuEEPROM", {"Infile 0", ">MenuProg", "-", "VisOff 0", "CancFile 0", "InEEPROM 0"}},
    {"MenuProg", {"Programma 0", "InEEPROM 0"}},
    {"MenuFlash", {"ProgFlash 0", "-", "RipriF 0", "SalvatF 0", "CancFileS 0"}},
    {"MenuPunto",
     {"MessaP 0", "MessaP 1", "MessaP 2", "MessaP 3", "MessaP 6", "-", "MessaP 4", "MessaP 5", "-", "MessaP 7",
      "MessaP 8", ">MenuAutoA", ">MenuAutoA1", "-", "MessaL1 0"}},
    {"MenuAutoA", {"MessaP 9", "MessaP 10", "MessaP 11"}},
    {"MenuAutoA1", {"MessaP 9", "MessaP 11"}},
    {"MenuImp",
     {"AutoTar 0", "AutoTar 1", "AutoTar 2", "AutoTar 3", "ModMappa 0", "-", "Imposta 0", "Imposta 1", "Imposta 2", "-",
      "Imposta 5", "Imposta 3", "Imposta 6", "-", "Imposta 4", "-", "Ident 0", "AutoTarOff 0"}},
    {"MenuStorico", {"StoricoA 0"}},
    {"MenuUtil",
     {">MenuSEE", ">MenuREE", ">MenuSD", ">MenuRD", "Salvat 3", "Ripri 3", "-", ">MenuSM", ">MenuRM", "CancFileB 0"}},
    {"MenuSEE", {"Salvat 1", "SalvatP 1"}},
    {"MenuREE", {"Ripri 1", "RipriP 1"}},
    {"MenuSD", {"Salvat 2", "SalvatP 2"}},
    {"MenuRD", {"Ripri 2", "RipriP 2"}},
    {"MenuSM", {"SalvatM 0", "SalvatPM 0"}},
    {"MenuRM", {"RipriM 0", "RipriPM 0"}},
    {"MenuConf", {"SceltaLingua 0", "ConfSer 0", "TipoComp 0", "-", "Risoluz 0", "-", "Infor 0"}},
};

std::string Written(const EntryRow& row) {
    switch (row.target) {
        case Target::Separator:
            return "-";
        case Target::Submenu:
            return ">" + std::string(row.name);
        default:
            return std::string(row.name) + " " + std::to_string(row.argument);
    }
}

bool Opens(Target target) {
    return target == Target::Page || target == Target::Command;
}

struct Window : support::Machine {
    Window() { Start(); }
    std::set<int> MainOn() {
        std::set<int> on;
        for (const MenuItem& item : Shell().main.Menu(MenuId::MainMenu)) {
            if (item.why == Reason::None) on.insert(item.row->index);
        }
        return on;
    }
    std::set<std::string> ToolsOn() {
        std::set<std::string> on;
        for (const ToolItem& tool : Shell().main.tools) {
            if (tool.why == Reason::None) on.emplace(tool.row->key);
        }
        return on;
    }
    Reason WhyItem(MenuId menu, int index) { return Shell().main.Item(menu, index).why; }
    Reason WhyTool(const char* key) { return Shell().main.Tool(key).why; }
    // A page of a later version stands in for its own.
    void Watch(const std::string& name) {
        Shell().commands.Add(name, [this](const Call& call) { calls.push_back(call); });
    }
    std::vector<Call> calls;
};

}  // namespace

TEST(Menus, HoldTheEntriesInTheirOrder) {
    std::map<std::string, Rows> found;
    for (const MenuRow& menu : Menus()) {
        for (const EntryRow& row : Entries()) {
            if (row.menu != menu.id) continue;
            Rows& rows = found[std::string(menu.name)];
            EXPECT_EQ(row.index, static_cast<int>(rows.size())) << menu.name;
            rows.push_back(Written(row));
        }
    }
    EXPECT_EQ(found, Expected);
    for (const auto& [name, rows] : Expected) {
        for (const std::string& row : rows) {
            if (row.front() == '>') {
                EXPECT_NE(FindMenu(row.substr(1)), nullptr) << row;
            }
        }
    }
    EXPECT_EQ(FindMenu("MenuX"), nullptr);
}

TEST(Toolbar, HoldsItsButtonsInTheirOrder) {
    Rows found;
    for (const ToolRow& row : Tools()) found.push_back(std::string(row.key) + " " + std::string(row.name));
    EXPECT_EQ(found, (Rows{"APRI_FILE Memorf", "CHIUDI_FILE ChiudiFile", "EEPROM_FILE Infile", "EEPROM_PROG MenuProg",
                           "OFFLINE VisOff", "EEPROM_SETUP InEEPROM", "PROGRAMMA MenuFlash", "MESSA_PUNTO MenuPunto",
                           "IMPOSTAZIONI MenuImp", "ANOMALIE Anomalie", "STORICO MenuStorico", "UTILITA MenuUtil",
                           "CONFIGURAZIONE MenuConf", "ESCI Esci"}));
}

TEST(Menus, HaveACommandForEveryEntryOrItsPlaceAmongThePagesToCome) {
    Window w;
    std::set<std::string> names;
    for (const EntryRow& row : Entries()) {
        if (Opens(row.target)) names.emplace(row.name);
    }
    for (const ToolRow& row : Tools()) {
        if (Opens(row.target)) names.emplace(row.name);
    }
    for (const std::string& name : names) {
        const bool built = w.Shell().commands.Find(name) != nullptr;
        EXPECT_NE(built, IsFuturePage(name)) << name;
    }
}

TEST(Menus, HaveACaptionInEveryLanguageAndEveryVariant) {
    for (const char* language : {"ITALIANO", "INGLESE"}) {
        for (const Variant variant : {Variant::None, Variant::Qt, Variant::Avx}) {
            support::Machine m;
            m.AddLanguages();
            m.WriteFile("MARLO.INI", std::string("[IMPOSTAZIONI]\r\nLingua=") + language + "\r\n");
            m.options.variant = variant;
            m.Start();
            for (const MenuRow& menu : Menus()) {
                for (const MenuItem& item : m.Shell().main.Menu(menu.id)) {
                    EXPECT_FALSE(item.caption.empty());
                    EXPECT_EQ(item.caption == "-", item.row->target == Target::Separator)
                        << language << menu.name << item.row->index;
                }
            }
            for (const ToolItem& tool : m.Shell().main.tools) {
                EXPECT_FALSE(tool.caption.empty() || tool.tooltip.empty()) << language << tool.row->key;
            }
        }
    }
}

TEST(MainWindow, BearsTheVariantInItsTitle) {
    for (const auto& [variant, suffix] :
         {std::pair{Variant::None, ""}, {Variant::Avx, " (AVX)"}, {Variant::Qt, " (DIESEL)"}}) {
        support::Machine m;
        m.options.variant = variant;
        m.Start();
        EXPECT_EQ(m.Shell().main.Title(), m.Text("CAPTION", "MARLOVENT") + suffix);
        EXPECT_EQ(m.Shell().main.Item(MenuId::MenuImp, 0).caption,
                  m.Text(variant == Variant::Qt ? "MENUIMPQT.0" : "MENUIMP.0", "MARLOVENT"));
    }
}

TEST(AbilitaComandi, SwitchesMenusAndToolbarWithTheFlagAndTheRecording) {
    Window w;
    const std::set<int> allMain{0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    for (const bool recording : {false, true}) {
        w.Shell().state.FileRegistrazione = recording ? "PROVA.DAT" : "";
        AbilitaComandi(w.Shell(), True);
        EXPECT_TRUE(w.Link().grafici.Enabled());
        EXPECT_EQ(w.MainOn(), allMain);
        std::set<std::string> tools{"EEPROM_FILE", "EEPROM_PROG", "OFFLINE",      "EEPROM_SETUP",
                                    "PROGRAMMA",   "MESSA_PUNTO", "IMPOSTAZIONI", "ANOMALIE",
                                    "STORICO",     "UTILITA",     "ESCI",         "CONFIGURAZIONE"};
        tools.insert(recording ? "CHIUDI_FILE" : "APRI_FILE");
        EXPECT_EQ(w.ToolsOn(), tools);
        EXPECT_EQ(w.WhyItem(MenuId::MenuDati, 0), recording ? Reason::Recording : Reason::None);
        EXPECT_EQ(w.WhyItem(MenuId::MenuDati, 1), recording ? Reason::None : Reason::NoRecording);

        AbilitaComandi(w.Shell(), False);
        EXPECT_FALSE(w.Link().grafici.Enabled());
        EXPECT_EQ(w.MainOn(), std::set<int>{2});
        EXPECT_EQ(w.WhyItem(MenuId::MenuEEPROM, 3), Reason::None);
        EXPECT_EQ(w.ToolsOn(), (std::set<std::string>{"PROGRAMMA", "ESCI"}));
        EXPECT_NE(w.WhyItem(MenuId::MenuDati, 0), Reason::None);
        EXPECT_NE(w.WhyItem(MenuId::MenuDati, 1), Reason::None);
        EXPECT_EQ(w.WhyTool("APRI_FILE"), recording ? Reason::Recording : Reason::LongOperation);
    }
}

TEST(SoloSenzaCentralina, LeavesWhatNeedsNoProgrammedUnit) {
    Window w;
    SoloSenzaCentralina(w.Shell());
    EXPECT_EQ(w.MainOn(), (std::set<int>{0, 1, 2, 4, 6, 7, 8, 9}));
    EXPECT_EQ(w.ToolsOn(), (std::set<std::string>{"PROGRAMMA", "EEPROM_PROG", "OFFLINE", "IMPOSTAZIONI", "UTILITA",
                                                  "CONFIGURAZIONE", "ESCI"}));
    AbilitaComandi(w.Shell(), True);
    EXPECT_EQ(w.MainOn().size(), 10U);
    EXPECT_EQ(w.WhyTool("APRI_FILE"), Reason::None);
}

TEST(Menus, ReachAnEntryOnlyThroughWhatPopsItsMenuUp) {
    Window w;
    w.Watch("MessaP");
    w.Watch("InEEPROM");
    EXPECT_TRUE(ChooseMenu(w.Shell(), MenuId::MenuPunto, 0).ok);
    EXPECT_TRUE(ChooseMenu(w.Shell(), MenuId::MenuAutoA, 0).ok);
    EXPECT_EQ(ChooseMenu(w.Shell(), MenuId::MenuAutoA1, 0).why, Reason::Hidden) << "the other unit's submenu";
    SoloSenzaCentralina(w.Shell());
    EXPECT_EQ(ChooseMenu(w.Shell(), MenuId::MenuPunto, 0).why, Reason::BlankUnit);
    EXPECT_EQ(ChooseMenu(w.Shell(), MenuId::MenuAutoA, 0).why, Reason::BlankUnit);
    AbilitaComandi(w.Shell(), False);
    EXPECT_EQ(ChooseMenu(w.Shell(), MenuId::MenuAutoA, 0).why, Reason::LongOperation);
    EXPECT_EQ(ChooseMenu(w.Shell(), MenuId::MenuEEPROM, 3).why, Reason::LongOperation);
    EXPECT_EQ(w.calls.size(), 2U);
    AbilitaComandi(w.Shell(), True);
    w.Shell().state.SenzaImmagine = False;
    w.Shell().main.Item(MenuId::MenuEEPROM, 1).why = Reason::NoUnit;
    EXPECT_TRUE(ChooseMenu(w.Shell(), MenuId::MenuProg, 1).ok) << "the toolbar pops it up as well";
}

TEST(Menus, ShowTheSelfAdaptationOfTheUnitsProgram) {
    Window w;
    for (const bool old : {true, false}) {
        w.Shell().state.FirmwareVecchio = Flag(old);
        ShowAdaptationMenu(w.Shell());
        EXPECT_EQ(w.Shell().main.Item(MenuId::MenuPunto, 11).visible, !old);
        EXPECT_EQ(w.Shell().main.Item(MenuId::MenuPunto, 12).visible, old);
    }
}

TEST(Menus, AreDeadDuringACalibrationStepSaveForTheWayOut) {
    Window w;
    for (const char* name : {"MessaP", "Anomalie", "Infile", "AutoTar"}) w.Watch(name);
    w.Shell().state.FaseAcq = 2;
    for (const EntryRow& row : Entries()) {
        if (!Opens(row.target) || row.name == "Esci" || row.menu == MenuId::MenuAutoA1) continue;
        EXPECT_FALSE(ChooseMenu(w.Shell(), row.menu, row.index).ok) << row.name;
    }
    for (const ToolRow& row : Tools()) {
        if (Opens(row.target) && row.key != "ESCI") {
            EXPECT_FALSE(PressTool(w.Shell(), row.key).ok) << row.key;
        }
    }
    EXPECT_TRUE(w.calls.empty());
    EXPECT_FALSE(w.IsOpen("ConfSer"));
    EXPECT_FALSE(w.Shell().state.ended);
    EXPECT_TRUE(PressTool(w.Shell(), "ESCI").ok);
    EXPECT_TRUE(w.Shell().state.ended);
    EXPECT_EQ(w.Shell().state.exitStatus, 0);
}

TEST(Menus, EndTheProgramWithoutAQuestionAndSayWhenTheWindowWasClosed) {
    Window byMenu;
    EXPECT_TRUE(ChooseMenu(byMenu.Shell(), MenuId::MainMenu, 9).ok);
    EXPECT_TRUE(byMenu.Shell().state.ended);
    EXPECT_EQ(byMenu.Shell().state.InChiusura, False);
    Window byWindow;
    EXPECT_TRUE(byWindow.Shell().stack.Close(byWindow.Shell().main).ok);
    EXPECT_TRUE(byWindow.Shell().state.ended);
    EXPECT_EQ(byWindow.Shell().state.InChiusura, True);
}

TEST(Menus, GiveAPageItsTitle) {
    Window w;
    for (const char* name : {"MessaP", "Anomalie", "VisOff"}) w.Watch(name);
    const auto caption = [&](const char* key) { return CaptionPulita(w.Text(key, "MARLOVENT")); };
    PressTool(w.Shell(), "anomalie");
    ChooseMenu(w.Shell(), MenuId::MainMenu, 5);
    ChooseMenu(w.Shell(), MenuId::MenuPunto, 2);
    ChooseMenu(w.Shell(), MenuId::MenuAutoA, 1);
    ASSERT_EQ(w.calls.size(), 4U);
    EXPECT_EQ(w.calls[0].title, w.Text("TOOLTIP", "ANOMALIE"));
    EXPECT_EQ(w.calls[1].title, caption("MAIN.5"));
    EXPECT_EQ(w.calls[2].title, caption("MAIN.3") + " - " + caption("MENUPUNTO.2"));
    EXPECT_EQ(w.calls[2].argument, 2);
    EXPECT_EQ(w.calls[3].title, caption("MENUPUNTO.11") + " - " + caption("MENUAUTOA.1"));
    ChooseMenu(w.Shell(), MenuId::MenuConf, 1);
    EXPECT_EQ(w.Shell().confSer.Title(), caption("MENUCONF.1"));
}

TEST(Menus, ShowAMessageInsteadOfAPageThatNeedsAnImageOrANewerProgram) {
    struct Case {
        MenuId menu;
        int index;
        const char* tool;
        const char* page;
        std::string text;
        void (*spoil)(State&);
    };
    Window w;
    const std::string noImage = w.Text("SEGNALAZIONE_1", "MARLOVENT");
    const std::string oldProgram = w.Text("ERRORE_23", "ERRORI") + "\r\n" + w.Text("ERRORE_24", "ERRORI");
    const auto withoutImage = [](State& state) { state.SenzaImmagine = True; };
    const auto old = [](State& state) { state.FirmwareVecchio = True; };
    for (const Case& c : {Case{MenuId::MenuEEPROM, 5, "EEPROM_SETUP", "InEEPROM", noImage, withoutImage},
                          Case{MenuId::MenuProg, 1, "EEPROM_SETUP", "InEEPROM", noImage, withoutImage},
                          Case{MenuId::MenuImp, 0, nullptr, "AutoTar", noImage, withoutImage},
                          Case{MenuId::MenuImp, 3, nullptr, "AutoTar", noImage, withoutImage},
                          Case{MenuId::MenuImp, 17, nullptr, "AutoTarOff", noImage, withoutImage},
                          Case{MenuId::MenuEEPROM, 0, "EEPROM_FILE", "Infile", oldProgram, old}}) {
        w.Watch(c.page);
        w.Shell().state.SenzaImmagine = False;
        w.Shell().state.FirmwareVecchio = False;
        EXPECT_TRUE(ChooseMenu(w.Shell(), c.menu, c.index).ok);
        EXPECT_EQ(w.calls.size(), 1U) << c.page;
        c.spoil(w.Shell().state);
        for (const bool byTool : {false, true}) {
            if (byTool && c.tool == nullptr) continue;
            const int beeps = w.host.sound.beeps;
            EXPECT_TRUE((byTool ? PressTool(w.Shell(), c.tool) : ChooseMenu(w.Shell(), c.menu, c.index)).ok);
            EXPECT_TRUE(w.Shell().messaggio.IsOpen()) << c.page;
            EXPECT_EQ(w.Shell().messaggio.Segnalazione.Text(), c.text);
            EXPECT_EQ(w.Shell().messaggio.Title(), w.Text("TITOLO_2", "ERRORI"));
            EXPECT_EQ(w.host.sound.beeps, beeps + 1);
            w.Shell().stack.Press(w.Shell().messaggio.TastoOK);
        }
        EXPECT_EQ(w.calls.size(), 1U) << c.page;
        w.calls.clear();
    }
}

TEST(Menus, RefuseWhatIsNotThere) {
    Window w;
    EXPECT_EQ(ChooseMenu(w.Shell(), MenuId::MenuDati, 2).why, Reason::NoSuchEntry);  // a separator
    EXPECT_EQ(ChooseMenu(w.Shell(), MenuId::MenuDati, 4).why, Reason::NoSuchEntry);
    EXPECT_EQ(ChooseMenu(w.Shell(), MenuId::MenuDati, -1).why, Reason::NoSuchEntry);
    EXPECT_EQ(PressTool(w.Shell(), "NIENTE").why, Reason::NoSuchButton);
    ChooseMenu(w.Shell(), MenuId::MenuConf, 1);
    EXPECT_EQ(ChooseMenu(w.Shell(), MenuId::MenuConf, 1).why, Reason::PageCovered);
    EXPECT_EQ(PressTool(w.Shell(), "ESCI").why, Reason::PageCovered);
}

}  // namespace shell
