#include <gtest/gtest.h>

#include "rig.h"

namespace {

const std::string Good = "\x02rAA\x03";

TEST(Misbehaviour, EachWaySpoilsTheAnswerItIsMeantForAndNoOther) {
    struct Row {
        const char* line;
        const char* first;   // what the first read of cell 127 gives at once; "" for nothing, "*" for any other text
        const char* second;  // and the second
    };
    const Row table[] = {
        {"misbehave silence", "", "\x02rAA\x03"},
        {"misbehave silence forever", "", ""},
        {"misbehave refuse once", "\x02rno\x03", "\x02rAA\x03"},
        {"misbehave refuse 2 times", "\x02rno\x03", "\x02rno\x03"},
        {"misbehave cut", "\x02r", "\x02rAA\x03"},
        {"misbehave repeat", "\x02rAA\x03\x02rAA\x03", "\x02rAA\x03"},
        {"misbehave length 4", "\x02rA\x03", "\x02rAA\x03"},
        {"misbehave length", "\x02rA\x03", "\x02rAA\x03"},
        {"misbehave length 8", "\x02rAA000\x03", "\x02rAA\x03"},
        {"misbehave other-letter", "\x02wAA\x03", "\x02rAA\x03"},
        {"misbehave lose", "*", "\x02rAA\x03"},
        {"misbehave double", "*", "\x02rAA\x03"},
        {"misbehave garble", "*", "\x02rAA\x03"},
        {"misbehave refuse at frame 2", "\x02rAA\x03", "\x02rno\x03"},
        {"misbehave refuse command R", "\x02rno\x03", "\x02rAA\x03"},
        {"misbehave refuse command all forever", "\x02rno\x03", "\x02rno\x03"},
        {"misbehave refuse command W forever", "\x02rAA\x03", "\x02rAA\x03"},
        {"misbehave silence command D forever", "\x02rAA\x03", "\x02rAA\x03"},
        {"cable out", "", ""},
        {"cable out after 1", "\x02rAA\x03", ""},
    };
    for (const Row& row : table) {
        Rig rig;
        rig.Say("cell R 127 AA");
        ASSERT_TRUE(rig.Say(row.line).ok) << row.line;
        for (const std::string expected : {row.first, row.second}) {
            rig.line.Port().Output(sim::Framed("R01270001"));
            const std::string got = rig.Received();
            if (expected == "*") {
                EXPECT_NE(got, Good) << row.line;
                EXPECT_TRUE(got.front() == sim::Stx && got.back() == sim::Etx) << row.line;
            } else {
                EXPECT_EQ(got, expected) << row.line;
            }
        }
        EXPECT_TRUE(rig.Say("behave").ok && rig.Say("cable in").ok);
        EXPECT_EQ(rig.Ask("R01270001"), "rAA") << row.line;
    }
}

TEST(Misbehaviour, WhatIsRefusedOrUnansweredIsNotDoneAndStillCounted) {
    Rig rig;
    rig.Say("misbehave refuse command W");
    EXPECT_EQ(rig.Ask("W01270001AA"), "wno");
    rig.Say("misbehave silence command W");
    EXPECT_EQ(rig.Ask("W01270001AA"), "");
    EXPECT_EQ(rig.Ask("R01270001"), "r00");
    EXPECT_EQ(rig.Figure("count W", "count"), 2);
    EXPECT_EQ(rig.Figure("counters", "refused"), 1);
    EXPECT_EQ(rig.Figure("counters", "answered"), 2);
}

TEST(Misbehaviour, ASlowAnswerComesAfterItsTimeAndALateOneBehindTheProgramsLimit) {
    Rig rig;
    rig.Say("misbehave slow 700");
    EXPECT_EQ(rig.Ask("R01270001", 699), "");
    EXPECT_EQ(rig.Received(1), "\x02r00\x03");
    rig.Say("misbehave late");
    EXPECT_EQ(rig.Ask("R01270001", 5000), "");
    EXPECT_EQ(rig.Received(500), "\x02r00\x03");
    rig.Say("misbehave late 9000");
    EXPECT_EQ(rig.Ask("R01270001", 8000), "");
    rig.Say("ignition off");  // a unit without current answers nothing any more
    EXPECT_EQ(rig.Received(2000), "");
}

TEST(Misbehaviour, SeveralWaysAddUp) {
    Rig rig;
    rig.Say("misbehave slow 300");
    rig.Say("misbehave other-letter");
    rig.Say("misbehave repeat");
    EXPECT_EQ(rig.Ask("L00460001", 299), "");
    EXPECT_EQ(rig.Received(1), "\x02i01\x03\x02i01\x03");
}

TEST(Misbehaviour, LiveFramesMisbehaveByTheLetterD) {
    Rig rig;
    rig.Say("misbehave length 46 command D at frame 2");
    rig.Say("stream on");
    std::vector<std::size_t> lengths;
    for (const std::string& frame : rig.Frames(300)) lengths.push_back(frame.size());
    EXPECT_EQ(lengths, (std::vector<std::size_t>{51, 46, 51}));
    rig.Say("cable out after 2 live");
    EXPECT_EQ(rig.Frames(1000).size(), 2U);
}

}  // namespace
