#include <gtest/gtest.h>

#include <algorithm>

#include "link/frames/numbers.h"
#include "tuning/page_rig.h"

namespace {

using pages::Reason;
using pages::Tone;
using tuning_test::PageRig;
using Frames = PageRig::Frames;

std::string TraceOf(PageRig& rig) {
    return rig.files.Read(rig.folder.Path() / "TXMESS.TXT", platform::Files::DefaultLimit).value_or("");
}

std::string Traced(const Frames& frames) {
    std::string text;
    for (const std::string& frame : frames) text += "\x02" + frame + "\x03\r\n";
    return text;
}

// Over-speed 6200 and 5800, edited to 6000 and 5700.
const Frames NewSpeeds{"W003900021770", "W004100021644"};
const Frames OldSpeeds{"W003900021838", "W0041000216A8"};

void EditSpeeds(PageRig& rig) {
    rig.Enter("ValFG(0)", "6000");
    rig.Enter("ValFG(1)", "5700");
}

TEST(PageCycle, TheTwoApplicaTakeTurnsWithNewAndInitialValues) {
    PageRig rig("MessaP");
    rig.Open(6);
    EXPECT_EQ(rig.Press("Applica(0)").why, Reason::Unchanged);
    EditSpeeds(rig);
    ASSERT_TRUE(rig.Press("Applica(0)").ok);
    EXPECT_EQ(rig.State(), 100);
    EXPECT_EQ(rig.Tone(), Tone::Progress);
    EXPECT_EQ(rig.Press("InMemor").why, Reason::Transaction);
    EXPECT_EQ(rig.Press("Esci").why, Reason::Transaction);
    EXPECT_EQ(rig.Stack().Select(rig.Control("Pagine"), {0}).why, Reason::Transaction);
    EXPECT_TRUE(rig.Control("Avanzamento").Visible());
    ASSERT_TRUE(rig.Finish());
    EXPECT_EQ(rig.sent, NewSpeeds);
    EXPECT_EQ(TraceOf(rig), Traced(NewSpeeds));
    EXPECT_EQ(rig.Live(39), 6000);
    EXPECT_EQ(rig.Word(3150), 6200) << "a try-out leaves the memory alone";
    EXPECT_EQ(rig.Shown(), rig.Text("SEGNALAZIONE_4", "MESSAP"));
    EXPECT_FALSE(rig.Control("Avanzamento").Visible());
    EXPECT_TRUE(rig.program.link.timers.TimeOutDati->Enabled());

    EXPECT_EQ(rig.Press("Applica(0)").why, Reason::Hidden);
    rig.Forget();
    ASSERT_TRUE(rig.Press("Applica(1)").ok);
    EXPECT_EQ(rig.State(), 101);
    ASSERT_TRUE(rig.Finish());
    EXPECT_EQ(rig.sent, OldSpeeds);
    EXPECT_EQ(TraceOf(rig), Traced(OldSpeeds));
    EXPECT_EQ(rig.Live(39), 6200);
    EXPECT_EQ(rig.Shown(), rig.Text("SEGNALAZIONE_5", "MESSAP"));
    EXPECT_EQ(rig.Tone(), Tone::Done);

    EXPECT_EQ(rig.Chain("Applica(0)"), NewSpeeds) << "and back, without an edit between";
    rig.Enter("ValFG(1)", "5700");
    EXPECT_TRUE(rig.Control("Applica(0)").Visible()) << "any edit offers the new values again";
    EXPECT_EQ(rig.Chain("Applica(0)"), NewSpeeds);
}

// One record of each kind: what a try-out, a store and leaving send for it.
TEST(PageCycle, EachKindOfCellHasItsFrames) {
    struct Case {
        const char* kind;
        int page;
        const char* field;
        const char* figure;
        const char* tables;  // button that shows the grid, or null
        int row;
        int column;
        Frames trial;
        Frames store;
        Frames leave;
    };
    const Case cases[] = {
        {"one byte, odd address",
         0,
         "ValLam(3)",
         "11",
         nullptr,
         0,
         0,
         {"W00730001"
          "0B"},
         {"W007300010B", "S316700020BFF"},
         {"W007300010A"}},
        {"two bytes",
         1,
         "ValCut(0)",
         "1600",
         nullptr,
         0,
         0,
         {"W004300020640"},
         {"W004300020640", "S313800020640"},
         {"W0043000205DC"}},
        {"no working copy, one byte", 1, "StepCut", "3", nullptr, 0, 0, {"S3168000203FF"}, {"S3168000203FF"}, {}},
        {"no working copy, two bytes",
         4,
         "ValTrans(3)",
         "300",
         nullptr,
         0,
         0,
         {"S36580002012C"},
         {"S36580002012C"},
         {}},
        {"ESTERNA",
         1,
         "Giri_ResCO",
         "41",
         "ResetCO",
         1,
         1,
         {"W1374000129"},
         {"W1374000129", "I0176000129"},
         {"W1374000128"}},
        {"shared by two rows",
         5,
         "TransitT",
         "2100",
         "TastoRil",
         1,
         2,
         {"W015700020834", "W015700020834"},
         {"W015700020834", "S371400020834", "W015700020834", "S371400020834"},
         {"W0157000207D0", "W0157000207D0"}},
        {"a speed: the cell holds a period",
         7,
         "ValFreq(0)",
         "20",
         nullptr,
         0,
         0,
         {"W008800020031"},
         {"W008800020031", "S315800020031"},
         {"W008800020041"}},
        {"two positions: 0 or 255",
         2,
         "Inibiz",
         "1",
         nullptr,
         0,
         0,
         {"W02340001FF"},
         {"W02340001FF", "S31180002FFFF"},
         {"W0234000100"}},
        {"seven positions: the index",
         11,
         "VeloAutoM",
         "3",
         nullptr,
         0,
         0,
         {"W0255000103"},
         {"W0255000103", "S3840000203FF"},
         {"W0255000106"}},
    };
    // The frames of a chain that concern the cells in question.
    const auto concerned = [](const Frames& chain, const Frames& like) {
        Frames found;
        for (const std::string& frame : chain) {
            for (const std::string& other : like) {
                if (frame.substr(0, 9) != other.substr(0, 9)) continue;
                found.push_back(frame);
                break;
            }
        }
        return found;
    };
    for (const Case& c : cases) {
        const auto edit = [&c](PageRig& rig) {
            rig.Open(c.page);
            if (c.tables != nullptr) {
                ASSERT_TRUE(rig.Press(c.tables).ok);
                rig.EnterCell(c.field, c.row, c.column, c.figure);
            } else if (rig.Control(c.field).GetKind() == pages::Kind::Combo) {
                rig.Choose(c.field, std::stoi(c.figure));
            } else {
                rig.Enter(c.field, c.figure);
            }
        };
        PageRig rig("MessaP");
        edit(rig);
        EXPECT_EQ(concerned(rig.Chain("Applica(0)"), c.trial), c.trial) << c.kind;
        Frames back = concerned(rig.Chain("Esci"), c.trial);
        EXPECT_EQ(back, c.leave) << c.kind;
        EXPECT_FALSE(rig.Page().IsOpen());
        PageRig other("MessaP");
        edit(other);
        EXPECT_EQ(concerned(other.Chain("InMemor"), c.store), c.store) << c.kind;
        ASSERT_TRUE(other.Press("Esci").ok);
        EXPECT_FALSE(other.Page().IsOpen()) << "what is stored needs no way back";
    }
}

TEST(PageCycle, StoringWritesBothHomesOfEachRecordInTurn) {
    PageRig rig("MessaP");
    rig.Open(6);
    EditSpeeds(rig);
    const Frames chain{"W003900021770", "S315000021770", "W004100021644", "S314800021644"};
    rig.Press("Applica(0)");
    rig.Finish();
    ASSERT_TRUE((rig.Forget(), rig.Press("InMemor").ok));
    EXPECT_EQ(rig.State(), 110);
    EXPECT_EQ(rig.Shown(), rig.Text("SEGNALAZIONE_6", "MESSAP"));
    ASSERT_TRUE(rig.RunUntil([&] { return rig.sent.size() == 3; }, 5000));
    EXPECT_EQ(rig.Dato("ValFG(0)", 0), "6000") << "each stored cell is an initial value from its reply on";
    EXPECT_EQ(rig.Field("FGDef(0)"), "6000");
    EXPECT_EQ(rig.Dato("ValFG(1)", 0), "5800");
    ASSERT_TRUE(rig.Finish());
    EXPECT_EQ(rig.sent, chain);
    EXPECT_EQ(TraceOf(rig), Traced(chain));
    EXPECT_EQ(rig.Word(3150), 6000);
    EXPECT_EQ(rig.Shown(), rig.Text("SEGNALAZIONE_1", "MESSAP"));
    EXPECT_EQ(rig.Field("FGDef(1)"), "5700");
    EXPECT_FALSE(rig.Control("ValFG(0)").Changed());
    EXPECT_TRUE(rig.Control("Applica(0)").Visible()) << "a store offers the new values again";
    rig.Forget();
    ASSERT_TRUE(rig.Press("Esci").ok);
    EXPECT_EQ(rig.sent, Frames{});
    EXPECT_EQ(rig.Dato("RPMZone(16)", 0), "6000") << "so does every other record of the cell";
}

TEST(PageCycle, AReplyOfAnotherLengthIsNotTakenForAFigure) {
    for (const char* fault : {"lose", "double"}) {
        PageRig rig("MessaP");
        rig.Sim(std::string("misbehave ") + fault + " command O once");
        rig.StartOpening(6);
        ASSERT_TRUE(rig.Finish());
        EXPECT_EQ(rig.Shown(), rig.Text("ERRORE_18", "ERRORI")) << fault;
        EXPECT_EQ(rig.Field("ValFG(0)"), "") << fault;
        EXPECT_EQ(rig.Press("InMemor").why, Reason::ReadingFailed) << fault;
    }
}

TEST(PageCycle, ThePageOnTheScreenChosenAgainStaysAsItIs) {
    PageRig rig("MessaP");
    rig.Open(6);
    rig.Enter("ValFG(0)", "6000");
    rig.Choose("Pagine", rig.Control("Pagine").Index());
    EXPECT_EQ(rig.Field("ValFG(0)"), "6000");
    EXPECT_TRUE(rig.sent.empty());
    rig.Sim("misbehave silence command O once");
    rig.Choose("Pagine", 0);
    ASSERT_TRUE(rig.Finish());
    ASSERT_EQ(rig.Press("InMemor").why, Reason::ReadingFailed);
    rig.Choose("Pagine", 0);
    ASSERT_TRUE(rig.Finish());
    EXPECT_EQ(rig.Control("InMemor").Why(), Reason::None) << "one that could not be read is read again";
}

// Units are delivered with a 1 for the second position of some lists.
TEST(PageCycle, ATwoPositionListGoesOutAsReadUntilItIsEdited) {
    struct Case {
        const char* button;
        std::size_t frame;
        const char* untouched;
        const char* edited;  // to the first position
        const char* back;    // and to the second again, once that has been stored
    };
    for (const Case& c : {Case{"Applica(0)", 10, "W0234000101", "W0234000100", "W02340001FF"},
                          Case{"Applica(1)", 10, "W0234000101", "W0234000101", "W0234000100"},
                          Case{"InMemor", 21, "S3118000201FF", "S3118000200FF", "S31180002FFFF"}}) {
        PageRig rig("MessaP", {"cell O 3118 01"});
        rig.Open(2);
        rig.Enter("ValMin(0)", "1101");
        const auto chain = [&] {
            if (std::string(c.button) == "Applica(1)") rig.Chain("Applica(0)");
            return rig.Chain(c.button).at(c.frame);
        };
        EXPECT_EQ(chain(), c.untouched);
        rig.Choose("Inibiz", 0);
        EXPECT_EQ(chain(), c.edited);
        rig.Chain("InMemor");
        rig.Choose("Inibiz", 1);
        EXPECT_EQ(chain(), c.back);
    }
    PageRig back("MessaP", {"cell O 3118 01"});
    back.Open(2);
    back.Choose("Inibiz", 0);
    back.Choose("Inibiz", 1);
    EXPECT_EQ(back.Chain("InMemor").at(21), "S31180002FFFF") << "chosen, though it was the one read";
    PageRig rig("Imposta");
    rig.Open(0);
    const auto first = rig.Chain("InMemor").at(0);
    EXPECT_EQ(first, "S3082000201FF") << "the settings alike";
}

struct Break {
    const char* dialog;
    int page;
    const char* field;
    const char* figure;
    const char* button;
    std::size_t frames;  // of its chain
    const char* refusal;
    const char* section;
};
constexpr Break Breaks[] = {
    {"MessaP", 6, "ValFG(0)", "6000", "Applica(0)", 2, "ERRORE_3", "ERRORI"},
    {"MessaP", 6, "ValFG(0)", "6000", "Applica(1)", 2, "ERRORE_3", "ERRORI"},
    {"MessaP", 6, "ValFG(0)", "6000", "InMemor", 4, "SEGNALAZIONE_2", "MESSAP"},
    {"MessaP", 6, "ValFG(0)", "6000", "Esci", 2, "ERRORE_3", "ERRORI"},
    {"Imposta", 3, "ValInibiz(0)", "60", "Applica(0)", 2, "SEGNALAZIONE_2", "IMPOSTA"},
    {"Imposta", 3, "ValInibiz(0)", "60", "Applica(1)", 2, "SEGNALAZIONE_2", "IMPOSTA"},
    {"Imposta", 3, "ValInibiz(0)", "60", "InMemor", 2, "SEGNALAZIONE_2", "IMPOSTA"},
    {"Imposta", 3, "ValInibiz(0)", "60", "Esci", 2, "SEGNALAZIONE_2", "IMPOSTA"},
};

// Each state, broken off at each of its frames by a refusal and by silence: the words, a usable page, no further frame.
TEST(PageCycle, ARefusalOrSilenceEndsTheChainAndLeavesThePageUsable) {
    for (const Break& b : Breaks) {
        for (std::size_t frame = 1; frame <= b.frames; ++frame) {
            for (const bool silence : {false, true}) {
                PageRig rig(b.dialog);
                rig.Open(b.page);
                rig.Enter(b.field, b.figure);
                if (std::string(b.button) != "Applica(0)" && std::string(b.button) != "InMemor")
                    rig.Chain("Applica(0)");
                rig.Forget();
                rig.Sim(std::string("misbehave ") + (silence ? "silence" : "refuse") + " command all at frame " +
                        std::to_string(frame));
                const int beeps = rig.Beeps();
                ASSERT_TRUE(rig.Press(b.button).ok) << b.button;
                ASSERT_TRUE(rig.Finish());
                const std::string at = std::string(b.dialog) + " " + b.button + " " + std::to_string(frame);
                EXPECT_EQ(rig.sent.size(), frame) << at;
                EXPECT_EQ(rig.Beeps(), beeps + (silence ? 1 : 0)) << at;
                EXPECT_EQ(rig.Shown(), silence ? rig.Text("ERRORE_3", "ERRORI") : rig.Text(b.refusal, b.section)) << at;
                EXPECT_EQ(rig.Tone(), silence ? Tone::Failed : Tone::Refused) << at;
                EXPECT_TRUE(rig.Page().IsOpen() && rig.Page().Enabled()) << at;
                EXPECT_EQ(rig.Control("InMemor").Why(), Reason::None) << at;
                EXPECT_EQ(rig.Control("Esci").Why(), Reason::None) << at;
                EXPECT_EQ(rig.Dato(b.field, 1), b.figure) << at;
                EXPECT_EQ(rig.program.shell.state.pointer, shell::Pointer::Normal);
                EXPECT_TRUE(rig.program.link.timers.TimeOutDati->Enabled());
                rig.Forget();
                rig.Run(6000);
                EXPECT_EQ(rig.sent, Frames{}) << "nothing is sent again by itself";
                rig.Chain("Esci");
                EXPECT_FALSE(rig.Page().IsOpen()) << at << ": leaving again tries again";
            }
        }
    }
}

TEST(PageCycle, LeavingPutsBackTheWorkingCopiesAlone) {
    PageRig rig("MessaP");
    rig.Open(1);
    rig.Choose("StepCut", 3);
    ASSERT_TRUE(rig.Press("Esci").ok);
    EXPECT_EQ(rig.State(), 120);
    EXPECT_EQ(rig.Shown(), rig.Text("SEGNALAZIONE_7", "MESSAP"));
    ASSERT_TRUE(rig.Finish());
    EXPECT_FALSE(rig.Page().IsOpen());
    EXPECT_EQ(rig.sent.size(), 28U) << "twelve fields with a working copy and sixteen resets";
    for (const std::string& frame : rig.sent) EXPECT_EQ(frame[0], 'W');
    EXPECT_FALSE(rig.files.Exists(rig.folder.Path() / "TXMESS.TXT")) << "no try-out and no store";
}

TEST(PageCycle, ValuesThatWereTriedArePutBackAlsoWhenTheyHaveBeenTakenBackOnThePage) {
    PageRig rig("MessaP");
    rig.Open(6);
    rig.Enter("ValFG(0)", "6000");
    rig.Chain("Applica(0)");
    rig.Enter("ValFG(0)", "6200");
    EXPECT_EQ(rig.Live(39), 6000);
    EXPECT_EQ(rig.Chain("Esci"), OldSpeeds);
    EXPECT_EQ(rig.Live(39), 6200);
}

TEST(PageCycle, TheSelectorLeavesThePageBeforeItShowsTheNext) {
    PageRig rig("MessaP");
    rig.Open(6);
    rig.Enter("ValFG(0)", "6000");
    rig.Sim("misbehave refuse command W once");
    rig.Choose("Pagine", 8);
    ASSERT_TRUE(rig.Finish());
    EXPECT_EQ(rig.Control("Pagine").Index(), 6) << "a refusal keeps the page";
    EXPECT_EQ(rig.Field("ValFG(0)"), "6000");
    rig.Forget();
    rig.Choose("Pagine", 8);
    ASSERT_TRUE(rig.RunUntil([&] { return rig.State() == 81; }, 5000));
    ASSERT_TRUE(rig.Finish());
    EXPECT_EQ(rig.sent, (Frames{"W003900021838", "W0041000216A8", "O31720001", "O31730001", "O31740001"}));
    EXPECT_EQ(rig.program.shell.state.PaginaMessaP, 8);
    EXPECT_TRUE(rig.Control("ValStechio(0)").Visible());
    EXPECT_FALSE(rig.Control("ValFG(0)").Visible());
    EXPECT_EQ(rig.Dato("ValFG(0)", 1), "6200");
}

TEST(PageCycle, ARefusedFigureIsNoReasonToStay) {
    PageRig rig("MessaP");
    rig.Open(6);
    rig.Enter("ValFG(0)", "99");
    ASSERT_TRUE(rig.Press("Esci").ok);
    EXPECT_FALSE(rig.Page().IsOpen());
    EXPECT_EQ(rig.sent, Frames{}) << "it never reached the record";
}

// A way out that the unit's silence bars does not let the refused figure slip past the store.
TEST(PageCycle, ARefusedFigureHoldsTheStoreBackAlsoAfterAnAttemptToLeave) {
    PageRig rig("MessaP");
    rig.Open(6);
    rig.Enter("ValFG(1)", "5600");
    rig.Chain("Applica(0)");
    rig.Enter("ValFG(0)", "99");
    rig.Sim("misbehave silence command all once");
    rig.Chain("Esci");
    EXPECT_EQ(rig.Shown(), rig.Text("ERRORE_3", "ERRORI"));
    EXPECT_EQ(rig.Page().Focus(), &rig.Control("ValFG(0)"));
    EXPECT_EQ(rig.Field("ValFG(0)"), "99");
    rig.Forget();
    EXPECT_EQ(rig.Press("InMemor").why, pages::Reason::ValueRefused);
    EXPECT_EQ(rig.sent, Frames{});
}

// A figure refused while a chain runs stays to be put right; the strip tells what became of the chain.
TEST(PageCycle, AFigureRefusedWhileAChainRunsKeepsItsLimits) {
    PageRig rig("MessaP");
    rig.Open(6);
    ASSERT_TRUE(rig.Press("InMemor").ok);
    rig.Enter("ValFG(0)", "99");
    EXPECT_EQ(rig.Shown(), "4500 - 10000");
    ASSERT_TRUE(rig.Finish());
    EXPECT_EQ(rig.Shown(), rig.Text("SEGNALAZIONE_1", "MESSAP"));
    EXPECT_EQ(rig.Field("ValFG(0)"), "99");
    EXPECT_EQ(rig.Control("ValFG(0)").Legal(), "4500 - 10000");
    EXPECT_EQ(rig.Press("InMemor").why, pages::Reason::ValueRefused);
    rig.Enter("ValFG(0)", "5800");
    EXPECT_FALSE(rig.Control("ValFG(0)").Refused());
}

// The button of the new values gives way to that of the initial ones, and takes the hand along: so the fitter compares.
TEST(PageCycle, TheHandGoesOverFromOneApplicaToTheOther) {
    PageRig rig("MessaP");
    rig.Open(6);
    rig.Enter("ValFG(1)", "5600");
    for (const char* now : {"Applica(1)", "Applica(0)", "Applica(1)"}) {
        ASSERT_TRUE(
            rig.Stack().FocusOn(rig.Control(std::string(now) == "Applica(1)" ? "Applica(0)" : "Applica(1)")).ok);
        ASSERT_TRUE(rig.Stack().Key(rig.Page(), "Space").ok);
        ASSERT_TRUE(rig.Finish());
        EXPECT_EQ(rig.Page().Focus(), &rig.Control(now));
    }
    EXPECT_TRUE(rig.Stack().Key(rig.Page(), "Tab").ok);
    EXPECT_EQ(rig.Page().Focus(), &rig.Control("InMemor"));
}

// Passing through a marked field says nothing of what the unit holds, and takes neither the mark nor the words away.
TEST(PageCycle, TheMarksOfASilenceStayUntilTheFigureIsEditedOrSentAgain) {
    PageRig rig("MessaP");
    rig.Open(6);
    EditSpeeds(rig);
    rig.Sim("misbehave silence command all once");
    rig.Chain("Applica(0)");
    ASSERT_TRUE(rig.Control("ValFG(0)").Refused() && rig.Control("ValFG(1)").Refused());
    ASSERT_TRUE(rig.Stack().FocusOn(rig.Control("ValFG(0)")).ok);
    ASSERT_TRUE(rig.Stack().Key(rig.Page(), "Tab").ok);
    EXPECT_TRUE(rig.Control("ValFG(0)").Refused());
    rig.Enter("ValFG(0)", "5900");
    EXPECT_FALSE(rig.Control("ValFG(0)").Refused());
    EXPECT_TRUE(rig.Control("ValFG(1)").Refused());
    EXPECT_EQ(rig.Shown(), rig.Text("ERRORE_3", "ERRORI"));
}

// A silence opens the view of the value it concerns, but not over a field into which the hand is typing.
TEST(PageCycle, ASilenceDoesNotTakeTheFieldFromUnderTheHand) {
    for (const bool typing : {false, true}) {
        PageRig rig("MessaP");
        rig.Open(5);
        rig.Press("TastoRil");
        rig.EnterCell("TransitT", 4, 6, "99");
        rig.Press("TastoRil");
        rig.Sim("misbehave silence command all once at frame 3");
        ASSERT_TRUE(rig.Press("Applica(0)").ok);
        ASSERT_TRUE(rig.Stack().FocusOn(rig.Control("ValRil(1)")).ok);
        if (typing) rig.Stack().Type(rig.Control("ValRil(1)"), "12");
        ASSERT_TRUE(rig.Finish());
        EXPECT_TRUE(rig.Control("TransitT").Refused());
        EXPECT_EQ(rig.Control("TransitT").Visible(), !typing);
        EXPECT_EQ(rig.Page().Focus(), &rig.Control(typing ? "ValRil(1)" : "TransitT"));
    }
}

TEST(PageCycle, SettingsAreTriedOutInTheMemory) {
    PageRig rig("Imposta");
    rig.Open(0);
    rig.Choose("TipoCommu", 0);
    rig.Enter("ValCom(1)", "2500");
    ASSERT_TRUE((rig.Forget(), rig.Press("Applica(0)").ok));
    EXPECT_EQ(rig.State(), 115);
    ASSERT_TRUE(rig.Finish());
    EXPECT_EQ(rig.sent, (Frames{"S3082000200FF", "S309600020096", "S3146000209C4", "S320600020028", "S320000020014",
                                "S320400020001", "S326400020014", "S321400020008", "S327800020005", "S317600021388",
                                "S316200020008", "S3202000201FF"}));
    EXPECT_FALSE(rig.files.Exists(rig.folder.Path() / "TXMESS.TXT"));
    EXPECT_EQ(rig.Dato("ValCom(1)", 0), "2000") << "trying is not storing";
    ASSERT_TRUE((rig.Forget(), rig.Press("Applica(1)").ok));
    EXPECT_EQ(rig.State(), 116);
    ASSERT_TRUE(rig.Finish());
    EXPECT_EQ(rig.sent.at(0), "S3082000201FF") << "as it was read";
    EXPECT_EQ(rig.Word(3146), 2000);
    rig.Forget();
    ASSERT_TRUE(rig.Press("Esci").ok);
    EXPECT_EQ(rig.sent, Frames{}) << "the initial values were the last tried";
    EXPECT_FALSE(rig.Page().IsOpen());

    rig.Open(0);
    rig.Enter("ValCom(1)", "2500");
    rig.Chain("Applica(0)");
    ASSERT_TRUE((rig.Forget(), rig.Press("Esci").ok));
    EXPECT_EQ(rig.State(), 116) << "new values that were tried go back";
    ASSERT_TRUE(rig.Finish());
    EXPECT_EQ(rig.sent.size(), 12U);
    EXPECT_EQ(rig.Word(3146), 2000);
    EXPECT_FALSE(rig.Page().IsOpen());

    rig.Open(0);
    rig.Enter("ValCom(1)", "2500");
    ASSERT_TRUE((rig.Forget(), rig.Press("InMemor").ok));
    EXPECT_EQ(rig.State(), 119);
    ASSERT_TRUE(rig.RunUntil([&] { return rig.sent.size() == 6; }, 5000));
    EXPECT_EQ(rig.Dato("ValCom(1)", 0), "2000") << "the initial values follow at the end";
    ASSERT_TRUE(rig.Finish());
    EXPECT_EQ(rig.Dato("ValCom(1)", 0), "2500");
    EXPECT_EQ(rig.Shown(), rig.Text("SEGNALAZIONE_1", "IMPOSTA"));
    ASSERT_TRUE((rig.Forget(), rig.Press("Esci").ok));
    EXPECT_EQ(rig.sent, Frames{});
}

// An untouched page of each dialog goes into the unit and changes nothing but the byte of a list.
TEST(PageCycle, EveryPageCanBeStoredAsItStands) {
    for (const auto& [dialog, pages] : {std::pair{"MessaP", 12}, {"Imposta", 7}}) {
        PageRig rig(dialog);
        for (int page = 0; page < pages; ++page) {
            rig.Open(page);
            const std::size_t frames = rig.Chain("InMemor").size();
            EXPECT_GT(frames, 0U) << dialog << page;
            EXPECT_EQ(rig.Shown(), rig.Text("SEGNALAZIONE_1", pages == 12 ? "MESSAP" : "IMPOSTA")) << dialog << page;
            EXPECT_EQ(rig.Tone(), Tone::Done);
            ASSERT_TRUE(rig.Press("Esci").ok) << dialog << page;
        }
    }
}

// What a fitter does: a threshold of idle tried out beside the running engine, compared, stored, and found again.
TEST(PageCycle, AThresholdIsTriedStoredAndOutlivesTheIgnition) {
    PageRig rig("MessaP");
    rig.Open(2);
    rig.Enter("ValMin(1)", "1200");
    rig.Chain("Applica(0)");
    EXPECT_EQ(rig.Live(181), 1200);
    EXPECT_EQ(rig.Word(3116), 1300);
    rig.Chain("Applica(1)");
    EXPECT_EQ(rig.Live(181), 1300);
    rig.Chain("Applica(0)");
    rig.Chain("InMemor");
    EXPECT_EQ(rig.Word(3116), 1200);
    rig.Press("Esci");
    rig.Sim("ignition off");
    rig.Run(10000);
    EXPECT_EQ(rig.program.link.state.CentralinaDaRiconoscere, shell::True);
    rig.Sim("ignition on");
    ASSERT_TRUE(rig.RunUntil([&] { return rig.program.link.state.FlussoAttivo == shell::True; }, 60000));
    EXPECT_EQ(rig.Live(181), 1200);
    rig.Open(2);
    EXPECT_EQ(rig.Field("ValMin(1)"), "1200");
    EXPECT_EQ(rig.Field("MinDef(1)"), "1200");
}

// What each page lets its fitter edit: every list, every number, one cell of each table.
void EditEverything(PageRig& rig) {
    const auto controls = rig.Page().Controls();
    for (pages::Control* control : controls) {
        const auto name = tuning::FindRecord(control->Name());
        if (!name || !control->Visible() || control->Why() != Reason::None || control->Locked()) continue;
        const tuning::Record& record = rig.program.tuning.memoria[name->number];
        const double figure = frames::ValoreNum(record.Dato[1]);
        if (control->GetKind() == pages::Kind::Field) {
            const double other = figure < record.Max ? figure + 1 : figure - 1;
            rig.Enter(control->Name(), frames::Format0(other));
            if (control->Refused()) rig.Enter(control->Name(), frames::Format0(figure));
        }
    }
    for (const char* button : {"SoglieLam", "ResetCO", "ResetPC", "TastoMappa", "TastoTrans", "TastoRil"}) {
        if (!rig.Control(button).Visible()) continue;
        rig.Press(button);
        for (pages::Control* grid : controls) {
            if (grid->GetKind() != pages::Kind::Grid || !grid->Visible() || grid->Locked()) continue;
            const int row = static_cast<int>(grid->GetCells().size()) - (grid->HeaderRows() > 0 ? 2 : 1);
            rig.EnterCell(grid->Name(), std::max(row, grid->HeaderRows()), grid->HeaderColumns(), "77");
        }
    }
}

TEST(PageCycle, ATryThatIsNotStoredLeavesTheWorkingMemoryAsItWas) {
    for (int page = 0; page < 12; ++page) {
        PageRig rig("MessaP");
        const auto before = rig.unit.Cells().Read(sim::Area::Working, 0, 2048);
        rig.Open(page);
        EditEverything(rig);
        rig.Chain("Applica(0)");
        EXPECT_NE(rig.unit.Cells().Read(sim::Area::Working, 0, 2048), before) << page;
        rig.Chain("Esci");
        EXPECT_EQ(rig.unit.Cells().Read(sim::Area::Working, 0, 2048), before) << page;
    }
}

// The last rev breakpoint of full load and the first load breakpoint of the lambda map have one working address: it is
// the map's.
TEST(PageCycle, TheLastFullLoadBreakpointIsWrittenToTheMemoryAlone) {
    PageRig rig("MessaP");
    rig.Open(3);
    rig.Press("TastoMappa");
    rig.EnterCell("Giri_Lambda", 8, 0, "5100");
    EXPECT_EQ(rig.Record("Giri_Lambda(21)").RAM, 1206);
    const int loads = rig.Live(1206);
    const auto concerned = [](const Frames& frames) {
        Frames found;
        for (const std::string& frame : frames) {
            if (frame.find("1206") == 1 || frame.find("3342") == 1) found.push_back(frame);
        }
        return found;
    };
    EXPECT_EQ(concerned(rig.Chain("Applica(0)")), Frames{});
    EXPECT_EQ(rig.Shown(), rig.Text("SEGNALAZIONE_10", "MESSAP")) << "the trial does not claim it";
    EXPECT_EQ(concerned(rig.Chain("Applica(1)")), Frames{});
    EXPECT_EQ(rig.Shown(), rig.Text("SEGNALAZIONE_5", "MESSAP"));
    EXPECT_EQ(concerned(rig.Chain("InMemor")), Frames{"S3342000213EC"});
    EXPECT_EQ(rig.Live(1206), loads);
}

// A store sends each working copy before its cell: one that breaks off leaves the engine with figures that nobody kept.
TEST(PageCycle, WhatABrokenStoreLeftInTheUnitIsPutBackOnLeaving) {
    for (const bool silence : {false, true}) {
        PageRig rig("MessaP");
        rig.Open(6);
        rig.Enter("ValFG(0)", "6000");
        rig.Sim(std::string("misbehave ") + (silence ? "silence" : "refuse") + " command S once");
        rig.Chain("InMemor");
        EXPECT_EQ(rig.Live(39), 6000);
        rig.Enter("ValFG(0)", "6200");
        EXPECT_EQ(rig.Chain("Esci"), OldSpeeds);
        EXPECT_EQ(rig.Live(39), 6200);
        EXPECT_FALSE(rig.Page().IsOpen());
    }
}

// A broken store of the settings stands in the memory, as what was tried does: only a trial is taken back.
TEST(PageCycle, LeavingTheSettingsTakesBackATrialAlone) {
    struct Case {
        std::vector<const char*> presses;
        int word;  // in the memory afterwards
        std::size_t frames;
    };
    for (const Case& c :
         {Case{{"InMemor"}, 2500, 0}, Case{{"Applica(0)", "InMemor"}, 2000, 12}, Case{{"Applica(0)"}, 2000, 12},
          Case{{"Applica(0)", "Applica(1)"}, 2000, 0}, Case{{"Applica(0)", "Applica(1)", "InMemor"}, 2500, 0}}) {
        PageRig rig("Imposta");
        rig.Open(0);
        rig.Choose("TipoCommu", 0);
        rig.Enter("ValCom(1)", "2500");
        for (const char* button : c.presses) {
            if (std::string(button) == "InMemor") rig.Sim("misbehave refuse command S once at frame 4");
            rig.Chain(button);
        }
        ASSERT_TRUE((rig.Forget(), rig.Press("Esci").ok));
        EXPECT_EQ(rig.State(), c.frames > 0 ? 116 : eculink::Idle);
        ASSERT_TRUE(rig.Finish());
        EXPECT_EQ(rig.sent.size(), c.frames) << c.presses.size() << c.presses.back();
        EXPECT_EQ(rig.Word(3146), c.word) << c.presses.size() << c.presses.back();
        EXPECT_FALSE(rig.Page().IsOpen());
    }
}

// What the working copies were last sent decides, not which button was pressed.
TEST(PageCycle, LeavingSendsNothingWhenTheUnitRunsWithItsInitialValues) {
    struct Step {
        const char* button;  // null: an edit of ValFG(0)
        const char* figure;
    };
    struct Case {
        std::vector<Step> steps;
        Frames frames;
    };
    const Step apply{"Applica(0)", nullptr};
    const Step back{"Applica(1)", nullptr};
    const auto type = [](const char* figure) { return Step{nullptr, figure}; };
    for (const Case& c :
         {Case{{type("6200"), apply}, {}}, Case{{type("6200"), apply, back}, {}},
          Case{{type("6000"), apply, back, type("6200")}, {}}, Case{{type("6000"), apply, back}, OldSpeeds},
          Case{{type("6000"), type("6200")}, {}}, Case{{type("6000"), apply, type("6200")}, OldSpeeds},
          Case{{type("6000"), apply, {"InMemor", nullptr}}, {}}}) {
        PageRig rig("MessaP");
        rig.Open(6);
        for (const Step& step : c.steps) {
            if (step.button != nullptr) {
                rig.Chain(step.button);
            } else {
                rig.Enter("ValFG(0)", step.figure);
            }
        }
        ASSERT_TRUE((rig.Forget(), rig.Press("Esci").ok));
        ASSERT_TRUE(rig.Finish());
        EXPECT_EQ(rig.sent, c.frames) << c.steps.size();
        EXPECT_FALSE(rig.Page().IsOpen());
    }
    // A silent frame may have been taken, or not.
    for (const bool initial : {false, true}) {
        PageRig rig("MessaP");
        rig.Open(6);
        rig.Enter("ValFG(0)", "6000");
        if (initial) rig.Chain("Applica(0)");
        rig.Sim("misbehave silence command W once");
        rig.Chain(initial ? "Applica(1)" : "Applica(0)");
        rig.Enter("ValFG(0)", "6200");
        EXPECT_EQ(rig.Chain("Esci"), OldSpeeds) << initial;
    }
}

// The trial of a parameter without a working copy is in the memory, and the page says so.
TEST(PageCycle, ATryOutThatReachesTheMemorySaysSo) {
    struct Case {
        int page;
        const char* field;
        const char* figure;
        const char* key;
    };
    for (const Case& c : {Case{6, "ValFG(0)", "6000", "SEGNALAZIONE_4"}, Case{4, "ValTrans(1)", "7", "SEGNALAZIONE_9"},
                          Case{3, "ValPC(8)", "7", "SEGNALAZIONE_4"}}) {
        PageRig rig("MessaP");
        rig.Open(c.page);
        rig.Enter(c.field, c.figure);
        rig.Chain("Applica(0)");
        EXPECT_EQ(rig.Shown(), rig.Text(c.key, "MESSAP")) << c.page;
    }
}

// The edited records that got no answer are marked; where none is left, the one that fell silent.
TEST(PageCycle, ASilentFrameMarksWhatWasEditedAndNotConfirmed) {
    struct Case {
        const char* edited;  // beside ValRil(1); a cell of the table, or null
        const char* button;
        std::size_t frame;  // AbilRil, ValRil(1), then the table
        std::vector<std::string> marked;
        bool table;  // on the screen
    };
    for (const Case& c :
         {Case{nullptr, "Applica(0)", 1, {"ValRil(1)"}, false}, Case{nullptr, "Applica(0)", 2, {"ValRil(1)"}, false},
          Case{nullptr, "Applica(0)", 4, {"TransitT"}, true}, Case{nullptr, "Applica(1)", 1, {"ValRil(1)"}, false},
          Case{nullptr, "Applica(1)", 3, {"TransitT"}, true}, Case{nullptr, "InMemor", 4, {"ValRil(1)"}, false},
          Case{nullptr, "InMemor", 8, {"TransitT"}, true}, Case{nullptr, "Esci", 1, {"ValRil(1)"}, false},
          Case{nullptr, "Esci", 5, {"TransitT"}, true},
          Case{"TransitT", "Applica(0)", 1, {"ValRil(1)", "TransitT"}, false},
          Case{"TransitT", "Applica(0)", 3, {"TransitT"}, true}}) {
        PageRig rig("MessaP");
        rig.Open(5);
        rig.Enter("ValRil(1)", "11");
        if (c.edited != nullptr) {
            rig.Press("TastoRil");
            rig.EnterCell(c.edited, 4, 6, "99");
            rig.Press("TastoRil");
        }
        if (std::string(c.button) == "Applica(1)" || std::string(c.button) == "Esci") rig.Chain("Applica(0)");
        rig.Sim("misbehave silence command all once at frame " + std::to_string(c.frame));
        rig.Chain(c.button);
        const std::string at = std::string(c.button) + " " + std::to_string(c.frame);
        for (const char* control : {"AbilRil", "ValRil(1)", "TransitT"}) {
            const bool marked = std::find(c.marked.begin(), c.marked.end(), control) != c.marked.end();
            EXPECT_EQ(rig.Control(control).Refused(), marked) << at << " " << control;
        }
        const bool cellMarked = c.edited != nullptr && c.marked.back() == "TransitT";
        EXPECT_TRUE(!cellMarked || rig.Control("TransitT").RefusedCells() == (std::vector<pages::CellPlace>{{4, 6}}))
            << at;
        EXPECT_EQ(rig.Control("TransitT").Visible(), c.table) << at;
        EXPECT_EQ(rig.Shown(), rig.Text("ERRORE_3", "ERRORI")) << at;
        rig.Chain("InMemor");
        EXPECT_FALSE(rig.Control(c.marked[0].c_str()).Refused()) << at << ": the next chain begins without marks";
    }
}

TEST(PageCycle, AnEditDuringATryOutOffersTheNewValuesAgain) {
    PageRig rig("MessaP");
    rig.Open(6);
    EditSpeeds(rig);
    ASSERT_TRUE(rig.Press("Applica(0)").ok);
    rig.Enter("ValFG(1)", "5600");
    ASSERT_TRUE(rig.Finish());
    EXPECT_TRUE(rig.Control("Applica(0)").Visible());
    EXPECT_FALSE(rig.Control("Applica(1)").Visible());
    EXPECT_EQ(rig.Chain("Applica(0)"), (Frames{"W003900021770", "W0041000215E0"}));
    EXPECT_TRUE(rig.Control("Applica(1)").Visible());
}

// A speed that is not the last one rules the figures itself.
TEST(PageCycle, APageOfAFixedSpeedIsLeftWithoutAFrameUnlessSomethingWasTried) {
    PageRig rig("MessaP", {"cell O 3842 02"});
    rig.Open(9);
    ASSERT_TRUE(rig.Press("Esci").ok);
    EXPECT_EQ(rig.sent, Frames{});
    rig.Open(9);
    rig.Choose("VeloAuto", 6);
    rig.Enter("ValAuto(3)", "31");
    rig.Choose("VeloAuto", 2);
    ASSERT_TRUE(rig.Press("Esci").ok);
    EXPECT_EQ(rig.sent, Frames{}) << "everything is as it was read";
    rig.Open(9);
    rig.Choose("VeloAuto", 6);
    rig.Enter("ValAuto(3)", "31");
    rig.Chain("Applica(0)");
    rig.Choose("VeloAuto", 2);
    EXPECT_EQ(rig.Chain("Esci").size(), 9U);
    EXPECT_FALSE(rig.Page().IsOpen());
}

// The limits of a page follow what another one has stored.
TEST(PageCycle, WhatIsStoredBoundsTheOtherPages) {
    PageRig rig("MessaP");
    rig.Open(1);
    rig.Enter("ValCut(1)", "2500");
    rig.Chain("InMemor");
    rig.Press("Esci");
    rig.Open(2);
    EXPECT_EQ(rig.Record("ValMin(1)").Max, 2500);
}

// What a store wrote before it broke off bounds the neighbours as well.
TEST(PageCycle, ABrokenStoreLeavesNoOldLimits) {
    for (const char* line :
         {"misbehave refuse command S once at frame 2", "misbehave silence command S once at frame 2"}) {
        PageRig rig("MessaP");
        rig.Open(6);
        rig.Enter("ValFG(1)", "4900");
        rig.Enter("ValFG(0)", "5000");
        rig.Sim(line);
        rig.Chain("InMemor");
        ASSERT_EQ(rig.Dato("ValFG(0)", 0), "5000");
        EXPECT_EQ(rig.Record("ValFG(1)").Max, 5000) << line;
        rig.Enter("ValFG(1)", "5500");
        EXPECT_TRUE(rig.Control("ValFG(1)").Refused());
    }
}

}  // namespace
