#include "link/transaction.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "link/frames/build.h"
#include "support/live_frame.h"
#include "support/machine.h"

namespace eculink {

namespace {

using frames::Frame;
using shell::False;
using shell::True;

constexpr int Writing = 900;  // a state that no room has, for tests
constexpr int Reading = 901;
constexpr int Other = 902;

// A program with two states of the test's own. The handlers write what they saw into the log.
struct Bench : support::Machine {
    Bench() {
        Start();
        BecomeReady();
        Link().catalogue.Add(
            {Writing, "ws", TimeOut::P},
            [this](const std::string& frame) {
                log += std::string("reply:") + frame[1] + " ";
                return ContinueChain(Link()) || true;
            },
            [this] { log += "refused "; }, [this](int state) { log += "silent:" + std::to_string(state) + " "; });
        Link().catalogue.Add(
            {Reading, "r", TimeOut::F}, [this](const std::string&) { return reading(); }, {},
            [this](int state) { log += "silent:" + std::to_string(state) + " "; });
        Sent();
    }
    std::string Log() { return std::exchange(log, {}); }
    bool Waits() { return Shell().state.pointer == shell::Pointer::Wait; }
    platform::Timer& Limit() { return *Link().timers.TimeOutComandi; }
    platform::Timer& Watchdog() { return *Link().timers.TimeOutDati; }
    bool BeginWriting() { return StartTransaction(Link(), Writing, First + Second); }

    const std::string First = frames::WriteFrame('W', 1, 1, "AA");
    const std::string Second = frames::WriteFrame('S', 3072, 1, "BB");
    std::function<bool()> reading = [] { return true; };
    std::string log;
};

}  // namespace

TEST(Transaction, SendsItsFirstFrameAndWaits) {
    Bench b;
    b.Take(support::LiveFrame().Short());
    b.Receive("rest");
    ASSERT_TRUE(b.Watchdog().Enabled());
    EXPECT_TRUE(b.BeginWriting());
    EXPECT_EQ(b.Sent(), b.First) << "one frame of the chain at a time";
    EXPECT_EQ(b.State().ComandoTx, b.First + b.Second);
    EXPECT_EQ(b.State().StatoCmd, Writing);
    EXPECT_TRUE(b.Waits());
    EXPECT_TRUE(b.Limit().Enabled());
    EXPECT_EQ(b.Limit().Interval(), 5000);
    EXPECT_FALSE(b.Watchdog().Enabled());
    EXPECT_EQ(b.State().BufferRx, "rest") << "what has been fetched from the port stays";
    EXPECT_FALSE(StartTransaction(b.Link(), Reading, b.Second)) << "one at a time";
    EXPECT_EQ(b.State().StatoCmd, Writing);
    EXPECT_EQ(b.Sent(), "");
}

TEST(Transaction, SendsTheChainReplyByReplyAndEnds) {
    Bench b;
    b.BeginWriting();
    b.Run(4800);
    b.Take(Frame("wok"));
    EXPECT_EQ(b.Sent(), b.First + b.Second);
    b.Run(4800);
    EXPECT_EQ(b.State().StatoCmd, Writing) << "the limit is of a frame, not of the exchange";
    b.Take(Frame("sok"));
    EXPECT_EQ(b.Log(), "reply:w reply:s ");
    EXPECT_EQ(b.State().StatoCmd, Idle);
    EXPECT_EQ(b.State().ComandoTx, "");
    EXPECT_FALSE(b.Waits());
    EXPECT_FALSE(b.Limit().Enabled());
    EXPECT_TRUE(b.Watchdog().Enabled());
    EXPECT_EQ(b.Sent(), "");
    EXPECT_EQ(b.host.sound.beeps, 0);
}

TEST(Transaction, KeepsWaitingThroughStrayReplies) {
    Bench b;
    b.BeginWriting();
    // The last of these is looked at in the tick of 4900 ms, and nothing has moved the limit.
    const std::vector<std::string> strays{Frame("iok"), Frame("lAA"), Frame("Wok"), Frame("x00"), Frame("p"),
                                          Frame("r00"), Frame("oAA"), Frame(""),    "garbage",    Frame("dok")};
    for (int tick = 0; tick < 49; ++tick) b.Take(strays.at(static_cast<std::size_t>(tick) % strays.size()));
    EXPECT_EQ(b.State().StatoCmd, Writing);
    EXPECT_EQ(b.Log(), "");
    b.Run(99);
    EXPECT_EQ(b.Log(), "");
    b.Run(1);
    EXPECT_EQ(b.Log(), "silent:900 ");
}

TEST(Transaction, EndsOnARefusalWithoutAFurtherFrame) {
    for (const char* refusal : {"wno", "wOK", "w", "wo", "w ok"}) {
        for (const int flow : {True, False}) {
            Bench b;
            b.BeginWriting();
            b.State().FlussoAttivo = flow;
            b.Sent();
            b.Take(Frame(refusal));
            EXPECT_EQ(b.Log(), "refused ") << refusal;
            EXPECT_EQ(b.Sent(), "");
            EXPECT_EQ(b.State().StatoCmd, Idle);
            EXPECT_FALSE(b.Waits());
            EXPECT_FALSE(b.Limit().Enabled());
            EXPECT_EQ(b.Watchdog().Enabled(), flow == True);
            EXPECT_EQ(b.host.sound.beeps, 0);
        }
    }
}

TEST(Transaction, ReportsAFailureInsideAHandlerAsASilenceShortlyAfter) {
    const std::vector<std::function<bool()>> failures{
        [] { return false; },
        []() -> bool { throw std::runtime_error("bad digits"); },
        [] { return std::string().at(5) == 'x'; },
    };
    for (const auto& failure : failures) {
        Bench b;
        b.reading = failure;
        StartTransaction(b.Link(), Reading, frames::ReadFrame('R', 0, 2));
        b.Take(Frame("r0000"));
        EXPECT_EQ(b.Limit().Interval(), 200);
        b.Run(199);
        EXPECT_EQ(b.State().StatoCmd, Reading);
        EXPECT_EQ(b.Log(), "");
        b.Run(1);
        EXPECT_EQ(b.Log(), "silent:901 ");
        EXPECT_EQ(b.State().StatoCmd, Idle);
        EXPECT_FALSE(b.Waits());
        EXPECT_EQ(b.host.sound.beeps, 1);
    }
}

TEST(Transaction, ReportsTheFailedStateAlsoWhenItsHandlerHadMovedOn) {
    Bench b;
    b.reading = [&] {
        SendFrame(b.Link(), Writing, b.First);
        return false;
    };
    StartTransaction(b.Link(), Reading, frames::ReadFrame('R', 0, 2));
    b.Take(Frame("r0000"));
    b.Run(200);
    EXPECT_EQ(b.Log(), "silent:901 ");
}

TEST(Transaction, CountsTheAwaitedLetterAloneUnlessTheRowCountsAllAlike) {
    for (const Counting counting : {Counting::Awaited, Counting::Alike}) {
        Bench b;
        const Catalogue::Entry entry = *b.Link().catalogue.Find(Writing);
        b.Link().catalogue.Add({Other, "ws", TimeOut::P, counting}, entry.reply, entry.refused, entry.timeOut);
        StartTransaction(b.Link(), Other, b.First + b.Second);
        b.Take(Frame("sok"));
        EXPECT_EQ(b.Log(), counting == Counting::Alike ? "reply:s " : "");
        EXPECT_EQ(b.Sent(), b.First + (counting == Counting::Alike ? b.Second : ""));
    }
}

TEST(Transaction, DropsAReplyThatComesTooLate) {
    Bench b;
    b.BeginWriting();
    b.Run(5000);
    EXPECT_EQ(b.Log(), "silent:900 ");
    b.Sent();
    b.Take(Frame("wok"));
    EXPECT_EQ(b.Log(), "");
    EXPECT_EQ(b.Sent(), "");
    EXPECT_EQ(b.State().StatoCmd, Idle);
}

TEST(Transaction, GoesOnInAnotherStateWithAWholeLimit) {
    Bench b;
    b.reading = [&] {
        SendFrame(b.Link(), Writing, b.First);
        return true;
    };
    StartTransaction(b.Link(), Reading, frames::ReadFrame('R', 0, 2));
    b.Run(4000);
    b.Take(Frame("r0000"));
    EXPECT_EQ(b.State().StatoCmd, Writing);
    b.Run(4999);
    EXPECT_EQ(b.Log(), "");
    b.Run(1);
    EXPECT_EQ(b.Log(), "silent:900 ");
}

TEST(Transaction, LeavesEverythingAloneForAFrameOfItsOwn) {
    Bench b;
    b.Take(support::LiveFrame().Short());
    const State before = b.State();
    SendAlone(b.Link(), frames::WriteFrame('W', 127, 1, "00"));
    EXPECT_EQ(b.Sent(), Frame("W0127000100"));
    EXPECT_EQ(b.State().StatoCmd, Idle);
    EXPECT_EQ(b.State().ComandoTx, before.ComandoTx);
    EXPECT_FALSE(b.Waits());
    EXPECT_FALSE(b.Limit().Enabled());
    EXPECT_TRUE(b.Watchdog().Enabled());
    b.Take(Frame("wok"));
    EXPECT_EQ(b.Log(), "");
}

TEST(CommandTimeOut, RestoresTheWatchdogOfALivingStreamWithAWholeInterval) {
    for (const int flow : {True, False}) {
        Bench b;
        StartTransaction(b.Link(), Reading, frames::ReadFrame('R', 0, 2));
        b.State().FlussoAttivo = flow;
        b.Run(5000);
        EXPECT_EQ(b.Log(), "silent:901 ");
        EXPECT_EQ(b.host.sound.beeps, 1);
        EXPECT_EQ(b.Watchdog().Enabled(), flow == True);
        b.Run(3999);
        EXPECT_EQ(b.State().CentralinaDaRiconoscere, False);
        b.Run(1);
        EXPECT_EQ(b.State().CentralinaDaRiconoscere, flow == True ? True : False);
    }
}

TEST(CommandTimeOut, SignalsByItsLetter) {
    using T = TimeOut;
    struct Case {
        std::vector<T> letters;
        bool beep;
        bool onWithoutFlow;  // the watchdog afterwards, the stream not alive
        bool onWithFlow;
    };
    for (const Case& c : {Case{{T::None, T::T3, T::T4, T::X}, false, false, true},
                          Case{{T::A, T::B, T::C,  T::D, T::F,  T::F2, T::F3, T::J,  T::K, T::K2, T::L, T::M, T::N,
                                T::Q, T::R, T::R2, T::S, T::S2, T::S3, T::T,  T::T2, T::U, T::U2, T::V, T::W},
                               true,
                               false,
                               true},
                          Case{{T::D2, T::G, T::H, T::I, T::P}, true, true, true}, Case{{T::E}, true, false, false}}) {
        for (const T letter : c.letters) {
            for (const int flow : {False, True}) {
                Bench b;
                b.Link().catalogue.Add({Other, "r", letter});
                StartTransaction(b.Link(), Other, frames::ReadFrame('R', 0, 2));
                b.State().FlussoAttivo = flow;
                b.Run(5000);
                EXPECT_EQ(b.State().StatoCmd, Idle);
                EXPECT_EQ(b.host.sound.beeps, c.beep ? 1 : 0) << static_cast<int>(letter);
                EXPECT_EQ(b.Watchdog().Enabled(), flow == True ? c.onWithFlow : c.onWithoutFlow)
                    << static_cast<int>(letter);
            }
        }
    }
}

TEST(TracciaTx, HoldsTheLastChainOneFrameALine) {
    Bench b;
    TracciaTx(b.Link(), b.First + b.Second);
    EXPECT_EQ(b.FileContent("TXMESS.TXT"), b.First + "\r\n" + b.Second + "\r\n");
    TracciaTx(b.Link(), b.First + "\x02half");
    EXPECT_EQ(b.FileContent("TXMESS.TXT"), b.First + "\r\n\x02half\r\n");
    TracciaTx(b.Link(), "");
    EXPECT_EQ(b.FileContent("TXMESS.TXT"), "");
}

}  // namespace eculink
