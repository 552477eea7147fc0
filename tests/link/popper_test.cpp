#include <gtest/gtest.h>

#include <vector>

#include "link/frames/build.h"
#include "link/reception.h"
#include "support/live_frame.h"
#include "support/machine.h"

namespace eculink {

namespace {

using frames::Frame;
using namespace std::string_literals;

// Listens to what is handed on, frame by frame, and leaves the time to the test.
struct Listener : support::Machine {
    explicit Listener(int kindOfComputer = 1) {
        Start();
        Shell().state.TipoComputer = kindOfComputer;
        BecomeReady();
        Link().live.AddSample = [this] { ++samples; };
        Link().trace = [this](Direction direction, std::string_view frame) {
            if (direction == Direction::Received) heard.emplace_back(frame);
        };
    }
    // What the next look at the buffer hands on: the last frame that it takes out, and that one alone.
    std::vector<std::string> Look() {
        samples = 0;
        Tick();
        std::vector<std::string> taken = std::exchange(heard, {});
        if (taken.size() > 1) taken.erase(taken.begin(), taken.end() - 1);
        const bool live = !taken.empty() && taken.back()[1] == 'D';
        EXPECT_EQ(samples, live ? 1 : 0);
        return taken;
    }
    std::vector<std::string> heard;
    int samples = 0;
};

using Heard = std::vector<std::string>;

std::string Live(int number) {
    support::LiveFrame frame;
    frame.giri = std::to_string(1000 + number);
    return frame.Short();
}

}  // namespace

TEST(EstraiFrame, TakesAtMostOneFrameALookInTheOrderOfTheWire) {
    Listener l;
    const Heard all{Live(1), Frame("wok"), Live(2), Frame("r00")};
    for (const std::string& frame : all) l.Receive(frame);
    for (const std::string& frame : all) EXPECT_EQ(l.Look(), Heard{frame});
    EXPECT_EQ(l.Look(), Heard{});
}

TEST(EstraiFrame, HandsNothingOnFromAnEmptyOrBlankBuffer) {
    Listener l;
    EXPECT_EQ(l.Look(), Heard{});
    l.Receive("    ");
    EXPECT_EQ(l.Look(), Heard{});
    EXPECT_EQ(l.State().BufferRx, "    ");
    EXPECT_EQ(l.Shell().main.Label1.Text(), "");
}

TEST(EstraiFrame, KeepsTextUntilAFrameBeginsAndDropsItThen) {
    Listener l;
    l.Receive("abc");
    EXPECT_EQ(l.Look(), Heard{});
    EXPECT_EQ(l.State().BufferRx, "abc");
    EXPECT_EQ(l.Shell().main.Label1.Text(), "abc");
    l.Receive("\x03"s);
    EXPECT_EQ(l.Look(), Heard{});
    l.Receive(Live(1) + "tail");
    EXPECT_EQ(l.Look(), Heard{Live(1)});
    EXPECT_EQ(l.State().BufferRx, "tail");
}

TEST(EstraiFrame, WaitsForTheEndOfAFrameHoweverItIsSplit) {
    Listener l;
    const std::string frame = Live(7);
    for (std::size_t cut = 1; cut < frame.size(); ++cut) {
        l.Receive(frame.substr(0, cut));
        EXPECT_EQ(l.Look(), Heard{}) << cut;
        l.Receive(frame.substr(cut));
        EXPECT_EQ(l.Look(), Heard{frame}) << cut;
    }
    for (const char c : frame) l.Receive(std::string(1, c));
    EXPECT_EQ(l.Look(), Heard{frame});
}

TEST(EstraiFrame, SkipsAFrameThatANewOneBreaksOff) {
    Listener l;
    struct Case {
        std::string bytes;
        std::string frame;
    };
    for (const Case& c : std::initializer_list<Case>{
             {"\x02"s + "D123" + Frame("r00"), Frame("r00")},
             {"\x02\x02\x02"s + Frame("r00"), Frame("r00")},
             {"x\x02y\x02z"s + Live(1), Live(1)},
             {"\x02"s + "roff" + Live(2), Live(2)},
         }) {
        l.Receive(c.bytes);
        EXPECT_EQ(l.Look(), Heard{c.frame});
        EXPECT_EQ(l.State().BufferRx, "");
    }
}

TEST(EstraiFrame, DropsFramesThatItDoesNotKnowWithoutAWord) {
    Listener l;
    l.Take(Live(1));
    const Record before = l.Link().RecCanali;
    for (const std::string& bytes : {Frame(""), Frame("d123"), Frame("W0127000100"), Frame("?"), Frame("\xFF"s),
                                     Frame("\0"s), Frame("xzz"), Frame("p"), Frame("Dzz")}) {
        l.Receive(bytes);
        l.Tick();
    }
    EXPECT_EQ(l.Link().RecCanali.Valore, before.Valore);
    EXPECT_EQ(l.Link().RecCanali.Progressivo, before.Progressivo);
    EXPECT_EQ(l.State().StatoCmd, Idle);
    EXPECT_FALSE(l.IsOpen("Messaggio"));
    EXPECT_EQ(l.host.sound.beeps, 0);
}

// How many characters wait behind a live frame decides on a slow computer whether it is shown at all.
TEST(EstraiFrame, SupersedesLiveFramesOnASlowComputerOnly) {
    const std::string partial = "\x02" + std::string(400, 'x');
    const auto filled = [](const std::string& front, std::size_t size) {
        return front + std::string(size - front.size(), 'x');
    };
    struct Case {
        const char* name;
        int kind;
        std::string bytes;
        Heard heard;  // of the one look
        std::size_t left;
    };
    const std::string three = Live(1) + Live(2) + Live(3);
    for (const Case& c : {
             Case{"a live frame with 240 behind it is shown", 0, Live(1) + filled(Live(2), 240), {Live(1)}, 240},
             Case{"with 241 it gives way to the next", 0, Live(1) + filled(Live(2), 241), {Live(2)}, 241 - 47},
             Case{"unless there is no whole one", 0, Live(1) + filled("\x02", 241), {Live(1)}, 241},
             Case{"nor any beginning", 0, Live(1) + std::string(300, 'x'), {Live(1)}, 300},
             Case{"three give way to the newest whole one", 0, three + partial, {Live(3)}, partial.size()},
             Case{"a reply ends it", 0, Live(1) + Frame("wok") + partial, {Frame("wok")}, partial.size()},
             Case{"and is never skipped",
                  0,
                  Frame("wok") + three + partial,
                  {Frame("wok")},
                  three.size() + partial.size()},
             Case{"a fast computer shows all", 1, three + partial, {Live(1)}, 2 * 47 + partial.size()},
         }) {
        Listener l(c.kind);
        l.Receive(c.bytes);
        EXPECT_EQ(l.Look(), c.heard) << c.name;
        EXPECT_EQ(l.State().BufferRx.size(), c.left) << c.name;
    }
}

TEST(EstraiFrame, ShowsEveryLiveFrameOnAFastComputerHoweverFarBehind) {
    Listener l(1);
    std::string flood;
    for (int i = 0; i < 200; ++i) flood += Live(i);
    l.Receive(flood);
    for (int i = 0; i < 200; ++i) EXPECT_EQ(l.Look(), Heard{Live(i)});
}

TEST(Reception, StaysBoundedUnderGarbageAndFindsTheNextFrame) {
    struct Case {
        const char* name;
        std::string piece;
    };
    for (const Case& c :
         {Case{"noise", std::string(60000, 'x')}, Case{"an endless frame", "\x02" + std::string(60000, '5')},
          Case{"ends without a beginning", std::string(60000, '\x03')}, Case{"blanks", std::string(60000, ' ')}}) {
        Listener l;
        for (int i = 0; i < 100; ++i) {
            l.Receive(c.piece);
            l.Tick();
            ASSERT_LT(l.State().BufferRx.size(), 2U << 20U) << c.name;
        }
        l.heard.clear();
        l.Receive(Live(1) + Live(2));
        EXPECT_EQ(l.Look(), Heard{Live(1)}) << c.name;
        EXPECT_EQ(l.Look(), Heard{Live(2)}) << c.name;
        EXPECT_FALSE(l.IsOpen("Messaggio"));
    }
}

TEST(Reception, LosesNothingOfAFrameThatBeginsBehindMuchGarbage) {
    Listener l;
    const std::string frame = Live(1);
    l.Receive(std::string((1U << 20U) - 10, 'x'));
    l.Receive("xxxxxxxxxxxxxxxxxxxx" + frame.substr(0, 20));
    l.Receive(frame.substr(20));
    EXPECT_EQ(l.Look(), Heard{frame});
}

TEST(Reception, EndsWithItsProgram) {
    support::Machine m;
    m.Start();
    m.program.reset();
    m.host.line.Far().Write(Live(1));
    m.Run(1000);  // nobody is left to take it
}

}  // namespace eculink
