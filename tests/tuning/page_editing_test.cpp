#include <gtest/gtest.h>

#include <algorithm>

#include "tuning/page_rig.h"

namespace {

using pages::Reason;
using tuning_test::PageRig;

TEST(PageEditing, DigitsAlonePassAndEnterLeavesTheField) {
    PageRig rig("MessaP");
    rig.Open(6);
    pages::Control& field = rig.Control("ValFG(0)");
    struct Case {
        const char* typed;
        const char* text;
    };
    for (const Case& c : {Case{"5a9b0 0", "5900"}, Case{"-5100", "5100"}, Case{"5.2,0", "520"}, Case{"", ""},
                          Case{"12345678901234567890", "12345678"}}) {
        rig.Stack().Type(field, c.typed);
        EXPECT_EQ(field.Text(), c.text) << c.typed;
        EXPECT_EQ(rig.Dato("ValFG(0)", 1), "6200") << "nothing is taken before the field is left";
    }
    rig.Stack().Type(field, "5900");
    EXPECT_EQ(rig.Stack().Edit(field, "5 900").why, Reason::KeyDoesNothing);
    EXPECT_TRUE(field.Changed());
    EXPECT_EQ(rig.Stack().Key(rig.Page(), "Enter").ok, true);
    EXPECT_EQ(rig.Dato("ValFG(0)", 1), "5900");
    EXPECT_EQ(rig.Page().Focus(), &rig.Control("ValFG(1)"));
    rig.Enter("ValFG(0)", "");
    EXPECT_EQ(field.Text(), "5900") << "an empty text brings back the last figure";
}

// Every number of both dialogs at its limits and beyond them.
TEST(PageEditing, AFigureOutsideItsLimitsIsRefusedAndNeverReachesTheRecord) {
    int tried = 0;
    for (const auto& [dialog, pages] : {std::pair{"MessaP", 12}, {"Imposta", 7}}) {
        for (int page = 0; page < pages; ++page) {
            PageRig rig(dialog);
            rig.Open(page);
            const auto controls = rig.Page().Controls();
            for (pages::Control* field : controls) {
                const auto name = tuning::FindRecord(field->Name());
                if (field->GetKind() != pages::Kind::Field || !field->Visible() || field->Locked() || !name) continue;
                const tuning::Record& record = rig.program.tuning.memoria[name->number];
                const std::string before = record.Dato[1];
                for (const double figure : {record.Min - 1, record.Max + 1}) {
                    if (figure < 0) continue;
                    const int beeps = rig.Beeps();
                    const std::string typed(platform::Trim(tuning::FigureText(figure)));
                    rig.Enter(field->Name(), typed);
                    EXPECT_EQ(record.Dato[1], before) << field->Name();
                    EXPECT_EQ(rig.Beeps(), beeps + 1) << field->Name();
                    EXPECT_TRUE(field->Refused()) << field->Name();
                    EXPECT_EQ(field->Text(), typed) << "what was typed stays to be put right";
                    EXPECT_EQ(rig.Page().Focus(), field) << field->Name();
                    EXPECT_NE(rig.Shown().find(" - "), std::string::npos) << field->Name();
                    EXPECT_EQ(rig.Tone(), pages::Tone::Refused) << field->Name();
                    EXPECT_EQ(rig.Press("InMemor").why, Reason::ValueRefused) << "it is looked at again";
                    ++tried;
                }
                rig.Enter(field->Name(), std::string(platform::Trim(before)));
                EXPECT_FALSE(field->Refused()) << field->Name();
                EXPECT_EQ(rig.Shown(), "") << field->Name();
                EXPECT_EQ(rig.Tone(), pages::Tone::Plain) << field->Name();
            }
            EXPECT_EQ(rig.sent, PageRig::Frames{});
        }
    }
    EXPECT_GT(tried, 100);
}

TEST(PageEditing, LimitsAreTwoFiguresInTheUnitThatStandsBesideTheField) {
    PageRig rig("MessaP");
    rig.Open(2);
    rig.Enter("ValMin(1)", "499");
    EXPECT_EQ(rig.Shown(), "500 - 1800");
    for (const char* legal : {"500", "1800"}) {
        rig.Enter("ValMin(1)", legal);
        EXPECT_EQ(rig.Dato("ValMin(1)", 1), legal);
    }
    rig.Enter("ValMin(13)", "256");
    EXPECT_EQ(rig.Shown(), "0 - 255");
}

TEST(PageEditing, ThresholdsKeepToTheirSideOfEachOther) {
    PageRig rig("MessaP");
    rig.Open(0);
    rig.Enter("ValLam(1)", "114");
    EXPECT_TRUE(rig.Control("ValLam(1)").Refused());
    EXPECT_EQ(rig.Shown(), "20 - 113") << "the upper threshold bounds the lower";
    rig.Enter("ValLam(1)", "113");
    EXPECT_FALSE(rig.Control("ValLam(1)").Refused());
    rig.Enter("ValLam(2)", "112");
    EXPECT_EQ(rig.Shown(), "113 - 180");
    rig.Enter("ValLam(2)", "150");
    EXPECT_EQ(rig.Dato("ValLam(2)", 1), "150");
    rig.Enter("ValLam(1)", "140");
    EXPECT_EQ(rig.Dato("ValLam(1)", 1), "140") << "and follows when it moves";
}

// The probe's extremes and thresholds as counts of a 5 V probe, shown up to 255.
TEST(PageEditing, TheReducedDisplayScalesFiguresAndLimitsAlike) {
    PageRig rig("MessaP",
                {"cell O 3074 02", "cell O 3120 0064", "cell O 3122 0385", "cell O 3126 012C", "cell O 3124 02BC"});
    rig.Open(0);
    EXPECT_EQ(rig.Field("ValLam(1)"), "74");
    EXPECT_EQ(rig.Field("ValLam(2)"), "174");
    rig.Enter("ValLam(2)", "225");
    EXPECT_EQ(rig.Shown(), "24 - 224");
    rig.Enter("ValLam(2)", "200");
    const auto frames = rig.Chain("Applica(0)");
    EXPECT_EQ(frames.at(1), "W00270002012C") << "not edited: the count as it was read";
    EXPECT_EQ(frames.at(2), "W002500020322") << "200 x 1023 / 255, cut";
}

// Field, live throttle and what goes out, in the scale of the display.
TEST(PageEditing, EveryThrottleThresholdIsInTheScaleOfTheLiveThrottleBesideIt) {
    struct Case {
        const char* dialog;
        int page;
        const char* field;  // null: the page compares counts
        int live;           // place of the live throttle
        std::size_t frame;  // of the trial
        const char* head;
    };
    for (const Case& c :
         {Case{"MessaP", 4, "ValTrans(6)", 1, 6, "W01850002"}, Case{"Imposta", 0, "ValCom(0)", 1, 1, "S30960002"},
          Case{"MessaP", 0, nullptr, 2, 0, ""}, Case{"MessaP", 5, nullptr, 1, 0, ""}}) {
        for (const bool full : {false, true}) {
            PageRig rig(c.dialog, {"cell O 3660 01F4", "cell O 3096 01F4", "rpm 2000", "field tps \" 500\""});
            rig.program.shell.state.RisoluzionePiena = full ? shell::True : shell::False;
            rig.Open(c.page);
            rig.Run(1000);
            const std::string at = std::string(c.dialog) + std::to_string(c.page);
            const std::string live = rig.Field("DatiAuto(" + std::to_string(c.live) + ")");
            EXPECT_EQ(live, full || c.field == nullptr ? " 500" : " 125") << at;
            if (c.field == nullptr) continue;
            EXPECT_EQ(rig.Field(c.field), full ? "500" : "124") << at;
            rig.Enter(c.field, "1024");
            EXPECT_EQ(rig.Shown(), full ? "0 - 1023" : "0 - 255") << at;
            rig.Enter(c.field, "200");
            EXPECT_EQ(rig.Chain("Applica(0)").at(c.frame), std::string(c.head) + (full ? "00C8" : "0322")) << at;
            rig.Enter(c.field, full ? "500" : "124");
            EXPECT_EQ(rig.Chain("Applica(0)").at(c.frame), std::string(c.head) + "01F4") << at << ": as read";
        }
    }
}

TEST(PageEditing, AThrottleWiredTheOtherWayRoundTurnsItsThresholdsRound) {
    PageRig rig("MessaP", {"cell O 3088 03AC", "cell O 3090 0050", "cell O 3092 0384", "cell O 3094 0370"});
    rig.program.shell.state.RisoluzionePiena = shell::True;
    rig.Open(1);
    EXPECT_EQ(rig.Field("ValCut(3)"), "900");
    EXPECT_EQ(rig.Field("ValCut(4)"), "880");
    rig.Enter("ValCut(4)", "901");
    EXPECT_EQ(rig.Shown(), "80 - 900");
    rig.Enter("ValCut(4)", "600");
    EXPECT_EQ(rig.Dato("ValCut(4)", 1), "600");
}

TEST(PageEditing, TheSensorOfAThresholdDecidesHowItIsShownAndBounded) {
    PageRig rig("MessaP");
    rig.Open(1);
    EXPECT_EQ(rig.Field("ValCut(3)"), "25");
    EXPECT_EQ(rig.Field("Umi(3)"), "counts");
    EXPECT_TRUE(rig.Control("LeggoTPS").Visible());
    rig.Choose("SogliaTM", 0);
    EXPECT_EQ(rig.Dato("SogliaTM", 1), "0") << "a choice takes effect at once";
    EXPECT_EQ(rig.Field("Umi(3)"), "mbar");
    EXPECT_EQ(rig.Record("ValCut(3)").Min, 379);
    EXPECT_EQ(rig.Record("ValCut(3)").Max, 998);
    EXPECT_FALSE(rig.Control("LeggoTPS").Visible());
    rig.Enter("ValCut(4)", "700");
    rig.Enter("ValCut(3)", "378");
    EXPECT_EQ(rig.Shown(), "379 - 998") << "the partner is told only where it is the bound";
    rig.Enter("ValCut(3)", "705");
    EXPECT_EQ(rig.Shown(), "379 - 700");
    rig.Enter("ValCut(3)", "379");
    const auto frames = rig.Chain("Applica(0)");
    EXPECT_EQ(frames.at(2), "W0075000100");
    EXPECT_EQ(frames.at(3), "W00120002012E") << "the count that stands for 379 mbar: 302";
    EXPECT_EQ(frames.at(4), "W001400020194");
    ASSERT_FALSE(rig.Chain("Esci").empty());
    EXPECT_EQ(rig.Dato("SogliaTM", 1), "1") << "what was not stored is forgotten";
    EXPECT_EQ(rig.Dato("ValCut(3)", 0), "25") << "by the sensor that holds";
}

// Throttle thresholds are far below what a pressure may be.
TEST(PageEditing, AFigureOfTheOtherSensorDoesNotBoundItsPartner) {
    PageRig rig("MessaP");
    rig.Open(1);
    rig.Choose("SogliaTM", 0);
    EXPECT_EQ(rig.Field("ValCut(4)"), "-186") << "no pressure that there is";
    EXPECT_EQ(rig.Field("CutDef(3)"), "25 counts") << "the initial value by its own sensor";
    EXPECT_EQ(rig.Field("CutDef(5)"), rig.Dato("ValCut(5)", 0));
    rig.Enter("ValCut(3)", "600");
    EXPECT_FALSE(rig.Control("ValCut(3)").Refused());
    rig.Enter("ValCut(4)", "590");
    EXPECT_EQ(rig.Shown(), "600 - 998") << "a figure within its limits does";
    rig.Enter("ValCut(4)", "700");
    rig.Chain("InMemor");
    EXPECT_EQ(rig.Field("CutDef(3)"), "600") << "the sensor is now the initial one";
    EXPECT_EQ(rig.Field("Umi(3)"), "mbar");
    rig.Choose("SogliaTM", 1);
    EXPECT_EQ(rig.Field("CutDef(3)"), "600 mbar");
}

// Two counts below the least pressure that is believed look alike.
TEST(PageEditing, AnEditedCountGoesOutAlsoWhereItLooksLikeTheInitialOne) {
    PageRig rig("MessaP", {"cell O 3312 00"});
    rig.program.shell.state.RisoluzionePiena = shell::True;
    rig.Open(1);
    EXPECT_EQ(rig.Field("ValCut(3)"), "103");
    rig.Enter("ValCut(3)", "95");
    rig.Choose("SogliaTM", 0);
    EXPECT_EQ(rig.Field("ValCut(3)"), "100");
    const auto frames = rig.Chain("Applica(0)");
    EXPECT_EQ(frames.at(3), "W00120002005F");
    EXPECT_EQ(frames.at(4), "W00140002007B") << "not edited: as it was read";
    rig.Choose("SogliaTM", 1);
    EXPECT_EQ(rig.Field("ValCut(3)"), "95");
}

TEST(PageEditing, APressureWithoutASensorCannotBeEditedAndSaysWhy) {
    PageRig rig("MessaP", {"cell O 3312 00", "cell O 3104 01F401F4"});
    rig.Open(3);
    EXPECT_EQ(rig.Field("ValPC(2)"), "****");
    EXPECT_EQ(rig.Stack().Type(rig.Control("ValPC(2)"), "500").why, Reason::NoSensor);
    EXPECT_TRUE(rig.Stack().Type(rig.Control("ValPC(0)"), "3000").ok);
    rig.Stack().Leave(rig.Control("ValPC(0)"));
    EXPECT_EQ(rig.Chain("Applica(0)").at(2).substr(0, 9), "W00190002");
    rig.Chain("Esci");
    rig.Open(1);
    EXPECT_EQ(rig.Control("ValCut(3)").Why(), Reason::None);
    rig.Choose("SogliaTM", 0);
    EXPECT_EQ(rig.Field("ValCut(3)"), "****");
    EXPECT_EQ(rig.Control("ValCut(3)").Why(), Reason::NoSensor);
    rig.Choose("SogliaTM", 1);
    EXPECT_EQ(rig.Field("ValCut(3)"), "25");
    EXPECT_EQ(rig.Control("ValCut(3)").Why(), Reason::None);
}

TEST(PageEditing, NeighboursBoundEachOtherByWhatIsReadOrEdited) {
    PageRig rig("Imposta");
    rig.Open(1);
    rig.Enter("ValSerb(2)", "142");
    EXPECT_EQ(rig.Shown(), "143 - 318") << "a level lies between its neighbours";
    rig.Enter("ValSerb(2)", "300");
    rig.Enter("ValSerb(3)", "299");
    EXPECT_EQ(rig.Shown(), "300 - 405") << "as edited, not as read";
    rig.Enter("ValSerb(3)", "318");
    rig.Enter("ValSerb(0)", "144");
    EXPECT_EQ(rig.Shown(), "0 - 143");
    rig.Enter("ValSerb(0)", "0");
    rig.Enter("ValSerb(6)", "1024");
    EXPECT_EQ(rig.Shown(), "500 - 1023");
}

TEST(PageEditing, AFixedAdaptationSpeedLocksTheFiguresAndLeavesThoseOfTheUnit) {
    PageRig rig("MessaP");
    rig.Open(9);
    pages::Control& speed = rig.Control("VeloAuto");
    EXPECT_EQ(speed.Items().size(), 7U);
    EXPECT_EQ(speed.Index(), 6) << "manual";
    rig.Enter("ValAuto(3)", "31");
    rig.Choose("VeloAuto", 2);
    EXPECT_EQ(rig.Stack().Type(rig.Control("ValAuto(3)"), "32").why, Reason::FixedSpeed);
    EXPECT_EQ(rig.Field("ValAuto(3)"), "30");
    EXPECT_EQ(rig.Chain("Applica(0)").front(), "W0256000102") << "the cell holds the index";
    rig.Choose("VeloAuto", 6);
    rig.Enter("ValAuto(3)", "32");
    EXPECT_EQ(rig.Dato("ValAuto(3)", 1), "32");
}

TEST(PageEditing, ACellOfATableGoesThroughTheSameChecks) {
    PageRig rig("MessaP");
    rig.Open(4);
    EXPECT_FALSE(rig.Control("TransitT").Visible());
    EXPECT_EQ(rig.Stack().EditCell(rig.Control("TransitT"), 1, 0, "5").why, Reason::Hidden);
    rig.Press("TastoTrans");
    EXPECT_EQ(rig.Field("TastoTrans"), rig.Text("TASTOTRANS.1", "MESSAP"));
    EXPECT_FALSE(rig.Control("ValTrans(1)").Visible());
    EXPECT_FALSE(rig.Control("LabMP(1)").Visible());
    pages::Control& grid = rig.Control("TransitT");
    ASSERT_EQ(grid.GetCells().size(), 5U);
    EXPECT_EQ(grid.GetCells()[0][0], rig.Text("TABTRANS.0", "MESSAP"));
    EXPECT_EQ(grid.GetCells()[0][3], rig.Text("TABTRANS.3", "MESSAP"));
    EXPECT_EQ(grid.GetCells()[1], (std::vector<std::string>{"1", "1000", "2000", "40", "20", "10", "4"}));
    rig.EnterCell("TransitT", 1, 6, "256");
    EXPECT_EQ(grid.GetCells()[1][6], "256") << "it stays to be put right";
    EXPECT_EQ(rig.Shown(), "0 - 255");
    EXPECT_TRUE(grid.Refused());
    rig.EnterCell("TransitT", 1, 6, "");
    EXPECT_FALSE(grid.Refused());
    rig.EnterCell("TransitT", 1, 2, "2100");
    EXPECT_EQ(grid.GetCells()[2][1], "2100") << "the end of a row starts the next";
    EXPECT_EQ(rig.Dato("TransitT(6)", 1), "2100");
    EXPECT_EQ(rig.Control("TransitTDef").GetCells()[1][2], "2000");
    EXPECT_TRUE(grid.Changed());
    EXPECT_EQ(rig.Stack().EditCell(rig.Control("TransitTDef"), 1, 2, "7").ok, false);
    rig.Press("TastoTrans");
    EXPECT_TRUE(rig.Control("ValTrans(1)").Visible());
    rig.Press("TastoTransDef");
    EXPECT_TRUE(rig.Control("TransitTDef").Visible());
    EXPECT_FALSE(rig.Control("TransitT").Visible()) << "the initial values alone";
    rig.Press("TastoTransDef");
    EXPECT_TRUE(rig.Control("ValTrans(1)").Visible());
}

TEST(PageEditing, TablesHaveTheirShape) {
    PageRig rig("MessaP");
    rig.Open(0);
    rig.Press("SoglieLam");
    EXPECT_EQ(rig.Control("LabRPM").GetCells(),
              (pages::Cells{{"1200", "1800", "2400", "3000", "3600", "4200", "4800"}}));
    EXPECT_EQ(rig.Control("LabTPS").GetCells(), (pages::Cells{{"200"}, {"350"}, {"500"}, {"650"}}));
    EXPECT_EQ(rig.Control("T_LamSup").GetCells().size(), 5U);
    rig.EnterCell("T_LamSup", 4, 7, "120");
    EXPECT_EQ(rig.Dato("T_LamSup(39)", 1), "120");
    rig.EnterCell("T_LamInf", 1, 2, "99");
    EXPECT_EQ(rig.Dato("T_LamInf(11)", 1), "99") << "five load rows in each rev column";
    EXPECT_EQ(rig.Field("LabLa(1)"), "T.P.S.");
    ASSERT_FALSE(rig.Chain("Esci").empty());
    rig.Open(3);
    rig.Press("TastoMappa");
    EXPECT_FALSE(rig.Control("Giri_ResCO").Visible());
    const pages::Cells& zones = rig.Control("Giri_Lambda").GetCells();
    ASSERT_EQ(zones.size(), 10U);
    EXPECT_EQ(zones[1], (std::vector<std::string>{"1200", "124", "113"}));
    EXPECT_EQ(zones[9], (std::vector<std::string>{"6200", "", ""})) << "the over-speed threshold ends the last zone";
    rig.EnterCell("Giri_Lambda", 9, 1, "5");
    EXPECT_EQ(rig.Control("Giri_Lambda").GetCells()[9][1], "");
    rig.Press("ResetPC");
    EXPECT_FALSE(rig.Control("Giri_Lambda").Visible());
    EXPECT_EQ(rig.Control("Giri_ResCO").GetCells()[16], (std::vector<std::string>{"16", "150"}));
    rig.EnterCell("Giri_ResCO", 16, 1, "151");
    EXPECT_EQ(rig.Dato("Giri_ResCO(31)", 1), "151");
}

TEST(PageEditing, TheLoadAxisIsNamedByItsSensor) {
    PageRig rig("MessaP");
    rig.Open(0);
    rig.Choose("ScelgoMAP", 1);
    rig.Press("SoglieLam");
    EXPECT_EQ(rig.Field("LabLa(0)"), rig.Text("LABLA.0", "MESSAP"));
    EXPECT_EQ(rig.Field("LabLa(1)"), "M.A.P.");
}

TEST(PageEditing, TheZoneOfTheEngineIsMarkedInTheMap) {
    PageRig rig("MessaP", {"rpm 2000", "throttle 40"});
    rig.Open(0);
    rig.Press("SoglieLam");
    rig.Run(1000);
    const pages::Control& map = rig.Control("T_LamInf");
    EXPECT_EQ(map.MarkedColumn(), 2) << "from 1800 to 2400";
    EXPECT_EQ(map.MarkedRow(), 2) << "40 % is 424 counts: from 350 to 500";
    EXPECT_EQ(rig.Field("B_Lam"), "Zone of the engine: speed 3, load 3   LamMM = 103   LamRR = 113");
    const std::string list = rig.Text("SOGLIELAM.1", "MESSAP");
    EXPECT_EQ(rig.Field("SoglieLam"), list + "   LamMM = 103   LamRR = 113") << "nothing pointed at: the engine's zone";
    rig.EnterCell("T_LamSup", 4, 7, "121");
    rig.EnterCell("T_LamInf", 4, 7, "99");
    rig.Run(500);
    EXPECT_EQ(rig.Field("SoglieLam"), list + "   LamMM = 103   LamRR = 113") << "what is typed is not in the unit";
    rig.Chain("Applica(0)");
    rig.Run(500);
    EXPECT_EQ(rig.Field("SoglieLam"), list + "   LamMM = 99   LamRR = 121");
    EXPECT_EQ(rig.Field("B_Lam"), "Zone of the engine: speed 3, load 3   LamMM = 103   LamRR = 113");
    ASSERT_TRUE(rig.Stack().PointAtCell(rig.Control("T_LamInf"), 0, 0).ok);
    rig.Run(500);
    EXPECT_EQ(rig.Field("SoglieLam"), list + "   LamMM = 103   LamRR = 113");
    rig.Press("SoglieLam");
    EXPECT_FALSE(rig.Control("B_Lam").Visible());
    rig.Run(500);
    EXPECT_EQ(rig.Field("SoglieLam"), rig.Text("SOGLIELAM.0", "MESSAP"));
    rig.Press("SoglieLam");
    // The engine may be where the map does not rule.
    rig.Sim("throttle 0");
    rig.Sim("rpm 850");
    rig.Run(3000);
    EXPECT_EQ(map.MarkedColumn(), 0);
    EXPECT_EQ(rig.Field("B_Lam"), rig.Text("B_LAM.2", "MESSAP") + "   LamMM = 113   LamRR = 124");
    rig.Sim("field macro \"3\"");
    rig.Run(1000);
    EXPECT_EQ(rig.Field("B_Lam"), rig.Text("B_LAM.3", "MESSAP") + "   LamMM = 113   LamRR = 124");
    rig.program.shell.state.VarianteQT = shell::True;
    rig.Run(1000);
    EXPECT_EQ(rig.Field("B_Lam").substr(0, 19), "Zone of the engine:") << "the diesel has no full load of its own";
}

// While an exchange runs a live frame reaches the raw figures and nothing on the screen.
TEST(PageEditing, ThePagesDoNotFollowTheEngineWhileAnExchangeRuns) {
    struct Case {
        const char* dialog;
        int page;
        const char* field;
        const char* figure;
        const char* line;
        const char* live;
        const char* during;
        const char* after;
    };
    for (const Case& c : {Case{"MessaP", 6, "ValFG(0)", "6000", "field giri \"3333\"", "DatiAuto(0)", "2222", "3333"},
                          Case{"Imposta", 1, "ValSerb(0)", "100", "field livello 444", "Livello", "222", "444"}}) {
        PageRig rig(c.dialog, {"field giri \"2222\"", "field livello 222"});
        rig.Open(c.page);
        rig.Run(1000);
        EXPECT_EQ(rig.Field(c.live), c.during);
        rig.Enter(c.field, c.figure);
        rig.Sim("misbehave silence command all once");
        ASSERT_TRUE(rig.Press("InMemor").ok);
        rig.Sim(c.line);
        rig.Run(3000);
        EXPECT_NE(rig.State(), eculink::Idle);
        EXPECT_EQ(rig.Field(c.live), c.during);
        ASSERT_TRUE(rig.Finish());
        rig.Run(1000);
        EXPECT_EQ(rig.Field(c.live), c.after);
    }
}

// The engine runs with the breakpoints and thresholds that are being tried.
TEST(PageEditing, TheZoneFollowsWhatIsOnTrial) {
    PageRig rig("MessaP", {"rpm 2000", "throttle 40"});
    rig.Open(0);
    rig.Press("SoglieLam");
    const pages::Control& map = rig.Control("T_LamInf");
    rig.EnterCell("LabRPM", 0, 1, "2100");
    rig.EnterCell("LabTPS", 2, 0, "400");
    rig.EnterCell("T_LamInf", 3, 1, "95");
    rig.Run(1000);
    EXPECT_EQ(map.MarkedColumn(), 2);
    rig.Chain("Applica(0)");
    rig.Run(1000);
    EXPECT_EQ(map.MarkedColumn(), 1);
    EXPECT_EQ(map.MarkedRow(), 3);
    EXPECT_EQ(rig.Field("B_Lam"), "Zone of the engine: speed 2, load 4   LamMM = 95   LamRR = 113");
    rig.Chain("Applica(1)");
    rig.Run(1000);
    EXPECT_EQ(map.MarkedColumn(), 2);
    EXPECT_EQ(map.MarkedRow(), 2);
    rig.Press("SoglieLam");
    rig.Choose("ScelgoMAP", 1);
    rig.Press("SoglieLam");
    rig.Sim("field map \" 360\"");
    rig.Run(1000);
    EXPECT_EQ(map.MarkedRow(), 2) << "chosen, not tried";
}

// A sensor that falls when the throttle opens is kept turned round by the unit.
TEST(PageEditing, ATurnedThrottleIsComparedAndTakenAsTheUnitKeepsIt) {
    PageRig rig("MessaP", {"cell O 3098 01", "rpm 2000", "field tps \" 603\""});
    rig.program.shell.state.RisoluzionePiena = shell::True;
    rig.Open(0);
    rig.Press("SoglieLam");
    rig.Run(1000);
    EXPECT_EQ(rig.Control("T_LamInf").MarkedRow(), 2) << "603 is 420: from 350 to 500";
    rig.Press("Esci");
    rig.Open(1);
    rig.Stack().FocusOn(rig.Control("ValCut(4)"));
    ASSERT_TRUE(rig.Press("LeggoTPS").ok);
    EXPECT_EQ(rig.Field("ValCut(4)"), "420");
    rig.Enter("ValCut(3)", "421");
    EXPECT_TRUE(rig.Control("ValCut(3)").Refused()) << "the pair keeps its order";
}

TEST(PageEditing, TheThrottleIsReadIntoTheFieldThatAsks) {
    PageRig rig("MessaP", {"rpm 2000", "throttle 40"});
    rig.Open(1);
    rig.Run(500);
    rig.Stack().FocusOn(rig.Control("ValCut(4)"));
    ASSERT_TRUE(rig.Press("LeggoTPS").ok);
    EXPECT_EQ(rig.Field("ValCut(4)"), "105") << "424 x 255 / 1023";
    EXPECT_EQ(rig.Control("Applica(0)").Why(), Reason::None);
    rig.Stack().FocusOn(rig.Control("ValCut(0)"));
    ASSERT_TRUE(rig.Press("LeggoTPS").ok);
    EXPECT_EQ(rig.Field("ValCut(3)"), "105") << "the first one, when another field has the focus";
    rig.Sim("field tps \"****\"");
    rig.Run(500);
    const int beeps = rig.Beeps();
    ASSERT_TRUE(rig.Press("LeggoTPS").ok);
    EXPECT_EQ(rig.Beeps(), beeps + 1);
    EXPECT_EQ(rig.Shown(), rig.Text("ERRORE_18", "ERRORI"));
}

// What is not on the screen takes no throttle; the buttons above the rows come before them.
TEST(PageEditing, TheThrottleButtonGoesWithItsFieldAndStandsBeforeIt) {
    PageRig rig("MessaP", {"rpm 2000", "throttle 40"});
    rig.Open(1);
    rig.Run(500);
    const auto order = [&rig](const char* control) {
        const auto& all = rig.Page().Controls();
        return std::find(all.begin(), all.end(), &rig.Control(control)) - all.begin();
    };
    for (const char* button : {"LeggoTPS", "ResetCO", "ResetCODef", "SoglieLam", "TastoRil", "TastoMappaDef"}) {
        EXPECT_LT(order("Pagine"), order(button)) << button;
        EXPECT_LT(order(button), order("ScelgoMAP")) << button;
    }
    rig.Stack().FocusOn(rig.Control("ValCut(4)"));
    rig.Press("ResetCO");
    EXPECT_EQ(rig.Press("LeggoTPS").why, Reason::Hidden);
    EXPECT_EQ(rig.Dato("ValCut(4)", 1), rig.Dato("ValCut(4)", 0));
    rig.Press("ResetCO");
    EXPECT_TRUE(rig.Press("LeggoTPS").ok);
}

TEST(PageEditing, TheLiveThrottleReplacesARefusedFigure) {
    PageRig rig("MessaP", {"rpm 2000", "throttle 40"});
    rig.Open(1);
    rig.Run(500);
    rig.Enter("ValCut(4)", "999");
    ASSERT_TRUE(rig.Control("ValCut(4)").Refused());
    ASSERT_TRUE(rig.Press("LeggoTPS").ok);
    EXPECT_EQ(rig.Field("ValCut(4)"), "105");
    EXPECT_FALSE(rig.Control("ValCut(4)").Refused());
    EXPECT_EQ(rig.Shown(), "");
    rig.Enter("ValCut(5)", "999");
    EXPECT_EQ(rig.Press("LeggoTPS").why, Reason::ValueRefused) << "a figure that it does not fill holds it back";
    rig.Enter("ValCut(5)", "20");
    rig.Enter("ValCut(4)", "999");
    rig.Sim("field tps \"****\"");
    rig.Run(500);
    ASSERT_TRUE(rig.Press("LeggoTPS").ok);
    EXPECT_EQ(rig.Shown(), rig.Text("ERRORE_18", "ERRORI"));
    EXPECT_EQ(rig.Field("ValCut(4)"), "999");
    EXPECT_EQ(rig.Press("InMemor").why, Reason::ValueRefused) << "it is still to be put right";
}

// The upper of two thresholds is lowered, then the lower one typed above it: both within their own limits.
TEST(PageEditing, OnlyTheseThresholdsBoundEachOther) {
    struct Case {
        int page;
        const char* upper;
        const char* high;
        const char* lower;
        const char* low;
        const char* limits;  // shown where the pair is kept; null: it is not
    };
    for (const Case& c : {Case{0, "ValLam(2)", "110", "ValLam(1)", "111", "20 - 110"},
                          Case{1, "ValCut(4)", "29", "ValCut(3)", "30", "19 - 29"},
                          Case{2, "ValMin(4)", "26", "ValMin(3)", "27", "19 - 26"},
                          Case{3, "ValPC(2)", "900", "ValPC(3)", "905", "0 - 900"},
                          // bounded by the figure that was read, not by the one that is edited
                          Case{2, "ValMin(6)", "115", "ValMin(5)", "120", nullptr},
                          Case{6, "ValFG(0)", "6000", "ValFG(1)", "6100", nullptr},
                          Case{3, "ValPC(0)", "2400", "ValPC(1)", "2500", nullptr},
                          Case{3, "ValPC(12)", "115", "ValPC(11)", "120", nullptr}}) {
        PageRig rig("MessaP");
        rig.Open(c.page);
        rig.Enter(c.upper, c.high);
        EXPECT_FALSE(rig.Control(c.upper).Refused()) << c.upper << " " << rig.Shown();
        rig.Enter(c.lower, c.low);
        EXPECT_EQ(rig.Control(c.lower).Refused(), c.limits != nullptr) << c.lower;
        EXPECT_EQ(rig.Shown(), c.limits == nullptr ? "" : c.limits) << c.lower;
        if (c.limits == nullptr) continue;
        rig.Enter(c.lower, c.high);
        EXPECT_FALSE(rig.Control(c.lower).Refused()) << "equal is legal: " << c.lower;
    }
}

// A mark lasts as long as the figure differs from the unit's, and no longer than its page is on the screen.
TEST(PageEditing, WhatWasEditedIsMarkedUntilItIsStoredOrItsPageIsLeft) {
    using Cells = std::vector<pages::CellPlace>;
    PageRig rig("MessaP");
    rig.Open(4);
    rig.Press("TastoTrans");
    pages::Control& grid = rig.Control("TransitT");
    rig.EnterCell("TransitT", 1, 2, "2100");
    EXPECT_EQ(grid.ChangedCells(), (Cells{{1, 2}, {2, 1}})) << "both rows show the breakpoint";
    rig.EnterCell("TransitT", 3, 6, "9");
    rig.EnterCell("TransitT", 1, 2, "2000");
    EXPECT_EQ(grid.ChangedCells(), (Cells{{3, 6}})) << "typed back";
    rig.Chain("Applica(0)");
    EXPECT_EQ(grid.ChangedCells(), (Cells{{3, 6}})) << "tried is not stored";
    rig.Chain("InMemor");
    EXPECT_EQ(grid.ChangedCells(), Cells{});
    EXPECT_FALSE(grid.Changed());

    for (const bool close : {false, true}) {
        rig.EnterCell("TransitT", 3, 6, close ? "11" : "10");
        rig.Press("TastoTrans");
        rig.Enter("ValTrans(1)", "7");
        if (close) {
            rig.Chain("Esci");
        } else {
            rig.Choose("Pagine", 2);
            ASSERT_TRUE(rig.Finish());
            ASSERT_TRUE(rig.Finish());
        }
        for (const pages::Control* control : rig.Page().Controls()) {
            EXPECT_FALSE(control->Changed()) << control->Name() << close;
            EXPECT_TRUE(control->ChangedCells().empty()) << control->Name() << close;
        }
        if (!close) {
            rig.Choose("Pagine", 4);
            ASSERT_TRUE(rig.Finish());
            rig.Press("TastoTrans");
        }
    }
}

// A cell is put right where it stands.
TEST(PageEditing, ARefusedCellKeepsWhatWasTypedAndHoldsTheStoreBack) {
    PageRig rig("MessaP");
    rig.Open(4);
    rig.Press("TastoTrans");
    pages::Control& grid = rig.Control("TransitT");
    rig.EnterCell("TransitT", 2, 6, "256");
    EXPECT_EQ(grid.GetCells()[2][6], "256");
    EXPECT_EQ(rig.Dato("TransitT(11)", 1), "5");
    EXPECT_EQ(grid.RefusedCells(), (std::vector<pages::CellPlace>{{2, 6}}));
    EXPECT_EQ(grid.FocusCell(), (pages::CellPlace{2, 6}));
    EXPECT_EQ(rig.Page().Focus(), &grid);
    const int beeps = rig.Beeps();
    EXPECT_EQ(rig.Press("InMemor").why, Reason::ValueRefused);
    EXPECT_EQ(rig.Press("TastoTrans").why, Reason::ValueRefused);
    EXPECT_EQ(rig.Beeps(), beeps + 2);
    EXPECT_EQ(rig.Shown(), "0 - 255");
    EXPECT_EQ(grid.Legal(), "0 - 255");
    EXPECT_EQ(rig.Stack().EditCell(grid, 1, 6, "6").why, Reason::ValueRefused);
    rig.EnterCell("TransitT", 2, 6, "7");
    EXPECT_FALSE(grid.Refused());
    EXPECT_TRUE(grid.RefusedCells().empty());
    EXPECT_EQ(rig.Shown(), "");
    rig.EnterCell("TransitT", 3, 6, "300");
    rig.EnterCell("TransitT", 3, 6, "");
    EXPECT_EQ(grid.GetCells()[3][6], "6") << "an empty text brings the figure back";
    EXPECT_FALSE(rig.Chain("InMemor").empty());
    rig.EnterCell("TransitT", 1, 6, "300");
    ASSERT_TRUE(rig.Press("Esci").ok) << "nothing of it is kept";
    EXPECT_FALSE(rig.Page().IsOpen());
    rig.Open(4);
    EXPECT_FALSE(grid.Refused());
    EXPECT_TRUE(grid.RefusedCells().empty());
}

TEST(PageEditing, AStoreThatSucceedsTakesTheMarksAway) {
    PageRig rig("MessaP", {"cell O 3124 0010"});  // the upper threshold below the lower
    rig.Open(0);
    rig.Press("InMemor");
    EXPECT_TRUE(rig.Control("ValLam(2)").Refused());
    rig.Enter("ValLam(2)", "150");
    rig.Chain("InMemor");
    EXPECT_EQ(rig.Shown(), rig.Text("SEGNALAZIONE_1", "MESSAP"));
    EXPECT_FALSE(rig.Control("ValLam(1)").Refused() || rig.Control("ValLam(2)").Refused());
}

TEST(PageEditing, TheLimitsOfAListAreItsEntries) {
    PageRig rig("MessaP", {"cell O 3168 09"});
    rig.Open(1);
    ASSERT_TRUE(rig.Press("InMemor").ok);
    const auto& entries = rig.Control("StepCut").Items();
    EXPECT_EQ(rig.Shown(), entries.front() + " - " + entries.back());
    EXPECT_EQ(rig.Page().Focus(), &rig.Control("StepCut"));
}

// A figure that the unit itself holds outside the limits is shown; it can be left, but not stored.
TEST(PageEditing, AnIllegalFigureOfTheUnitIsFoundWhenThePageIsStored) {
    PageRig rig("MessaP", {"cell O 3148 0064"});
    rig.Open(6);
    EXPECT_EQ(rig.Field("ValFG(1)"), "100");
    rig.Stack().Leave(rig.Control("ValFG(1)"));
    EXPECT_FALSE(rig.Control("ValFG(1)").Refused()) << "nobody typed it";
    for (const char* figure : {"99", "100"}) {
        rig.Enter("ValFG(1)", figure);
        EXPECT_TRUE(rig.Control("ValFG(1)").Refused()) << "typed, it is checked, whatever the unit holds";
        EXPECT_EQ(rig.Shown(), "1500 - 6200");
    }
    rig.Enter("ValFG(1)", "");
    EXPECT_EQ(rig.Field("ValFG(1)"), "100");
    EXPECT_FALSE(rig.Control("ValFG(1)").Refused());
    const int beeps = rig.Beeps();
    ASSERT_TRUE(rig.Press("InMemor").ok);
    EXPECT_EQ(rig.State(), eculink::Idle);
    EXPECT_EQ(rig.sent, PageRig::Frames{});
    EXPECT_EQ(rig.Beeps(), beeps + 1);
    EXPECT_EQ(rig.Shown(), "1500 - 6200");
    EXPECT_EQ(rig.Page().Focus(), &rig.Control("ValFG(1)"));
    rig.Enter("ValFG(1)", "5500");
    EXPECT_EQ(rig.Chain("InMemor").size(), 4U);
}

TEST(PageEditing, AnIllegalCellOpensItsTable) {
    PageRig rig("MessaP", {"cell O 3344 0400"});
    rig.Open(0);
    ASSERT_TRUE(rig.Press("InMemor").ok);
    EXPECT_EQ(rig.Shown(), "0 - 1023");
    EXPECT_TRUE(rig.Control("LabTPS").Visible() && rig.Control("LabTPS").Refused());
    EXPECT_EQ(rig.Control("LabTPS").RefusedCells(), (std::vector<pages::CellPlace>{{0, 0}}));
    EXPECT_EQ(rig.Control("LabTPS").FocusCell(), (pages::CellPlace{0, 0}));
}

}  // namespace
