#include <gtest/gtest.h>

#include <vector>

#include "link/frames/build.h"
#include "link/transaction.h"
#include "shell/message.h"
#include "support/live_frame.h"
#include "support/machine.h"

namespace eculink {

namespace {

using shell::False;
using shell::True;
using support::LiveFrame;

constexpr int TestState = 900;

// A unit that has been live, whatever ran on it, with the log of what other rooms were told.
struct Live : support::Machine {
    Live() {
        Start();
        BecomeReady();
        Link().loss.CloseRecording = [this] { log += "recording "; };
        Link().loss.ResetCalibration = [this] { log += "calibration "; };
        Link().live.StartRecognition = [this] { log += "recognition "; };
        Take(LiveFrame().Short());
        EXPECT_EQ(State().FlussoAttivo, True);
    }
    void OpenPages() {
        Shell().stack.OpenPage(Shell().confSer, true);
        shell::MostraMessaggio(Shell(), "", "domanda", shell::StyleQuestion, [this](shell::Answer) { log += "then "; });
        Shell().systemMessage.Show("", "sistema");
    }
    bool RunUntilLost(std::int64_t milliseconds) {
        Run(milliseconds - 1);
        if (State().CentralinaDaRiconoscere == True) return false;
        Run(1);
        return State().CentralinaDaRiconoscere == True;
    }
    std::string log;
};

}  // namespace

TEST(StreamWatchdog, PutsEverythingBackToWaiting) {
    Live l;
    l.OpenPages();
    l.Shell().state.FaseAcq = 2;
    l.Shell().state.SenzaImmagine = False;
    l.Shell().state.ImmagineProgrammata = False;
    l.State().VersioneECU = "01.04";
    l.State().restartMark = True;
    l.Shell().main.SetEnabled(false);
    shell::SoloSenzaCentralina(l.Shell());
    l.State().BufferRx = "\x02half";
    l.log.clear();
    ASSERT_TRUE(l.RunUntilLost(StreamLimit - ProcessingInterval + ProcessingInterval));
    EXPECT_FALSE(l.Link().timers.TimeOutDati->Enabled());
    EXPECT_EQ(l.State().StatoCmd, Idle);
    EXPECT_EQ(l.Shell().state.FaseAcq, shell::NoPhase);
    EXPECT_EQ(l.State().FlussoAttivo, False);
    EXPECT_EQ(l.State().restartMark, False);
    EXPECT_EQ(l.State().BufferRx, "");
    EXPECT_EQ(l.Shell().state.SenzaImmagine, True);
    EXPECT_EQ(l.Shell().state.ImmagineProgrammata, True) << "no image is held that could be blank";
    EXPECT_EQ(l.State().VersioneECU, "");
    EXPECT_TRUE(l.Shell().main.Enabled());
    EXPECT_EQ(l.log, "recording calibration ") << "and no answer reaches a question that is gone";
    EXPECT_FALSE(l.IsOpen("ConfSer"));
    EXPECT_FALSE(l.IsOpen("Messaggio"));
    EXPECT_TRUE(l.IsOpen("Grafici") && l.IsOpen("Marlovent"));
    EXPECT_TRUE(l.IsOpen("SystemMessage"));
    for (const shell::MenuItem& item : l.Shell().main.Menu(shell::MenuId::MainMenu)) {
        EXPECT_EQ(item.why, pages::Reason::None);
    }
    EXPECT_EQ(l.Shell().main.RxOK.Colour() + l.Shell().main.RxKO.Colour(), "whitewhite");
    EXPECT_EQ(l.State().StatoRx, -1);
    EXPECT_EQ(l.Link().RecCanali.Progressivo, 0);
    EXPECT_EQ(l.host.sound.beeps, 0);
    l.Tick();
    EXPECT_EQ(l.Link().grafici.DatiMot[Giri].Text(), "    ") << "no figure of a unit that is gone";
}

TEST(StreamWatchdog, ClosesTheRecordingBeforeThePages) {
    Live l;
    bool pageOpen = false;
    l.OpenPages();
    l.Link().loss.CloseRecording = [&] { pageOpen = l.IsOpen("ConfSer"); };
    StreamLost(l.Link());
    EXPECT_TRUE(pageOpen);
}

TEST(StreamWatchdog, IsRestartedByEachAcceptedFrame) {
    Live l;
    for (int i = 0; i < 5; ++i) {
        l.Run(3800);
        l.Take(LiveFrame().Long());
        EXPECT_EQ(l.State().CentralinaDaRiconoscere, False);
    }
    l.log.clear();
    EXPECT_TRUE(l.RunUntilLost(StreamLimit));
    l.Take(LiveFrame().Long());
    EXPECT_EQ(l.log, "recording calibration recognition ");
}

TEST(StreamWatchdog, SleepsWhileACommandRunsAndTakesOverAfterItsSilence) {
    Live l;
    l.OpenPages();
    StartTransaction(l.Link(), TestState, frames::IdentityFrame());
    l.Run(4999);
    EXPECT_EQ(l.State().StatoCmd, TestState);
    l.Run(1);
    EXPECT_EQ(l.State().StatoCmd, Idle);
    EXPECT_TRUE(l.IsOpen("ConfSer")) << "the page that asked stays";
    EXPECT_TRUE(l.RunUntilLost(StreamLimit));
    EXPECT_FALSE(l.IsOpen("ConfSer"));
}

TEST(StreamWatchdog, SleepsFromAFirstFrameUntilItsRecognitionHasEnded) {
    Live l;
    StreamLost(l.Link());
    l.Link().live.StartRecognition = [&] {
        l.State().CentralinaDaRiconoscere = False;
        StartTransaction(l.Link(), TestState, frames::IdentityFrame());
    };
    l.Take(LiveFrame().Short());
    for (int i = 0; i < 45; ++i) l.Take(LiveFrame().Short());
    EXPECT_FALSE(l.Link().timers.TimeOutDati->Enabled());
    EndWithoutWatchdog(l.Link());
    l.Run(StreamLimit + 1000);
    EXPECT_EQ(l.State().CentralinaDaRiconoscere, False);
    l.Take(LiveFrame().Short());
    EXPECT_TRUE(l.RunUntilLost(StreamLimit));
}

TEST(StreamWatchdog, LeavesNoHourglassAndNoLimitBehind) {
    Live l;
    StartTransaction(l.Link(), TestState, frames::IdentityFrame());
    StreamLost(l.Link());
    EXPECT_EQ(l.Shell().state.pointer, shell::Pointer::Normal);
    EXPECT_FALSE(l.Link().timers.TimeOutComandi->Enabled());
    EXPECT_EQ(l.State().StatoCmd, Idle);
}

}  // namespace eculink
