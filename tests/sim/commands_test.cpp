#include <gtest/gtest.h>

#include <memory>

#include "rig.h"
#include "sim/frame_reader.h"
#include "sim/image.h"

namespace {

struct Exchange {
    const char* command;
    const char* reply;
};

TEST(Commands, EveryFormIsAnsweredOrRefusedAsItsLetterAsks) {
    const Exchange table[] = {
        // Reads answer with two digits a byte, writes with "ok".
        {"W0300000401020aff", "wok"},
        {"R03000004", "r01020AFF"},
        {"I06000002BEEF", "iok"},
        {"L06000002", "lBEEF"},
        {"S33020002ABCD", "sok"},
        {"O33020002", "oABCD"},
        {"X327680010", "x30312E30342041303031"},
        {"PI", "pi"},
        {"PS1130000285F245F2212226A000424290008237C2A", "po"},
        // The first and the last byte of each memory, and one beyond.
        {"R20470001", "r00"},
        {"R20480001", "rno"},
        {"L10230001", "lFF"},
        {"L10230002", "lno"},
        {"L00000000", "lno"},
        {"O30710001", "ono"},
        {"O40950001", "oFF"},
        {"O40940004", "ono"},
        {"S40940004FFFFFFFF", "sno"},
        {"X327670001", "xno"},
        {"X327780002", "xFFFF"},
        // Forms that are none.
        {"R0300", "rno"},
        {"R03000001FF", "rno"},
        {"R030x0001", "rno"},
        {"W03000002FF", "wno"},
        {"W03000001GG", "wno"},
        {"W03000001F", "wno"},
        {"Z00000001", ""},
        {"", ""},
        {"r03000001", ""},
        {"PX", ""},
    };
    Rig rig;
    for (const Exchange& row : table) EXPECT_EQ(rig.Ask(row.command), row.reply) << row.command;
    EXPECT_EQ(rig.unit.Seen().Of('W'), 4);
    EXPECT_EQ(rig.unit.Seen().bad, 10);
}

TEST(Commands, ALongReadCarriesTheWholeBlock) {
    Rig rig;
    const std::string image = sim::ImageText(rig.unit.Cells());
    EXPECT_EQ(rig.Ask("L00000032"), "l" + image.substr(0, 32) + image.substr(34, 32));
    EXPECT_EQ(rig.Ask("O40800016"), "o" + image.substr(127 * 34, 32));
}

TEST(Commands, ALineThatSplitsFramesAnywhereChangesNothing) {
    Rig rig;
    rig.line.SetPace(platform::virt::Pace::ByteByByte);
    EXPECT_EQ(rig.Ask("R01270001"), "r00");
    rig.line.Port().Output("garbage\x03\x02R0127\x02W01270001AA\x03 more \x02R01270001\x03");
    EXPECT_EQ(rig.Received(), "\x02wok\x03\x02rAA\x03");

    std::vector<std::string> seen;
    sim::FrameReader reader([&](const std::string& frame) { seen.push_back(frame); });
    reader.Feed("\x02" + std::string(sim::FrameReader::Limit, 'x') + "\x03");
    reader.Feed("\x02" + std::string(sim::FrameReader::Limit + 1, 'y') + "\x03\x02z\x03");
    ASSERT_EQ(seen.size(), 2U);
    EXPECT_EQ(seen[1], "z");
    EXPECT_EQ(reader.Dropped(), static_cast<std::int64_t>(sim::FrameReader::Limit) + 3);
}

TEST(Commands, AnIdentificationCodeIsKeptAt4080AndLeavesTheMapAlone) {
    Rig rig;
    const std::string before = rig.Ask("L00000256", 0);
    EXPECT_EQ(rig.Ask("I0046000241"
                      "42"),
              "iok");
    EXPECT_EQ(rig.Ask("I01820003584159"), "iok");
    EXPECT_EQ(rig.Ask("I025000023132"), "iok");
    EXPECT_EQ(rig.Ask("I0319000148"), "iok");
    EXPECT_EQ(rig.Ask("O40800008"), "o4841584159423132");  // sensor, make, type, model, version
    EXPECT_EQ(rig.Ask("L00000256", 0), before);
}

}  // namespace
