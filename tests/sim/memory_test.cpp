#include <gtest/gtest.h>

#include "rig.h"
#include "sim/cells.h"
#include "sim/image.h"

namespace {

TEST(Memory, InternaIsWrittenInWordsAndTheOthersByteByByte) {
    struct Row {
        const char* command;
        const char* reply;
        const char* look;
        const char* then;
    };
    const Row table[] = {
        {"S3350000112", "sno", "O33500002", "o028A"},  // one byte is no word
        {"S33500003123456", "sno", "O33500004", "o028A00FF"}, {"S335000021234", "sok", "O33500002", "o1234"},
        {"S33510002AA55", "sok", "O33500003", "o12AA55"},  // an odd address is taken as it stands
        {"W0301000177", "wok", "R03000003", "r007700"},       {"I0601000177", "iok", "L06000003", "lFF77FF"},
    };
    Rig rig;
    for (const Row& row : table) {
        EXPECT_EQ(rig.Ask(row.command), row.reply) << row.command;
        EXPECT_EQ(rig.Ask(row.look), row.then) << row.command;
    }
}

TEST(Memory, AByteCellStoredWithItsFillLeavesItsNeighbourAlone) {
    Rig rig;
    ASSERT_EQ(rig.Ask("O31660004"), "o050A0100");
    EXPECT_EQ(rig.Ask("S3166000232FF"), "sok");
    EXPECT_EQ(rig.Ask("S3167000240FF"), "sok");
    EXPECT_EQ(rig.Ask("O31660004"), "o32400100");
    EXPECT_EQ(rig.Ask("S33520002FFFF"), "sok");  // a choice stored as 255
    EXPECT_EQ(rig.Ask("O33520003"), "oFFFF00");
    EXPECT_EQ(rig.Ask("S30720002FFFF"), "sok");  // a word stays a word
    EXPECT_EQ(rig.Ask("O30720002"), "oFFFF");

    rig.Say("fill write");
    EXPECT_EQ(rig.Ask("S3166000233FF"), "sok");
    EXPECT_EQ(rig.Ask("O31660004"), "o33FF0100");
}

TEST(Memory, ProtectedCellsRefuseAWriteThatTouchesThem) {
    Rig rig;
    rig.Say("protect 4016 46");
    EXPECT_EQ(rig.Ask("S40140002FFFF"), "sok");
    EXPECT_EQ(rig.Ask("S40140004FFFFFFFF"), "sno");
    EXPECT_EQ(rig.Ask("S40600002FFFF"), "sno");
    EXPECT_EQ(rig.Ask("S40620002FFFF"), "sok");
    rig.Say("protect off");
    EXPECT_EQ(rig.Ask("S40600002FFFF"), "sok");
}

TEST(Memory, TheIgnitionEmptiesTheWorkingMemoryAndFillsItFromThePermanentOne) {
    Rig rig;
    EXPECT_EQ(rig.Ask("W005100020640"), "wok");  // tried out
    EXPECT_EQ(rig.Ask("W0127000"
                      "1AA"),
              "wok");
    EXPECT_EQ(rig.Ask("W0300000"
                      "155"),
              "wok");
    EXPECT_EQ(rig.Ask("S311600020578"), "sok");  // stored: the live copy does not follow by itself
    EXPECT_EQ(rig.Ask("R01810002"), "r0514");
    rig.Say("ignition off");
    EXPECT_EQ(rig.Ask("R00510002", 1000), "");
    rig.Say("ignition on");
    EXPECT_EQ(rig.Ask("R00510002"), "r044C");
    EXPECT_EQ(rig.Ask("R01810002"), "r0578");
    EXPECT_EQ(rig.Ask("R01270001"), "r00");
    EXPECT_EQ(rig.Ask("R03000001"), "r00");
}

TEST(Memory, EveryLiveCopyEqualsItsPermanentCellsAfterTheIgnition) {
    sim::Memory memory;
    sim::ProgramStandardImage(memory);
    for (const sim::LiveCopy& copy : sim::LiveCopies) {
        const auto from = copy.permanent >= 3072 ? sim::Area::Interna : sim::Area::Esterna;
        EXPECT_EQ(memory.Read(from, copy.permanent, copy.count),
                  memory.Read(sim::Area::Working, copy.working, copy.count))
            << copy.permanent;
    }
}

TEST(Memory, AnImageGoesToTextAndBackUnchangedAndABadOneIsRefused) {
    sim::Memory memory;
    sim::ProgramStandardImage(memory);
    const std::string text = sim::ImageText(memory);
    ASSERT_EQ(text.size(), 4352U);
    sim::Memory other;
    EXPECT_FALSE(other.Programmed());
    EXPECT_TRUE(sim::LoadImageText(text, other));
    EXPECT_TRUE(other.Programmed());
    EXPECT_EQ(sim::ImageText(other), text);

    sim::Memory blank;
    const std::string erased = sim::ImageText(blank);
    std::string wrong = text;
    wrong[40] = 'x';
    std::string newlines = text;
    newlines[32] = '0';
    for (const std::string& bad : {text.substr(1), text + "0", wrong, newlines, std::string()}) {
        EXPECT_FALSE(sim::LoadImageText(bad, blank));
        EXPECT_EQ(sim::ImageText(blank), erased);
    }
}

// What the unit ships with must not stop a page of the tuning at its own figures: the chains of limits hold.
TEST(Memory, TheStandardImageIsAConsistentInstallation) {
    sim::Memory memory;
    sim::ProgramStandardImage(memory);
    const auto word = [&](int address) { return memory.Word(sim::Area::Interna, address); };
    const std::vector<std::vector<int>> rising = {
        {3184, 3188, 3190, 3192, 3194, 3186, 3196},  // tank
        {3120, 3126, 3124, 3122},                    // lambda
        {3120, 3134, 3132, 3122},
        {3130, 3128, 3122},
        {3088, 3092, 3094, 3090},  // throttle
        {3104, 3110, 3108, 3106},  // pressure
        {3136, 3138, 3140, 3150},  // revolutions
        {3144, 3142, 3150},
        {3148, 3150},
        {3328, 3330, 3332, 3334, 3336, 3338, 3340, 3342},
        {3344, 3346, 3348, 3350},
    };
    for (const auto& chain : rising) {
        for (std::size_t i = 1; i < chain.size(); ++i) EXPECT_LE(word(chain[i - 1]), word(chain[i])) << chain[i];
    }
    for (int i = 2; i < 30; i += 2) {
        EXPECT_GT(memory.Word(sim::Area::Esterna, i), memory.Word(sim::Area::Esterna, i - 2));
    }
    for (int i = 48; i < 176; ++i) {
        const int value = memory.Byte(sim::Area::Esterna, i);
        EXPECT_EQ(value, memory.Byte(sim::Area::Esterna, i + 304));
        EXPECT_TRUE(value >= 5 && value <= 210) << i;
    }
}

}  // namespace
