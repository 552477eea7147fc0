#include "desktop/binder.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTextLayout>
#include <QVBoxLayout>

#include "desktop/widgets/field_edit.h"
#include "desktop/widgets/grid_view.h"
#include "desktop/widgets/lamp_view.h"
#include "desktop/widgets/picture_view.h"
#include "pages/stack.h"

namespace {

using pages::Reason;

// A page with a control of each kind.
struct Sample : pages::Page {
    Sample() : Page("Sample") {
        Figure.filter = pages::KeyFilter::Digits;
        Figure.SetMaxLength(4);
        Figure.onLeave = [this] {
            if (std::atoi(Figure.Text().c_str()) <= Largest) return;
            Figure.SetRefused(true);
            Heading.SetText("0 - 100");
            SetFocus(&Figure);
        };
        Save.onPress = [this] { ++saved; };
        BindKey("F1", Save);
        List.SetItems({"one", "two", "three"});
        Choice.SetItems({"low", "high"});
        Table.SetCells({{"", "A", "B"}, {"r", "1", "2"}, {"s", "3", "4"}}, 1, 1);
        Table.filter = pages::KeyFilter::Digits;
        Table.onCell = [this](int row, int column, const std::string& text) { Table.SetCell(row, column, text); };
    }

    static constexpr int Largest = 100;

    pages::Label Heading{*this, "Heading"};
    pages::Field Figure{*this, "Figure"};
    pages::Field Twin{*this, "Twin"};
    pages::Combo Choice{*this, "Choice"};
    pages::Array<pages::Option> Way{*this, "Way", 2};
    pages::Check Mark{*this, "Mark"};
    pages::List List{*this, "List"};
    pages::Grid Table{*this, "Table"};
    pages::Lamp Lamp{*this, "Lamp"};
    pages::Picture Commu{*this, "Commu"};
    pages::Button Save{*this, "Save"};
    int saved = 0;
};

// The page in a window of its own, brought up to date after each input as the program does.
struct Bench {
    Bench() {
        stack.Register(page);
        stack.OpenPage(page, true);
        auto* column = new QVBoxLayout(&window);
        view.BindAll();
        for (const pages::Control* control : page.Controls()) column->addWidget(view.WidgetOf(*control));
        hands.after = [this] { view.Sync(); };
        hands.refused = [this](Reason why) { refused = why; };
        view.Sync();
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window)) throw std::runtime_error("the window does not come to the front");
    }
    template <class Widget>
    Widget& Of(const pages::Control& control) {
        return dynamic_cast<Widget&>(*view.WidgetOf(control));
    }

    shell::Language language;
    desktop::Look look{desktop::LightTheme(), language};
    Sample page;
    pages::PageStack stack;
    desktop::Hands hands{stack};
    QWidget window;
    desktop::PageView view{page, window, hands, look};
    Reason refused = Reason::None;
};

TEST(Binder, EachKindShowsWhatItsControlHolds) {
    Bench bench;
    Sample& page = bench.page;
    page.Heading.SetText("Pressione \xE8 alta");
    page.Figure.SetText("     850");
    page.Twin.SetText("12");
    page.Twin.SetLocked(true);
    page.Choice.SetIndex(1);
    page.Way[1].SetSelected(true);
    page.Mark.SetSelected(true);
    page.List.SetIndex(2);
    page.Table.SetCell(2, 1, "77");
    page.Lamp.SetColour("red");
    page.Save.SetText("&Save");
    bench.view.Sync();

    EXPECT_EQ(bench.Of<QLabel>(page.Heading).text(), QString::fromUtf8("Pressione \xC3\xA8 alta"));
    EXPECT_EQ(bench.Of<QLineEdit>(page.Figure).text(), "850");
    EXPECT_TRUE(bench.Of<QLineEdit>(page.Figure).alignment().testFlag(Qt::AlignRight));
    EXPECT_TRUE(bench.Of<QLineEdit>(page.Twin).isReadOnly());
    EXPECT_EQ(bench.Of<QComboBox>(page.Choice).currentText(), "high");
    EXPECT_FALSE(bench.Of<QRadioButton>(page.Way[0]).isChecked());
    EXPECT_TRUE(bench.Of<QRadioButton>(page.Way[1]).isChecked());
    EXPECT_TRUE(bench.Of<QCheckBox>(page.Mark).isChecked());
    EXPECT_TRUE(bench.Of<QListWidget>(page.List).item(2)->isSelected());
    auto& table = bench.Of<desktop::GridView>(page.Table);
    EXPECT_EQ(table.horizontalHeaderItem(1)->text(), "B");
    EXPECT_EQ(table.item(1, 0)->text(), "77");
    EXPECT_EQ(bench.Of<desktop::LampView>(page.Lamp).accessibleDescription(), "red");
    EXPECT_EQ(bench.Of<QPushButton>(page.Save).text(), "&Save  F1");
    for (const pages::Control* control : page.Controls())
        EXPECT_EQ(bench.view.WidgetOf(*control)->objectName().toStdString(), control->Name());
}

// A path is read, and typed elsewhere, in one piece; one that is longer than a line is folded all the same.
TEST(Binder, APathInASentenceIsNotBroken) {
    Bench bench;
    auto& label = bench.Of<QLabel>(bench.page.Heading);
    const QChar joiner(0x2060);
    const auto shown = [&](const char* text) {
        bench.page.Heading.SetText(text);
        bench.view.Sync();
        return label.text().replace(joiner, QLatin1Char('|')).toStdString();
    };
    struct Case {
        const char* text;
        const char* kept;
    };
    for (const Case& c :
         {Case{"Waiting on COM1 (/dev/ttyS0)", "Waiting on COM1 (/|dev/|ttyS0)"},
          Case{"/dev/pts-3 is forbidden", "/|dev/|pts-|3 is forbidden"},
          Case{"Soglia T.P.S./M.A.P. : 1", "Soglia T.P.S./M.A.P.\xC2\xA0: 1"}, Case{"giri/min", "giri/min"},
          Case{"1 / 2", "1 / 2"}, Case{"/dev/serial/by-id/usb-FTDI_FT232R", "/dev/serial/by-id/usb-FTDI_FT232R"}})
        EXPECT_EQ(shown(c.text), c.kept);
    // Where the line ends within the path, all of it goes to the next one.
    shown("Waiting on COM1 (/dev/ttyS0)");
    QTextLayout layout(label.text(), label.font());
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(label.fontMetrics().horizontalAdvance(QStringLiteral("Waiting on COM1 (/dev/tt")));
    layout.endLayout();
    EXPECT_EQ(label.text().left(line.textLength()).toStdString(), "Waiting on COM1 ");
}

TEST(Binder, EachKindHandsItsInputToThePage) {
    Bench bench;
    Sample& page = bench.page;
    QTest::keyClicks(&bench.Of<QLineEdit>(page.Figure), "42");
    EXPECT_EQ(page.Figure.Text(), "42");
    QTest::keyClick(&bench.Of<QComboBox>(page.Choice), Qt::Key_Down);
    EXPECT_EQ(page.Choice.Index(), 0);
    const auto clickMark = [&](const pages::Control& control) {
        QWidget& mark = bench.Of<QWidget>(control);
        QTest::mouseClick(&mark, Qt::LeftButton, {}, QPoint(8, mark.height() / 2));
    };
    clickMark(page.Way[0]);
    clickMark(page.Way[1]);
    EXPECT_FALSE(page.Way[0].Selected());
    EXPECT_TRUE(page.Way[1].Selected());
    EXPECT_FALSE(bench.Of<QRadioButton>(page.Way[0]).isChecked());
    clickMark(page.Mark);
    EXPECT_TRUE(page.Mark.Selected());
    auto& list = bench.Of<QListWidget>(page.List);
    list.setCurrentRow(1);
    EXPECT_EQ(page.List.Index(), 1);
    auto& table = bench.Of<desktop::GridView>(page.Table);
    table.setCurrentCell(1, 1);
    QTest::keyClick(&table, Qt::Key_9);
    auto* editor = table.viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClick(editor, Qt::Key_8);
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_EQ(page.Table.GetCells()[2][2], "98");
    QTest::mouseClick(&bench.Of<QPushButton>(page.Save), Qt::LeftButton);
    EXPECT_EQ(page.saved, 1);
    QTest::keyClick(&table, Qt::Key_F1);
    EXPECT_EQ(page.saved, 2);
}

TEST(Binder, TheHandInATableIsTheHandOfThePageAndStaysOnARefusedCell) {
    Bench bench;
    pages::Grid& grid = bench.page.Table;
    grid.onCell = [&grid](int row, int column, const std::string&) {
        grid.pending = true;
        grid.SetRefusedCells({{row, column}});
    };
    auto& table = bench.Of<desktop::GridView>(grid);
    table.setFocus(Qt::TabFocusReason);
    table.setCurrentCell(0, 1);
    EXPECT_EQ(grid.FocusCell(), (pages::CellPlace{1, 2})) << "moved by the hand, headers counted in";
    EXPECT_EQ(bench.page.Focus(), &grid);

    QTest::keyClick(&table, Qt::Key_9);
    auto* editor = table.viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_EQ(table.currentRow(), 0) << "a refused cell is not left";
    EXPECT_EQ(grid.FocusCell(), (pages::CellPlace{1, 2}));
    const QImage refused = table.grab().toImage();
    grid.SetRefusedCells({});
    bench.view.Sync();
    EXPECT_NE(table.grab().toImage(), refused) << "and is framed";

    grid.SetFocusCell({2, 1});
    bench.view.Sync();
    EXPECT_EQ(table.currentRow(), 1) << "the page moves the hand";
    EXPECT_EQ(table.currentColumn(), 0);
    grid.SetLocked(true);
    bench.view.Sync();
    table.setCurrentCell(0, 0);
    EXPECT_EQ(grid.FocusCell(), (pages::CellPlace{2, 1})) << "a locked table holds no hand";
}

// The table of the sample, 2 rows by 2 columns below its headers, with the keyboard in it.
struct TableBench : Bench {
    TableBench() {
        grid.onCell = [this](int row, int column, const std::string& text) {
            edits.push_back(text);
            const bool tooMuch = std::atoi(text.c_str()) > Sample::Largest;
            if (!tooMuch) grid.SetCell(row, column, text);
            grid.pending = tooMuch;
            grid.SetRefusedCells(tooMuch ? std::vector<pages::CellPlace>{{row, column}}
                                         : std::vector<pages::CellPlace>());
        };
        table.setFocus(Qt::TabFocusReason);
        table.setCurrentCell(0, 0);
    }
    QLineEdit* Editor() { return table.viewport()->findChild<QLineEdit*>(); }
    void Click(int row, int column) {
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualItemRect(table.item(row, column)).center());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    // A key where the keyboard is: in the edit line, or in the table.
    void Key(Qt::Key key) {
        QTest::keyClick(window.focusWidget(), key);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    std::pair<int, int> Hand() const { return {table.currentRow(), table.currentColumn()}; }

    pages::Grid& grid = page.Table;
    desktop::GridView& table = Of<desktop::GridView>(page.Table);
    std::vector<std::string> edits;
};

using Place = std::pair<int, int>;

TEST(Table, EnterGoesDownThenToTheNextColumnThenOnFromTheTable) {
    TableBench bench;
    for (const Place& next : {Place{1, 0}, Place{0, 1}, Place{1, 1}}) {
        bench.Key(Qt::Key_Return);
        EXPECT_EQ(bench.Hand(), next);
    }
    bench.Key(Qt::Key_Return);
    EXPECT_EQ(bench.page.Focus(), &bench.page.Save) << "the next control behind the table";
    EXPECT_TRUE(bench.edits.empty());

    // The same out of an edit.
    bench.Click(1, 0);
    for (const auto& [key, next] : {std::pair{Qt::Key_7, Place{0, 1}}, std::pair{Qt::Key_8, Place{1, 1}}}) {
        bench.Key(key);
        ASSERT_NE(bench.Editor(), nullptr);
        bench.Key(Qt::Key_Return);
        EXPECT_EQ(bench.Editor(), nullptr);
        EXPECT_EQ(bench.Hand(), next);
    }
    EXPECT_EQ(bench.edits, (std::vector<std::string>{"7", "8"}));
    bench.grid.SetLocked(true);
    bench.view.Sync();
    bench.Key(Qt::Key_Return);
    EXPECT_EQ(bench.Hand(), Place(1, 1)) << "nothing is edited in a locked table";
}

TEST(Table, OneClickOpensTheEditAndArrowsMoveTheHand) {
    TableBench bench;
    bench.Click(0, 1);
    ASSERT_NE(bench.Editor(), nullptr);
    EXPECT_EQ(bench.Editor()->selectedText(), "2") << "what is typed takes its place";
    bench.Key(Qt::Key_Down);
    EXPECT_EQ(bench.Editor(), nullptr);
    EXPECT_TRUE(bench.edits.empty()) << "what nobody typed into is no edit";
    EXPECT_EQ(bench.Hand(), Place(1, 1));
    bench.Key(Qt::Key_Left);
    EXPECT_EQ(bench.Hand(), Place(1, 0));
    bench.Key(Qt::Key_Up);
    EXPECT_EQ(bench.Hand(), Place(0, 0));
    EXPECT_EQ(bench.Editor(), nullptr);
    bench.Key(Qt::Key_5);
    bench.Key(Qt::Key_Down);
    bench.Key(Qt::Key_6);
    bench.Click(1, 1);
    EXPECT_EQ(bench.edits, (std::vector<std::string>{"5", "6"})) << "a click elsewhere ends the edit";
    EXPECT_EQ(bench.Hand(), Place(1, 1));
    EXPECT_NE(bench.Editor(), nullptr);
    bench.grid.SetLocked(true);
    bench.Key(Qt::Key_Escape);
    bench.view.Sync();
    bench.Click(0, 0);
    EXPECT_EQ(bench.Editor(), nullptr);
}

TEST(Table, ARefusedCellHoldsTheHandUntilItIsPutRight) {
    TableBench bench;
    const auto refuse = [&](Qt::Key leave) {
        for (const Qt::Key key : {Qt::Key_9, Qt::Key_9, Qt::Key_9}) bench.Key(key);
        bench.Key(leave);
    };
    for (const Qt::Key leave : {Qt::Key_Return, Qt::Key_Down}) {
        refuse(leave);
        EXPECT_EQ(bench.Hand(), Place(0, 0));
        EXPECT_EQ(bench.edits.size(), 1U) << "refused once, told once";
        bench.edits.clear();
    }
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Down, Qt::Key_Right, Qt::Key_End}) {
        bench.Key(key);
        EXPECT_EQ(bench.Hand(), Place(0, 0));
    }
    bench.Click(1, 1);
    EXPECT_EQ(bench.Hand(), Place(0, 0));
    EXPECT_EQ(bench.Editor(), nullptr);
    // Also where the click is what ends the edit.
    for (const Qt::Key key : {Qt::Key_8, Qt::Key_8, Qt::Key_8}) bench.Key(key);
    bench.Click(1, 1);
    EXPECT_EQ(bench.Hand(), Place(0, 0));
    EXPECT_EQ(bench.edits, std::vector<std::string>{"888"});

    bench.Click(0, 0);
    ASSERT_NE(bench.Editor(), nullptr);
    bench.Key(Qt::Key_4);
    bench.Key(Qt::Key_Return);
    EXPECT_EQ(bench.Hand(), Place(1, 0));
}

// The marks of one cell, each seen beside the others, in both themes.
TEST(Table, ChangedRefusedAndTheEnginesCellAreToldApart) {
    using desktop::CellMarks;
    for (const desktop::Theme* theme : {&desktop::LightTheme(), &desktop::DarkTheme()}) {
        const QRect cell(0, 0, 38, 22);
        const auto drawn = [&](const CellMarks& marks) {
            QImage image(cell.size(), QImage::Format_RGB32);
            image.fill(theme->surface);
            QPainter painter(&image);
            marks.Draw(painter, cell, *theme);
            return image;
        };
        const auto holds = [](const QImage& image, const QColor& colour) {
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    if (image.pixelColor(x, y) == colour) return true;
                }
            }
            return false;
        };
        for (int mask = 0; mask < 8; ++mask) {
            const CellMarks marks{(mask & 1) != 0, (mask & 2) != 0, (mask & 4) != 0};
            const QImage image = drawn(marks);
            EXPECT_EQ(holds(image, theme->accent), marks.engine) << mask << theme->dark;
            EXPECT_EQ(holds(image, theme->warn), marks.changed) << mask << theme->dark;
            EXPECT_EQ(holds(image, theme->bad), marks.refused) << mask << theme->dark;
        }
    }
    TableBench bench;
    bench.table.setCurrentCell(1, 1);
    const QImage plain = bench.table.grab().toImage();
    bench.grid.SetChangedCells({{1, 1}});
    bench.view.Sync();
    const QImage one = bench.table.grab().toImage();
    EXPECT_NE(one, plain);
    bench.grid.SetChangedCells({{1, 1}, {2, 1}});
    bench.view.Sync();
    EXPECT_NE(bench.table.grab().toImage(), one);
    bench.grid.SetChangedCells({});
    bench.view.Sync();
    EXPECT_EQ(bench.table.grab().toImage(), plain);
}

TEST(Binder, KeysThatTheFieldDoesNotTakeLeaveItAndTheCaretAlone) {
    Bench bench;
    auto& edit = bench.Of<QLineEdit>(bench.page.Figure);
    QTest::keyClicks(&edit, "12");
    edit.setCursorPosition(1);
    QTest::keyClicks(&edit, "x -.");
    EXPECT_EQ(edit.text(), "12");
    EXPECT_EQ(edit.cursorPosition(), 1);
    QTest::keyClicks(&edit, "3456");
    EXPECT_EQ(bench.page.Figure.Text(), "1342");
    EXPECT_EQ(edit.text(), "1342");
}

TEST(Binder, ARefusedValueKeepsTheFocusWhateverTheHandDoes) {
    Bench bench;
    Sample& page = bench.page;
    auto& edit = bench.Of<QLineEdit>(page.Figure);
    edit.setFocus();
    const auto tooMuch = [&] {
        edit.selectAll();
        QTest::keyClicks(&edit, "101");
    };
    tooMuch();
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(page.Focus(), &page.Figure);
    EXPECT_EQ(bench.window.focusWidget(), &edit);
    tooMuch();
    QTest::keyClick(&edit, Qt::Key_Tab);
    EXPECT_EQ(bench.window.focusWidget(), &edit);
    tooMuch();
    QTest::mouseClick(&bench.Of<QPushButton>(page.Save), Qt::LeftButton);
    EXPECT_EQ(page.saved, 0);
    EXPECT_EQ(bench.refused, Reason::ValueRefused);
    EXPECT_EQ(bench.window.focusWidget(), &edit);
    tooMuch();
    bench.Of<QComboBox>(page.Choice).setFocus(Qt::ShortcutFocusReason);
    EXPECT_EQ(bench.window.focusWidget(), &edit);
    EXPECT_EQ(bench.Of<QLabel>(page.Heading).text(), "0 - 100");
}

// What is chosen is what the next key replaces, and that is in one field at a time, also in a window that lies behind.
TEST(Binder, OnlyTheFieldInTheHandHasItsFigureChosen) {
    for (const bool behind : {false, true}) {
        SCOPED_TRACE(behind);
        Bench bench;
        Sample& page = bench.page;
        page.Figure.SetText("850");
        page.Twin.SetText("12");
        page.SetFocus(&page.Figure);
        bench.view.Sync();
        using Chosen = std::pair<std::string, std::string>;
        const auto chosen = [&] {
            bench.view.Sync();
            return Chosen(bench.Of<QLineEdit>(page.Figure).selectedText().toStdString(),
                          bench.Of<QLineEdit>(page.Twin).selectedText().toStdString());
        };
        QWidget front;
        if (behind) {
            front.show();
            front.activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&front));
        }
        bench.Of<QLineEdit>(page.Figure).deselect();
        page.Twin.SetRefused(true);
        EXPECT_EQ(chosen(), Chosen("", "")) << "refused, and the hand elsewhere";
        page.Figure.SetRefused(true);
        EXPECT_EQ(chosen(), Chosen("850", "")) << "what is refused will be typed anew";
        page.SetFocus(&page.Twin);
        EXPECT_EQ(chosen(), Chosen("", "12"));
        page.SetFocus(&page.Save);
        EXPECT_EQ(chosen(), Chosen("", ""));
    }
}

// Nobody has to look for the keyboard when an exchange ends.
TEST(Binder, TheKeyboardGoesWhereThePageGoesWhenItsControlIsHidden) {
    Bench bench;
    Sample& page = bench.page;
    page.Mark.SetVisible(false);
    page.SetFocus(&page.Save);
    bench.view.Sync();
    const auto inHand = [&] {
        bench.view.Sync();
        const QWidget* widget = bench.window.focusWidget();
        EXPECT_TRUE(widget == nullptr || widget->isVisible());
        return widget == nullptr ? std::string() : widget->objectName().toStdString();
    };
    EXPECT_EQ(inHand(), "Save");
    page.Save.SetVisible(false);
    ASSERT_NE(page.Focus(), &page.Save);
    EXPECT_EQ(inHand(), page.Focus()->Name());
    // To one that comes with the same change.
    page.Mark.SetVisible(true);
    page.SetFocus(&page.Mark);
    page.Figure.SetVisible(false);
    EXPECT_EQ(inHand(), "Mark");
    QTest::keyClick(bench.window.focusWidget(), Qt::Key_Space);
    EXPECT_TRUE(page.Mark.Selected());
    QTest::keyClick(bench.window.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(inHand(), "List");
}

TEST(Binder, EnterGoesOnInTheOrderOfThePageAndShiftTabBack) {
    Bench bench;
    Sample& page = bench.page;
    page.Twin.SetLocked(true);
    bench.view.Sync();
    auto& edit = bench.Of<QLineEdit>(page.Figure);
    edit.setFocus();
    QTest::keyClicks(&edit, "7");
    QTest::keyClick(&edit, Qt::Key_Return);
    EXPECT_EQ(bench.window.focusWidget(), bench.view.WidgetOf(page.Choice));
    QTest::keyClick(bench.window.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(bench.window.focusWidget(), bench.view.WidgetOf(page.Way[0]));
    QTest::keyClick(bench.window.focusWidget(), Qt::Key_Backtab);
    QTest::keyClick(bench.window.focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(bench.window.focusWidget(), &edit);
}

TEST(Binder, WhatIsOffOrHiddenLooksSoAndTakesNothing) {
    Bench bench;
    Sample& page = bench.page;
    page.Save.Enable(false, Reason::Unchanged);
    page.Mark.SetVisible(false);
    bench.view.Sync();
    EXPECT_FALSE(bench.Of<QPushButton>(page.Save).isEnabled());
    EXPECT_TRUE(bench.Of<QCheckBox>(page.Mark).isHidden());
    QTest::mouseClick(&bench.Of<QPushButton>(page.Save), Qt::LeftButton);
    EXPECT_EQ(page.saved, 0);
    page.SetEnabled(false);
    bench.view.Sync();
    EXPECT_FALSE(bench.window.isEnabled());
    page.SetEnabled(true);
    page.Save.Enable(true);
    page.SetFocus(&page.Choice);
    bench.view.Sync();
    EXPECT_EQ(bench.window.focusWidget(), bench.view.WidgetOf(page.Choice));
}

// A mouse can choose the entry that is there already.
TEST(Binder, TheSameEntryChosenAgainIsAChoiceOnlyWhereThePageSaysSo) {
    for (const bool counts : {false, true}) {
        Bench bench;
        int choices = 0;
        bench.page.Choice.takesSameEntry = counts;
        bench.page.Choice.onChange = [&] { ++choices; };
        bench.page.Choice.SetIndex(0);
        bench.view.Sync();
        auto& combo = bench.Of<QComboBox>(bench.page.Choice);
        emit combo.activated(0);
        EXPECT_EQ(choices, counts ? 1 : 0);
        emit combo.activated(1);
        EXPECT_EQ(choices, counts ? 2 : 1);
    }
}

TEST(Binder, ATurnedWheelChangesNoChoiceInPassing) {
    Bench bench;
    bench.page.Choice.SetIndex(0);
    bench.view.Sync();
    auto& combo = bench.Of<QComboBox>(bench.page.Choice);
    QWheelEvent wheel(QPointF(2, 2), combo.mapToGlobal(QPointF(2, 2)), {}, QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&combo, &wheel);
    EXPECT_EQ(combo.currentIndex(), 0);
}

}  // namespace
