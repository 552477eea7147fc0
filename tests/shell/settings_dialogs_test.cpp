#include "shell/settings_dialogs.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "shell/settings.h"
#include "support/machine.h"

namespace shell {

namespace {

constexpr const char* WorkingSet =
    "[SERIALE]\r\nCOM=COM1\r\nBAUD_RATE=38400\r\nPARITA=Nessuna\r\nBIT_DATI=8\r\nBIT_STOP=1\r\n";

struct Window : support::Machine {
    Window() { Start(); }
    pages::PageStack& Stack() { return Shell().stack; }
    void Open(int index) { EXPECT_TRUE(ChooseMenu(Shell(), MenuId::MenuConf, index).ok); }
    void Choose(pages::Control& list, int index) { EXPECT_TRUE(Stack().Select(list, {index}).ok) << list.Name(); }
};

// One of the four dialogs: its entry in the menu, an edit, the file that saving changes.
struct DialogCase {
    int entry;
    const char* page;
    std::function<void(Window&)> edit;
    const char* file;
    const char* line;  // stands in the file once saved
};

const std::vector<DialogCase> Dialogs{
    {0, "SceltaLingua", [](Window& w) { w.Choose(w.Shell().sceltaLingua.ListaLingue, 1); }, "MARLO.INI",
     "Lingua=ITALIANO\r\n"},
    {1, "ConfSer", [](Window& w) { w.Choose(w.Shell().confSer.Seriali, 2); }, "CONFIG.INI", "COM=COM3\r\n"},
    {2, "TipoComp", [](Window& w) { EXPECT_TRUE(w.Stack().Press(w.Shell().tipoComp.Velocita[0]).ok); }, "MARLO.INI",
     "Computer=0\r\n"},
    {4, "Risoluz", [](Window& w) { w.Choose(w.Shell().risoluz.TipoRisol, 0); }, "MARLO.INI", "Risoluzione=0\r\n"},
};

std::vector<std::string> Texts(Window& w, const char* family, int count, const char* section) {
    std::vector<std::string> texts;
    for (int i = 0; i < count; ++i) {
        texts.push_back(w.Shell().TestoLingua(family + std::to_string(i), section));
        EXPECT_NE(texts.back(), "") << section << family << i;
    }
    return texts;
}

}  // namespace

TEST(SettingsDialogs, AskBeforeAnEditIsLostAndOnlyThen) {
    for (const DialogCase& c : Dialogs) {
        Window w;
        Messaggio& question = w.Shell().messaggio;
        for (const char* way : {"Esc", "Esci", "close"}) {
            const auto leave = [&](pages::Page& page) {
                if (way == std::string("Esc")) return w.Stack().Key(page, "Esc");
                return way == std::string("Esci") ? w.Stack().Press(*page.Find("Esci")) : w.Stack().Close(page);
            };
            w.Open(c.entry);
            pages::Page& page = *w.Stack().Find(c.page);
            EXPECT_TRUE(page.Modal());
            EXPECT_TRUE(leave(page).ok);
            EXPECT_FALSE(page.IsOpen()) << c.page << way << ": nothing was changed";

            w.Open(c.entry);
            const auto before = w.FileContent(c.file);
            const int beeps = w.host.sound.beeps;
            c.edit(w);
            leave(page);
            ASSERT_TRUE(question.IsOpen()) << c.page << way;
            EXPECT_EQ(question.Segnalazione.Text(), w.Text("ERRORE_20", "ERRORI"));
            EXPECT_EQ(question.Title(), w.Text("TITOLO_2", "ERRORI"));
            EXPECT_EQ(question.Shown(), (std::vector<pages::Button*>{&question.TastoYes, &question.TastoNo}));
            EXPECT_EQ(w.host.sound.beeps, beeps + 1);
            w.Stack().Press(question.TastoNo);
            EXPECT_TRUE(page.IsOpen());
            leave(page);
            w.Stack().Press(question.TastoYes);
            EXPECT_FALSE(page.IsOpen());
            EXPECT_EQ(w.FileContent(c.file), before) << c.page;
        }
    }
}

TEST(SettingsDialogs, SaveByButtonAndByKeyAndStartAfresh) {
    for (const DialogCase& c : Dialogs) {
        for (const bool byKey : {false, true}) {
            Window w;
            w.Open(c.entry);
            pages::Page& page = *w.Stack().Find(c.page);
            EXPECT_EQ(page.Find("Salva")->Text(), w.Text("SALVA.0", "TASTI"));
            EXPECT_EQ(page.Find("Esci")->Text(), w.Text("ESCI.0", "TASTI"));
            c.edit(w);
            EXPECT_TRUE((byKey ? w.Stack().Key(page, "F1") : w.Stack().Press(*page.Find("Salva"))).ok);
            EXPECT_FALSE(page.IsOpen()) << c.page;
            EXPECT_NE(w.FileContent(c.file).value_or("").find(c.line), std::string::npos) << c.page;
            if (w.IsOpen("Messaggio")) w.Stack().Press(w.Shell().messaggio.TastoOK);
            w.Open(c.entry);
            EXPECT_FALSE(dynamic_cast<SettingsPage&>(page).Changed());
        }
    }
}

TEST(SettingsDialogs, TellWhenTheFileCannotBeWrittenAndStayOpen) {
    for (const DialogCase& c : Dialogs) {
        Window w;
        w.Open(c.entry);
        pages::Page& page = *w.Stack().Find(c.page);
        const int kind = w.Shell().state.TipoComputer;
        c.edit(w);
        const auto before = w.FileContent(c.file);
        w.host.files.FailWrites(true);
        w.Stack().Key(page, "F1");
        EXPECT_TRUE(w.IsOpen("Messaggio")) << c.page;
        EXPECT_EQ(w.Shell().messaggio.Segnalazione.Text(),
                  w.Text("ERRORE_10", "ERRORI") + "\r\n" + (w.folder.Path() / c.file).string());
        EXPECT_EQ(w.Shell().state.TipoComputer, kind) << "what could not be saved does not hold";
        w.Stack().Press(w.Shell().messaggio.TastoOK);
        EXPECT_TRUE(page.IsOpen()) << c.page;
        EXPECT_EQ(w.FileContent(c.file), before);
        w.Shell().folderTrouble = shell::FolderTrouble::Unwritable;
        w.Stack().Key(page, "F1");
        EXPECT_EQ(w.Shell().messaggio.Segnalazione.Text(),
                  Fill(w.Text("CARTELLA_PROTETTA", "AVVIO"), w.Shell().state.CartellaProg));
        w.Stack().Press(w.Shell().messaggio.TastoOK);
        w.host.files.FailWrites(false);
        w.Stack().Key(page, "F1");
        EXPECT_FALSE(page.IsOpen()) << c.page;
    }
}

TEST(ConfSer, OffersTheLineAndKeepsWhatItDoesNotKnow) {
    Window w;
    w.Open(1);
    ConfSer& page = w.Shell().confSer;
    std::vector<std::string> ports;
    for (int i = 1; i <= 10; ++i) ports.push_back("COM" + std::to_string(i));
    EXPECT_EQ(page.Seriali.Items(), ports);
    EXPECT_EQ(page.BaudRate.Items(), (std::vector<std::string>{"4800", "9600", "19200", "38400"}));
    EXPECT_EQ(page.Parita.Items(), Texts(w, "TIPO.", 3, "PARITA"));
    EXPECT_EQ(page.BitDati.Items(), (std::vector<std::string>{"7", "8"}));
    EXPECT_EQ(page.BitStop.Items(), (std::vector<std::string>{"1", "1.5", "2"}));
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(page.LabSer[i].Text(), w.Text(("LABSER." + std::to_string(i)).c_str(), "CONFSER"));
    }
    const std::vector<pages::Control*> lists{&page.Seriali, &page.BaudRate, &page.Parita, &page.BitDati, &page.BitStop};
    std::vector<int> chosen;
    for (const pages::Control* list : lists) chosen.push_back(list->Index());
    EXPECT_EQ(chosen, (std::vector<int>{0, 3, 0, 1, 0}));
    for (const pages::Control* list : lists) {
        EXPECT_EQ(page.Focus(), list) << "Enter moves on";
        w.Stack().Key(page, "Enter");
    }
    EXPECT_EQ(page.Focus(), &page.Salva);
    EXPECT_TRUE(page.IsOpen());
}

TEST(ConfSer, WritesTheKeysAndOpensThePortAnew) {
    Window w;
    EXPECT_EQ(w.FileContent("CONFIG.INI"), WorkingSet);
    w.WriteFile("CONFIG.INI", "; note\r\n[SERIALE]\r\nCOM=COM1\r\nALTRO=x\r\n");
    w.options.ports = {{4, "/dev/ttyUSB7"}};
    w.Restart();
    w.Stack().Press(w.Shell().systemMessage.OK);  // that file makes no line
    w.Open(1);
    ConfSer& page = w.Shell().confSer;
    EXPECT_EQ(page.Parita.Index(), -1);
    w.Choose(page.Seriali, 3);
    w.Choose(page.BaudRate, 1);
    w.Choose(page.Parita, 2);
    w.Choose(page.BitDati, 0);
    w.Choose(page.BitStop, 1);
    w.Stack().Press(page.Salva);
    EXPECT_FALSE(page.IsOpen());
    EXPECT_EQ(w.FileContent("CONFIG.INI"),
              "; note\r\n[SERIALE]\r\nCOM=COM4\r\nBAUD_RATE=9600\r\nPARITA=DISPARI\r\nBIT_DATI=7\r\n"
              "BIT_STOP=1.5\r\nALTRO=x\r\n");
    EXPECT_EQ(w.host.line.Port().Settings(), "9600,O,7,1.5");
    EXPECT_EQ(w.host.line.Port().Device(), "/dev/ttyUSB7");
    EXPECT_TRUE(w.host.line.Port().PortOpen());
}

TEST(ConfSer, StaysOpenWhenThePortCannotBeOpened) {
    Window w;
    w.Open(1);
    ConfSer& page = w.Shell().confSer;
    w.Choose(page.Seriali, 1);
    w.host.line.RefuseOpening(platform::PortFault::Failed);
    w.Stack().Press(page.Salva);
    EXPECT_TRUE(w.IsOpen("SystemMessage"));
    w.Stack().Press(w.Shell().systemMessage.OK);
    EXPECT_TRUE(page.IsOpen());
    EXPECT_FALSE(w.host.line.Port().PortOpen());
    EXPECT_FALSE(page.Changed()) << "the file holds what was edited";
    w.host.line.RefuseOpening(platform::PortFault::None);
    w.Stack().Press(page.Salva);
    EXPECT_FALSE(page.IsOpen());
    EXPECT_TRUE(w.host.line.Port().PortOpen());
}

TEST(ConfSer, LeavesAFileAloneThatItCannotReadWhole) {
    Window w;
    w.WriteFile("CONFIG.INI", std::string((16U << 20U) + 10, 'x'));
    w.Open(1);
    w.Choose(w.Shell().confSer.Seriali, 1);
    w.Stack().Press(w.Shell().confSer.Salva);
    EXPECT_TRUE(w.IsOpen("Messaggio"));
    EXPECT_EQ(w.FileContent("CONFIG.INI")->size(), (16U << 20U) + 10);
}

TEST(ConfSer, ShowsTheDeviceBehindAPortAndWhetherItIsThere) {
    Window w;
    WriteMarlo(w.Shell(), "PORTE", "COM3", "/dev/ttyUSB0");
    w.Shell().options.ports = {{2, "/dev/pts/9"}};
    for (const bool present : {true, false}) {
        w.host.probe.facts.present = present;
        w.Open(1);
        const ConfSer& page = w.Shell().confSer;
        const char* key = present ? "PRESENTE.0" : "ASSENTE.0";
        EXPECT_EQ(page.Seriali.Details().at(1), Fill(w.Text(key, "STATO"), "COM2", "/dev/pts/9"));
        EXPECT_EQ(page.Seriali.Details().at(2), Fill(w.Text(key, "STATO"), "COM3", "/dev/ttyUSB0"));
        w.Stack().Press(w.Shell().confSer.Esci);
    }
}

TEST(SceltaLingua, ListsTheFilesAndTakesEffectAtTheNextStart) {
    Window w;
    w.WriteFile("FRANCESE.lng", "[MARLOVENT]\nCAPTION=Marlovent fr\n");
    w.Open(0);
    SceltaLingua& page = w.Shell().sceltaLingua;
    EXPECT_EQ(page.ListaLingue.Items(), (std::vector<std::string>{"FRANCESE", "INGLESE", "ITALIANO"}));
    EXPECT_EQ(page.ListaLingue.Index(), 1);
    EXPECT_EQ(page.LabLingua.Text(), w.Text("LABLINGUA.0", "SCELTALINGUA"));
    w.Choose(page.ListaLingue, 0);
    const int beeps = w.host.sound.beeps;
    w.Stack().Press(page.Salva);
    Messaggio& message = w.Shell().messaggio;
    EXPECT_EQ(message.Segnalazione.Text(), w.Text("SEGNALAZIONE_1", "SCELTALINGUA"));
    EXPECT_EQ(message.Title(), w.Text("TITOLO_2", "ERRORI"));
    EXPECT_EQ(message.Shown(), std::vector<pages::Button*>{&message.TastoOK});
    EXPECT_EQ(w.host.sound.beeps, beeps + 1);
    EXPECT_EQ(w.Shell().state.Lingua, "INGLESE");
    w.Restart();
    EXPECT_EQ(w.Shell().main.Title(), "Marlovent fr");
}

TEST(SceltaLingua, SavesNothingWhereNothingIsChosen) {
    support::Machine m;
    m.options.shipped.clear();
    m.Start();
    m.Shell().stack.Press(m.Shell().systemMessage.OK);  // there is no language
    ChooseMenu(m.Shell(), MenuId::MenuConf, 0);
    EXPECT_EQ(m.Shell().stack.Press(m.Shell().sceltaLingua.Salva).why, pages::Reason::NothingChosen);
    EXPECT_TRUE(m.Shell().stack.Press(m.Shell().sceltaLingua.Esci).ok);
}

TEST(TipoComp, ChangesTheKindOfComputerAtOnce) {
    Window w;
    w.Open(2);
    TipoComp& page = w.Shell().tipoComp;
    EXPECT_TRUE(page.Velocita[1].Selected());
    EXPECT_EQ(page.Velocita[0].Text(), w.Text("VELOCITA.0", "TIPOCOMP"));
    w.Stack().Press(page.Velocita[0]);
    EXPECT_EQ(w.Shell().state.TipoComputer, 1) << "not before it is saved";
    w.Stack().Press(page.Salva);
    EXPECT_EQ(w.Shell().state.TipoComputer, 0);
    w.Restart();
    EXPECT_EQ(w.Shell().state.TipoComputer, 0);
}

TEST(Risoluz, ChangesTheFiguresAtOnce) {
    Window w;
    w.Open(4);
    Risoluz& page = w.Shell().risoluz;
    EXPECT_EQ(page.TipoRisol.Items(), Texts(w, "TIPO.", 2, "TIPORISOL"));
    EXPECT_EQ(page.LabCana.Text(), w.Text("LABCANA.0", "RISOLUZ"));
    EXPECT_EQ(page.TipoRisol.Index(), 1);
    int told = 0;
    w.Shell().hooks.resolutionChanged.push_back([&] { ++told; });
    w.Choose(page.TipoRisol, 0);
    w.Stack().Press(page.Salva);
    EXPECT_EQ(w.Shell().state.RisoluzionePiena, True);
    EXPECT_EQ(told, 1);
}

TEST(Infor, NamesTheVersionAndCloses) {
    Window w;
    w.Open(6);
    Infor& page = w.Shell().infor;
    EXPECT_NE(page.lblVersion.Text().find("1.00"), std::string::npos);
    EXPECT_NE(page.lblTitle.Text(), "");
    EXPECT_NE(page.lblDescription.Text(), "");
    EXPECT_TRUE(w.Stack().Press(page.OK).ok);
    EXPECT_FALSE(page.IsOpen());
}

}  // namespace shell
