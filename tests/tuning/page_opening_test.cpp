#include <gtest/gtest.h>

#include "link/frames/build.h"
#include "link/transaction.h"
#include "tuning/imposta_pages.h"
#include "tuning/messap_pages.h"
#include "tuning/page_rig.h"

namespace {

using pages::Reason;
using tuning_test::PageRig;
using Frames = PageRig::Frames;

struct Dialog {
    const char* name;
    int pages;
    int reading;  // transaction state
};
constexpr Dialog Dialogs[] = {{"MessaP", 12, 81}, {"Imposta", 7, 85}};

TEST(PageOpening, ReadsTheCellsOfThePageInTheirOrder) {
    struct Case {
        const char* dialog;
        int page;
        Frames frames;
    };
    const Case cases[] = {
        {"MessaP", 0, {"O33520001", "O31260002", "O31240002", "O31670001", "O31660001", "O31540002",
                       "O31560002",  // the map of thresholds
                       "O33280014", "O33440008", "O33600016", "O33760016", "O33920016", "O34080016",
                       "O34240016", "O34400016", "O34560016", "O34720016", "O34880016",
                       "O35040016",  // idle and full load
                       "O31120002", "O31360002", "O31280002", "O31300002", "O31080002", "O31420002",
                       "O31320002", "O31340002", "O31100002", "O31440002"}},
        {"MessaP", 1, {"O31380002", "O31400002", "O31000001", "O30920002", "O30940002", "O32520002",
                       "O32500002", "O31690001", "O32580002", "O31780002", "O31680001", "O32680001",
                       "O32100002",  // the resets lie in the other memory
                       "L01760016", "O31120002", "O31360002", "O31280002", "O31300002", "O31080002",
                       "O31420002", "O31320002", "O31340002", "O31100002", "O31440002"}},
        {"MessaP",
         3,
         {"O31420002", "O31440002", "O31080002", "O31100002", "O31710001", "O32560002", "O32440001", "O32400002",
          "O32420002", "O31700001", "O33540001", "O31340002", "O31320002", "L01920016", "O33280016", "O35200016",
          "O35360016", "O31500002"}},
        {"MessaP",
         4,
         {"O35980001", "O36620002", "O32620002", "O36580002", "O32700002", "O36520001", "O36600002", "O35840010",
          "O36000008", "O36160008", "O36320008", "O36400004"}},
        {"MessaP", 6, {"O31500002", "O31480002"}},
        {"MessaP",
         9,
         {"O38420001", "O37960002", "O37980002", "O38000002", "O38020001", "O38030001", "O38040001", "O38050001",
          "O38060001", "O38070001"}},
        {"Imposta", 1, {"O31840002", "O31880002", "O31900002", "O31920002", "O31940002", "O31860002", "O31960002"}},
        {"Imposta", 4, {"O33240001"}},
    };
    for (const Case& c : cases) {
        PageRig rig(c.dialog);
        rig.StartOpening(c.page);
        ASSERT_TRUE(rig.Finish());
        EXPECT_EQ(rig.sent, c.frames) << c.dialog << c.page;
    }
}

// Each page of both dialogs: one frame a field and a block, at the pace of the replies; then both columns show what the
// unit holds, and nothing of another page is on the screen.
TEST(PageOpening, FillsBothColumnsOfEveryPage) {
    for (const Dialog& dialog : Dialogs) {
        PageRig rig(dialog.name);
        const auto table = dialog.pages == 12 ? tuning::MessaPPages() : tuning::ImpostaPages();
        for (int page = 0; page < dialog.pages; ++page) {
            rig.Forget();
            rig.StartOpening(page);
            EXPECT_EQ(rig.State(), dialog.reading);
            EXPECT_EQ(rig.Control("InMemor").Why(), Reason::Transaction);
            EXPECT_EQ(rig.Control("Esci").Why(), Reason::Transaction);
            EXPECT_EQ(rig.Control("Pagine").Why(), Reason::Transaction);
            EXPECT_EQ(rig.Stack().Close(rig.Page()).why, Reason::Transaction);
            EXPECT_EQ(rig.Shown(), rig.Text("SEGNALAZIONE_3", dialog.pages == 12 ? "MESSAP" : "IMPOSTA"));
            EXPECT_EQ(rig.Tone(), pages::Tone::Progress);
            const std::int64_t start = rig.host.world.ElapsedMicros();
            ASSERT_TRUE(rig.Finish());
            const auto frames = static_cast<std::int64_t>(rig.sent.size());
            EXPECT_LE(rig.host.world.ElapsedMicros() - start, (frames + 1) * 100000) << "a tick for each frame";
            EXPECT_EQ(rig.Control("Pagine").Index(), page);
            const tuning::PageRow& row = table[static_cast<std::size_t>(page)];
            EXPECT_EQ(rig.Field("MP1"),
                      rig.Text(std::string(row.heading).c_str(), dialog.pages == 12 ? "MESSAP" : "IMPOSTA"));
            for (const tuning::FieldRow& field : row.fields) {
                const std::string name = tuning::FullName(field.name, field.number);
                const tuning::Record& record = rig.program.tuning.memoria[field.record];
                const int cell = record.NByte == 1 ? rig.Interna(record.EE) : rig.Word(record.EE);
                EXPECT_EQ(record.raw, static_cast<std::uint32_t>(cell)) << name;
                EXPECT_EQ(record.Dato[0], record.Dato[1]) << name;
                EXPECT_EQ(record.Dato[0].size(), 8U) << name;
                pages::Control& value = rig.Control(name);
                pages::Control& initial = rig.Control(tuning::TwinName(field.name, field.number));
                EXPECT_TRUE(value.Visible() && initial.Visible() && initial.Locked()) << name;
                EXPECT_FALSE(value.Changed()) << name;
                if (field.IsList()) {
                    EXPECT_EQ(std::to_string(value.Index()), rig.Dato(name, 0));
                    EXPECT_EQ(initial.Text(), value.Items().at(static_cast<std::size_t>(value.Index()))) << name;
                } else {
                    EXPECT_EQ(value.Text(), rig.Dato(name, 0)) << name;
                    EXPECT_EQ(initial.Text(), value.Text()) << name;
                }
            }
            EXPECT_EQ(rig.Page().Focus(), &rig.Control(tuning::FullName(row.fields[0].name, row.fields[0].number)));
            std::size_t visible = 0;
            for (const pages::Control* control : rig.Page().Controls()) {
                const bool input = control->GetKind() == pages::Kind::Field || control->GetKind() == pages::Kind::Combo;
                if (input && control->Visible()) ++visible;
            }
            EXPECT_EQ(visible, 2 * row.fields.size() + 1) << "two columns and the selector";
            EXPECT_EQ(rig.Control("InMemor").Why(), Reason::None);
            EXPECT_EQ(rig.Control("Applica(0)").Why(), Reason::Unchanged);
            EXPECT_FALSE(rig.Control("Applica(1)").Visible());
            EXPECT_EQ(rig.Shown(), "");
            ASSERT_TRUE(rig.Press("Esci").ok);
            EXPECT_FALSE(rig.Page().IsOpen());
            EXPECT_EQ(rig.sent.size(), static_cast<std::size_t>(frames)) << "leaving an untouched page sends nothing";
        }
    }
}

TEST(PageOpening, AReadingThatFailsLeavesAnEmptyPageThatCanOnlyBeLeftOrReadAgain) {
    struct Case {
        const char* fault;
        std::int64_t silence;  // until the page says so
    };
    for (const Case& c :
         {Case{"misbehave silence command O at frame 3", 5000}, Case{"misbehave length 5 command O at frame 3", 200},
          Case{"misbehave cut command O at frame 3", 5000}}) {
        for (const Dialog& dialog : Dialogs) {
            PageRig rig(dialog.name);
            rig.Sim(c.fault);
            const int beeps = rig.Beeps();
            rig.StartOpening(0);
            const std::int64_t start = rig.host.world.ElapsedMicros();
            ASSERT_TRUE(rig.Finish());
            EXPECT_GE(rig.host.world.ElapsedMicros() - start, c.silence * 1000) << c.fault;
            EXPECT_LE(rig.host.world.ElapsedMicros() - start, (c.silence + 500) * 1000) << c.fault;
            EXPECT_EQ(rig.Beeps(), beeps + 1);
            EXPECT_EQ(rig.Shown(), rig.Text("ERRORE_18", "ERRORI"));
            EXPECT_EQ(rig.Tone(), pages::Tone::Failed);
            const std::string field = dialog.pages == 12 ? "ValLam(1)" : "ValCom(1)";
            EXPECT_EQ(rig.Field(field), "");
            EXPECT_EQ(rig.Control(field).Why(), Reason::ReadingFailed);
            EXPECT_EQ(rig.Press("InMemor").why, Reason::ReadingFailed);
            EXPECT_EQ(rig.Press("Applica(0)").why, Reason::ReadingFailed);
            rig.Forget();
            rig.Choose("Pagine", 0);
            ASSERT_TRUE(rig.Finish());
            EXPECT_NE(rig.Field(field), "") << "chosen again, the page is read again";
            EXPECT_TRUE(rig.Press("Esci").ok);
            EXPECT_FALSE(rig.Page().IsOpen());
        }
    }
}

// Whatever goes wrong after the last reply looks like a unit that fell silent.
TEST(PageOpening, AFailureWhileThePageIsFilledIsToldAsASilence) {
    for (const Dialog& dialog : Dialogs) {
        PageRig rig(dialog.name);
        auto& editing = dialog.pages == 12 ? rig.program.tuning.messaP.editing : rig.program.tuning.imposta.editing;
        const auto follow = editing.onFigures;
        editing.onFigures = [] { throw std::runtime_error("no figures"); };
        rig.StartOpening(3);
        ASSERT_TRUE(rig.Finish());
        EXPECT_EQ(rig.Shown(), rig.Text("ERRORE_18", "ERRORI"));
        EXPECT_EQ(rig.Press("InMemor").why, Reason::ReadingFailed);
        EXPECT_EQ(rig.Control("Esci").Why(), Reason::None);
        const std::string field = dialog.pages == 12 ? "ValPC(0)" : "ValInibiz(0)";
        EXPECT_EQ(rig.Field(field), "");
        EXPECT_EQ(rig.Control(field).Why(), Reason::ReadingFailed);
        editing.onFigures = follow;
        rig.Choose("Pagine", 3);
        ASSERT_TRUE(rig.Finish());
        EXPECT_NE(rig.Field(field), "");
    }
}

TEST(PageOpening, StartsNoChainWhileOneRuns) {
    PageRig rig("MessaP");
    ASSERT_TRUE(eculink::StartTransaction(rig.program.link, 90, frames::ReadFrame('O', 3936, 16)));
    rig.Forget();
    rig.StartOpening(2);
    EXPECT_EQ(rig.State(), 90);
    EXPECT_EQ(rig.sent, Frames{});
    EXPECT_EQ(rig.Shown(), rig.Text("ERRORE_18", "ERRORI"));
    EXPECT_EQ(rig.Press("InMemor").why, Reason::ReadingFailed);
}

TEST(PageOpening, AStrayReplyIsNoReplyOfTheChain) {
    PageRig rig("MessaP");
    rig.Sim("misbehave silence command O once");
    rig.StartOpening(6);
    rig.Sim("send-text \\x02l12FF\\x03");
    rig.Sim("send-text \\x02wok\\x03");
    rig.Run(1000);
    EXPECT_EQ(rig.State(), 81);
    EXPECT_EQ(rig.sent.size(), 1U);
    rig.Sim("send-text \\x02o1800\\x03");
    ASSERT_TRUE(rig.Finish());
    EXPECT_EQ(rig.Field("ValFG(0)"), "6144");
}

TEST(PageOpening, APageClosedByTheEndOfTheStreamForgetsItsEdits) {
    PageRig rig("MessaP");
    rig.Open(6);
    rig.Enter("ValFG(0)", "6000");
    rig.Sim("cable out");
    ASSERT_TRUE(rig.RunUntil([&] { return !rig.Page().IsOpen(); }, 10000));
    EXPECT_EQ(rig.Dato("ValFG(0)", 1), "") << "nothing of a unit that is gone stands any more";
}

// Whichever way a page is reached, it bears the name that its menu entry gives.
TEST(PageOpening, TheTitleFollowsTheSelector) {
    struct Case {
        const char* dialog;
        shell::MenuId menu;
        int index;
        int page;
    };
    using shell::MenuId;
    for (const bool old : {false, true}) {
        for (const Case& c : {Case{"MessaP", MenuId::MenuPunto, 6, 4}, Case{"MessaP", MenuId::MenuPunto, 4, 6},
                              Case{"MessaP", old ? MenuId::MenuAutoA1 : MenuId::MenuAutoA, 0, 9},
                              Case{"MessaP", old ? MenuId::MenuAutoA1 : MenuId::MenuAutoA, old ? 1 : 2, 11},
                              Case{"Imposta", MenuId::MenuImp, 10, 5}, Case{"Imposta", MenuId::MenuImp, 14, 4}}) {
            PageRig rig(c.dialog);
            rig.program.shell.state.FirmwareVecchio = old ? shell::True : shell::False;
            shell::ShowAdaptationMenu(rig.program.shell);
            ASSERT_TRUE(shell::ChooseMenu(rig.program.shell, c.menu, c.index).ok);
            ASSERT_TRUE(rig.Finish());
            const std::string title = rig.Page().Title();
            EXPECT_NE(title.find(" - "), std::string::npos) << title;
            rig.Press("Esci");
            rig.Open(0);
            rig.Choose("Pagine", old && c.page == 11 ? 10 : c.page);
            ASSERT_TRUE(rig.Finish());
            EXPECT_EQ(rig.Page().Title(), title);
        }
    }
}

// The second page of the self-adaptation came with program 01.04.
TEST(PageOpening, TheSelectorOffersWhatTheUnitKnows) {
    PageRig rig("MessaP");
    rig.Open(0);
    EXPECT_EQ(rig.Control("Pagine").Items().size(), 12U);
    rig.Press("Esci");
    rig.program.shell.state.FirmwareVecchio = shell::True;
    rig.Open(11);
    EXPECT_EQ(rig.Control("Pagine").Items().size(), 11U);
    EXPECT_EQ(rig.Control("Pagine").Index(), 10);
    EXPECT_EQ(rig.Field("MP1"), rig.Text("CTRLAUTOAM", "MESSAP"));
}

}  // namespace
