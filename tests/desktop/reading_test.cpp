// What a fitter must be able to read and reach: texts that fit, colours that stand out, access keys that are unique.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QLabel>
#include <QMenuBar>
#include <map>
#include <set>

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
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        if (widget->window() == &window && widget->isVisibleTo(&window) && !Fits(*widget))
            cut.push_back(window.objectName().toStdString() + "." + widget->objectName().toStdString());
    }
    return cut;
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

const std::vector<std::pair<MenuId, int>> DialogEntries{
    {MenuId::MenuConf, 0}, {MenuId::MenuConf, 1}, {MenuId::MenuConf, 2},   {MenuId::MenuConf, 4},
    {MenuId::MenuConf, 6}, {MenuId::MenuProg, 1}, {MenuId::MenuPunto, 14},
};

TEST(Reading, NothingIsCutInEitherLanguageOnASmallScreen) {
    for (const char* language : Languages) {
        SCOPED_TRACE(language);
        Workshop shop;
        ChooseLanguage(shop, language);
        shop.windows.Main().resize(1024, 600);
        shop.BeginLive();
        shop.Pass(1000);
        EXPECT_EQ(shop.windows.Main().size(), QSize(1024, 600));
        EXPECT_EQ(CutTexts(shop.windows.Main()), std::vector<std::string>());
        for (const auto& [menu, index] : DialogEntries) {
            shop.Choose(menu, index);
            pages::Page& page = *shop.Stack().Open().back();
            EXPECT_EQ(CutTexts(shop.Window(page)), std::vector<std::string>());
            EXPECT_TRUE(shop.windows.Main().PageArea().contains(shop.Window(page).geometry())) << page.Name();
            shop.Stack().ClosePage(page);
            shop.Pass(10000);
        }
        shop.Sim("stream off");
        shop.Pass(6000);
        EXPECT_EQ(CutTexts(shop.windows.Main()), std::vector<std::string>());
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
        for (const auto& [menu, index] : DialogEntries) {
            shop.Choose(menu, index);
            pages::Page& page = *shop.Stack().Open().back();
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
    for (const auto& [menu, index] : DialogEntries) {
        shop.Choose(menu, index);
        pages::Page& page = *shop.Stack().Open().back();
        desktop::Dialog& window = shop.Window(page);
        for (const pages::Control* control : page.Controls()) {
            const pages::Kind kind = control->GetKind();
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
