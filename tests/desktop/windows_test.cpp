#include <gtest/gtest.h>

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedLayout>
#include <QTest>
#include <QToolButton>
#include <map>

#include "desktop/widgets/figure_view.h"
#include "desktop/widgets/grid_view.h"
#include "desktop/widgets/picture_view.h"
#include "desktop/workshop.h"

namespace {

using desktop_test::Workshop;
using shell::MenuId;

constexpr int SerialLine = 1;  // of MenuConf
constexpr int About = 6;

TEST(Windows, OpenAndCloseAsThePagesDo) {
    Workshop shop;
    shop.Begin();
    EXPECT_TRUE(shop.windows.Main().isVisible());
    EXPECT_EQ(shop.windows.Main().windowTitle().toStdString(), shop.program.shell.main.Title());
    shop.Choose(MenuId::MenuConf, About);
    desktop::Dialog& about = shop.Window(shop.program.shell.infor);
    EXPECT_TRUE(about.isVisible());
    EXPECT_TRUE(about.isModal());
    QTest::keyClick(&about, Qt::Key_Escape);
    EXPECT_FALSE(about.isVisible());
    EXPECT_FALSE(shop.program.shell.infor.IsOpen());
    shop.Choose(MenuId::MenuConf, About);
    about.close();
    EXPECT_FALSE(shop.program.shell.infor.IsOpen());
}

TEST(Windows, RestWhileTheMainWindowIsMinimised) {
    Workshop shop;
    shop.BeginLive();
    const eculink::State& link = shop.program.link.state;
    EXPECT_EQ(link.PaginaStrumenti, shell::True);
    shop.windows.Main().showMinimized();
    EXPECT_EQ(link.PaginaStrumenti, shell::False);
    shop.windows.Main().showNormal();
    EXPECT_EQ(link.PaginaStrumenti, shell::True);
}

TEST(Windows, AQuestionIsAnsweredByKeysAlone) {
    Workshop shop;
    shop.Begin();
    shell::ConfSer& page = shop.program.shell.confSer;
    shop.Choose(MenuId::MenuConf, SerialLine);
    QTest::keyClick(&shop.Find<QComboBox>(page, "BaudRate"), Qt::Key_Up);
    QTest::keyClick(&shop.Window(page), Qt::Key_Escape);
    ASSERT_TRUE(shop.program.shell.messaggio.IsOpen());
    desktop::Dialog& question = shop.Window(shop.program.shell.messaggio);
    EXPECT_EQ(question.parentWidget(), &shop.Window(page));
    // Enter at once loses nothing: the focus stands on the way back.
    QTest::keyClick(question.focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(question.isVisible());
    EXPECT_TRUE(shop.Window(page).isVisible());

    QTest::keyClick(&shop.Window(page), Qt::Key_Escape);
    QTest::keyClick(question.focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(question.focusWidget()->objectName(), "TastoYes");
    QTest::keyClick(question.focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(question.isVisible());
    EXPECT_FALSE(shop.Window(page).isVisible());
}

TEST(Windows, AFunctionKeyStoresTheSettingsOfTheLine) {
    Workshop shop;
    shop.Begin();
    shell::ConfSer& page = shop.program.shell.confSer;
    shop.Choose(MenuId::MenuConf, SerialLine);
    QTest::keyClick(&shop.Find<QComboBox>(page, "BaudRate"), Qt::Key_Up);
    QTest::keyClick(&shop.Window(page), Qt::Key_F1);
    EXPECT_FALSE(page.IsOpen());
    EXPECT_EQ(shop.program.shell.state.serial.baud, "19200");
}

TEST(Windows, ClosingTheMainWindowEndsTheProgram) {
    Workshop shop;
    shop.Begin();
    shop.windows.Main().close();
    EXPECT_TRUE(shop.ended);
    EXPECT_EQ(shop.program.shell.state.exitStatus, 0);
}

// A page that shows less than the one before it is small again; what it shows more it has room for. It stands in the
// middle, or as near to it as the lamps at the right allow.
TEST(Windows, APageIsAsLargeAsWhatItShows) {
    constexpr int FullLoad = 3;
    constexpr int OverSpeed = 4;
    constexpr int Releases = 7;
    Workshop shop;
    shop.windows.Main().resize(1180, 800);
    shop.BeginLive();
    pages::Page& page = shop.program.tuning.messaP;
    const auto placed = [&] {
        constexpr int Frame = 4;  // what a window manager may draw around a window
        const QRect shown = shop.Window(page).geometry();
        const desktop::PageAreas areas = shop.windows.Main().Areas();
        const QPoint middle = areas.back().center();
        EXPECT_EQ(shown, shown.intersected(areas.front()));
        EXPECT_NEAR(shown.center().y(), middle.y(), 1);
        EXPECT_TRUE(shown.right() > areas.front().right() - Frame || std::abs(shown.center().x() - middle.x()) <= 1);
        return shown;
    };
    const auto open = [&](int entry) {
        shop.Choose(MenuId::MenuPunto, entry);
        shop.RunUntil([&] { return shop.program.link.state.StatoCmd == eculink::Idle; }, 60000);
        shop.Pass(1000);
        Workshop::Settle();
        return placed();
    };
    const auto close = [&] {
        shop.Stack().ClosePage(page);
        shop.Pass(10000);
    };
    const QRect large = open(FullLoad);
    close();
    const QRect small = open(OverSpeed);
    EXPECT_LT(small.height(), large.height() / 2);
    close();
    const QRect list = open(Releases);
    shop.Stack().Press(*page.Find("TastoRil"));
    shop.Pass(1000);
    Workshop::Settle();
    const QRect table = placed();
    EXPECT_GT(table.width(), list.width());
}

// On a small screen the page scrolls; what is refused comes into sight by itself.
TEST(Windows, ARefusedCellBelowTheEdgeComesIntoSight) {
    Workshop shop;
    shop.windows.Main().resize(960, 540);
    shop.BeginLive();
    shop.Choose(MenuId::MenuPunto, 0);
    shop.RunUntil([&] { return shop.program.link.state.StatoCmd == eculink::Idle; }, 60000);
    pages::Page& page = shop.program.tuning.messaP;
    shop.Stack().Press(*page.Find("SoglieLam"));
    shop.Pass(1000);
    Workshop::Settle();
    pages::Control& lean = *page.Find("T_LamInf");
    auto& table = shop.Find<desktop::GridView>(page, "T_LamInf");
    ASSERT_TRUE(table.visibleRegion().isEmpty()) << "or nothing is shown by this test";
    shop.Stack().EditCell(lean, 0, 0, "9999999");
    shop.windows.Sync();
    Workshop::Settle();
    ASSERT_TRUE(lean.Refused());
    const QRect cell = table.visualItemRect(table.item(0, 0));
    EXPECT_EQ(table.viewport()->visibleRegion().intersected(cell).boundingRect(), cell);
}

using Limits = std::map<std::string, std::string>;

// The limits that stand beside the values of a page, by the value.
Limits LimitsOn(Workshop& shop, const pages::Page& page) {
    const QString ending = QStringLiteral("Limiti");
    shop.windows.Sync();
    Limits limits;
    for (const QLabel* label : shop.Window(page).findChildren<QLabel*>()) {
        if (label->isVisible() && label->objectName().endsWith(ending))
            limits[label->objectName().chopped(ending.size()).toStdString()] = label->text().toStdString();
    }
    return limits;
}

void OpenTuning(Workshop& shop, int entry) {
    shop.Choose(MenuId::MenuPunto, entry);
    shop.RunUntil([&] { return shop.program.link.state.StatoCmd == eculink::Idle; }, 60000);
    shop.Pass(1000);
}

// Beside a list, above a table, above the axes of the base map.
TEST(Windows, ARefusedValueHasItsLimitsWhereTheEyeIs) {
    constexpr int Idle = 2;
    constexpr int BaseMap = 14;
    Workshop shop;
    shop.BeginLive();
    pages::Page& messaP = shop.program.tuning.messaP;
    OpenTuning(shop, Idle);
    pages::Control& list = *messaP.Find("Inibiz");
    list.SetRefused(true, "no - yes");
    messaP.SetFocus(&list);
    EXPECT_EQ(LimitsOn(shop, messaP), (Limits{{"Inibiz", "no - yes"}}));
    list.SetRefused(false);
    shop.Stack().ClosePage(messaP);
    shop.Pass(10000);

    OpenTuning(shop, 0);
    shop.Stack().Press(*messaP.Find("SoglieLam"));
    pages::Control& table = *messaP.Find("T_LamSup");
    shop.Stack().EditCell(table, 0, 0, "9999999");
    ASSERT_TRUE(table.Refused());
    const Limits ofTable{{"T_LamSup", table.Legal()}};
    EXPECT_EQ(LimitsOn(shop, messaP), ofTable);
    table.SetFocusCell({0, 1});
    EXPECT_EQ(LimitsOn(shop, messaP), Limits()) << "the hand stands in another cell";
    table.SetFocusCell({0, 0});
    EXPECT_EQ(LimitsOn(shop, messaP), ofTable);
    shop.Stack().EditCell(table, 0, 0, "");
    EXPECT_EQ(LimitsOn(shop, messaP), Limits());
    shop.Stack().ClosePage(messaP);
    shop.Pass(10000);

    OpenTuning(shop, BaseMap);
    pages::Page& map = shop.program.tuning.messaL1;
    shop.Stack().Press(*map.Find("Modifica"));
    shop.Stack().Edit(*map.Find("Giri(15)"), "99999");
    shop.Stack().Key(map, "Enter");
    ASSERT_TRUE(map.Find("Giri(15)")->Refused());
    EXPECT_EQ(LimitsOn(shop, map), (Limits{{"Giri(0)", map.Find("Segnalazione")->Text()}})) << "all axes share a place";
}

// A field that bears the mark of a silence has none, nor has any a sentence that tells something else.
TEST(Windows, TheLimitsStandBesideTheFigureThatWasRefusedJustNow) {
    constexpr int Idle = 2;
    Workshop shop;
    shop.BeginLive();
    OpenTuning(shop, Idle);
    pages::Page& page = shop.program.tuning.messaP;
    pages::Control& message = *page.Find("Segnalazione");
    pages::Control& figure = *page.Focus();
    pages::Control& silent = *page.NextFocus(&figure);
    ASSERT_EQ(silent.GetKind(), pages::Kind::Field);
    const std::string good = figure.Text();
    silent.SetRefused(true);
    message.Say(pages::Tone::Failed, "no answer");
    EXPECT_EQ(LimitsOn(shop, page), Limits());
    shop.Stack().Edit(figure, "9999999");
    shop.Stack().Key(page, "Enter");
    const Limits limits{{figure.Name(), message.Text()}};
    EXPECT_EQ(LimitsOn(shop, page), limits);
    message.Say(pages::Tone::Done, "stored");
    pages::Control& unit = *figure.beside.unit;
    QWidget& covered = *shop.Window(page).View().WidgetOf(unit);
    unit.SetText("turns");
    EXPECT_EQ(LimitsOn(shop, page), limits) << "the figure is still refused";
    EXPECT_FALSE(covered.isVisible()) << "in the place of the unit, whatever becomes of that";
    shop.Stack().Edit(figure, good);
    shop.Stack().Key(page, "Enter");
    ASSERT_EQ(page.Focus(), &silent);
    EXPECT_EQ(LimitsOn(shop, page), Limits());
    EXPECT_TRUE(covered.isVisible());
    for (const pages::Tone tone : {pages::Tone::Done, pages::Tone::Refused, pages::Tone::Failed, pages::Tone::Plain}) {
        message.Say(tone, "a sentence");
        EXPECT_EQ(LimitsOn(shop, page), Limits());
    }
    // The hand may leave a list.
    pages::Control& list = *page.Find("Inibiz");
    list.SetRefused(true, "no - yes");
    EXPECT_EQ(LimitsOn(shop, page), Limits());
    page.SetFocus(&list);
    EXPECT_EQ(LimitsOn(shop, page), (Limits{{"Inibiz", "no - yes"}}));
}

// When the values are in the unit their button goes, and the keyboard goes over to the one that comes in its place.
TEST(Windows, WhatHasBeenTriedByKeysIsTakenBackByKeys) {
    constexpr int OverSpeed = 4;
    Workshop shop;
    shop.BeginLive();
    OpenTuning(shop, OverSpeed);
    pages::Page& page = shop.program.tuning.messaP;
    QWidget& window = shop.Window(page);
    const auto inHand = [&] { return window.focusWidget()->objectName().toStdString(); };
    const int figure = std::atoi(page.Focus()->Text().c_str());
    shop.Stack().Edit(*page.Focus(), std::to_string(figure - 100));
    shop.windows.Sync();
    for (int stops = 0; inHand() != "Applica(0)" && stops < 20; ++stops)
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    for (const char* next : {"Applica(1)", "Applica(0)"}) {
        QTest::keyClick(window.focusWidget(), Qt::Key_Space);
        EXPECT_NE(shop.program.link.state.StatoCmd, eculink::Idle) << "something has been sent";
        shop.Pass(5000);
        EXPECT_EQ(shop.program.link.state.StatoCmd, eculink::Idle);
        EXPECT_EQ(inHand(), next);
        EXPECT_TRUE(window.focusWidget()->isVisible());
    }
}

// Done, refused and failed are told apart by a shape, whatever the page; what runs comes first.
TEST(Windows, ThePictureOfAMessageIsThatOfItsKind) {
    constexpr int OverSpeed = 4;
    Workshop shop;
    shop.BeginLive();
    shop.Choose(MenuId::MenuPunto, OverSpeed);
    shop.RunUntil([&] { return shop.program.link.state.StatoCmd == eculink::Idle; }, 60000);
    pages::Page& page = shop.program.tuning.messaP;
    const auto shown = [&](pages::Tone tone, const char* text) {
        page.Find("Segnalazione")->Say(tone, text);
        shop.windows.Sync();
        return shop.Find<desktop::PictureView>(page, "SegnalazioneFigura").Name().toStdString();
    };
    struct Case {
        pages::Tone tone;
        const char* picture;
    };
    for (const Case& c :
         {Case{pages::Tone::Plain, "information"}, Case{pages::Tone::Progress, "busy"}, Case{pages::Tone::Done, "done"},
          Case{pages::Tone::Refused, "exclamation"}, Case{pages::Tone::Failed, "stop"}}) {
        EXPECT_EQ(shown(c.tone, "a message"), c.picture);
        EXPECT_TRUE(QFile::exists(QStringLiteral(":/pictures/%1.svg").arg(QLatin1String(c.picture))));
        EXPECT_EQ(shown(c.tone, ""), "");
        page.Find("Avanzamento")->SetVisible(true);
        EXPECT_EQ(shown(c.tone, "a message"), "busy");
        page.Find("Avanzamento")->SetVisible(false);
    }
    page.SetEnabled(false);
    EXPECT_EQ(shown(pages::Tone::Done, "a message"), "busy");
}

TEST(Windows, AReadThatRunsShowsHowFarItIs) {
    Workshop shop;
    ASSERT_TRUE(shop.Start());
    const auto reading = [&] { return shop.program.memory.leggoIn.Avanzamento.Text() == "50"; };
    ASSERT_TRUE(shop.RunUntil(reading, 60000));
    shop.windows.Sync();
    EXPECT_FALSE(shop.Window(shop.program.memory.leggoIn).isModal());
    EXPECT_EQ(shop.Find<QProgressBar>(shop.program.memory.leggoIn, "Avanzamento").value(), 50);
}

// Wherever a page has such a control, whatever else it shows.
TEST(Windows, TheBarOfAnExchangeStandsAboveTheMessage) {
    struct Erasing : pages::Page {
        Erasing() : Page("InEEPROM") {
            MessaggioSel.SetText("a question");
            Segnalazione.SetText("two\r\nlines");
            Avanzamento.SetText("40");
        }
        pages::Label MessaggioSel{*this, "MessaggioSel"};
        pages::Label Segnalazione{*this, "Segnalazione"};
        pages::Label Avanzamento{*this, "Avanzamento"};
        pages::Button Esci{*this, "Esci"};
    };
    Erasing page;
    pages::PageStack stack;
    stack.Register(page);
    stack.OpenPage(page, true);
    desktop::Hands hands(stack);
    const shell::Language language;
    const desktop::Look look{desktop::LightTheme(), language};
    QWidget parent;
    desktop::Dialog window(page, hands, look, {});
    window.Present(parent, {QRect(0, 0, 800, 600), QRect(0, 0, 800, 600), QRect(0, 0, 800, 600)});
    Workshop::Settle();
    const auto* bar = window.findChild<QProgressBar*>(QStringLiteral("Avanzamento"));
    const auto* message = window.findChild<QLabel*>(QStringLiteral("Segnalazione"));
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(bar->value(), 40);
    EXPECT_TRUE(bar->isVisible());
    EXPECT_LT(bar->geometry().bottom(), message->geometry().top());
    EXPECT_EQ(window.findChild<desktop::PictureView*>(QStringLiteral("SegnalazioneFigura"))->Name(), "busy");
}

TEST(MainWindow, MenusAndToolbarFollowTheirTables) {
    Workshop shop;
    shop.BeginLive();
    auto& faults = shop.InMain<QToolButton>("ANOMALIE");
    QAction* faultsEntry = shop.windows.Main().menuBar()->actions().at(5);
    EXPECT_TRUE(faults.isEnabled());
    shell::AbilitaComandi(shop.program.shell, shell::False);
    shop.windows.Sync();
    EXPECT_FALSE(faults.isEnabled());
    EXPECT_FALSE(faultsEntry->isEnabled());
    EXPECT_TRUE(shop.InMain<QToolButton>("PROGRAMMA").isEnabled());
    EXPECT_EQ(faultsEntry->statusTip().toStdString(), shop.Text("OPERAZIONE", "MOTIVI"));
    EXPECT_TRUE(faults.toolTip().contains(faultsEntry->statusTip()));
    shell::AbilitaComandi(shop.program.shell, shell::True);
    shop.windows.Sync();
    EXPECT_TRUE(faultsEntry->isEnabled());

    const auto& tuning = shop.windows.Main().Menus().Of(MenuId::MenuPunto).actions();
    EXPECT_TRUE(tuning.at(11)->isVisible());
    EXPECT_FALSE(tuning.at(12)->isVisible());
}

TEST(MainWindow, AMenuEntryOpensItsPageAndARefusalIsToldAtTheBottom) {
    Workshop shop;
    shop.Begin();
    QMenu& settings = shop.windows.Main().Menus().Of(MenuId::MenuConf);
    settings.actions().at(About)->trigger();
    EXPECT_TRUE(shop.program.shell.infor.IsOpen());
    shop.Stack().Close(shop.program.shell.infor);
    shop.windows.Sync();
    shop.program.shell.state.FaseAcq = 0;
    settings.actions().at(About)->trigger();
    EXPECT_FALSE(shop.program.shell.infor.IsOpen());
    bool told = false;
    for (const QLabel* label : shop.windows.Main().Status().findChildren<QLabel*>())
        told = told || label->text().toStdString() == shop.Text("TARATURA", "MOTIVI");
    EXPECT_TRUE(told);
}

TEST(MainWindow, WaitingLiveAndLostAreToldApart) {
    Workshop shop;
    shop.Sim("stream off");
    shop.Begin();
    const auto shown = [&](const char* name) { return shop.InMain<QWidget>(name).isVisible(); };
    EXPECT_TRUE(shown("Attesa"));
    EXPECT_TRUE(shown("AttesaRimedio"));
    EXPECT_FALSE(shown("GraficoC"));
    EXPECT_EQ(desktop::LookOf(shop.program.link), desktop::LinkLook::Waiting);
    // A switch that is not heard stands nowhere.
    const auto& replica = shop.InMain<desktop::PictureView>("Commu");
    const auto& position = shop.InMain<QLabel>("CommuTesto");
    const std::string unknown = shop.Text("COMMUT.3", "GRAFICI");
    EXPECT_EQ(replica.Name(), "commut_3");
    EXPECT_EQ(position.text().toStdString(), unknown);

    shop.Sim("stream on");
    ASSERT_TRUE(shop.RunUntil([&] { return shop.program.link.state.FlussoAttivo == shell::True; }, 60000));
    shop.Pass(1000);
    EXPECT_FALSE(shown("Attesa"));
    EXPECT_TRUE(shown("GraficoC"));
    EXPECT_EQ(shop.InMain<desktop::FigureView>("DatiMot(0)").Text().toStdString(),
              std::string(platform::Trim(shop.program.link.grafici.DatiMot[0].Text())));
    const std::string words = shop.Text("COMMUT.1", "GRAFICI");
    EXPECT_EQ(replica.Name(), "commut_1");
    EXPECT_EQ(position.text().toStdString(), words);
    Workshop::Settle();
    const desktop::PageAreas areas = shop.windows.Main().Areas();

    shop.Sim("stream off");
    shop.Pass(6000);
    EXPECT_EQ(replica.Name(), "commut_3");
    EXPECT_EQ(position.text().toStdString(), unknown);
    EXPECT_TRUE(shown("Attesa"));
    EXPECT_EQ(desktop::LookOf(shop.program.link), desktop::LinkLook::Lost);
    Workshop::Settle();
    EXPECT_EQ(shop.windows.Main().Areas(), areas) << "a page that is open stays beside the switch";
    shop.Sim("stream on");
    ASSERT_TRUE(shop.RunUntil([&] { return shop.program.link.state.FlussoAttivo == shell::True; }, 60000));
    shop.Pass(1000);
    EXPECT_EQ(replica.Name(), "commut_1");
    EXPECT_EQ(position.text().toStdString(), words);
}

TEST(MainWindow, ADoubleClickOnACardReachesItsChannel) {
    Workshop shop;
    shop.BeginLive();
    int clicked = -1;
    for (int channel : {0, 7}) {
        shop.program.link.grafici.DatiMot[channel].onDoubleClick = [&clicked, channel] { clicked = channel; };
    }
    QWidget* card = shop.InMain<desktop::FigureView>("DatiMot(7)").parentWidget();
    QTest::mouseDClick(card, Qt::LeftButton, {}, QPoint(4, 4));
    EXPECT_EQ(clicked, 7);
}

}  // namespace
