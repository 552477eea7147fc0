#include "support/live_frame.h"

#include <gtest/gtest.h>

#include <vector>

#include "link/frames/build.h"
#include "link/frames/numbers.h"
#include "link/transaction.h"
#include "support/machine.h"

namespace eculink {

namespace {

using support::LiveFrame;

struct Engine : support::Machine {
    Engine() {
        Start();
        BecomeReady();
        State().mapTable.linea[1] = {200, 820};
    }
    const std::string& Raw(int channel) { return Link().RecCanali.Grezzo.at(static_cast<std::size_t>(channel)); }
    const std::string& Value(int channel) { return Link().RecCanali.Valore.at(static_cast<std::size_t>(channel)); }
    std::string Figure(int channel) { return Link().grafici.DatiMot[channel].Text(); }
    bool Watched() { return Link().timers.TimeOutDati->Enabled(); }
};

constexpr int TestState = 900;

}  // namespace

TEST(FrameDati, TakesEachFieldFromItsPlace) {
    Engine e;
    LiveFrame f;
    f.giri = "1234";
    f.lambda = " 205";
    f.tps = "0120";
    f.map = " 510";
    f.temperatura = "512 ";
    f.livello = "  60";
    f.step = " 97";
    f.cstec = "200";
    f.digit2 = '2';
    f.statoAA = 'A';
    f.macro = '4';
    f.riccoMagro = 'M';
    f.digit4 = '4';
    f.digit1 = '1';
    f.digit3 = '3';
    f.zone = " 12";
    f.stored = "7  ";
    f.p1 = " 400";
    // Before the channels are worked out further, as during a command.
    ASSERT_TRUE(StartTransaction(e.Link(), TestState, frames::IdentityFrame()));
    e.Take(f.Long());
    const std::vector<std::string> expected{"1234", " 205", "0120", " 690", " 400", "512 ", "  60", "  97", " -56",
                                            "  12", "    ", "   M", "  65", "1234", "    ", " 7  ", "   4"};
    for (int channel = 0; channel < SignalChannels; ++channel) {
        EXPECT_EQ(e.Raw(channel), expected.at(static_cast<std::size_t>(channel))) << channel;
    }
    EXPECT_EQ(e.State().DatiLunghi, 1);
    e.Take(f.Short());
    EXPECT_EQ(e.State().DatiLunghi, 0);
    EXPECT_EQ(e.Raw(P1), "****");
}

TEST(FrameDati, ShowsWhatIsNoNumberAsStarsOrAsItStands) {
    struct Case {
        std::string LiveFrame::*field;
        const char* text;
        int channel;
        const char* raw;
    };
    for (const Case& c : std::initializer_list<Case>{
             {&LiveFrame::giri, "----", Giri, "****"},
             {&LiveFrame::giri, "    ", Giri, "****"},
             {&LiveFrame::giri, "0850", Giri, " 850"},
             {&LiveFrame::map, "12x4", Map, "****"},
             {&LiveFrame::step, "x12", Step, "****"},
             {&LiveFrame::p1, "  ? ", P1, "****"},
             {&LiveFrame::cstec, "xyz", CStec, " xyz"},
             {&LiveFrame::cstec, "127", CStec, " 127"},
             {&LiveFrame::cstec, "128", CStec, "-128"},
             {&LiveFrame::cstec, "255", CStec, "  -1"},
             {&LiveFrame::cstec, "000", CStec, "   0"},
             {&LiveFrame::lambda, "a b ", Lambda, "a b "},
         }) {
        Engine e;
        StartTransaction(e.Link(), TestState, frames::IdentityFrame());
        LiveFrame f;
        f.*c.field = c.text;
        e.Take(f.Long());
        EXPECT_EQ(e.Raw(c.channel), c.raw) << c.text;
    }
}

TEST(FrameDati, TakesAnyByteAsTheStateOfTheSelfAdaptation) {
    Engine e;
    LiveFrame f;
    for (int code = 0; code < 256; ++code) {
        if (code == frames::Stx || code == frames::Etx) continue;
        f.statoAA = static_cast<char>(code);
        e.Take(f.Short());
        EXPECT_EQ(frames::ValoreNum(e.Raw(StatoAA)), code);
        EXPECT_EQ(e.Raw(StatoAA).size(), RawWidth);
    }
}

TEST(FrameDati, ConvertsThePressureByTheSensorAndTheStep) {
    struct Case {
        const char* name;
        int type;
        bool isLong;
        int phase;
        const char* raw;  // of the field " 510"
    };
    for (const Case& c :
         {Case{"the line of the image", 2, true, -1, " 690"},
          Case{"a short frame has but the line", 0, false, -1, " 690"},
          Case{"type 0 of long frames", 0, true, -1, "1327"}, Case{"type 1 of long frames", 1, true, -1, "1036"},
          Case{"learning works in mbar", 1, true, 5, "1036"}, Case{"other steps take the reading", 1, true, 1, " 510"},
          Case{"also the first", 2, false, 0, " 510"}}) {
        Engine e;
        e.State().mapTable.tipoSensoreMAP = c.type;
        e.Shell().state.FaseAcq = c.phase;
        LiveFrame f;
        f.map = " 510";
        e.Take(c.isLong ? f.Long() : f.Short());
        EXPECT_EQ(e.Raw(Map), c.raw) << c.name;
    }
    Engine unread;
    unread.State().mapTable = {};
    unread.Take(LiveFrame().Short());
    EXPECT_EQ(unread.Raw(Map), "****") << "no sensor has been acquired";
    EXPECT_EQ(unread.Value(Map), "********");
}

TEST(FrameDati, RefusesAFrameOfAnotherLengthAndLetsTheWatchdogRun) {
    Engine e;
    e.Take(LiveFrame().Short());
    const Record before = e.Link().RecCanali;
    ASSERT_TRUE(e.Watched());
    int ticks = 0;
    for (; ticks < 100 && e.State().CentralinaDaRiconoscere == shell::False; ++ticks) {
        const std::size_t length = std::vector<std::size_t>{46, 48, 50, 52, 3}.at(static_cast<std::size_t>(ticks % 5));
        e.Take(frames::Frame("D" + std::string(length - 3, '0')));
        if (ticks == 0) {
            EXPECT_EQ(e.Link().RecCanali.Grezzo, before.Grezzo);
            EXPECT_EQ(e.Shell().main.RxKO.Colour(), "red");
        }
    }
    EXPECT_EQ(ticks, StreamLimit / ProcessingInterval) << "four seconds of bad frames alone are a lost stream";
}

TEST(FrameDati, StartsTheRecognitionOnceAndStopsThere) {
    Engine e;
    int started = 0;
    e.Link().live.StartRecognition = [&] { ++started; };
    e.State().CentralinaDaRiconoscere = shell::True;
    e.Take(frames::Frame("Dshort"));
    EXPECT_EQ(started, 0) << "a stream may begin with half a frame";
    e.Take(LiveFrame().Short());
    EXPECT_EQ(started, 1);
    EXPECT_EQ(e.Link().RecCanali.Progressivo, 0);
    EXPECT_EQ(e.State().FlussoAttivo, shell::False);
    EXPECT_FALSE(e.Watched());
    EXPECT_EQ(e.Raw(Giri), " 850");
}

TEST(FrameDati, GoesNoFurtherWhileACommandRuns) {
    Engine e;
    int samples = 0;
    e.Link().live.AddSample = [&] { ++samples; };
    e.Take(LiveFrame().Short());
    ASSERT_EQ(samples, 1);
    const auto values = e.Link().RecCanali.Valore;
    const std::string figure = e.Figure(Giri);
    StartTransaction(e.Link(), TestState, frames::IdentityFrame());
    LiveFrame f;
    f.giri = "3000";
    f.riccoMagro = 'M';
    e.Take(f.Short());
    EXPECT_EQ(e.Raw(Giri), "3000");
    EXPECT_EQ(e.Link().RecCanali.Valore, values);
    EXPECT_EQ(e.Figure(Giri), figure);
    EXPECT_EQ(e.Link().RecCanali.Progressivo, 1);
    EXPECT_EQ(samples, 1);
    EXPECT_FALSE(e.Watched());
    e.Run(4500);
    EXPECT_EQ(e.State().CentralinaDaRiconoscere, shell::False) << "a silent stream is no loss while a command runs";
}

TEST(FrameDati, FeedsTheStepThatRunsInsteadOfTheSamples) {
    Engine e;
    std::vector<int> steps;
    int samples = 0;
    e.Link().live.CalibrationStep = [&](int phase) { steps.push_back(phase); };
    e.Link().live.AddSample = [&] { ++samples; };
    for (const int phase : {0, 1, 2, 3, 5}) {
        e.Shell().state.FaseAcq = phase;
        e.Take(LiveFrame().Short());
        EXPECT_EQ(e.State().DatoNuovo, shell::False);
        EXPECT_TRUE(e.Watched());
    }
    EXPECT_EQ(steps, (std::vector<int>{0, 1, 2, 3, 5}));
    EXPECT_EQ(samples, 0);
    EXPECT_EQ(e.State().FlussoAttivo, shell::False) << "no frame without a step yet";
    EXPECT_EQ(e.Link().RecCanali.Progressivo, 5);
    e.Shell().state.FaseAcq = shell::NoPhase;
    e.Take(LiveFrame().Short());
    EXPECT_EQ(samples, 1);
    EXPECT_EQ(e.State().DatoNuovo, shell::True);
    EXPECT_EQ(e.State().FlussoAttivo, shell::True);
}

TEST(FrameDati, IsASampleWhenItsOwnStepEndsTheCalibration) {
    Engine e;
    int samples = 0;
    e.Link().live.AddSample = [&] { ++samples; };
    e.Link().live.CalibrationStep = [&](int) { e.Shell().state.FaseAcq = shell::NoPhase; };
    e.Shell().state.FaseAcq = 5;
    e.Take(LiveFrame().Short());
    EXPECT_EQ(samples, 1);
    EXPECT_EQ(e.State().FlussoAttivo, shell::True);
}

TEST(FrameDati, LeavesTheWatchdogOffWhenTheStepHasSentACommand) {
    Engine e;
    e.Take(LiveFrame().Short());
    e.Link().live.CalibrationStep = [&](int) { StartTransaction(e.Link(), TestState, frames::IdentityFrame()); };
    e.Shell().state.FaseAcq = 1;
    e.Take(LiveFrame().Short());
    EXPECT_FALSE(e.Watched()) << "the command's own limit guards the link now";
}

TEST(FrameDati, SeesTheSwitchOfABlankUnitAndOfNoOther) {
    struct Case {
        const char* name;
        int programmed;
        int phase;
        char before;
        char now;
        bool told;  // the wizard: whatever stage was open is left
        int after;
        int mark;
    };
    using shell::False;
    using shell::True;
    for (const Case& c : {
             Case{"turned on", False, -1, '0', '1', true, 0, True},
             Case{"already on", False, -1, '1', '1', false, -1, False},
             Case{"turned on further", False, -1, '1', '2', false, -1, False},
             Case{"turned off", False, 0, '1', '0', true, -1, False},
             Case{"turned off in a later step", False, 2, '1', '0', false, 2, False},
             Case{"turned on in a step", False, 0, '0', '1', false, 0, False},
             Case{"a programmed unit", True, -1, '0', '1', false, -1, False},
         }) {
        Engine e;
        std::vector<int> told;
        e.Link().live.SwitchPhase = [&](int phase) { told.push_back(phase); };
        LiveFrame f;
        f.digit1 = c.before;
        e.Take(f.Short());
        e.Tick();
        e.Shell().state.ImmagineProgrammata = c.programmed;
        e.Shell().state.FaseAcq = c.phase;
        f.digit1 = c.now;
        e.Take(f.Short());
        EXPECT_EQ(told, c.told ? std::vector<int>{shell::NoPhase} : std::vector<int>{}) << c.name;
        EXPECT_EQ(e.Shell().state.FaseAcq, c.after) << c.name;
        EXPECT_EQ(e.State().restartMark, c.mark) << c.name;
    }
}

TEST(FrameDati, ShowsTheFrameThatBroughtAUnitOnTheInstruments) {
    Engine e;
    e.Link().live.StartRecognition = [&] {
        const auto raw = e.Link().RecCanali.Grezzo;
        AzzeraDati(e.Link());
        e.Link().RecCanali.Grezzo = raw;
    };
    e.State().CentralinaDaRiconoscere = shell::True;
    e.Take(LiveFrame().Short());
    EXPECT_EQ(e.Figure(Giri), " 850");
}

}  // namespace eculink
