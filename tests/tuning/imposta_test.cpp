#include "tuning/imposta.h"

#include <gtest/gtest.h>

#include "memory/image.h"
#include "sim/image.h"
#include "tuning/page_rig.h"

namespace {

using pages::Reason;
using tuning_test::PageRig;
using Frames = PageRig::Frames;

TEST(TankLevels, ALevelIsTakenFromTheSensorWithTwoPresses) {
    PageRig rig("Imposta", {"field livello 250"});
    rig.Open(1);
    EXPECT_EQ(rig.Field("Acquisisci(2)"), rig.Text("ACQUISISCI.0", "IMPOSTA"));
    ASSERT_TRUE(rig.Press("Acquisisci(2)").ok);
    EXPECT_EQ(rig.Field("Acquisisci(2)"), rig.Text("ACQUISISCI.1", "IMPOSTA"));
    rig.Sim("field livello 260");
    rig.Run(2000);
    EXPECT_EQ(rig.Field("ValSerb(2)"), "260") << "the field follows the sensor";
    EXPECT_EQ(rig.Dato("ValSerb(2)", 1), "230");
    ASSERT_TRUE(rig.Press("Acquisisci(2)").ok);
    EXPECT_EQ(rig.Dato("ValSerb(2)", 1), "260");
    EXPECT_EQ(rig.Field("Acquisisci(2)"), rig.Text("ACQUISISCI.0", "IMPOSTA"));
    EXPECT_EQ(rig.Control("Applica(0)").Why(), Reason::None);
    rig.Sim("field livello 270");
    rig.Run(2000);
    EXPECT_EQ(rig.Field("ValSerb(2)"), "260");

    // A level that would cross its neighbour is refused like a typed one.
    rig.Press("Acquisisci(1)");
    rig.Run(1000);
    rig.Press("Acquisisci(1)");
    EXPECT_EQ(rig.Shown(), "125 - 260");
    EXPECT_TRUE(rig.Control("ValSerb(1)").Refused());
    EXPECT_EQ(rig.Dato("ValSerb(1)", 1), "143");
    rig.Enter("ValSerb(1)", "143");

    // Only one is armed; a store takes none that is.
    rig.Press("Acquisisci(3)");
    rig.Press("Acquisisci(4)");
    EXPECT_EQ(rig.Field("Acquisisci(3)"), rig.Text("ACQUISISCI.0", "IMPOSTA"));
    EXPECT_EQ(rig.Field("ValSerb(3)"), "318");
    rig.Chain("InMemor");
    EXPECT_EQ(rig.Field("ValSerb(4)"), "405");
    EXPECT_EQ(rig.Word(3190), 260);
    EXPECT_EQ(rig.Word(3194), 405);
}

TEST(TankLevels, WhatIsTypedIsNotTheLiveLevel) {
    PageRig rig("Imposta", {"field livello 260"});
    rig.Open(1);
    rig.Run(500);
    rig.Press("Acquisisci(2)");
    rig.Run(500);
    EXPECT_EQ(rig.Field("ValSerb(2)"), "260");
    rig.Stack().FocusOn(rig.Control("ValSerb(2)"));
    rig.Stack().Leave(rig.Control("ValSerb(2)"));
    EXPECT_EQ(rig.Dato("ValSerb(2)", 1), "230") << "passing through the field takes nothing";
    EXPECT_EQ(rig.Field("Acquisisci(2)"), rig.Text("ACQUISISCI.1", "IMPOSTA"));
    rig.Stack().Type(rig.Control("ValSerb(2)"), "240");
    EXPECT_EQ(rig.Field("Acquisisci(2)"), rig.Text("ACQUISISCI.0", "IMPOSTA")) << "typing disarms";
    rig.Run(1000);
    EXPECT_EQ(rig.Field("ValSerb(2)"), "240");
    rig.Stack().Leave(rig.Control("ValSerb(2)"));
    EXPECT_EQ(rig.Dato("ValSerb(2)", 1), "240");
    // A refused figure gives way to the level.
    rig.Enter("ValSerb(2)", "900");
    ASSERT_TRUE(rig.Control("ValSerb(2)").Refused());
    EXPECT_EQ(rig.Press("Acquisisci(3)").why, Reason::ValueRefused) << "to its own alone";
    ASSERT_TRUE(rig.Press("Acquisisci(2)").ok);
    EXPECT_FALSE(rig.Control("ValSerb(2)").Refused());
    EXPECT_EQ(rig.Field("ValSerb(2)"), "260");
    rig.Sim("field livello \"****\"");
    rig.Run(500);
    const int beeps = rig.Beeps();
    ASSERT_TRUE(rig.Press("Acquisisci(2)").ok);
    EXPECT_EQ(rig.Beeps(), beeps + 1);
    EXPECT_EQ(rig.Shown(), rig.Text("ERRORE_18", "ERRORI"));
    EXPECT_EQ(rig.Field("ValSerb(2)"), "240");
    EXPECT_EQ(rig.Field("Acquisisci(2)"), rig.Text("ACQUISISCI.0", "IMPOSTA"));
}

TEST(TankLevels, LampsBarAndCurveShowTheLiveLevel) {
    PageRig rig("Imposta");
    rig.Open(1);
    struct Case {
        int level;
        const char* reserve;
        int lit;  // of the five other lamps
        const char* percent;
        const char* name;
    };
    // 125 143 230 318 405 500 528
    for (const Case& c : {Case{100, "red", 0, "0", ""}, Case{130, "red", 0, "1", "LIVELLI.0"},
                          Case{150, "red", 0, "6", "LIVELLI.1"}, Case{240, "white", 1, "29", "LIVELLI.2"},
                          Case{410, "white", 3, "71", "LIVELLI.4"}, Case{600, "white", 5, "100", "LIVELLI.6"}}) {
        rig.Sim("field livello " + std::to_string(c.level));
        int most = 0;
        bool blinks = false;
        int before = -1;
        std::string reserve = "white";
        rig.Run(500);
        for (int i = 0; i < 8; ++i) {
            rig.Run(250);
            int lit = 0;
            for (const char* lamp : {"LedLiv1", "LedLiv2", "LedLiv3", "LedLive", "LedMax"})
                lit += rig.Control(lamp).Colour() == "green" ? 1 : 0;
            const bool red = rig.Control("LedRis").Colour() == "red";
            if (red) reserve = "red";
            const int now = lit + (red ? 1 : 0);
            if (before >= 0 && now != before) blinks = true;
            before = now;
            most = std::max(most, lit);
        }
        EXPECT_EQ(reserve, c.reserve) << c.level;
        EXPECT_EQ(most, c.lit) << c.level;
        EXPECT_TRUE(blinks) << "the lamp of the present level " << c.level;
        EXPECT_EQ(rig.Field("BarraS"), c.percent) << c.level;
        EXPECT_EQ(rig.Field("LabLivello"), *c.name == '\0' ? "" : rig.Text(c.name, "IMPOSTA")) << c.level;
        EXPECT_EQ(rig.Field("Livello"), std::to_string(c.level));
    }
    EXPECT_EQ(rig.Control("Livello").GetCells().size(), 7U);
    EXPECT_EQ(rig.Control("Livello").GetCells()[5],
              (std::vector<std::string>{rig.Text("LIVELLI.5", "IMPOSTA"), "500"}));
    rig.Choose("Pagine", 2);
    ASSERT_TRUE(rig.Finish());
    for (const char* control : {"Livello", "BarraS", "LedRis", "LedMax", "Acquisisci(0)"})
        EXPECT_FALSE(rig.Control(control).Visible()) << control;
}

// A first acquisition whose base map is that of the simulated unit, but blank.
struct Step : PageRig {
    Step() : PageRig("Imposta") {
        content = sim::ImageText(unit.Cells());
        Put(memory::FirstInternal, "FFFF");
        Write();
        Dialog().onStepDone = [this] { ++done; };
        Dialog().onStepLeft = [this] { ++left; };
    }
    tuning::Imposta& Dialog() { return program.tuning.imposta; }
    void Put(int address, std::string_view digits) {
        const auto place = memory::RecordImmagine(address);
        content.replace(static_cast<std::size_t>((place.record - 1) * memory::LineLength + place.column - 1),
                        digits.size(), digits);
    }
    void Write() { files.Write(folder.Path() / "MAPPAB.MPP", content); }
    std::string File() { return files.Read(folder.Path() / "MAPPAB.MPP", platform::Files::DefaultLimit).value_or(""); }

    std::string content;
    int done = 0;
    int left = 0;
};

TEST(SettingsStep, ThreePagesGoIntoTheBaseMapAndNothingToTheUnit) {
    Step step;
    step.Put(3082, "01");
    step.Put(3146, "07d0");  // digits as another program wrote them
    step.Write();
    step.program.memory.state.ScriviData = shell::True;
    tuning::OpenSettingsStep(step.program.tuning);
    EXPECT_EQ(step.program.shell.state.FaseAcq, 6);
    EXPECT_EQ(step.Field("MP1"), step.Text("CTRLCOMMUT", "IMPOSTA"));
    EXPECT_EQ(step.Field("ValCom(1)"), "2000") << "from the file";
    EXPECT_TRUE(step.Control("Avanti").Visible() && step.Control("Annulla").Visible());
    for (const char* control : {"InMemor", "Applica(0)", "Applica(1)", "Pagine"})
        EXPECT_FALSE(step.Control(control).Visible()) << control;
    step.Enter("ValCom(0)", "40");
    step.Choose("Oscilla", 0);
    EXPECT_FALSE(step.Control("Applica(0)").Visible());
    step.Enter("ValCom(8)", "999");
    EXPECT_EQ(step.Press("Avanti").why, Reason::ValueRefused);
    step.Enter("ValCom(8)", "5000");
    ASSERT_TRUE(step.Press("Avanti").ok);
    step.Put(3096, "00A0");  // 40 of 255 is 160 of 1023
    step.Put(3202, "00");
    EXPECT_EQ(step.File(), step.content) << "figures not edited keep their digits";
    EXPECT_EQ(step.program.shell.state.PaginaMessaP, 1);
    EXPECT_TRUE(step.Control("Acquisisci(0)").Visible());
    step.Enter("ValSerb(6)", "600");
    ASSERT_TRUE(step.Press("Avanti").ok);
    step.Put(3196, "0258");
    EXPECT_EQ(step.File(), step.content);
    EXPECT_EQ(step.program.shell.state.PaginaMessaP, 2);
    step.Choose("ConfR", 1);
    ASSERT_TRUE(step.Press("Avanti").ok);
    step.Put(3084, "FF");
    step.Put(3072, "0000");
    step.Put(4074, "303530313236");  // 05 01 26
    EXPECT_EQ(step.File(), step.content);
    EXPECT_EQ(step.File().size(), 4352U);
    EXPECT_FALSE(step.Page().IsOpen());
    EXPECT_EQ(step.done, 1);
    EXPECT_EQ(step.sent, Frames{});
}

// Units are delivered with a 1 for the second position of some lists.
TEST(SettingsStep, AnEntryChosenAgainIsWrittenAsThatEntry) {
    Step step;
    step.Put(3082, "01");
    step.Write();
    tuning::OpenSettingsStep(step.program.tuning);
    step.Choose("TipoCommu", 1);
    ASSERT_TRUE(step.Press("Avanti").ok);
    step.Put(3082, "FF");
    EXPECT_EQ(step.File(), step.content);
}

TEST(SettingsStep, ADateThatStandsIsLeftAlone) {
    Step step;
    step.program.memory.state.ScriviData = shell::False;
    step.Put(4074, "333131323938");
    step.Write();
    tuning::OpenSettingsStep(step.program.tuning);
    for (int page = 0; page < 3; ++page) ASSERT_TRUE(step.Press("Avanti").ok);
    step.Put(3072, "0000");
    EXPECT_EQ(step.File(), step.content);
}

TEST(SettingsStep, EveryWayOutLeavesTheFileAlone) {
    for (const char* way : {"Annulla", "Esci", "close"}) {
        Step step;
        tuning::OpenSettingsStep(step.program.tuning);
        step.Enter("ValCom(0)", "40");
        ASSERT_TRUE((std::string(way) == "close" ? step.Stack().Close(step.Page()) : step.Press(way)).ok);
        EXPECT_FALSE(step.Page().IsOpen()) << way;
        EXPECT_EQ(step.File(), step.content) << way;
        EXPECT_EQ(step.program.shell.state.FaseAcq, shell::NoPhase) << way;
        EXPECT_EQ(step.left, 1);
        EXPECT_EQ(step.done, 0);
        EXPECT_EQ(step.sent, Frames{});
        EXPECT_EQ(step.Dato("ValCom(0)", 1), "37") << "the edit is forgotten";
    }
}

TEST(SettingsStep, WithoutAUsableBaseMapThereIsNothingToEdit) {
    for (const bool missing : {true, false}) {
        Step step;
        if (missing) {
            step.files.Remove(step.folder.Path() / "MAPPAB.MPP");
        } else {
            step.files.Write(step.folder.Path() / "MAPPAB.MPP", step.content + "\r\n");
        }
        tuning::OpenSettingsStep(step.program.tuning);
        EXPECT_EQ(step.Shown(), step.Text("ERRORE_9", "ERRORI"));
        EXPECT_EQ(step.Press("Avanti").why, Reason::ReadingFailed);
        EXPECT_EQ(step.Stack().Type(step.Control("ValCom(0)"), "1").why, Reason::ReadingFailed);
        EXPECT_TRUE(step.Press("Annulla").ok);
    }
}

TEST(SettingsStep, AFileThatCannotBeWrittenIsToldAndStaysAsItWas) {
    Step step;
    tuning::OpenSettingsStep(step.program.tuning);
    step.Enter("ValCom(0)", "40");
    step.host.files.FailWrites(true);
    const int beeps = step.Beeps();
    ASSERT_TRUE(step.Press("Avanti").ok);
    EXPECT_EQ(step.Beeps(), beeps + 1);
    EXPECT_EQ(step.Shown(), step.Text("ERRORE_10", "ERRORI"));
    EXPECT_EQ(step.program.shell.state.PaginaMessaP, 0);
    EXPECT_EQ(step.File(), step.content);
    step.host.files.FailWrites(false);
    ASSERT_TRUE(step.Press("Avanti").ok);
    EXPECT_EQ(step.program.shell.state.PaginaMessaP, 1);
}

}  // namespace
