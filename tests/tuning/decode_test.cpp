#include <gtest/gtest.h>

#include "memory/image.h"
#include "support/simulated.h"
#include "tuning/page_rig.h"
#include "tuning/parameter_names.h"

namespace {

using support::Simulated;

// A unit with these cells of INTERNA, recognised; for a blank one the marker cells are erased again.
struct Decoded : Simulated {
    Decoded(bool blank, const std::vector<std::string>& cells) {
        for (const std::string& cell : cells) Sim("cell O " + cell);
        if (blank) Sim("cell O 3072 FFFF");
        if (!Connect()) throw std::runtime_error("the unit was not recognised");
    }
    tuning::Record& Record(const char* name) { return program.tuning.memoria[tuning::FindRecord(name).value().number]; }
};

// Live picture and pages turn a pressure by the same kind of sensor, whatever the image holds.
TEST(Decoding, OneKindOfSensorForTheLivePictureAndThePages) {
    struct Row {
        bool blank;
        const char* cell;
        int type;
    };
    for (const Row& row :
         {Row{false, "3312 FF", 0}, Row{false, "3312 11", 1}, Row{false, "3312 00", 2}, Row{false, "3312 42", 2},
          Row{true, "3312 FF", 0}, Row{true, "3312 11", 0}, Row{true, "3312 00", 0}}) {
        Decoded d(row.blank, {row.cell});
        EXPECT_EQ(d.program.link.state.mapTable.tipoSensoreMAP, row.type) << row.blank << row.cell;
        EXPECT_EQ(d.program.tuning.CurrentContext().tabella.tipoSensoreMAP, row.type) << row.blank << row.cell;
    }
}

// A blank image says nothing: no figure of it bounds or fills anything, whatever its cells hold.
TEST(Decoding, ABlankImageGivesNoFigures) {
    const std::vector<std::string> cells{"3120 0064", "3122 00C8", "3136 05DC", "3150 1838", "3140 0BB8", "3088 0010"};
    Decoded sound(false, cells);
    Decoded blank(true, cells);
    EXPECT_EQ(sound.Record("ValLam(1)").Min, 100);
    EXPECT_EQ(sound.Record("ValCut(0)").Max, 6200);
    EXPECT_EQ(blank.program.tuning.calibration.TPS[1].Letto, 0);
    struct Row {
        const char* name;
        double least, most;
    };
    for (const Row& row : {Row{"ValLam(1)", 0, 65535}, Row{"ValLam(2)", 0, 65535}, Row{"ValPC(11)", 0, 65535},
                           Row{"ValCut(0)", 0, 65535}, Row{"ValPC(0)", 0, 65535}, Row{"ValMin(0)", 500, 65535},
                           Row{"ValMin(6)", 0, 65535}, Row{"Memoria(361)", 500, 6200}, Row{"Memoria(333)", 0, 143}}) {
        EXPECT_EQ(blank.Record(row.name).Min, row.least) << row.name;
        EXPECT_EQ(blank.Record(row.name).Max, row.most) << row.name;
    }
    for (const tuning::Record& record : blank.program.tuning.memoria) {
        EXPECT_LE(record.Min, record.Max) << record.EE;
        EXPECT_EQ(record.Dato[0].size(), 8U) << record.EE;
    }
}

// Pages can be opened on it all the same: what they read bounds nothing either.
TEST(Decoding, ABlankImageBoundsNothingAfterItsPagesHaveBeenRead) {
    struct Case {
        const char* dialog;
        int page;
        const char* field;
        const char* figure;
    };
    for (const Case& c : {Case{"Imposta", 1, "ValSerb(2)", "300"}, Case{"MessaP", 1, "ValCut(0)", "1500"},
                          Case{"MessaP", 2, "ValMin(0)", "1000"}}) {
        tuning_test::PageRig rig(c.dialog, {"image blank"});
        const auto unbounded = [&](const char* when) {
            for (const tuning::Record& record : rig.program.tuning.memoria)
                EXPECT_LT(record.Min, std::max(record.Max, 1.0)) << c.dialog << c.page << when << record.EE;
            EXPECT_EQ(rig.Record("ValCut(0)").Min, 0) << when;
            EXPECT_EQ(rig.Record("ValLam(1)").Min, 0) << when;
            EXPECT_EQ(rig.Record("ValCut(3)").Min, 0) << when;
        };
        rig.Open(c.page);
        unbounded("read");
        rig.Enter(c.field, c.figure);
        EXPECT_FALSE(rig.Control(c.field).Refused()) << c.field << rig.Shown();
        unbounded("edited");
        rig.Chain("Esci");
        unbounded("left");
    }
    tuning_test::PageRig rig("Imposta", {"image blank"});
    rig.Open(1);
    rig.Enter("ValSerb(2)", "300");
    EXPECT_EQ(rig.Record("ValSerb(3)").Min, 300) << "the levels still keep their order";
    EXPECT_EQ(rig.Record("ValSerb(1)").Max, 300);
}

// The other display changes what a limit is shown as, not where it comes from.
TEST(Decoding, ABlankImageStaysWithoutFiguresInTheOtherDisplay) {
    Decoded d(true, {"3136 05DC"});
    for (const auto& changed : d.program.shell.hooks.resolutionChanged) changed();
    EXPECT_EQ(d.Record("ValCut(0)").Min, 0);
}

TEST(Decoding, ACellOfAnImageTextIsReadWhereItsRecordSays) {
    Decoded d(false, {"3150 1838"});
    const std::string& image = d.program.tuning.image;
    EXPECT_EQ(tuning::ValoreCella(image, d.Record("ValFG(0)")), 0x1838U);
    EXPECT_EQ(tuning::ValoreCella(image, d.Record("Giri_ResCO(0)")),
              static_cast<std::uint32_t>(d.unit.Cells().Byte(sim::Area::Esterna, 176)));
    EXPECT_EQ(tuning::ValoreCella("", d.Record("ValFG(0)")), 65535U);
}

}  // namespace
