#include "pages/stack.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace pages {

namespace {

// A page with one control of each input, and what its handlers saw.
struct Sheet : Page {
    explicit Sheet(const std::string& name) : Page(name) {
        Figure.filter = KeyFilter::Digits;
        Figure.SetMaxLength(4);
        Figure.onChange = [this] { log += "change:" + Figure.Text() + " "; };
        Figure.onLeave = [this] {
            log += "leave:" + Figure.Text() + " ";
            if (Figure.Text() == "9999") SetFocus(&Figure);
        };
        Figure.onDoubleClick = [this] { log += "double "; };
        Choice.SetItems({"a", "b", "c"});
        Choice.onChange = [this] { log += "choice:" + std::to_string(Choice.Index()) + " "; };
        Many.SetItems({"a", "b", "c"});
        Many.SetMultiple(true);
        Save.onPress = [this] { log += "save "; };
        Leave.escapes = true;
        Leave.onPress = [this] { log += "exit "; };
        for (const auto& option : Mode) option->onChange = [this] { log += "mode "; };
        Table.SetCells({{"head", "head"}, {"1", "2"}}, 1, 0);
        Table.onCell = [this](int row, int column, const std::string& text) {
            log += "cell:" + std::to_string(row) + "," + std::to_string(column) + "=" + text + " ";
        };
        BindKey("F1", Save);
        BindKey("Esc", Leave);
    }
    std::string Log() { return std::exchange(log, {}); }

    Label Caption{*this, "Caption"};
    Field Figure{*this, "Figure"};
    Combo Choice{*this, "Choice"};
    List Many{*this, "Many"};
    Array<Option> Mode{*this, "Mode", 2};
    Option Lone{*this, "Lone"};
    Check Agree{*this, "Agree"};
    Grid Table{*this, "Table"};
    Button Save{*this, "Save"};
    Button Leave{*this, "Leave"};
    std::string log;
};

struct Desk {
    Desk() {
        for (Sheet* sheet : {&bottom, &upper}) stack.Register(*sheet);
        stack.OpenPage(bottom, false);
    }
    PageStack stack;
    Sheet bottom{"Bottom"};
    Sheet upper{"Upper"};
};

}  // namespace

TEST(PageStack, RefusesEveryInputOnWhatCannotBeReachedAndSaysWhy) {
    struct Case {
        Reason why;
        void (*prepare)(Desk&);
    };
    for (const Case& c : {
             Case{Reason::Closed, [](Desk& d) { d.stack.ClosePage(d.bottom); }},
             Case{Reason::PageCovered, [](Desk& d) { d.stack.OpenPage(d.upper, true); }},
             Case{Reason::PageDisabled, [](Desk& d) { d.bottom.SetEnabled(false); }},
             Case{Reason::Hidden,
                  [](Desk& d) {
                      for (Control* control : d.bottom.Controls()) control->SetVisible(false);
                  }},
             Case{Reason::Transaction,
                  [](Desk& d) {
                      for (Control* control : d.bottom.Controls()) control->Enable(false, Reason::Transaction);
                  }},
         }) {
        Desk d;
        c.prepare(d);
        Sheet& s = d.bottom;
        for (const Outcome& outcome :
             {d.stack.Press(s.Save), d.stack.Press(s.Agree), d.stack.Type(s.Figure, "1"), d.stack.Edit(s.Figure, "1"),
              d.stack.Leave(s.Figure), d.stack.Select(s.Choice, {1}), d.stack.EditCell(s.Table, 1, 1, "5"),
              d.stack.FocusOn(s.Figure), d.stack.DoubleClick(s.Figure)}) {
            EXPECT_FALSE(outcome.ok);
            EXPECT_EQ(outcome.why, c.why);
        }
        EXPECT_EQ(s.Log(), "");
        EXPECT_EQ(s.Figure.Text(), "");
        EXPECT_EQ(s.Choice.Index(), -1);
    }
}

TEST(PageStack, RefusesKeysAndClosingOfACoveredPage) {
    Desk d;
    d.stack.OpenPage(d.upper, true);
    EXPECT_EQ(d.stack.Key(d.bottom, "F1").why, Reason::PageCovered);
    EXPECT_EQ(d.stack.Close(d.bottom).why, Reason::PageCovered);
    EXPECT_TRUE(d.stack.Close(d.upper).ok);
    EXPECT_TRUE(d.stack.Key(d.bottom, "F1").ok);
    EXPECT_EQ(d.bottom.Log(), "save ");
}

TEST(PageStack, PutsAPageThatIsNotModalBeneathAModalOne) {
    Desk d;
    Sheet question("Question");
    d.stack.Register(question);
    d.stack.OpenPage(question, true);
    d.stack.OpenPage(d.upper, false);
    EXPECT_EQ(d.stack.Open(), (std::vector<Page*>{&d.bottom, &d.upper, &question}));
    EXPECT_EQ(d.stack.Press(d.upper.Save).why, Reason::PageCovered) << "a question must be answered first";
    EXPECT_TRUE(d.stack.Press(question.Save).ok);
}

TEST(PageStack, LetsOnlyTheKeysOfAFieldThrough) {
    Desk d;
    Field& figure = d.bottom.Figure;
    EXPECT_TRUE(d.stack.Type(figure, "1a2-3.4 5").ok);
    EXPECT_EQ(figure.Text(), "1234");  // digits alone, and no more than fit
    EXPECT_TRUE(d.stack.Type(figure, "abc").ok);
    EXPECT_EQ(figure.Text(), "1234") << "keys that are dropped leave the selected text alone";
    EXPECT_TRUE(d.stack.Type(figure, "").ok);
    EXPECT_EQ(figure.Text(), "");
    EXPECT_FALSE(d.stack.Edit(figure, "12x").ok);
    EXPECT_EQ(figure.Text(), "");
    EXPECT_TRUE(d.stack.Type(figure, "12").ok);
    EXPECT_TRUE(d.stack.Key(d.bottom, "Backspace").ok);
    EXPECT_EQ(figure.Text(), "1");
    figure.SetLocked(true);
    EXPECT_EQ(d.stack.Type(figure, "5").why, Reason::Locked);
}

TEST(PageStack, TypesKeyByKeyAsAHandDoes) {
    Desk d;
    Sheet& s = d.bottom;
    d.stack.Type(s.Figure, "77");
    s.Log();
    EXPECT_TRUE(d.stack.Type(s.Figure, "1x25").ok);
    EXPECT_EQ(s.Log(), "change:1 change:12 change:125 ") << "the first key takes the place of the text";
    EXPECT_TRUE(d.stack.Edit(s.Figure, "831").ok);
    EXPECT_EQ(s.Log(), "change:831 ") << "an edit line has gone through its keys itself";
    EXPECT_TRUE(d.stack.Type(s.Figure, "").ok);
    EXPECT_EQ(s.Log(), "change: ");
    s.Figure.onChange = [&s] {
        if (s.Figure.Text() == "12") s.Figure.SetLocked(true);
    };
    EXPECT_TRUE(d.stack.Type(s.Figure, "1234").ok);
    EXPECT_EQ(s.Figure.Text(), "12") << "a field that a key has locked takes no further one";
}

TEST(PageStack, KnowsTheKeysOfListsAndCaptions) {
    Desk d;
    Sheet& s = d.bottom;
    s.Save.SetText("S&&S &Save");
    d.stack.FocusOn(s.Choice);
    const struct {
        const char* key;
        int index;
    } keys[] = {{"Down", 0}, {"Down", 1}, {"Up", 0}, {"Up", 0}, {"End", 2}, {"Down", 2}, {"Home", 0}};
    for (const auto& [key, index] : keys) {
        EXPECT_TRUE(d.stack.Key(s, key).ok) << key;
        EXPECT_EQ(s.Choice.Index(), index) << key;
    }
    EXPECT_EQ(s.Log(), "choice:0 choice:1 choice:0 choice:2 choice:0 ") << "where nothing moves nothing is told";
    EXPECT_TRUE(d.stack.Key(s, "Shift+Tab").ok);
    EXPECT_EQ(s.Focus(), &s.Figure);
    EXPECT_TRUE(d.stack.Key(s, "Shift+Tab").ok);
    EXPECT_EQ(s.Focus(), &s.Leave) << "going round";
    EXPECT_EQ(d.stack.Key(s, "Down").why, Reason::KeyDoesNothing);
    s.Log();
    EXPECT_TRUE(d.stack.Key(s, "Alt+s").ok);
    EXPECT_EQ(s.Log(), "save ");
    EXPECT_EQ(d.stack.Key(s, "Alt+x").why, Reason::KeyDoesNothing);
    s.Save.SetVisible(false);
    EXPECT_EQ(d.stack.Key(s, "Alt+s").why, Reason::KeyDoesNothing);
}

TEST(PageStack, LeavesAFieldByEnterAndTabAndTakesARefusedValueBack) {
    Desk d;
    Sheet& s = d.bottom;
    for (const char* key : {"Enter", "Tab"}) {
        d.stack.Type(s.Figure, "12");
        s.Log();
        EXPECT_TRUE(d.stack.Key(s, key).ok);
        EXPECT_EQ(s.Log(), "leave:12 ") << key;
        EXPECT_EQ(s.Focus(), &s.Choice) << key;
    }
    EXPECT_TRUE(d.stack.Key(s, "Enter").ok) << "in a list Enter moves on";
    EXPECT_EQ(s.Focus(), &s.Many);
    d.stack.Type(s.Figure, "9999");
    d.stack.Leave(s.Figure);
    EXPECT_EQ(s.Focus(), &s.Figure);
}

TEST(PageStack, HoldsARefusedValueBackFromEveryButtonButTheWayOut) {
    Desk d;
    Sheet& s = d.bottom;
    d.stack.Type(s.Figure, "9999");
    s.Log();
    EXPECT_EQ(d.stack.Press(s.Save).why, Reason::ValueRefused);
    EXPECT_EQ(s.Log(), "leave:9999 ");
    d.stack.Type(s.Figure, "9999");
    EXPECT_TRUE(d.stack.Press(s.Leave).ok);
    d.stack.Type(s.Figure, "12");
    s.Log();
    EXPECT_TRUE(d.stack.Key(s, "F1").ok);
    EXPECT_EQ(s.Log(), "leave:12 save ") << "the edit counts before the button acts";
    s.Save.Enable(false, Reason::Unchanged);
    EXPECT_EQ(d.stack.Key(s, "F1").why, Reason::Unchanged) << "a key says why like its button";
    s.Save.SetVisible(false);
    EXPECT_EQ(d.stack.Key(s, "F1").why, Reason::KeyDoesNothing);
}

TEST(PageStack, ChecksAgainWhatLeavingAFieldHasChanged) {
    Desk d;
    Sheet& s = d.bottom;
    s.Figure.onLeave = [&] { s.Save.Enable(false, Reason::Unchanged); };
    d.stack.Type(s.Figure, "1");
    EXPECT_EQ(d.stack.Press(s.Save).why, Reason::Unchanged);
    EXPECT_EQ(s.Log().find("save"), std::string::npos);
}

TEST(PageStack, KeepsOneOptionOfAGroupAndTogglesAChecks) {
    Desk d;
    Sheet& s = d.bottom;
    s.Lone.SetSelected(true);
    d.stack.Press(s.Mode[1]);
    EXPECT_TRUE(s.Mode[1].Selected() && !s.Mode[0].Selected() && s.Lone.Selected());
    d.stack.Press(s.Mode[0]);
    EXPECT_TRUE(s.Mode[0].Selected() && !s.Mode[1].Selected());
    EXPECT_EQ(s.Log(), "mode mode ");
    d.stack.Press(s.Agree);
    EXPECT_TRUE(s.Agree.Selected());
    d.stack.Press(s.Agree);
    EXPECT_FALSE(s.Agree.Selected());
}

TEST(PageStack, TheHandStandsInTheCellThatIsEditedOrPointedAt) {
    Desk d;
    Sheet& s = d.bottom;
    EXPECT_EQ(s.Table.FocusCell(), (CellPlace{-1, -1}));
    EXPECT_TRUE(d.stack.PointAtCell(s.Table, 1, 0).ok);
    EXPECT_EQ(s.Table.FocusCell(), (CellPlace{1, 0}));
    EXPECT_EQ(s.Focus(), &s.Table);
    EXPECT_TRUE(d.stack.EditCell(s.Table, 1, 1, "5").ok);
    EXPECT_EQ(s.Table.FocusCell(), (CellPlace{1, 1}));
    EXPECT_EQ(d.stack.PointAtCell(s.Table, 0, 0).why, Reason::NoSuchEntry);
    EXPECT_EQ(d.stack.PointAtCell(s.Figure, 0, 0).why, Reason::WrongKind);
    s.Table.SetWhy(Reason::ReadingFailed);
    EXPECT_EQ(d.stack.PointAtCell(s.Table, 1, 0).why, Reason::ReadingFailed);
}

TEST(PageStack, ArrowsAndEnterMoveTheHandThroughATable) {
    struct Row {
        const char* key;
        CellPlace hand;
    };
    Desk d;
    Sheet& s = d.bottom;
    s.Table.SetCells({{"head", "head"}, {"1", "2"}, {"3", "4"}}, 1, 0);
    s.SetFocus(&s.Table);
    for (const Row& row : {Row{"Down", {1, 0}}, Row{"Up", {1, 0}}, Row{"Left", {1, 0}}, Row{"Right", {1, 1}},
                           Row{"Right", {1, 1}}, Row{"Left", {1, 0}}, Row{"Enter", {2, 0}}, Row{"Down", {2, 0}},
                           Row{"Enter", {1, 1}}, Row{"Down", {2, 1}}, Row{"Enter", {2, 1}}}) {
        EXPECT_TRUE(d.stack.Key(s, row.key).ok) << row.key;
        EXPECT_EQ(s.Table.FocusCell(), row.hand) << row.key;
    }
    EXPECT_EQ(s.Focus(), &s.Save) << "from the last cell Enter goes on";
}

TEST(PageStack, ARefusedCellHoldsTheHand) {
    Desk d;
    Sheet& s = d.bottom;
    s.Table.SetCells({{"head", "head"}, {"1", "2"}}, 1, 0);
    ASSERT_TRUE(d.stack.EditCell(s.Table, 1, 0, "9").ok);
    s.Table.pending = true;
    s.Table.SetRefusedCells({{1, 0}});
    s.Log();
    EXPECT_EQ(d.stack.PointAtCell(s.Table, 1, 1).why, Reason::ValueRefused);
    EXPECT_EQ(d.stack.Key(s, "Right").why, Reason::ValueRefused);
    EXPECT_EQ(d.stack.EditCell(s.Table, 1, 1, "7").why, Reason::ValueRefused);
    EXPECT_EQ(s.Table.FocusCell(), (CellPlace{1, 0}));
    EXPECT_EQ(s.Log(), "");
    EXPECT_TRUE(d.stack.EditCell(s.Table, 1, 0, "8").ok) << "there it is put right";
}

TEST(PageStack, AButtonThatGoesAwayWithItsPressGivesTheHandOn) {
    Desk d;
    Sheet& s = d.bottom;
    s.Save.onPress = [&s] { s.Save.SetVisible(false); };
    EXPECT_TRUE(d.stack.Press(s.Save).ok);
    EXPECT_EQ(s.Focus(), &s.Leave);
    s.Leave.SetVisible(false);
    EXPECT_NE(s.Focus(), &s.Leave) << "nor does the hand stay on what goes away later";
}

TEST(PageStack, TabGoesOnFromAButtonThatHasBeenPutOutOfReach) {
    Desk d;
    Sheet& s = d.bottom;
    s.SetFocus(&s.Save);
    s.Save.Enable(false, Reason::Transaction);
    EXPECT_EQ(d.stack.Key(s, "Enter").why, Reason::Transaction);
    EXPECT_TRUE(d.stack.Key(s, "Tab").ok);
    EXPECT_EQ(s.Focus(), &s.Leave);
    s.SetFocus(&s.Save);
    EXPECT_TRUE(d.stack.Key(s, "Shift+Tab").ok);
    EXPECT_EQ(s.Focus(), s.PreviousFocus(&s.Save));
}

TEST(PageStack, AWayOutThatIsNotTakenLeavesTheHandOnTheRefusedFigure) {
    Desk d;
    Sheet& s = d.bottom;
    s.Leave.onPress = nullptr;  // as after a question answered with No
    d.stack.Type(s.Figure, "9999");
    EXPECT_TRUE(d.stack.Press(s.Leave).ok);
    EXPECT_EQ(s.Focus(), &s.Figure);
    EXPECT_EQ(d.stack.Press(s.Save).why, Reason::ValueRefused);
    d.stack.Type(s.Figure, "12");
    EXPECT_TRUE(d.stack.Press(s.Leave).ok);
    EXPECT_EQ(s.Focus(), &s.Leave);
}

// A refused figure holds every button back but the one that fills its field.
TEST(PageStack, AButtonThatFillsARefusedFieldIsNotHeldBackByIt) {
    Desk d;
    Sheet& s = d.bottom;
    s.Figure.onLeave = [&s] { s.SetFocus(&s.Figure); };
    d.stack.Type(s.Figure, "999");
    EXPECT_EQ(d.stack.Press(s.Save).why, Reason::ValueRefused);
    s.Save.fills = [&s] { return &s.Figure; };
    EXPECT_TRUE(d.stack.Press(s.Save).ok);
    s.Save.fills = [&s] { return &s.Choice; };
    s.SetFocus(&s.Figure);
    EXPECT_EQ(d.stack.Press(s.Save).why, Reason::ValueRefused);
}

TEST(PageStack, RefusesWhatLiesOutsideAListOrAGrid) {
    Desk d;
    Sheet& s = d.bottom;
    for (const std::vector<int>& wrong : {std::vector<int>{}, {-1}, {3}, {0, 1}}) {
        EXPECT_EQ(d.stack.Select(s.Choice, wrong).why, Reason::NoSuchEntry);
    }
    EXPECT_TRUE(d.stack.Select(s.Many, {0, 2}).ok);
    EXPECT_EQ(s.Many.Selection(), (std::vector<int>{0, 2}));
    EXPECT_EQ(d.stack.EditCell(s.Table, 0, 0, "5").why, Reason::NoSuchEntry);  // a head
    EXPECT_EQ(d.stack.EditCell(s.Table, 2, 0, "5").why, Reason::NoSuchEntry);
    EXPECT_EQ(d.stack.EditCell(s.Table, 1, 2, "5").why, Reason::NoSuchEntry);
    EXPECT_TRUE(d.stack.EditCell(s.Table, 1, 1, "5").ok);
    EXPECT_EQ(s.Log(), "cell:1,1=5 ");
    EXPECT_EQ(d.stack.Press(s.Figure).why, Reason::WrongKind);
    EXPECT_EQ(d.stack.Type(s.Choice, "x").why, Reason::WrongKind);
    EXPECT_EQ(d.stack.Key(s, "F9").why, Reason::KeyDoesNothing);
}

TEST(PageStack, OpensAPageAfreshAndSkipsWhatCannotTakeTheFocus) {
    Desk d;
    Sheet& s = d.bottom;
    d.stack.Type(s.Figure, "9999");
    s.SetEnabled(false);
    s.Figure.SetVisible(false);
    s.Choice.Enable(false);
    d.stack.OpenPage(s, false);
    EXPECT_TRUE(s.Enabled());
    EXPECT_FALSE(s.Figure.pending);
    EXPECT_EQ(s.Focus(), &s.Many);
}

TEST(PageStack, CallsAControlByItsNameAndIndex) {
    Sheet s("Sheet");
    EXPECT_EQ(s.Find("Mode(1)"), &s.Mode[1]);
    EXPECT_EQ(s.Find("mode(1)"), nullptr);
    EXPECT_EQ(s.Find("Mode"), nullptr);
    EXPECT_THROW(s.Mode[2], std::out_of_range);
}

TEST(Control, RaisesItsVersionOnARealChangeOnly) {
    Sheet s("Sheet");
    Field& field = s.Figure;
    const auto changes = [&](auto set) {
        const std::int64_t before = field.Version();
        const std::int64_t page = s.Version();
        set();
        EXPECT_EQ(field.Version() > before, s.Version() > page);
        return field.Version() > before;
    };
    const auto settersOnce = std::to_array<std::function<void()>>({
        [&] { field.SetText("12"); },
        [&] { field.Enable(false, Reason::NoUnit); },
        [&] { field.SetVisible(false); },
        [&] { field.SetLocked(true); },
        [&] { field.SetItems({"a"}); },
        [&] { field.SetIndex(0); },
        [&] { field.SetColour("red"); },
        [&] { field.SetChanged(true); },
        [&] { field.SetRefused(true); },
        [&] { field.SetCells({{"1"}}, 0, 0); },
        [&] { field.SetCell(0, 0, "2"); },
        [&] { field.MarkCell(0, 0); },
    });
    for (const auto& set : settersOnce) {
        EXPECT_TRUE(changes(set));
        EXPECT_FALSE(changes(set));
    }
    EXPECT_FALSE(changes([&] { field.SetCell(5, 0, "x"); }));
    EXPECT_FALSE(changes([&] { field.SetCell(0, -1, "x"); }));
}

TEST(Reasons, HaveASentenceEach) {
    std::vector<std::string_view> seen;
    for (int i = static_cast<int>(Reason::None) + 1; i <= static_cast<int>(Reason::ValueRefused); ++i) {
        const std::string_view key = ReasonKey(static_cast<Reason>(i));
        EXPECT_FALSE(key.empty()) << i;
        EXPECT_EQ(std::count(seen.begin(), seen.end(), key), 0) << key;
        seen.push_back(key);
    }
    EXPECT_EQ(ReasonKey(Reason::None), "");
}

}  // namespace pages
