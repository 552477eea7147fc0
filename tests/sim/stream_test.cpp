#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "rig.h"
#include "sim/image.h"

namespace {

int Number(const std::string& frame, std::size_t position, std::size_t width) {
    return std::stoi(FieldOf(frame, position, width));
}

// The last frame after some time under the lines given.
std::string After(Rig& rig, std::initializer_list<const char*> lines, std::int64_t milliseconds) {
    for (const char* line : lines) EXPECT_TRUE(rig.Say(line).ok) << line;
    const auto frames = rig.Frames(milliseconds);
    return frames.empty() ? std::string() : frames.back();
}

TEST(Stream, FramesHaveTheirLengthTheirRateAndDigitsInEveryField) {
    struct Row {
        const char* length;
        const char* rate;
        std::size_t characters;
        std::size_t inTenSeconds;
    };
    const Row table[] = {{"length 51", "rate 10", 51, 100},
                         {"length 47", "rate 10", 47, 100},
                         {"length 51", "rate 0.5", 51, 5},
                         {"length 47", "rate 200", 47, 2000}};
    for (const Row& row : table) {
        Rig rig;
        rig.Say(row.length);
        rig.Say(row.rate);
        rig.Say("stream on");
        const auto frames = rig.Frames(10000);
        EXPECT_EQ(frames.size(), row.inTenSeconds);
        for (const std::string& frame : frames) {
            ASSERT_EQ(frame.size(), row.characters);
            EXPECT_EQ(frame.substr(0, 2),
                      "\x02"
                      "D");
            for (const std::size_t position : {3, 7, 11, 15, 19, 23}) {
                EXPECT_LE(Number(frame, position, 4), position == 3 ? 9999 : 1023);
            }
            EXPECT_LE(Number(frame, 27, 3), 255);
            EXPECT_LE(Number(frame, 30, 3), 255);
            EXPECT_NE(std::string("RM").find(frame[35]), std::string::npos);
        }
    }
}

TEST(Stream, AWarmEngineIdlesOnGasInClosedLoop) {
    Rig rig;
    rig.Say("stream on");
    std::set<char> sides;
    for (const std::string& frame : rig.Frames(10000)) {
        EXPECT_NEAR(Number(frame, 3, 4), 850, 20);
        EXPECT_NEAR(Number(frame, 15, 4), 302, 3);
        EXPECT_EQ(FieldOf(frame, 35, 1), "1");    // idle
        EXPECT_EQ(FieldOf(frame, 38, 3), "214");  // closed loop, gas, two lamps and one
        sides.insert(frame[35]);
    }
    EXPECT_EQ(sides, (std::set<char>{'M', 'R'}));
}

TEST(Stream, TheProbeSwingsBeyondBothThresholdsOfItsType) {
    struct Row {
        const char* probe;
        int low;
        int high;
    };
    for (const Row& row : {Row{"probe 0", 90, 100}, Row{"probe 1", 210, 220}, Row{"probe 2", 450, 500}}) {
        Rig rig;
        for (const char* line : {"image blank", "throttle 15", "stream on"}) rig.Say(line);
        rig.Say(row.probe);
        rig.Frames(3000);
        int crossings = 0;
        bool above = false;
        for (const std::string& frame : rig.Frames(30000)) {
            const int lambda = Number(frame, 7, 4);
            if (!above && lambda > row.high) ++crossings;
            if (lambda > row.high) above = true;
            if (lambda < row.low) above = false;
        }
        EXPECT_GE(crossings, 10) << row.probe;
    }
}

TEST(Stream, TheDriverIsSeenInTheFrame) {
    Rig rig;
    std::string frame = After(rig, {"stream on", "throttle 50", "load 20"}, 6000);
    EXPECT_EQ(Number(frame, 11, 4), 510);
    EXPECT_GT(Number(frame, 3, 4), 3000);
    EXPECT_EQ(FieldOf(frame, 35, 1), "2");
    frame = After(rig, {"throttle 0"}, 600);
    EXPECT_EQ(FieldOf(frame, 35, 1), "4");  // cut-off
    EXPECT_LT(Number(frame, 15, 4), 300);
    frame = After(rig, {"throttle 100", "load 90"}, 3000);
    EXPECT_EQ(FieldOf(frame, 35, 1), "3");  // full load
    frame = After(rig, {"throttle 0", "load 0", "switch petrol", "temperature 60", "level 130"}, 8000);
    EXPECT_EQ(FieldOf(frame, 38, 3), "101");
    EXPECT_EQ(Number(frame, 19, 4), 60);
    EXPECT_NEAR(Number(frame, 23, 4), 130, 1);
    frame = After(rig, {"switch 7", "rpm 2500", "throttle-sensor inverted"}, 3000);
    EXPECT_EQ(FieldOf(frame, 39, 1), "7");
    EXPECT_EQ(Number(frame, 3, 4), 2500);
    EXPECT_EQ(Number(frame, 11, 4), 943);
    frame = After(rig, {"rpm 0"}, 3000);
    EXPECT_EQ(Number(frame, 3, 4), 0);
    EXPECT_NEAR(Number(frame, 15, 4), 498, 1);  // the pressure outside
    frame = After(rig, {"sensor integrated"}, 100);
    EXPECT_NEAR(Number(frame, 15, 4), 374, 1);
}

TEST(Stream, TheEngineStartsByTheStarterAndStandsAfterTheIgnition) {
    Rig rig;
    EXPECT_EQ(After(rig, {"stream on", "ignition off"}, 2000), "");
    EXPECT_FALSE(rig.Say("starter on").ok);
    EXPECT_EQ(Number(After(rig, {"ignition on"}, 2000), 3, 4), 0);
    EXPECT_GT(Number(After(rig, {"starter on"}, 500), 3, 4), 100);
    EXPECT_NEAR(Number(After(rig, {}, 5000), 3, 4), 850, 20);
}

TEST(Stream, OnAutomaticTheUnitChangesToGasWhenWarmAndFastEnough) {
    Rig rig;
    EXPECT_EQ(FieldOf(After(rig, {"engine stopped", "switch auto", "temperature 20", "stream on", "starter on"}, 4000),
                      38, 2),
              "52");
    EXPECT_EQ(FieldOf(After(rig, {"throttle 25"}, 4000), 38, 1), "5");
    EXPECT_EQ(FieldOf(After(rig, {"throttle 0"}, 6000), 38, 1), "5");
    EXPECT_EQ(FieldOf(After(rig, {"temperature 60"}, 3000), 38, 1), "5");
    EXPECT_EQ(FieldOf(After(rig, {"throttle 25"}, 4000), 38, 1), "2");
    EXPECT_EQ(FieldOf(After(rig, {"throttle 0"}, 4000), 38, 1), "2");
}

// A try-out must be seen: what is written to the working memory changes what the engine does.
TEST(Stream, CellsOfTheWorkingMemoryActOnTheEngineAtOnce) {
    struct Row {
        const char* line;
        const char* command;
        std::size_t position;  // of the field that tells
        std::size_t width;
        const char* before;
        const char* after;
    };
    const Row table[] = {
        {"throttle 0", "W0181000401F401F4", 35, 1, "1", "2"},  // idle ends at 500 revolutions
        {"throttle 0", "W01270001AA", 33, 1, "0", "3"},        // learning
        {"throttle 0", "W01270001FF", 33, 1, "0", "1"},        // calibration
        {"throttle 0", "W01160002012C", 40, 1, "4", "5"},      // full tank at 300 counts
        {"throttle 40", "W0039000209C4", 35, 1, "2", "5"},     // over-speed at 2500
        {"rpm 3000", "W006600020064", 3, 4, "3000", "0300"},   // divider of revolutions
    };
    for (const Row& row : table) {
        Rig rig;
        EXPECT_EQ(FieldOf(After(rig, {row.line, "stream steady"}, 3000), row.position, row.width), row.before)
            << row.command;
        rig.Say("cell R 51 01F4");
        rig.line.Port().Output(sim::Framed(row.command));
        EXPECT_EQ(FieldOf(After(rig, {}, 3000), row.position, row.width), row.after) << row.command;
    }
}

// Idle is entered below one threshold and left above another, higher one.
TEST(Stream, IdleIsLeftAtMoreRevolutionsThanItIsEntered) {
    Rig rig;
    const auto zone = [&rig](const char* line) { return FieldOf(After(rig, {line, "stream steady"}, 3000), 35, 1); };
    struct Row {
        const char* line;
        const char* zone;
    };
    for (const Row& row : {Row{"rpm 1000", "1"}, Row{"rpm 1200", "1"}, Row{"rpm 1400", "2"}, Row{"rpm 1200", "2"},
                           Row{"rpm 1000", "1"}, Row{"rpm 1200", "1"},
                           // entered below 900, left above 1150
                           Row{"cell R 51 0384", "1"}, Row{"cell R 181 047E", "2"}, Row{"rpm 1000", "2"},
                           Row{"rpm 850", "1"}, Row{"rpm 1100", "1"}})
        EXPECT_EQ(zone(row.line), row.zone) << row.line;
}

TEST(Stream, TheStepperFollowsTheMapAndTheSpeedOfTheLoop) {
    Rig rig;
    rig.Say("stream steady");
    const auto swing = [&] {
        int low = 255;
        int high = 0;
        for (const std::string& frame : rig.Frames(10000)) {
            low = std::min(low, Number(frame, 27, 3));
            high = std::max(high, Number(frame, 27, 3));
        }
        return high - low;
    };
    rig.Frames(3000);
    const int slow = swing();
    rig.Ask("W00880002000A");  // a short period: a fast stepper
    EXPECT_GT(swing(), 2 * slow);
}

TEST(Stream, StatusDigitsAndFieldsCanBeForcedAndReleased) {
    Rig rig;
    std::string frame =
        After(rig, {"stream on", "status 1 9", "status 4 A", "field GIRI 12x4", "field 47 7", "field 34 \\x01"}, 100);
    EXPECT_EQ(FieldOf(frame, 39, 1), "9");
    EXPECT_EQ(FieldOf(frame, 38, 1), "A");
    EXPECT_EQ(FieldOf(frame, 3, 4), "12x4");
    EXPECT_EQ(FieldOf(frame, 34, 1), "\x01");
    EXPECT_EQ(FieldOf(frame, 47, 4), "   7");
    frame = After(rig, {"length 47", "field giri auto", "status 1 auto"}, 100);
    EXPECT_EQ(frame.size(), 47U);
    EXPECT_EQ(frame.back(), sim::Etx);
    EXPECT_EQ(FieldOf(frame, 39, 1), "1");
    EXPECT_NEAR(Number(frame, 3, 4), 850, 20);
}

// Behind an answer the stream rests, so that a block read is not held up by live frames; steady leaves no gap.
TEST(Stream, TheStreamRestsBehindAnAnswerUnlessItIsSteady) {
    for (const bool steady : {false, true}) {
        Rig rig;
        rig.Say(steady ? "stream steady" : "stream on");
        rig.Frames(1000);
        std::size_t live = 0;
        for (int i = 0; i < 10; ++i) {
            rig.line.Port().Output(sim::Framed("L00000032"));
            for (const std::string& frame : rig.Frames(100)) live += frame[1] == 'D' ? 1U : 0U;
        }
        EXPECT_EQ(live, steady ? 10U : 0U);
        EXPECT_EQ(rig.Frames(1000).size(), steady ? 10U : 9U);
    }
}

TEST(Stream, TheSameSeedGivesTheSameBytesAndAnotherSeedOthers) {
    const auto run = [](std::uint32_t seed, std::initializer_list<const char*> looks) {
        Rig rig(seed);
        rig.Say("stream on");
        rig.unit.Load(sim::StandardScenario());
        std::string all;
        for (int i = 0; i < 50; ++i) {
            for (const char* look : looks) rig.Say(look);
            all += rig.Received(1000);
        }
        return all;
    };
    const std::string first = run(7, {});
    EXPECT_EQ(first, run(7, {"state", "read R 0 100"}));  // looking on disturbs nothing
    EXPECT_NE(first, run(8, {}));
}

}  // namespace
