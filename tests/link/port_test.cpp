#include <gtest/gtest.h>

#include "link/reception.h"
#include "link/waiting.h"
#include "support/live_frame.h"
#include "support/machine.h"

namespace eculink {

namespace {

struct Wired : support::Machine {
    platform::SerialPort& Port() { return host.line.Port(); }
    std::string Config(const std::string& lines) { return "[SERIALE]\r\n" + lines; }
    bool Waiting() { return Link().grafici.Attesa.Visible(); }
    std::string Cause() { return Link().grafici.AttesaCausa.Text(); }
    // The three sentences of a check, with their values in place.
    bool Says(int check, const std::string& value1, const std::string& value2) {
        const std::string number = std::to_string(check);
        const auto text = [&](const char* family) { return Shell().TestoLingua(family + number, "ATTESA"); };
        EXPECT_NE(text("CAUSA."), "");
        EXPECT_NE(text("VALORE."), "");
        EXPECT_NE(text("RIMEDIO."), "");
        EXPECT_EQ(Link().grafici.AttesaValore.Text(), shell::Fill(text("VALORE."), value1, value2));
        return Cause() == shell::Fill(text("CAUSA."), "COM1", Port().Device());
    }
};

}  // namespace

TEST(ApriPorta, BuildsTheSettingsOfTheLine) {
    struct Case {
        const char* lines;
        const char* settings;  // null: the port refuses them
    };
    for (const Case& c : {
             Case{"COM=COM1\r\nBAUD_RATE=38400\r\nPARITA=Nessuna\r\nBIT_DATI=8\r\nBIT_STOP=1\r\n", "38400,N,8,1"},
             Case{"PARITA=PaRi\r\n", "19200,E,8,1"},
             Case{"PARITA=DISPARI\r\nBIT_DATI=7\r\nBIT_STOP=1.5\r\n", "19200,O,7,1.5"},
             Case{"PARITA=nessuna\r\nBAUD_RATE= 4800 \r\nBIT_STOP=2\r\n", "4800,N,8,2"},
             Case{"COM=COM3\r\n", nullptr},  // the parity that is read where the key is missing is none
             Case{"PARITA=N\r\n", nullptr},
             Case{"PARITA=Nessuna\r\nBAUD_RATE=veloce\r\n", nullptr},
             Case{"PARITA=Nessuna\r\nBIT_DATI=\r\n", nullptr},
             Case{"PARITA=Nessuna\r\nBIT_STOP=3\r\n", nullptr},
             Case{"PARITA=Nessuna\r\nCOM=COM\r\n", nullptr},
             Case{"PARITA=Nessuna\r\nCOM=COM0\r\n", nullptr},
             Case{"PARITA=Nessuna\r\nCOM=COMx\r\n", nullptr},
             Case{"PARITA=Nessuna\r\nCOM=\r\n", nullptr},
         }) {
        Wired w;
        w.AddLanguages();
        w.WriteFile("CONFIG.INI", w.Config(c.lines));
        EXPECT_TRUE(w.Start()) << "a port that fails does not stop the start";
        EXPECT_EQ(w.Port().PortOpen(), c.settings != nullptr) << c.lines;
        EXPECT_EQ(w.IsOpen("SystemMessage"), c.settings == nullptr) << c.lines;
        EXPECT_EQ(w.host.sound.beeps, c.settings == nullptr ? 1 : 0);
        if (c.settings != nullptr) {
            EXPECT_EQ(w.Port().Settings(), c.settings);
        } else {
            EXPECT_EQ(w.Shell().systemMessage.Text.Text(), w.Text("ERRORE_2", "ERRORI"));
            EXPECT_EQ(w.Shell().systemMessage.Title.Text(), w.Text("TITOLO_1", "ERRORI"));
            EXPECT_TRUE(w.IsOpen("Grafici"));
        }
    }
}

TEST(ApriPorta, FindsTheDeviceBehindThePort) {
    struct Case {
        const char* port;
        const char* marlo;
        std::map<int, std::string> given;
        const char* device;
    };
    for (const Case& c : {Case{"COM1", "", {}, "/dev/ttyS0"}, Case{"COM10", "", {}, "/dev/ttyS9"},
                          Case{"COM3", "COM3=/dev/ttyUSB0\r\n", {}, "/dev/ttyUSB0"},
                          Case{"COM3", "COM3=/dev/ttyUSB0\r\n", {{3, "/dev/pts/4"}}, "/dev/pts/4"},
                          Case{"COM2", "COM3=/dev/ttyUSB0\r\n", {{3, "/dev/pts/4"}}, "/dev/ttyS1"}}) {
        Wired w;
        w.AddLanguages();
        w.WriteFile("CONFIG.INI", w.Config(std::string("COM=") + c.port + "\r\nPARITA=Nessuna\r\n"));
        w.WriteFile("MARLO.INI", std::string("[PORTE]\r\n") + c.marlo);
        w.options.ports = c.given;
        w.Start();
        EXPECT_EQ(w.Port().Device(), c.device);
    }
}

TEST(ApriPorta, ClosesAPortThatIsOpenFirst) {
    Wired w;
    w.Start();
    ASSERT_TRUE(w.Port().PortOpen());
    w.Shell().state.serial.parity = "N";
    EXPECT_NE(ApriPorta(w.Link()), 0);
    EXPECT_FALSE(w.Port().PortOpen());
    w.Shell().state.serial.parity = "Pari";
    EXPECT_EQ(ApriPorta(w.Link()), 0);
    EXPECT_EQ(w.Port().Settings(), "38400,E,8,1");
}

TEST(Port, WorksWithoutAWordWhenTheDeviceComesLater) {
    Wired w;
    w.host.line.SetPresent(false);
    w.host.probe.facts.present = false;
    w.Start();
    w.Shell().stack.Press(w.Shell().systemMessage.OK);
    w.Run(60000);
    EXPECT_FALSE(w.Port().PortOpen());
    EXPECT_EQ(w.host.sound.beeps, 1) << "told once, at the opening";
    w.host.line.SetPresent(true);
    w.host.probe.facts.present = true;
    w.Run(1000);
    EXPECT_TRUE(w.Port().PortOpen());
    EXPECT_FALSE(w.IsOpen("SystemMessage"));
    int started = 0;
    w.Link().live.StartRecognition = [&] { ++started; };
    w.Take(support::LiveFrame().Short());
    EXPECT_EQ(started, 1);
}

TEST(Port, IsOpenedAgainOnlyAfterItWasAbsentForbiddenOrBusy) {
    using platform::PortFault;
    struct Case {
        const char* name;
        platform::PortFacts facts;
        PortFault fault;
        const char* parity;
        bool again;
    };
    for (const Case& c :
         {Case{"absent", {false, true, "", ""}, PortFault::Absent, "Nessuna", true},
          Case{"forbidden", {true, false, "", ""}, PortFault::Refused, "Nessuna", true},
          Case{"busy", {true, true, "", ""}, PortFault::Refused, "Nessuna", true},
          Case{"a line that cannot be set so", {true, true, "", ""}, PortFault::Failed, "Nessuna", false},
          Case{"settings that no port takes", {true, true, "", ""}, PortFault::Refused, "N", false}}) {
        Wired w;
        w.AddLanguages();
        w.WriteFile("CONFIG.INI", w.Config(std::string("PARITA=") + c.parity + "\r\n"));
        w.host.probe.facts = c.facts;
        w.host.line.RefuseOpening(c.fault);
        w.Start();
        EXPECT_EQ(w.Link().timers.Reopening->Enabled(), std::string(c.parity) != "N") << c.name;
        w.Run(5000);
        EXPECT_FALSE(w.Port().PortOpen()) << c.name;
        w.host.probe.facts = {};
        w.host.line.RefuseOpening(PortFault::None);
        w.Run(2000);
        EXPECT_EQ(w.Port().PortOpen(), c.again) << c.name;
        EXPECT_EQ(w.host.sound.beeps, 1) << c.name;
        if (!c.again) continue;
        EXPECT_FALSE(w.Link().timers.Reopening->Enabled()) << c.name;
        const int searches = w.host.probe.searches;
        w.Run(5000);
        EXPECT_EQ(w.host.probe.searches, searches) << "nobody is looked for while the port is open";
    }
}

TEST(Port, IsSilentWhileItsCableIsPulledAndHearsAgain) {
    Wired w;
    w.Start();
    w.BecomeReady();
    int started = 0;
    w.Link().live.StartRecognition = [&] { ++started; };
    w.Take(support::LiveFrame().Short());
    w.host.line.Far().SetConnected(false);
    for (int i = 0; i < 50; ++i) w.Take(support::LiveFrame().Short());
    EXPECT_EQ(w.State().CentralinaDaRiconoscere, shell::True);
    EXPECT_EQ(started, 0);
    EXPECT_FALSE(w.IsOpen("Messaggio") || w.IsOpen("SystemMessage"));
    w.host.line.Far().SetConnected(true);
    w.Take(support::LiveFrame().Short());
    EXPECT_EQ(started, 1);
}

TEST(Waiting, SaysWhyNoUnitIsHeardWorstFirst) {
    Wired w;
    w.host.line.RefuseOpening(platform::PortFault::Refused);
    w.host.probe.facts = {false, false, "dialout", "mario"};
    w.host.probe.holder = "altro";
    w.Start();
    w.Shell().stack.Press(w.Shell().systemMessage.OK);
    w.Run(1000);
    EXPECT_TRUE(w.Waiting());
    EXPECT_TRUE(w.Says(0, "/dev/ttyS0", "/dev/ttyS0"));
    w.host.probe.facts.present = true;
    w.Run(1000);
    EXPECT_TRUE(w.Says(1, "/dev/ttyS0", "dialout"));
    EXPECT_NE(w.Link().grafici.AttesaRimedio.Text().find("dialout mario"), std::string::npos);
    w.host.probe.facts.permitted = true;
    w.Run(1000);
    EXPECT_TRUE(w.Says(2, "/dev/ttyS0", "altro"));
    w.host.probe.holder.clear();
    w.Run(1000);
    EXPECT_TRUE(w.Says(2, "/dev/ttyS0", w.Text("ALTRO.0", "ATTESA")));
    w.host.line.RefuseOpening(platform::PortFault::Failed);
    w.Run(1000);
    EXPECT_TRUE(w.Says(6, "/dev/ttyS0", "38400 " + w.Text("TIPO.0", "PARITA") + " 8 1"));
    w.host.line.RefuseOpening(platform::PortFault::None);
    EXPECT_EQ(ApriPorta(w.Link()), 0);
    w.Run(5000);
    EXPECT_EQ(FindObstacle(w.Link()), Obstacle::Silent);
    EXPECT_TRUE(w.Says(3, "5", "/dev/ttyS0"));
    w.Receive("noise without any frame");
    w.Run(1000);
    EXPECT_TRUE(w.Says(4, "23", "38400 " + w.Text("TIPO.0", "PARITA") + " 8 1"));
    w.Take(support::LiveFrame().Short());
    w.State().unanswered = 2;
    w.Run(1000);
    EXPECT_TRUE(w.Says(5, "2", "/dev/ttyS0"));
}

TEST(Waiting, HidesItsReasonsOnceAUnitIsHeard) {
    Wired w;
    w.Start();
    w.Tick();
    EXPECT_TRUE(w.Waiting());
    EXPECT_NE(w.Link().grafici.Attesa.Text(), "");
    w.BecomeReady();
    w.Take(support::LiveFrame().Short());
    EXPECT_FALSE(w.Waiting());
    EXPECT_FALSE(w.Link().grafici.AttesaCausa.Visible());
}

TEST(Waiting, NamesThePortThatWasChosenLast) {
    Wired w;
    w.Start();
    w.Tick();
    const std::string before = w.Shell().main.Collegamento.Text();
    ASSERT_NE(before.find("COM1"), std::string::npos);
    shell::ConfSer& page = w.Shell().confSer;
    w.Shell().stack.OpenPage(page, true);
    w.Shell().stack.Select(page.Seriali, {2});
    ASSERT_TRUE(w.Shell().stack.Press(*page.Find("Salva")).ok);
    w.Tick();
    const std::string after = w.Shell().main.Collegamento.Text();
    EXPECT_EQ(after, before.substr(0, before.find("COM1")) + "COM3");
    EXPECT_EQ(w.Link().grafici.Attesa.Text(), shell::Fill(w.Text("TITOLO.1", "ATTESA"), "COM3", w.Port().Device()));
}

TEST(Waiting, AlsoSaysThatAUnitNowSendsWhatMakesNoFrame) {
    Wired w;
    w.Start();
    w.BecomeReady();
    w.Take(support::LiveFrame().Short());
    for (int i = 0; i < 60; ++i) w.Take("garbage");  // the unit's speed has changed
    EXPECT_TRUE(w.Waiting());
    EXPECT_EQ(FindObstacle(w.Link()), Obstacle::NoFrames);
    EXPECT_NE(w.Cause(), "");
}

TEST(Waiting, BeginsWithoutTheReasonOfAnEarlierWait) {
    Wired w;
    w.Start();
    w.Receive("noise");
    w.Run(1000);
    ASSERT_NE(w.Cause(), "");
    w.BecomeReady();
    w.Take(support::LiveFrame().Short());
    ASSERT_FALSE(w.Waiting());
    for (int i = 0; i < 60 && !w.Waiting(); ++i) w.Tick();
    ASSERT_TRUE(w.Waiting());
    EXPECT_EQ(w.Cause(), "");
    w.Run(1000);
    EXPECT_EQ(FindObstacle(w.Link()), Obstacle::Silent);
    EXPECT_NE(w.Cause(), "");
}

TEST(Waiting, ADeviceJustPluggedInIsNotSaidToRefuseTheLine) {
    Wired w;
    w.host.line.SetPresent(false);
    w.host.probe.facts.present = false;
    w.Start();
    EXPECT_EQ(FindObstacle(w.Link()), Obstacle::PortAbsent);
    w.host.line.SetPresent(true);
    w.host.probe.facts.present = true;
    EXPECT_EQ(FindObstacle(w.Link()), Obstacle::Silent) << "until it is tried again";
    w.Run(2000);
    EXPECT_TRUE(w.Port().PortOpen());
}

}  // namespace eculink
