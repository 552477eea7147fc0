#include "program/start.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <clocale>
#include <cstdlib>
#include <vector>

#include "program/folder.h"
#include "support/live_frame.h"
#include "support/machine.h"

namespace program {

namespace {

using shell::False;
using shell::True;

constexpr const char* WorkingSet =
    "[SERIALE]\r\nCOM=COM1\r\nBAUD_RATE=38400\r\nPARITA=Nessuna\r\nBIT_DATI=8\r\nBIT_STOP=1\r\n";
constexpr const char* ChartSet =
    "[GRAFICI]\r\nGrafico_1=0\r\nGrafico_2=2\r\nGrafico_3=1\r\nGrafico_4=4\r\n[SCHEMI]\r\nDirectory=\r\n";

// A folder that is not new: languages and a serial line that works.
struct Settled : support::Machine {
    Settled() {
        AddLanguages();
        WriteFile("CONFIG.INI", WorkingSet);
    }
    platform::SerialPort& Port() { return host.line.Port(); }
};

// Files of which some cannot be copied: a disk that is full, or was damaged.
class NoCopies : public platform::virt::FaultyFiles {
  public:
    NoCopies(platform::Files& real, std::vector<std::string> names) : FaultyFiles(real), names_(std::move(names)) {}
    bool Copy(const platform::Path& from, const platform::Path& to) override {
        const bool refused = std::find(names_.begin(), names_.end(), from.filename()) != names_.end();
        return !refused && FaultyFiles::Copy(from, to);
    }

  private:
    std::vector<std::string> names_;
};

void StartWith(support::Machine& m, platform::Files& files) {
    const platform::Host host = m.host.Get();
    m.program = std::make_unique<Program>(
        platform::Host{host.clock, host.timers, host.port, host.probe, files, host.sound, host.instance}, m.options);
    EXPECT_TRUE(program::Start(*m.program));
}

}  // namespace

TEST(Start, FillsANewFolderAndWaits) {
    support::Machine m;
    EXPECT_TRUE(m.Start());
    EXPECT_EQ(m.FileContent("CONFIG.INI"), WorkingSet);
    EXPECT_EQ(m.FileContent("MARLO.INI"), ChartSet);
    platform::Files& files = m.files;
    for (const char* name : {"ITALIANO.LNG", "INGLESE.LNG"}) {
        EXPECT_EQ(m.FileContent(name), files.Read(m.options.shipped / name));
    }
    EXPECT_EQ(m.host.files.Current(), m.options.folder) << "the current one from now on";
    EXPECT_EQ(m.host.line.Port().Settings(), "38400,N,8,1");
    EXPECT_TRUE(m.host.line.Port().PortOpen());
    EXPECT_EQ(m.Sent(), "") << "nothing is asked of a unit before it is heard";
    EXPECT_EQ(m.Shell().stack.Open(), (std::vector<pages::Page*>{&m.Shell().main, &m.Link().grafici}));
    EXPECT_FALSE(m.Link().grafici.Modal());
    EXPECT_EQ(m.Shell().main.VisReg.Text(), m.Text("STATOPROG.0", "MARLOVENT"));
    EXPECT_NE(m.Shell().main.VisReg.Text(), "");
    EXPECT_EQ(m.host.sound.beeps, 0);

    const eculink::LinkTimers& timers = m.Link().timers;
    const std::vector<std::tuple<const platform::Timer*, int, bool>> expected{
        {timers.Elaborazione.get(), 100, true},
        {timers.TimeOutComandi.get(), 1000, false},
        {timers.TimeOutDati.get(), 4000, false},
        {timers.Lampeggio.get(), 500, false},
        {timers.LampeggioC.get(), 500, false}};
    for (const auto& [timer, interval, enabled] : expected) {
        EXPECT_EQ(timer->Interval(), interval);
        EXPECT_EQ(timer->Enabled(), enabled);
    }
    const shell::State& shell = m.Shell().state;
    const eculink::State& link = m.State();
    EXPECT_EQ(link.StatoCmd, -1);
    EXPECT_EQ(shell.FaseAcq, -1);
    EXPECT_EQ(link.CentralinaDaRiconoscere, -1);
    EXPECT_EQ(link.VistaDati, 1);
    EXPECT_EQ(shell.ImmagineProgrammata, -1);
    EXPECT_EQ(shell.SenzaImmagine, -1);
    EXPECT_EQ(shell.InChiusura, 0);
    EXPECT_EQ(link.FlussoAttivo, 0);
    EXPECT_EQ(shell.SepDecimale, '.');
    EXPECT_EQ(shell.FileRegistrazione, "");
    EXPECT_EQ(link.StatoRx, -1);
    EXPECT_EQ(m.Link().RecCanali.Progressivo, 0);
    EXPECT_EQ(shell.CartellaProg, platform::FromUtf8(m.options.folder.string()));
}

TEST(Start, LeavesAFolderThatIsNotNewAsItStands) {
    const std::string config = "[SERIALE]\r\nPARITA=Nessuna\r\n";
    const std::string marlo = "; mia\r\n[IMPOSTAZIONI]\r\nLingua=ITALIANO\r\nComputer=0\r\n";
    support::Machine m;
    m.WriteFile("CONFIG.INI", config);
    m.WriteFile("MARLO.INI", marlo);
    EXPECT_TRUE(m.Start());
    EXPECT_EQ(m.FileContent("CONFIG.INI"), config);
    EXPECT_EQ(m.FileContent("MARLO.INI"), marlo);
    EXPECT_EQ(m.Shell().state.Lingua, "ITALIANO");
    EXPECT_EQ(m.Shell().state.TipoComputer, 0);
}

TEST(Start, KeepsTheLanguageOfAFolderThatHasOneOfItsOwn) {
    const std::string own = "[MARLOVENT]\r\nCAPTION=mio\r\n";
    support::Machine m;
    m.WriteFile("MARLO.INI", "[IMPOSTAZIONI]\r\nLingua=SPARITA\r\n");
    m.WriteFile("prova.lng", own);
    for (int start = 0; start < 2; ++start) {
        EXPECT_TRUE(start == 0 ? m.Start() : (m.Restart(), true));
        EXPECT_EQ(m.Shell().state.Lingua, "prova") << start;
        EXPECT_EQ(m.Shell().main.Title(), "mio");
        EXPECT_EQ(m.FileContent("INGLESE.LNG"), std::nullopt);
        EXPECT_FALSE(m.IsOpen("SystemMessage"));
    }
    EXPECT_EQ(m.FileContent("prova.lng"), own);
}

TEST(Start, AnOlderFolderWithoutALanguageHasTextsFromTheNextStartOn) {
    support::Machine m;
    m.WriteFile("MARLO.INI", "[IMPOSTAZIONI]\r\nLingua=INGLESE\r\n");
    EXPECT_TRUE(m.Start());
    EXPECT_EQ(m.Shell().state.Lingua, "ITALIANO");
    EXPECT_EQ(m.Shell().main.Title(), "");
    EXPECT_FALSE(m.IsOpen("SystemMessage"));
    m.Restart();
    EXPECT_EQ(m.Shell().state.Lingua, "INGLESE");
    EXPECT_NE(m.Shell().main.Title(), "");
}

TEST(Start, WorksByPositionWithoutAnyLanguage) {
    support::Machine m;
    m.options.shipped.clear();
    EXPECT_TRUE(m.Start());
    EXPECT_EQ(m.Shell().state.Lingua, "ITALIANO");
    EXPECT_EQ(m.Shell().main.Title(), "") << "the texts are empty, never a failure";
    shell::SystemMessage& box = m.Shell().systemMessage;
    EXPECT_EQ(box.Text.Text(), "CARTELLA_INCOMPLETA: " + m.Shell().state.CartellaProg)
        << "in no language there are no words";
    EXPECT_EQ(m.host.sound.beeps, 1);
    m.Shell().stack.Press(box.OK);
    EXPECT_FALSE(box.IsOpen()) << "told once";
    m.Take(support::LiveFrame().Short());
    EXPECT_EQ(m.State().StatoCmd, 80);
}

TEST(Start, ChoosesTheLanguageThatIsThere) {
    struct Case {
        std::string marlo;
        std::vector<const char*> gone;
        const char* language;
    };
    const std::string english = "[IMPOSTAZIONI]\r\nLingua=";
    for (const Case& c : std::initializer_list<Case>{
             {"", {}, "INGLESE"},
             {english + "ITALIANO\r\n", {}, "ITALIANO"},
             {english + "italiano\r\n", {}, "italiano"},
             {english + "FRANCESE\r\n", {}, "INGLESE"},
             {english + "INGLESE\r\n", {"INGLESE.LNG"}, "ITALIANO"},
             {english + "\r\n", {}, "INGLESE"},
             {english + "../INGLESE\r\n", {}, "INGLESE"},
             {english + "..\\INGLESE\r\n", {"INGLESE.LNG"}, "ITALIANO"},
             {english + "C:INGLESE\r\n", {"INGLESE.LNG"}, "ITALIANO"},
             {english + "INGLESE\r\n", {"INGLESE.LNG", "ITALIANO.LNG"}, "ITALIANO"},
         }) {
        Settled s;
        s.WriteFile("MARLO.INI", c.marlo);
        for (const char* file : c.gone) s.files.Remove(s.folder.Path() / file);
        s.Start();
        EXPECT_EQ(s.Shell().state.Lingua, c.language) << c.marlo;
        EXPECT_EQ(s.FileContent("MARLO.INI"), c.marlo) << "the choice in the file is not rewritten";
    }
}

TEST(Start, RepairsTheKindOfComputer) {
    struct Case {
        const char* text;  // null: no such key
        int kind;
        const char* after;
    };
    for (const Case& c :
         {Case{nullptr, 1, nullptr}, Case{"0", 0, "0"}, Case{"1", 1, "1"}, Case{"2", 1, "1"}, Case{"-1", 1, "1"},
          Case{"0,5", 1, "1"}, Case{"veloce", 1, "1"}, Case{"", 1, "1"}, Case{"1x", 1, "1"}}) {
        const auto marlo = [](const char* text) {
            return "[IMPOSTAZIONI]\r\nLingua=INGLESE\r\n" +
                   (text == nullptr ? std::string() : "Computer=" + std::string(text) + "\r\n");
        };
        Settled s;
        s.WriteFile("MARLO.INI", marlo(c.text));
        s.Start();
        EXPECT_EQ(s.Shell().state.TipoComputer, c.kind);
        EXPECT_EQ(s.FileContent("MARLO.INI"), marlo(c.after));
    }
}

TEST(Start, ReadsWhatTheChartShows) {
    struct Case {
        const char* marlo;  // null: no such file
        std::array<int, 4> places;
        const char* schemes;
    };
    for (const Case& c : {
             Case{nullptr, {0, 2, 1, 4}, ""},
             Case{"", {-1, -1, -1, -1}, ""},
             Case{"[GRAFICI]\r\nGrafico_1=3\r\nGrafico_3=-1\r\nGrafico_4=17\r\n[SCHEMI]\r\nDirectory=/schemi\r\n",
                  {3, -1, -1, 17},
                  "/schemi"},
             Case{"[GRAFICI]\r\nGrafico_1=giri\r\nGrafico_2=18\r\nGrafico_3=1e9\r\nGrafico_4=\r\n",
                  {-1, -1, -1, -1},
                  ""},
         }) {
        Settled s;
        if (c.marlo != nullptr) s.WriteFile("MARLO.INI", c.marlo);
        s.Start();
        EXPECT_EQ(s.Shell().state.charts.Grafico, c.places);
        EXPECT_EQ(s.Shell().state.charts.Directory, c.schemes);
    }
    Settled s;
    s.host.files.FailWrites(true);
    s.Start();
    EXPECT_EQ(s.Shell().state.charts.Grafico, (std::array<int, 4>{0, 2, 1, 4})) << "although they cannot be stored";
}

// Whatever the front end has made of the locale of the process.
TEST(Start, TakesTheDecimalSeparatorOfTheSystem) {
    for (const char* process : {"C", ""}) {
        Settled s;
        setenv("LC_ALL", "C", 1);
        setlocale(LC_ALL, process);
        s.Start();
        EXPECT_EQ(s.Shell().state.SepDecimale, '.');
    }
    Settled s;
    setenv("LC_ALL", "no_SUCH.locale", 1);
    EXPECT_TRUE(s.Start());
    EXPECT_EQ(s.Shell().state.SepDecimale, '.');
    unsetenv("LC_ALL");
    setlocale(LC_ALL, "C");
}

TEST(Start, ReadsTheResolutionOverTheVariant) {
    struct Case {
        const char* text;
        shell::Variant variant;
        int full;
    };
    using shell::Variant;
    for (const Case& c :
         {Case{nullptr, Variant::None, False}, Case{"0", Variant::None, True}, Case{"1", Variant::None, False},
          Case{"7", Variant::Avx, False}, Case{"0", Variant::Avx, True}, Case{nullptr, Variant::Avx, False},
          Case{"piena", Variant::Avx, True}, Case{"piena", Variant::None, False}, Case{"", Variant::Avx, True}}) {
        Settled s;
        s.options.variant = c.variant;
        s.WriteFile(
            "MARLO.INI",
            "[RISOLUZIONE]\r\n" + (c.text == nullptr ? std::string() : "Risoluzione=" + std::string(c.text) + "\r\n"));
        s.Start();
        EXPECT_EQ(s.Shell().state.RisoluzionePiena, c.full) << (c.text == nullptr ? "-" : c.text);
    }
}

// Whatever stands in the files, the program starts, with the defaults of what it cannot find in them.
TEST(Start, TakesTheDefaultsWhereAFileMakesNoSense) {
    std::string noise(5000, '\0');
    unsigned seed = 11;
    for (char& c : noise) c = static_cast<char>((seed = seed * 1103515245U + 12345U) >> 16U);
    const std::vector<std::string> contents{"",
                                            noise,
                                            "\xFF\xFE[\0S\0E\0R\0I\0A\0L\0E\0]\0",
                                            std::string(17U << 20U, 'x'),
                                            "[SERIALE\r\nCOM=COM3",
                                            "COM=COM3\r\nLingua=ITALIANO\r\n"};
    for (const std::string& content : contents) {
        Settled s;
        s.WriteFile("CONFIG.INI", content);
        s.WriteFile("MARLO.INI", content);
        EXPECT_TRUE(s.Start());
        EXPECT_EQ(s.Shell().state.serial.port, "COM1");
        EXPECT_EQ(s.Shell().state.serial.baud, "19200");
        EXPECT_EQ(s.Shell().state.serial.parity, "N");
        EXPECT_EQ(s.Shell().state.Lingua, "INGLESE");
        EXPECT_EQ(s.Shell().state.TipoComputer, 1);
        EXPECT_TRUE(s.IsOpen("SystemMessage")) << "such a line cannot be opened";
        EXPECT_TRUE(s.IsOpen("Grafici"));
        EXPECT_EQ(s.FileContent("CONFIG.INI"), content);
        EXPECT_EQ(s.FileContent("MARLO.INI"), content);
    }
    Settled s;
    s.WriteFile("INGLESE.LNG", noise);
    EXPECT_TRUE(s.Start());
    EXPECT_EQ(s.Shell().main.Title(), "");
}

TEST(Start, CutsTheTextsOfTheLineToTheirFields) {
    Settled s;
    s.WriteFile("CONFIG.INI", "[SERIALE]\r\nCOM=COM10x\r\nBAUD_RATE=384000\r\nPARITA=DispariX\r\n");
    s.Start();
    EXPECT_EQ(s.Shell().state.serial.port, "COM10");
    EXPECT_EQ(s.Shell().state.serial.baud, "38400");
    EXPECT_EQ(s.Shell().state.serial.parity, "Dispari");
    EXPECT_EQ(s.Port().Settings(), "38400,O,8,1");
}

TEST(Start, ForgetsTheMemoryImageOfTheLastRun) {
    Settled s;
    for (const char* name : {"FILEEEPROM.DAT", "FILEEEINT.APP", "FILEEEEXT.APP", "EEPROM.APP"}) s.WriteFile(name, "x");
    s.Start();
    for (const char* name : {"FILEEEPROM.DAT", "FILEEEINT.APP", "FILEEEEXT.APP"}) {
        EXPECT_EQ(s.FileContent(name), std::nullopt) << name;
    }
    EXPECT_EQ(s.FileContent("EEPROM.APP"), "x");
}

TEST(Start, RefusesASecondInstanceAndTouchesNothing) {
    Settled s;
    s.WriteFile("FILEEEEXT.APP", "of the other one");
    s.WriteFile("MARLO.INI", "[IMPOSTAZIONI]\r\nLingua=ITALIANO\r\n");
    s.host.instance.answer = platform::Instance::Claim::Taken;
    EXPECT_FALSE(s.Start());
    EXPECT_EQ(s.host.sound.beeps, 1);
    shell::SystemMessage& box = s.Shell().systemMessage;
    EXPECT_TRUE(box.IsOpen());
    EXPECT_EQ(box.Title.Text(), s.Text("TITOLO_2", "ERRORI"));
    EXPECT_EQ(box.Text.Text(), s.Text("ERRORE_15", "ERRORI"));
    EXPECT_NE(box.Text.Text(), "");
    EXPECT_FALSE(s.Port().PortOpen());
    EXPECT_FALSE(s.IsOpen("Grafici"));
    EXPECT_FALSE(s.Shell().state.ended);
    EXPECT_EQ(s.Shell().stack.Close(s.Shell().main).why, pages::Reason::PageCovered);
    s.Run(10000);
    s.Shell().stack.Press(box.OK);
    EXPECT_TRUE(s.Shell().state.ended);
    EXPECT_EQ(s.Shell().state.exitStatus, 1);
    EXPECT_EQ(s.FileContent("FILEEEEXT.APP"), "of the other one");
}

TEST(Start, TellsOnceThatTheFolderCannotBeWrittenAndWorks) {
    support::Machine m;
    m.host.files.FailWrites(true);
    m.host.instance.answer = platform::Instance::Claim::Unwritable;
    EXPECT_TRUE(m.Start());
    shell::SystemMessage& box = m.Shell().systemMessage;
    EXPECT_TRUE(box.IsOpen());
    EXPECT_NE(m.Text("CARTELLA_PROTETTA", "AVVIO"), "") << "the texts come from what ships";
    EXPECT_EQ(box.Text.Text(), shell::Fill(m.Text("CARTELLA_PROTETTA", "AVVIO"), m.Shell().state.CartellaProg));
    EXPECT_EQ(m.host.sound.beeps, 1);
    EXPECT_EQ(m.host.line.Port().Settings(), "38400,N,8,1") << "the working set holds although it cannot be stored";
    m.Take(support::LiveFrame().Short());
    EXPECT_EQ(m.State().StatoCmd, 80);
    EXPECT_TRUE(box.IsOpen()) << "a unit that is there at once does not take the message away";
    m.Shell().stack.Press(box.OK);
    EXPECT_FALSE(box.IsOpen());
}

// Told until the folder is whole, in words, whatever it holds meanwhile.
TEST(Start, TellsThatAFolderCouldNotBeFilledWhetherNewOrOldUntilItIs) {
    using Names = std::vector<std::string>;
    for (const bool older : {false, true}) {
        for (const Names& names : {Names{"INGLESE.LNG", "ITALIANO.LNG"}, Names{"INGLESE.LNG"}, Names{"ITALIANO.LNG"}}) {
            support::Machine m;
            NoCopies files(m.files, names);
            if (older) m.WriteFile("MARLO.INI", "[IMPOSTAZIONI]\r\nLingua=INGLESE\r\n");
            std::string missing;
            for (const std::string& name : names) missing += (missing.empty() ? "" : ", ") + name;
            for (int start = 1; start <= 2; ++start) {
                StartWith(m, files);
                EXPECT_EQ(m.Shell().systemMessage.Text.Text(),
                          shell::Fill(m.Text("CARTELLA_INCOMPLETA", "AVVIO"), m.Shell().state.CartellaProg, missing))
                    << start;
                EXPECT_NE(m.Text("CARTELLA_INCOMPLETA", "AVVIO"), "");
                EXPECT_EQ(m.host.sound.beeps, start) << "once a start";
                m.program.reset();
            }
            m.Start();
            EXPECT_FALSE(m.IsOpen("SystemMessage")) << missing;
            EXPECT_EQ(m.Shell().state.Lingua, "INGLESE");
            EXPECT_NE(m.Shell().main.Title(), "");
            for (const char* name : {"ITALIANO.LNG", "INGLESE.LNG"}) EXPECT_NE(m.FileContent(name), std::nullopt);
            // Whole once, it belongs to its owner.
            m.files.Remove(m.options.folder / "INGLESE.LNG");
            m.Restart();
            EXPECT_FALSE(m.IsOpen("SystemMessage"));
            EXPECT_EQ(m.FileContent("INGLESE.LNG"), std::nullopt);
        }
    }
}

TEST(Start, SurvivesTheFailureOfAnyOneFileOperation) {
    int operations = 0;
    {
        support::Machine m;
        m.Start();
        operations = m.host.files.Operations();
    }
    for (const bool forEver : {false, true}) {
        for (int nth = 1; nth <= operations; ++nth) {
            support::Machine m;
            m.host.files.FailNth(nth, forEver);
            EXPECT_TRUE(m.Start()) << nth;
            EXPECT_TRUE(m.IsOpen("Marlovent") && m.IsOpen("Grafici")) << nth;
            m.Take(support::LiveFrame().Short());
            EXPECT_EQ(m.State().lastFrameAt.has_value(), m.host.line.Port().PortOpen()) << nth;
        }
    }
}

TEST(ProgramFolder, IsTheFirstSourceThatSaysSomething) {
    support::TemporaryFolder executable;
    platform::real::RealFiles files;
    FolderSources sources;
    sources.userHome = "/home/mario";
    sources.executable = executable.Path();
    EXPECT_EQ(ProgramFolder(sources, files), "/home/mario/.local/share/marlovent");
    sources.userData = "/dati";
    EXPECT_EQ(ProgramFolder(sources, files), "/dati/marlovent");
    std::ofstream(executable.Path() / "tedesco.lng") << "";
    EXPECT_EQ(ProgramFolder(sources, files), executable.Path());
    sources.home = "/altrove";
    EXPECT_EQ(ProgramFolder(sources, files), "/altrove");
    sources.commandLine = "/detto";
    EXPECT_EQ(ProgramFolder(sources, files), "/detto");
}

}  // namespace program
