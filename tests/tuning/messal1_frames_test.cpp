#include "tuning/messal1_frames.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using tuning::BaseMap;

using Frames = std::vector<std::string>;

Frames Bodies(std::string_view chain) {
    Frames bodies;
    while (!chain.empty()) {
        const std::size_t end = chain.find('\x03');
        bodies.emplace_back(chain.substr(1, end - 1));
        chain.remove_prefix(end + 1);
    }
    return bodies;
}

// Figures that tell their own place: revolutions 1000, 1001..., pressures 0x0201, 0x0202..., cells 0, 1...
BaseMap Numbered() {
    BaseMap map;
    for (std::size_t i = 0; i < map.Giri.size(); ++i) map.Giri[i] = 1000 + static_cast<int>(i);
    for (std::size_t i = 0; i < map.MAPV.size(); ++i) map.MAPV[i] = 0x0201 + static_cast<int>(i);
    for (std::size_t i = 0; i < map.LambdaRicco.size(); ++i) map.LambdaRicco[i] = static_cast<int>(i);
    return map;
}

TEST(MessaL1Frames, AxesGoOutWithTheirCopiesBeforeTheWorkingMemoryHasThem) {
    EXPECT_EQ(Bodies(tuning::WriteChain(tuning::AxisWrites(), Numbered())),
              (Frames{"I0000001603E803E903EA03EB03EC03ED03EE03EF", "I0304001603E803E903EA03EB03EC03ED03EE03EF",
                      "I0016001403F003F103F203F303F403F503F6", "I0320001403F003F103F203F303F403F503F6", "S3150000203F7",
                      "I0032001602010202020302040205020602070208", "I0336001602010202020302040205020602070208",
                      "S3808001600000000000000000000000000000000", "W1024001603E903EA03EB03EC03ED03EE03EF03F0",
                      "W1040001203F103F203F303F403F503F6", "W0039000203F7", "W0217000603E802010208",
                      "W10520012020202030204020502060207"}));
}

TEST(MessaL1Frames, AColumnGoesOutCellByCellThenWithItsCopy) {
    EXPECT_EQ(Bodies(tuning::WriteChain(tuning::LiveColumnWrites(0), Numbered())),
              (Frames{"W1064000100", "W1065000101", "W1066000102", "W1067000103", "W1068000104", "W1069000105",
                      "W1070000106", "W1071000107"}));
    EXPECT_EQ(Bodies(tuning::WriteChain(tuning::StoredColumnWrites(0), Numbered())),
              (Frames{"I004800080001020304050607", "I035200080001020304050607"}));
    EXPECT_EQ(Bodies(tuning::WriteChain(tuning::LiveColumnWrites(15), Numbered())).back(), "W119100017F");
    EXPECT_EQ(Bodies(tuning::WriteChain(tuning::StoredColumnWrites(15), Numbered())),
              (Frames{"I0168000878797A7B7C7D7E7F", "I0472000878797A7B7C7D7E7F"}));
}

TEST(MessaL1Frames, FiguresAreHeldWithinTheirCells) {
    BaseMap map;
    map.Giri[15] = 70000;
    map.MAPV[0] = -1;
    map.LambdaRicco[0] = 300;
    const Frames axes = Bodies(tuning::WriteChain(tuning::AxisWrites(), map));
    EXPECT_EQ(axes[4], "S31500002FFFF");
    EXPECT_EQ(axes[11], "W02170006000000000000");
    EXPECT_EQ(Bodies(tuning::WriteChain(tuning::LiveColumnWrites(0), map)).front(), "W10640001FF");
}

TEST(MessaL1Frames, OnlyAReplyOfTheVeryLengthIsTaken) {
    const auto reads = tuning::OpeningReads();
    const std::string revs = "03E803E903EA03EB03EC03ED03EE03ef";
    struct Case {
        std::string payload;
        bool taken;
    };
    const Case cases[] = {{revs, true}, {revs.substr(2), false},          {revs + "00", false}, {"no", false},
                          {"", false},  {revs.substr(0, 31) + "g", false}};
    for (const Case& c : cases) {
        BaseMap map;
        EXPECT_EQ(tuning::TakeReply(reads.front(), c.payload, map), c.taken) << c.payload;
        EXPECT_EQ(map.Giri[0], c.taken ? 1000 : 0) << c.payload;
        EXPECT_EQ(map.Giri[7], c.taken ? 1007 : 0) << c.payload;
        EXPECT_EQ(map.Giri[8], 0) << c.payload;
    }
    BaseMap map = Numbered();
    ASSERT_TRUE(tuning::TakeReply(reads.back(), "111122223333", map));
    EXPECT_EQ(map.Giri[0], 1000) << "the working memory only shows that it answers";
    EXPECT_EQ(map.MAPV[7], 0x0208);
}

}  // namespace
