// What a fitter must be able to read and reach: texts that fit, colours that stand out, access keys that are unique.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QLabel>
#include <QMenuBar>
#include <QScrollBar>
#include <map>
#include <set>

#include "desktop/layout_rules.h"
#include "desktop/workshop.h"
#include "platform/ini_file.h"

namespace {

using desktop_test::Workshop;
using shell::MenuId;

constexpr std::array<const char*, 2> Languages{"ITALIANO", "INGLESE"};
constexpr double LeastContrast = 4.5;

void ChooseLanguage(Workshop& shop, const char* language) {
    platform::IniText text{std::string()};
    text.Set("IMPOSTAZIONI", "Lingua", language);
    ASSERT_TRUE(shop.files.Write(shop.folder.Path() / "MARLO.INI", text.Content()));
    for (const char* name : Languages) {
        const std::string file = std::string(name) + ".LNG";
        ASSERT_TRUE(shop.files.Copy(std::filesystem::path(MARLOVENT_DATA) / file, shop.folder.Path() / file));
    }
}

bool Fits(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        if (label->wordWrap()) return label->heightForWidth(label->width()) <= label->height();
        return label->sizeHint().width() <= label->width() && label->sizeHint().height() <= label->height();
    }
    if (qobject_cast<const QAbstractButton*>(&widget) != nullptr) return widget.sizeHint().width() <= widget.width();
    return true;
}

std::vector<std::string> CutTexts(QWidget& window) {
    std::vector<std::string> cut;
    window.ensurePolished();
    Workshop::Settle();
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->window() == &window && widget->isVisibleTo(&window) && !Fits(*widget))
            cut.push_back(window.objectName().toStdString() + "." + widget->objectName().toStdString());
    }
    return cut;
}

// What can be seen by moving bars alone, and does not scroll up and down.
std::vector<std::string> HiddenBySide(QWidget& window) {
    std::vector<std::string> hidden;
    for (const QAbstractScrollArea* area : window.findChildren<QAbstractScrollArea*>()) {
        if (area->isVisibleTo(&window) && area->horizontalScrollBar()->maximum() > 0)
            hidden.push_back(window.objectName().toStdString() + "." + area->objectName().toStdString());
    }
    return hidden;
}

// The buttons that open the tables of a page.
std::vector<pages::Control*> TableButtons(pages::Page& page) {
    std::vector<pages::Control*> buttons;
    for (pages::Control* control : page.Controls()) {
        const bool opens = control->GetKind() == pages::Kind::Button && control->Visible() &&
                           page.Find(control->Name() + std::string(desktop::TwinEnding)) != nullptr;
        if (opens) buttons.push_back(control);
    }
    return buttons;
}

using Keys = std::map<QChar, std::vector<std::string>>;

void Collect(Keys& keys, const QString& caption) {
    const QKeySequence mark = QKeySequence::mnemonic(caption);
    if (!mark.isEmpty()) keys[QChar(mark[0].key())].push_back(caption.toStdString());
}

void ExpectUnique(const Keys& keys, const std::string& where) {
    for (const auto& [key, captions] : keys)
        EXPECT_EQ(captions.size(), 1U) << where << ": " << captions.front() << " and " << captions.back();
}

// The entries of all pages that exist; those for old units open pages that others open too.
std::vector<std::pair<MenuId, int>> DialogEntries(Workshop& shop) {
    std::vector<std::pair<MenuId, int>> entries;
    for (const shell::EntryRow& row : shell::Entries()) {
        const bool exists = shop.program.shell.commands.Find(row.name) != nullptr;
        if (row.menu == MenuId::MenuAutoA1) continue;
        if (row.target == shell::Target::Page && exists && shop.program.shell.main.Item(row.menu, row.index).visible)
            entries.emplace_back(row.menu, row.index);
    }
    return entries;
}

// The page that an entry opens, with its exchange with the unit done.
pages::Page& OpenPage(Workshop& shop, MenuId menu, int index) {
    shop.Choose(menu, index);
    shop.RunUntil([&] { return shop.program.link.state.StatoCmd == eculink::Idle; }, 60000);
    shop.Pass(1000);
    return *shop.Stack().Open().back();
}

using Faults = std::vector<std::string>;

// The window stands within the main one, and shows all it holds from its left edge to its right one.
void ExpectReadable(Workshop& shop, const pages::Page& page) {
    desktop::Dialog& window = shop.Window(page);
    SCOPED_TRACE(page.Title());
    EXPECT_EQ(CutTexts(window), Faults());
    EXPECT_EQ(HiddenBySide(window), Faults());
    const QRect place = window.geometry();
    EXPECT_EQ(place, place.intersected(shop.windows.Main().Areas().back()));
    for (int lamp = 0; lamp < eculink::LedCount; ++lamp) {
        const auto& view = shop.InMain<QWidget>(("Led(" + std::to_string(lamp) + ")").c_str());
        EXPECT_FALSE(place.intersects(QRect(view.mapToGlobal(QPoint(0, 0)), view.size()))) << "a lamp is hidden";
    }
}

// The smallest screen, and one of 1920 x 1080 whose letters are twice as large.
class SmallScreen : public testing::TestWithParam<std::tuple<const char*, std::pair<int, int>>> {};

TEST_P(SmallScreen, NothingIsCut) {
    const auto& [language, sides] = GetParam();
    const QSize size(sides.first, sides.second);
    Workshop shop;
    ChooseLanguage(shop, language);
    shop.windows.Main().resize(size);
    shop.BeginLive();
    shop.Pass(1000);
    EXPECT_EQ(shop.windows.Main().size(), size);
    EXPECT_EQ(CutTexts(shop.windows.Main()), Faults());
    for (const auto& [menu, index] : DialogEntries(shop)) {
        pages::Page& page = OpenPage(shop, menu, index);
        ExpectReadable(shop, page);
        for (pages::Control* button : TableButtons(page)) {
            shop.Stack().Press(*button);
            shop.Pass(1000);
            ExpectReadable(shop, page);
            shop.Stack().Press(*button);
        }
        shop.Stack().ClosePage(page);
        shop.Pass(10000);
    }
    shop.Sim("stream off");
    shop.Pass(6000);
    EXPECT_EQ(CutTexts(shop.windows.Main()), Faults());
}

INSTANTIATE_TEST_SUITE_P(Reading, SmallScreen,
                         testing::Combine(testing::ValuesIn(Languages),
                                          testing::Values(std::pair{1024, 768}, std::pair{1024, 600},
                                                          std::pair{960, 540})));

// Why something is off, in a status bar that is full, with a recording too; nothing moves for it.
TEST(Reading, NoReasonIsCutInTheStatusBar) {
    for (const char* language : Languages) {
        for (const QSize& size : {QSize(1180, 800), QSize(1024, 600), QSize(960, 540)}) {
            SCOPED_TRACE(std::string(language) + " " + std::to_string(size.width()));
            Workshop shop;
            ChooseLanguage(shop, language);
            shop.windows.Main().resize(size);
            shop.BeginLive();
            shop.program.shell.state.FileRegistrazione = "PROVA_0001.DAT";
            shop.program.shell.main.VisReg.SetText("PROVA_0001.DAT");
            shop.program.shell.main.Campioni.SetText("123456");
            shop.Pass(1000);
            desktop::StatusStrip& strip = shop.windows.Main().Status();
            const QRect chart = shop.windows.Main().Instruments().geometry();
            for (int reason = 1; reason <= static_cast<int>(pages::Reason::ValueRefused); ++reason) {
                const std::string key(pages::ReasonKey(static_cast<pages::Reason>(reason)));
                ASSERT_FALSE(key.empty());
                strip.Hint(desktop::Words(shop.Text(key.c_str(), "MOTIVI")));
                EXPECT_EQ(CutTexts(shop.windows.Main()), Faults()) << key;
                EXPECT_EQ(shop.windows.Main().size(), size) << key;
                EXPECT_EQ(shop.windows.Main().Instruments().geometry(), chart) << key;
                for (const char* kept : {"Collegamento", "RxOK", "RxKO", "Registra"})
                    EXPECT_TRUE(shop.InMain<QWidget>(kept).isVisible()) << key << " " << kept;
            }
            strip.Hint(QStringLiteral("A sentence that no line has room for. ").repeated(8));
            EXPECT_EQ(CutTexts(shop.windows.Main()), Faults());
            strip.Hint({});
            Workshop::Settle();
            for (const char* back : {"Versione", "Codice", "Label1", "VisReg", "Campioni"})
                EXPECT_TRUE(shop.InMain<QWidget>(back).isVisible()) << back;
        }
    }
}

TEST(Reading, AccessKeysAreUniqueInEachMenuAndPage) {
    for (const char* language : Languages) {
        SCOPED_TRACE(language);
        Workshop shop;
        ChooseLanguage(shop, language);
        shop.BeginLive();
        Keys bar;
        for (const QAction* action : shop.windows.Main().menuBar()->actions()) Collect(bar, action->text());
        ExpectUnique(bar, "menu bar");
        for (const shell::MenuRow& row : shell::Menus()) {
            if (row.id == MenuId::MainMenu) continue;
            Keys keys;
            for (const QAction* action : shop.windows.Main().Menus().Of(row.id).actions()) {
                if (action->isVisible()) Collect(keys, action->text());
            }
            ExpectUnique(keys, std::string(row.name));
        }
        for (const auto& [menu, index] : DialogEntries(shop)) {
            pages::Page& page = OpenPage(shop, menu, index);
            Keys keys;
            for (const QAbstractButton* button : shop.Window(page).findChildren<QAbstractButton*>()) {
                if (button->isVisible()) Collect(keys, button->text());
            }
            ExpectUnique(keys, page.Name());
            shop.Stack().ClosePage(page);
            shop.Pass(10000);
        }
    }
}

TEST(Reading, EveryInputHasANameForThoseWhoDoNotSeeIt) {
    Workshop shop;
    shop.BeginLive();
    for (const auto& [menu, index] : DialogEntries(shop)) {
        pages::Page& page = OpenPage(shop, menu, index);
        desktop::Dialog& window = shop.Window(page);
        for (const pages::Control* control : page.Controls()) {
            const pages::Kind kind = control->GetKind();
            if (!control->Visible()) continue;
            if (kind != pages::Kind::Combo && kind != pages::Kind::List && kind != pages::Kind::Grid) continue;
            EXPECT_FALSE(window.View().WidgetOf(*control)->accessibleName().isEmpty())
                << page.Name() << "." << control->Name();
        }
        shop.Stack().ClosePage(page);
        shop.Pass(10000);
    }
    for (const char* lamp : {"RxOK", "RxKO", "LedC", "Led(2)", "Commu"})
        EXPECT_FALSE(shop.InMain<QWidget>(lamp).accessibleName().isEmpty()) << lamp;
}

TEST(Reading, TextStandsOutFromItsGroundInBothThemes) {
    for (const desktop::Theme* theme : {&desktop::LightTheme(), &desktop::DarkTheme()}) {
        for (const QColor& ground : {theme->window, theme->surface}) {
            for (const QColor& ink : {theme->text, theme->quiet, theme->bad, theme->warn, theme->good, theme->accent})
                EXPECT_GE(desktop::Contrast(ink, ground), LeastContrast) << ink.name().toStdString();
        }
        EXPECT_GE(desktop::Contrast(theme->accentText, theme->accent), LeastContrast);
    }
}

TEST(Reading, TheThemeFollowsTheSystemUnlessTheFileChooses) {
    QPalette night;
    night.setColor(QPalette::Window, Qt::black);
    QPalette day;
    day.setColor(QPalette::Window, Qt::white);
    struct Case {
        const char* word;
        const QPalette& system;
        bool dark;
    };
    for (const Case& c : {Case{"auto", night, true}, Case{"auto", day, false}, Case{"chiaro", night, false},
                          Case{" SCURO ", day, true}, Case{"verde", day, false}}) {
        EXPECT_EQ(desktop::ChooseTheme(c.word, c.system).dark, c.dark) << c.word;
    }
}

}  // namespace
