// What the fitter does while a store runs, frame by frame, beside what the unit confirms.
#include <gtest/gtest.h>

#include "tuning/page_rig.h"

namespace {

using pages::Reason;
using tuning_test::PageRig;

TEST(RunningStore, WhatIsTypedWhileAStoreRunsIsNotTakenForStored) {
    PageRig rig("MessaP");
    rig.Open(6);
    rig.Enter("ValFG(0)", "6000");
    ASSERT_TRUE(rig.Press("InMemor").ok);
    rig.Enter("ValFG(0)", "6100");
    ASSERT_TRUE(rig.Stack().Type(rig.Control("ValFG(1)"), "57").ok);
    ASSERT_TRUE(rig.Finish());
    EXPECT_EQ(rig.Dato("ValFG(0)", 0), "6000");
    EXPECT_EQ(rig.Dato("ValFG(0)", 1), "6100");
    EXPECT_EQ(rig.Field("ValFG(1)"), "57") << "nothing that is being typed is lost";
    EXPECT_TRUE(rig.Control("ValFG(0)").Changed());
}

TEST(RunningStore, ASpeedFixedWhileAStoreRunsLocksTheFiguresThatWereStored) {
    PageRig rig("MessaP", {"cell O 3842 06"});
    rig.Open(9);
    rig.Enter("ValAuto(3)", "77");
    ASSERT_TRUE(rig.Press("InMemor").ok);
    rig.Choose("VeloAuto", 2);
    ASSERT_TRUE(rig.Finish());
    EXPECT_EQ(rig.Word(3798), 77);
    EXPECT_EQ(rig.Field("ValAuto(3)"), "77");
    EXPECT_FALSE(rig.Control("ValAuto(3)").Changed());
    EXPECT_EQ(rig.Stack().Type(rig.Control("ValAuto(3)"), "5").why, Reason::FixedSpeed);
    rig.Chain("InMemor");
    EXPECT_EQ(rig.Word(3798), 77) << "what cannot be edited is not changed";
}

TEST(RunningStore, ACellOfTwoRowsHoldsOneFigureAlsoWhenItIsEditedWhileAStoreRuns) {
    PageRig rig("MessaP");
    rig.Open(4);
    rig.Press("TastoTrans");
    rig.EnterCell("TransitT", 1, 2, "2050");
    ASSERT_TRUE(rig.Press("InMemor").ok);
    rig.EnterCell("TransitT", 1, 2, "2000");  // as it was read
    ASSERT_TRUE(rig.Finish());
    EXPECT_EQ(rig.Word(3586), 2050);
    for (const char* row : {"TransitT(1)", "TransitT(6)"}) {
        EXPECT_EQ(rig.Dato(row, 0), "2050") << row;
        EXPECT_EQ(rig.Dato(row, 1), "2000") << row;
    }
    rig.Chain("InMemor");
    EXPECT_EQ(rig.Word(3586), 2000);
}

// No count of the reduced display survives being shown and converted back.
TEST(RunningStore, ASelectorMovedWhileAStoreRunsLeavesTheCountsOfItsThresholds) {
    PageRig rig("MessaP", {"cell O 3102 00", "cell O 3112 01F101F2"});
    rig.program.shell.state.RisoluzionePiena = shell::False;
    rig.Open(2);
    ASSERT_TRUE(rig.Press("InMemor").ok);
    rig.Choose("SogliaMin", 1);
    ASSERT_TRUE(rig.Finish());
    rig.Chain("InMemor");
    EXPECT_EQ(rig.Word(3112), 0x1F1);
    EXPECT_EQ(rig.Word(3114), 0x1F2);
}

TEST(RunningStore, LimitsFollowTheirNeighbourFromTheFrameThatStoresIt) {
    PageRig rig("MessaP");
    rig.Open(2);
    rig.Enter("ValMin(5)", std::to_string(std::stoi(rig.Dato("ValMin(5)", 1)) + 3));
    const double before = rig.Record("ValMin(6)").Min;
    ASSERT_TRUE(rig.Press("InMemor").ok);
    const std::string figure = rig.Dato("ValMin(5)", 1);
    ASSERT_TRUE(rig.RunUntil([&] { return rig.Dato("ValMin(5)", 0) == figure; }, 60000));
    EXPECT_NE(rig.State(), eculink::Idle) << "the store runs on";
    EXPECT_EQ(rig.Record("ValMin(6)").Min, before + 3);
}

}  // namespace
