#include "tuning/messal1.h"

#include <gtest/gtest.h>

#include "tuning/messal1_rig.h"
#include "tuning/parameter_names.h"

namespace {

using pages::Reason;
using pages::Tone;
using shell::True;
using tuning_test::BaseMapEditor;

constexpr int StoreFrames = 13 + 16 * 10;

TEST(MessaL1, OpeningReadsTheTableAndShowsIt) {
    BaseMapEditor e;
    ASSERT_TRUE(shell::ChooseMenu(e.program.shell, shell::MenuId::MenuPunto, BaseMapEditor::MenuEntry).ok);
    EXPECT_EQ(e.State(), 164);
    EXPECT_FALSE(e.Page().Enabled());
    EXPECT_EQ(e.Shown(), e.Text("SEGNALAZIONE_3", "MESSAL1"));
    EXPECT_EQ(e.program.link.timers.TimeOutDati->Enabled(), false);
    ASSERT_TRUE(e.Finish());
    EXPECT_EQ(e.sent, (BaseMapEditor::Frames{"L00000016", "L00160014", "L00320016", "L00480016", "L00640016",
                                             "L00800016", "L00960016", "L01120016", "L01280016", "L01440016",
                                             "L01600016", "O31500002", "R02170006"}));
    EXPECT_TRUE(e.Page().Enabled());
    EXPECT_TRUE(e.program.link.timers.TimeOutDati->Enabled());
    EXPECT_EQ(e.Shown(), "");
    EXPECT_FALSE(e.Page().Avanzamento.Visible());
    EXPECT_FALSE(e.Page().Unsaved());
    // What the unit was delivered with; its absolute sensor shows (count - 182) x 3230 / 1023 mbar.
    const auto& cells = e.Page().LambdaRicco.GetCells();
    ASSERT_EQ(cells.size(), 9U);
    ASSERT_EQ(cells[0].size(), 17U);
    EXPECT_EQ(cells[0][1], "600");
    EXPECT_EQ(cells[0][15], "5900");
    EXPECT_EQ(cells[0][16], "6200") << "the over-speed threshold ends the axis";
    EXPECT_EQ(e.Page().Giri[15].Text(), "6200");
    EXPECT_EQ(cells[1][0], "281");
    EXPECT_EQ(cells[8][0], "998");
    EXPECT_EQ(e.Page().MAPV[7].Text(), "998");
    for (const auto& [column, row] : {std::pair{0, 0}, {0, 7}, {9, 3}, {15, 7}})
        EXPECT_EQ(e.Cell(column, row), std::to_string(e.Stored(48 + 8 * column + row))) << column << "," << row;
}

TEST(MessaL1, NothingCanBeTypedOutsideTheEditMode) {
    BaseMapEditor e;
    e.Open();
    EXPECT_EQ(e.Page().Modifica.Text(), e.Text("MODIFICA.0", "TASTI"));
    EXPECT_EQ(e.Stack().EditCell(e.Page().LambdaRicco, 1, 1, "50").why, Reason::Locked);
    EXPECT_EQ(e.Stack().Type(e.Page().Giri[0], "700").why, Reason::Locked);
    EXPECT_EQ(e.Stack().Type(e.Page().MAPV[0], "300").why, Reason::Locked);
    e.Press(e.Page().Modifica);
    EXPECT_EQ(e.Page().Modifica.Text(), e.Text("MODIFICA.1", "TASTI"));
    EXPECT_EQ(e.Page().Focus(), &e.Page().LambdaRicco);
    e.EnterCell(0, 0, "50");
    e.EnterCell(15, 7, "51");
    e.EnterCell(2, 3, e.Cell(2, 3));
    EXPECT_EQ(e.Page().LambdaRicco.ChangedCells(), (std::vector<pages::CellPlace>{{1, 1}, {8, 16}}));
    EXPECT_TRUE(e.Page().LambdaRicco.Changed());
    e.Press(e.Page().Modifica);
    EXPECT_TRUE(e.Page().LambdaRicco.Locked());
    EXPECT_EQ(e.Cell(0, 0), "50") << "leaving the mode keeps the edits";
}

TEST(MessaL1, WhatIsTypedIsBroughtWithinItsLimits) {
    BaseMapEditor e;
    e.OpenForEditing();
    struct Case {
        const char* typed;
        const char* cell;
        const char* giri;
    };
    constexpr Case cases[] = {
        {"3", "5", "3"},       {"5", "5", "5"},           {"210", "210", "210"},
        {"211", "210", "211"}, {"300", "210", "300"},     {"007", "7", "7"},
        {"", "5", "7"},        {"1,5", "15", "15"},       {"-20", "20", "20"},
        {"1e3", "13", "13"},   {"65536", "210", "65535"}, {"99999999999999999999", "210", "65535"},
    };
    for (const Case& c : cases) {
        e.EnterCell(2, 3, c.typed);
        EXPECT_EQ(e.Cell(2, 3), c.cell) << c.typed;
        e.Enter(e.Page().Giri[4], c.typed);
        EXPECT_EQ(e.Page().Giri[4].Text(), c.giri) << c.typed;
        EXPECT_EQ(e.Page().LambdaRicco.GetCells()[0][5], c.giri) << c.typed;
    }
    // The sensor tells 100 mbar, the least that is believed, to 2655.
    e.Enter(e.Page().MAPV[2], "99999");
    EXPECT_EQ(e.Page().MAPV[2].Text(), "2655");
    EXPECT_EQ(e.Page().LambdaRicco.GetCells()[3][0], "2655");
    e.EnterCell(2, 3, "44");
    e.EnterCell(2, 3, "abc");
    EXPECT_EQ(e.Cell(2, 3), "44") << "letters are no keys here";
    for (const auto& [row, column] : {std::pair{0, 1}, {1, 0}, {9, 1}, {1, 17}, {-1, 1}})
        EXPECT_EQ(e.Stack().EditCell(e.Page().LambdaRicco, row, column, "50").why, Reason::NoSuchEntry);
    EXPECT_TRUE(e.sent.empty()) << "an edit alone sends nothing";
}

TEST(MessaL1, DistribuisciPutsTheRowsBetweenTheAnchorsOnALine) {
    struct Case {
        const char* first;
        const char* last;
        std::vector<std::string> between;
    };
    const Case cases[] = {
        {"10", "70", {"20", "30", "40", "50", "60"}}, {"70", "10", {"60", "50", "40", "30", "20"}},
        {"44", "44", {"44", "44", "44", "44", "44"}}, {"5", "8", {"6", "6", "7", "7", "8"}},
        {"8", "5", {"8", "7", "7", "6", "6"}},        {"5", "210", {"39", "73", "108", "142", "176"}},
    };
    BaseMapEditor e;
    e.OpenForEditing();
    int column = 0;
    for (const Case& c : cases) {
        e.EnterCell(column, 0, "99");
        e.EnterCell(column, 1, c.first);
        e.EnterCell(column++, 7, c.last);
    }
    e.Press(e.Page().Distribuisci);
    EXPECT_EQ(e.Shown(), e.Text("SEGNALAZIONE_6", "MESSAL1"));
    column = 0;
    for (const Case& c : cases) {
        EXPECT_EQ(e.Cell(column, 0), "99");
        EXPECT_EQ(e.Cell(column, 1), c.first);
        EXPECT_EQ(e.Cell(column, 7), c.last);
        for (int row = 2; row < 7; ++row)
            EXPECT_EQ(e.Cell(column, row), c.between[static_cast<std::size_t>(row - 2)]) << column << "," << row;
        ++column;
    }
    EXPECT_TRUE(e.sent.empty());
    EXPECT_TRUE(e.Page().Unsaved());
}

TEST(MessaL1, TheAnchorsAreNamedByTheirPressures) {
    BaseMapEditor e;
    e.OpenForEditing();
    e.Enter(e.Page().MAPV[1], "333");
    e.Press(e.Page().LimDistr);
    EXPECT_EQ(e.Shown(), shell::Fill(e.Text("LIMDISTR.1", "MESSAL1"), e.Page().MAPV[1].Text(), "998"));
    EXPECT_NE(e.Shown().find("333"), std::string::npos);
    EXPECT_EQ(e.Shown().find('%'), std::string::npos);
}

TEST(MessaL1, ACellThatTheUnitHoldsOutsideTheLimitsStaysUntilItIsEdited) {
    BaseMapEditor e({"cell L 49 FFFF", "cell L 55 FF", "cell L 56 03"});
    e.OpenForEditing();
    EXPECT_EQ(e.Cell(0, 1), "255");
    EXPECT_EQ(e.Cell(1, 0), "3");
    e.Press(e.Page().Distribuisci);
    EXPECT_EQ(e.Cell(0, 1), "255") << "an anchor is no edit";
    EXPECT_EQ(e.Cell(0, 2), "210");
    e.Press(e.Page().Memorizza);
    ASSERT_TRUE(e.Finish());
    EXPECT_EQ(e.Stored(49), 255);
    EXPECT_EQ(e.Stored(50), 210);
    EXPECT_EQ(e.Stored(56), 3);
}

TEST(MessaL1, MemorizzaWritesAxesAndCellsInTheirOrder) {
    BaseMapEditor e;
    e.OpenForEditing();
    e.Enter(e.Page().Giri[3], "1600");
    e.Enter(e.Page().MAPV[0], "300");
    e.EnterCell(2, 1, "123");
    e.Press(e.Page().Memorizza);
    EXPECT_EQ(e.State(), 161);
    EXPECT_FALSE(e.Page().Enabled());
    EXPECT_EQ(e.Shown(), e.Text("SEGNALAZIONE_4", "MESSAL1"));
    EXPECT_EQ(e.Tone(), Tone::Progress);
    EXPECT_EQ(e.Stack().Press(e.Page().Memorizza).why, Reason::PageDisabled);
    EXPECT_EQ(e.Stack().Close(e.Page()).why, Reason::PageDisabled);
    ASSERT_TRUE(e.Finish());
    ASSERT_EQ(e.sent.size(), static_cast<std::size_t>(StoreFrames));
    // 600, 830, 1200, 1600, 1900, 2300, 2700, 3100; 300 mbar are 277 counts, the others go out as they were read.
    EXPECT_EQ(e.sent[0], "I000000160258033E04B00640076C08FC0A8C0C1C");
    EXPECT_EQ(e.sent[1], "I030400160258033E04B00640076C08FC0A8C0C1C");
    EXPECT_EQ(e.sent[4], "S315000021838");
    EXPECT_EQ(e.sent[5], "I003200160115012E014F016F019001B101D101F2");
    EXPECT_EQ(e.sent[7], "S3808001600000000000000000000000000000000");
    EXPECT_EQ(e.sent[8], "W10240016033E04B00640076C08FC0A8C0C1C0DAC");
    EXPECT_EQ(e.sent[11],
              "W02170006"
              "0258"
              "0115"
              "01F2");
    EXPECT_EQ(e.sent[13 + 20 + 1], "W108100017B");
    EXPECT_EQ(e.sent[13 + 20 + 8].substr(0, 13), "I00640008" + e.sent[13 + 20].substr(9, 2) + "7B");
    EXPECT_EQ(e.sent[13 + 20 + 9].substr(0, 9), "I03680008");
    for (std::size_t i = 0; i < e.states.size(); ++i) {
        const std::size_t inColumn = i < 13 ? 0 : (i - 13) % 10;
        EXPECT_EQ(e.states[i], i < 13 ? 161 : (inColumn < 8 ? 165 : 166)) << i;
    }
    EXPECT_EQ(e.Shown(), e.Text("SEGNALAZIONE_1", "MESSAL1"));
    EXPECT_TRUE(e.Page().Enabled());
    EXPECT_FALSE(e.Page().Unsaved());
    EXPECT_TRUE(e.program.link.timers.TimeOutDati->Enabled());
    EXPECT_EQ(e.program.shell.state.pointer, shell::Pointer::Normal);
}

TEST(MessaL1, AStoredCellStandsInMemoryInItsCopyAndInTheRunningEngine) {
    BaseMapEditor e;
    e.OpenForEditing();
    e.EnterCell(5, 2, "77");
    e.Press(e.Page().Memorizza);
    ASSERT_TRUE(e.Finish());
    EXPECT_EQ(e.Stored(48 + 42), 77);
    EXPECT_EQ(e.Stored(352 + 42), 77);
    EXPECT_EQ(e.Live(1064 + 42), 77);
    EXPECT_TRUE(e.Page().LambdaRicco.ChangedCells().empty());
    e.Press(e.Page().Esci);
    EXPECT_FALSE(e.Page().IsOpen()) << "what is stored is no reason to ask";
    e.Sim("ignition off");
    e.Run(6000);
    e.Sim("ignition on");
    ASSERT_TRUE(e.RunUntil([&e] { return e.program.link.state.FlussoAttivo == True; }, 60000));
    e.Open();
    EXPECT_EQ(e.Cell(5, 2), "77");
}

TEST(MessaL1, RileggoResetTakesTheCellsFromTheWorkingMemoryAndLeavesTheAxes) {
    BaseMapEditor e;
    e.OpenForEditing();
    e.Enter(e.Page().Giri[3], "1600");
    e.EnterCell(0, 0, "99");
    e.Sim("cell W 1191 42");
    e.Press(e.Page().RileggoReset);
    EXPECT_EQ(e.State(), 167);
    ASSERT_TRUE(e.Finish());
    EXPECT_EQ(e.sent, (BaseMapEditor::Frames{"R10640016", "R10800016", "R10960016", "R11120016", "R11280016",
                                             "R11440016", "R11600016", "R11760016"}));
    EXPECT_EQ(e.Cell(0, 0), std::to_string(e.Live(1064)));
    EXPECT_EQ(e.Cell(15, 7), "66");
    EXPECT_EQ(e.Page().Giri[3].Text(), "1600");
    EXPECT_TRUE(e.Page().LambdaRicco.Changed()) << "the memory holds another cell than the engine";
    EXPECT_EQ(e.Shown(), e.Text("SEGNALAZIONE_5", "MESSAL1"));
    EXPECT_EQ(e.Tone(), Tone::Done);
    e.EnterCell(15, 7, std::to_string(e.Stored(175)));
    EXPECT_FALSE(e.Page().LambdaRicco.Changed());
    EXPECT_TRUE(e.Page().Unsaved()) << "the axis is still not stored";
}

// The last speed is the over-speed threshold.
TEST(MessaL1, TheOverSpeedThresholdKeepsItsLimits) {
    BaseMapEditor e({"cell O 3150 0FA0"});  // 4000, which no page would accept
    e.OpenForEditing();
    tuning::MessaL1& page = e.Page();
    e.Stack().FocusOn(page.Giri[15]);
    e.Stack().Leave(page.Giri[15]);
    EXPECT_EQ(page.Giri[15].Text(), "4000") << "what the unit holds may stand";
    for (const char* figure : {"4499", "10001", "99999"}) {
        const int beeps = e.Beeps();
        e.Enter(page.Giri[15], figure);
        EXPECT_EQ(e.Beeps(), beeps + 1) << figure;
        EXPECT_EQ(e.Shown(), "4500 - 10000") << figure;
        EXPECT_EQ(e.Tone(), Tone::Refused) << figure;
        EXPECT_EQ(page.Giri[15].Text(), figure);
        EXPECT_TRUE(page.Giri[15].Refused());
        EXPECT_EQ(page.Focus(), &page.Giri[15]);
        EXPECT_EQ(page.LambdaRicco.GetCells()[0][16], "4000");
        EXPECT_EQ(e.Stack().Press(page.Memorizza).why, Reason::ValueRefused);
    }
    e.Enter(page.Giri[15], "6500");
    EXPECT_FALSE(page.Giri[15].Refused());
    EXPECT_EQ(e.Shown(), "");
    e.Enter(page.Giri[15], "99");
    e.Enter(page.Giri[15], "");
    EXPECT_EQ(page.Giri[15].Text(), "6500") << "an emptied field gets its figure back";
    EXPECT_FALSE(page.Giri[15].Refused());
    e.Enter(page.MAPV[3], "");
    EXPECT_FALSE(page.MAPV[3].Changed());
}

TEST(MessaL1, ARefusedThresholdIsNotStoredAfterAnAttemptToLeave) {
    BaseMapEditor e;
    e.OpenForEditing();
    e.EnterCell(0, 0, "99");
    e.Enter(e.Page().Giri[15], "20000");
    e.Press(e.Page().Esci);
    e.Press(e.program.shell.messaggio.TastoNo);
    EXPECT_EQ(e.Page().Focus(), &e.Page().Giri[15]);
    EXPECT_EQ(e.Stack().Press(e.Page().Memorizza).why, Reason::ValueRefused);
    EXPECT_TRUE(e.sent.empty());
}

TEST(MessaL1, AnAxisTypedOutOfOrderIsToldAndAccepted) {
    BaseMapEditor e({"cell L 6 0001"});  // the unit's own fourth speed is below the third
    e.OpenForEditing();
    e.Enter(e.Page().Giri[8], std::to_string(4000));
    EXPECT_EQ(e.Shown(), e.Text("SEGNALAZIONE_7", "MESSAL1"));
    e.Enter(e.Page().Giri[3], "1600");
    e.Enter(e.Page().Giri[8], "3500");
    EXPECT_EQ(e.Shown(), "");
    e.Enter(e.Page().MAPV[2], "200");
    EXPECT_EQ(e.Shown(), e.Text("SEGNALAZIONE_7", "MESSAL1"));
    EXPECT_EQ(e.Page().MAPV[2].Text(), "200");
    for (const char* figure : {"", "200"}) {
        e.Enter(e.Page().MAPV[2], figure);
        EXPECT_EQ(e.Shown(), e.Text("SEGNALAZIONE_7", "MESSAL1")) << "as long as the axis does not rise";
    }
    e.Press(e.Page().Memorizza);
    ASSERT_TRUE(e.Finish());
    EXPECT_EQ(e.Shown(), e.Text("SEGNALAZIONE_1", "MESSAL1"));
}

TEST(MessaL1, AFieldThatWasOnlyPassedThroughIsNotChanged) {
    BaseMapEditor e({"cell L 32 0010", "cell L 0 FFFF"});  // below the least pressure that is believed
    e.OpenForEditing();
    for (const auto& axis : {&e.Page().Giri, &e.Page().MAPV}) {
        for (const auto& field : *axis) {
            e.Stack().FocusOn(*field);
            e.Stack().Leave(*field);
            EXPECT_FALSE(field->Changed()) << field->Name();
        }
    }
    EXPECT_FALSE(e.Page().Unsaved());
    e.Press(e.Page().Memorizza);
    ASSERT_TRUE(e.Finish());
    EXPECT_EQ(e.Stored(33), 0x10);
}

// The other pages bound their figures by what the map has stored.
TEST(MessaL1, AStoreIsKnownToImageRecordsAndLimits) {
    const auto figure = [](BaseMapEditor& e, const char* record) {
        return std::string(platform::Trim(e.program.tuning.memoria[tuning::FindRecord(record)->number].Dato[0]));
    };
    const auto most = [](BaseMapEditor& e, const char* record) {
        return e.program.tuning.memoria[tuning::FindRecord(record)->number].Max;
    };
    for (const bool broken : {false, true}) {
        BaseMapEditor e;
        e.OpenForEditing();
        EXPECT_EQ(figure(e, "RPMZone(3)"), "1500") << "as the editor read it";
        e.Enter(e.Page().Giri[3], "1600");
        e.Enter(e.Page().Giri[15], "6500");
        e.EnterCell(0, 0, "99");
        if (broken) e.Sim("misbehave refuse command I once at frame 7");
        e.Press(e.Page().Memorizza);
        ASSERT_TRUE(e.Finish());
        EXPECT_EQ(e.program.tuning.Cells()(3150, 2), 6500U);
        EXPECT_EQ(e.program.tuning.Cells()(48, 1), broken ? static_cast<std::uint32_t>(e.Stored(48)) : 99U);
        EXPECT_EQ(figure(e, "RPMZone(3)"), "1600");
        EXPECT_EQ(figure(e, "ValFG(0)"), "6500");
        EXPECT_EQ(most(e, "ValFG(1)"), 6500);
        EXPECT_EQ(most(e, "ValCut(0)"), 6500);
        if (!broken) continue;
        // What was typed back is not what the unit holds now.
        e.EnterCell(0, 0, std::to_string(e.Stored(48)));
        e.Enter(e.Page().Giri[3], "1500");
        e.Enter(e.Page().Giri[15], "6200");
        EXPECT_TRUE(e.Page().Unsaved());
    }
}

TEST(MessaL1, ThePageSaysThatAStoreClearsTheHistory) {
    BaseMapEditor e;
    e.Open();
    EXPECT_TRUE(e.Page().LabStorico.Visible());
    EXPECT_EQ(e.Page().LabStorico.Text(), e.Text("STORICO.0", "MESSAL1"));
    EXPECT_NE(e.Page().LabStorico.Text(), "");
}

// What goes wrong in each state of the store, and what the fitter then sees.
TEST(MessaL1, ARefusedOrSilentStoreLeavesTheCellsAsTyped) {
    struct Case {
        const char* line;
        int state;
        std::size_t frames;  // sent up to then
        const char* key;     // of ERRORI; null: no words
        int beeps;
    };
    constexpr Case cases[] = {
        {"misbehave refuse command I once", 161, 1, "ERRORE_3", 0},
        {"misbehave refuse command S once", 161, 5, "ERRORE_3", 0},
        {"misbehave refuse command W once", 161, 9, "ERRORE_3", 0},
        {"misbehave refuse command W once at frame 6", 165, 14, "ERRORE_3", 0},
        {"misbehave refuse command I once at frame 7", 166, 22, "ERRORE_3", 0},
        {"misbehave refuse command I once at frame 38", 166, StoreFrames, "ERRORE_3", 0},
        {"misbehave silence command I once", 161, 1, nullptr, 1},
        {"misbehave silence command W once at frame 6", 165, 14, "ERRORE_3", 1},
        {"misbehave silence command I once at frame 7", 166, 22, "ERRORE_3", 1},
        {"misbehave other-letter command I once at frame 7", 166, 22, "ERRORE_3", 1},
        {"cable out after 3", 161, 4, nullptr, 1},
    };
    for (const Case& c : cases) {
        BaseMapEditor e;
        e.OpenForEditing();
        e.EnterCell(0, 0, "99");
        e.EnterCell(15, 7, "88");
        const int beeps = e.Beeps();
        e.Sim(c.line);
        e.Press(e.Page().Memorizza);
        ASSERT_TRUE(e.Finish()) << c.line;
        EXPECT_EQ(e.sent.size(), c.frames) << c.line;
        EXPECT_EQ(e.states.back(), c.state) << c.line;
        EXPECT_EQ(e.Shown(), c.key == nullptr ? "" : e.Text(c.key, "ERRORI")) << c.line;
        EXPECT_EQ(e.Tone(), c.key == nullptr ? Tone::Plain : c.beeps == 0 ? Tone::Refused : Tone::Failed) << c.line;
        EXPECT_EQ(e.Beeps(), beeps + c.beeps) << c.line;
        EXPECT_TRUE(e.Page().Enabled()) << c.line;
        EXPECT_FALSE(e.Page().Avanzamento.Visible()) << c.line;
        EXPECT_EQ(e.Cell(0, 0), "99") << c.line;
        EXPECT_EQ(e.Cell(15, 7), "88") << c.line;
        EXPECT_TRUE(e.Page().Unsaved()) << c.line;
        EXPECT_TRUE(e.program.link.timers.TimeOutDati->Enabled()) << c.line;
    }
}

// Beside what was edited stands what the unit now holds, confirmed frame by frame.
TEST(MessaL1, WhatABrokenStoreHasWrittenIsNoLongerMarked) {
    BaseMapEditor e;
    e.OpenForEditing();
    const std::string before = e.Page().Giri[3].Text();
    e.Enter(e.Page().Giri[3], "1550");
    e.Enter(e.Page().MAPV[2], "400");
    e.EnterCell(0, 0, "99");
    e.EnterCell(15, 7, "88");
    e.Sim("misbehave refuse command I once at frame 9");
    e.Press(e.Page().Memorizza);
    ASSERT_TRUE(e.Finish());
    EXPECT_FALSE(e.Page().Giri[3].Changed() || e.Page().MAPV[2].Changed());
    EXPECT_EQ(e.Page().LambdaRicco.ChangedCells(), (std::vector<pages::CellPlace>{{8, 16}}));
    EXPECT_TRUE(e.Page().Unsaved());
    e.Enter(e.Page().Giri[3], before.c_str());
    EXPECT_TRUE(e.Page().Giri[3].Changed()) << "it is another figure than the unit's now";
}

TEST(MessaL1, AStoreThatBrokeOffCanBeRepeated) {
    BaseMapEditor e;
    e.OpenForEditing();
    e.EnterCell(15, 7, "88");
    e.Sim("misbehave refuse command W once at frame 6");
    e.Press(e.Page().Memorizza);
    ASSERT_TRUE(e.Finish());
    EXPECT_NE(e.Stored(175), 88);
    e.Forget();
    e.Press(e.Page().Memorizza);
    ASSERT_TRUE(e.Finish());
    EXPECT_EQ(e.sent.size(), static_cast<std::size_t>(StoreFrames));
    EXPECT_EQ(e.Stored(175), 88);
    EXPECT_FALSE(e.Page().Unsaved());
}

TEST(MessaL1, AFailedOpeningLeavesNothingThatCouldBeStored) {
    for (const char* line : {"misbehave silence command L once at frame 3", "misbehave silence command O once",
                             "misbehave silence command R once", "misbehave refuse command R once",
                             "misbehave length 20 command L once at frame 3", "cable out after 3"}) {
        BaseMapEditor e;
        const int beeps = e.Beeps();
        e.Sim(line);
        e.Open();
        EXPECT_EQ(e.Shown(), e.Text("ERRORE_18", "ERRORI")) << line;
        EXPECT_EQ(e.Tone(), Tone::Failed) << line;
        EXPECT_EQ(e.Beeps(), beeps + 1) << line;
        EXPECT_TRUE(e.Page().Enabled()) << line;
        EXPECT_EQ(e.Cell(0, 0), "") << line;
        EXPECT_EQ(e.Stack().Press(e.Page().Memorizza).why, Reason::ReadingFailed) << line;
        EXPECT_EQ(e.Stack().Press(e.Page().Modifica).why, Reason::ReadingFailed) << line;
        EXPECT_EQ(e.Stack().Press(e.Page().LimDistr).why, Reason::ReadingFailed) << line;
        e.Press(e.Page().Esci);
        EXPECT_FALSE(e.Page().IsOpen()) << line;
        e.Sim("cable in");
        ASSERT_TRUE(e.RunUntil([&e] { return e.program.link.state.FlussoAttivo == True && e.Idle(); }, 60000)) << line;
        e.Run(1000);
        e.Open();
        EXPECT_NE(e.Cell(0, 0), "") << line << ": the next opening works";
        EXPECT_TRUE(e.Stack().Press(e.Page().Modifica).ok) << line;
    }
}

TEST(MessaL1, ASilentRereadKeepsTheEdits) {
    for (const char* line :
         {"misbehave silence command R once at frame 4", "misbehave refuse command R once at frame 4"}) {
        BaseMapEditor e;
        e.OpenForEditing();
        e.EnterCell(0, 0, "99");
        const int beeps = e.Beeps();
        e.Sim(line);
        e.Press(e.Page().RileggoReset);
        ASSERT_TRUE(e.Finish());
        EXPECT_EQ(e.Shown(), "") << line;
        EXPECT_EQ(e.Beeps(), beeps + 1) << line;
        EXPECT_TRUE(e.Page().Enabled()) << line;
        EXPECT_EQ(e.Cell(0, 0), "99") << line;
        EXPECT_TRUE(e.Page().Unsaved()) << line;
    }
}

TEST(MessaL1, LeavingWithEditsAsksFirst) {
    BaseMapEditor e;
    e.OpenForEditing();
    e.EnterCell(0, 0, "99");
    shell::Messaggio& question = e.program.shell.messaggio;
    for (const bool byWindow : {false, true}) {
        const int beeps = e.Beeps();
        if (byWindow) {
            e.Stack().Close(e.Page());
        } else {
            ASSERT_TRUE(e.Stack().Key(e.Page(), "Esc").ok);
        }
        ASSERT_TRUE(question.IsOpen());
        EXPECT_EQ(e.Beeps(), beeps + 1);
        EXPECT_EQ(question.Segnalazione.Text(), e.Text("ERRORE_20", "ERRORI"));
        e.Press(question.TastoNo);
        ASSERT_TRUE(e.Page().IsOpen());
        EXPECT_EQ(e.Cell(0, 0), "99");
    }
    e.Press(e.Page().Esci);
    e.Press(question.TastoYes);
    EXPECT_FALSE(e.Page().IsOpen());
    EXPECT_FALSE(e.Page().LambdaRicco.Changed() || !e.Page().LambdaRicco.ChangedCells().empty());
    EXPECT_TRUE(e.sent.empty()) << "leaving writes nothing";
    e.OpenForEditing();
    EXPECT_NE(e.Cell(0, 0), "99");
    // A figure typed and not left counts too.
    ASSERT_TRUE(e.Stack().Type(e.Page().Giri[0], "650").ok);
    e.Press(e.Page().Esci);
    EXPECT_TRUE(question.IsOpen());
}

TEST(MessaL1, TheCellUnderTheEngineIsMarkedBesideItsFigures) {
    BaseMapEditor e({"rpm 2050"});
    e.Open();
    e.Run(3000);
    tuning::MessaL1& page = e.Page();
    EXPECT_EQ(page.LabAuto[0].Text(), e.Text("GIRI", "CANALI"));
    EXPECT_EQ(page.UmAuto[1].Text(), e.Text("UMMAP_1", "CANALI"));
    EXPECT_NEAR(std::stod(page.DatiAuto[0].Text()), 2050, 1);
    const double mbar = std::stod(page.DatiAuto[1].Text());
    EXPECT_EQ(page.LambdaRicco.MarkedColumn(), 5) << "1900 lies nearer than 2300";
    const int marked = page.LambdaRicco.MarkedRow();
    ASSERT_GE(marked, 1);
    for (int row = 0; row < 8; ++row) {
        EXPECT_LE(std::abs(std::stod(page.MAPV[marked - 1].Text()) - mbar),
                  std::abs(std::stod(page.MAPV[row].Text()) - mbar) + 4);
    }
    e.Sim("rpm 7000");
    e.Run(2000);
    EXPECT_EQ(page.LambdaRicco.MarkedColumn(), 16);
    // The other view of the instruments does not change what the map is read against.
    eculink::CambiaUnita(e.program.link, eculink::EngineeringView);
    e.Run(1000);
    EXPECT_LT(std::stod(page.DatiAuto[1].Text()), 1100);
    // While an exchange runs, nothing on the page follows.
    e.Press(page.Modifica);
    e.Sim("misbehave silence command I once");
    e.Press(page.Memorizza);
    e.Sim("rpm 2050");
    e.Run(4000);
    EXPECT_FALSE(e.Idle());
    EXPECT_EQ(page.LambdaRicco.MarkedColumn(), 16);
    e.Finish();
    e.Run(1000);
    EXPECT_EQ(page.LambdaRicco.MarkedColumn(), 5);
    e.Sim("rpm 0");
    e.Run(5000);
    EXPECT_EQ(page.LambdaRicco.MarkedColumn(), -1) << "a standing engine is nowhere on the map";
    e.Sim("cable out");
    e.Run(5000);
    EXPECT_FALSE(page.IsOpen());
    EXPECT_FALSE(page.TVis->Enabled());
}

TEST(MessaL1, WithoutAnAcquiredSensorPressuresAreNeitherShownNorLost) {
    BaseMapEditor e({"cell O 3312 00", "cell O 3104 01F401F4"});
    e.OpenForEditing();
    EXPECT_EQ(e.Page().MAPV[0].Text(), "****");
    EXPECT_EQ(e.Stack().Type(e.Page().MAPV[0], "300").why, Reason::NoSensor);
    e.EnterCell(0, 0, "99");
    e.Press(e.Page().Memorizza);
    ASSERT_TRUE(e.Finish());
    EXPECT_EQ(e.sent[5], "I00320016010F012E014F016F019001B101D101F2");
    EXPECT_EQ(e.Page().LambdaRicco.MarkedRow(), -1);
}

}  // namespace
