// What the status bar says of the thing under the pointer.
#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include "desktop/workshop.h"

namespace {

using desktop_test::Workshop;
using shell::MenuId;

constexpr int OverSpeed = 4;  // of MenuPunto

std::string Hint(Workshop& shop) {
    const auto& hint = shop.InMain<QLabel>("Avviso");
    return hint.isHidden() ? std::string() : hint.text().toStdString();
}

void PointAt(QWidget& widget) {
    QWidget& window = *widget.window();
    for (const QPoint& place : {QPoint(1, 1), widget.mapTo(&window, widget.rect().center())})
        QTest::mouseMove(window.windowHandle(), place);
}

TEST(Hints, TheReasonOfAControlGoesOrChangesUnderThePointer) {
    struct Case {
        const char* control;
        const char* after;  // text of MOTIVI
    };
    for (const Case& c : {Case{"InMemor", nullptr}, Case{"Applica(0)", "NON_MODIFICATO"}}) {
        SCOPED_TRACE(c.control);
        Workshop shop;
        shop.BeginLive();
        shop.Choose(MenuId::MenuPunto, OverSpeed);
        PointAt(shop.Find<QPushButton>(shop.program.tuning.messaP, c.control));
        EXPECT_EQ(Hint(shop), shop.Text("TRANSAZIONE", "MOTIVI"));
        shop.RunUntil([&] { return shop.program.link.state.StatoCmd == eculink::Idle; }, 60000);
        shop.windows.Sync();
        EXPECT_EQ(Hint(shop), c.after == nullptr ? std::string() : shop.Text(c.after, "MOTIVI"));
    }
}

TEST(Hints, TheReasonOfAToolGoesOrChangesUnderThePointer) {
    Workshop shop;
    shop.BeginLive();
    const auto set = [&](pages::Reason why) {
        shop.program.shell.main.Tool("ANOMALIE").why = why;
        shop.program.shell.main.TouchMenus();
        shop.windows.Sync();
    };
    set(pages::Reason::LongOperation);
    PointAt(shop.InMain<QToolButton>("ANOMALIE"));
    EXPECT_EQ(Hint(shop), shop.Text("OPERAZIONE", "MOTIVI"));
    set(pages::Reason::Recording);
    EXPECT_EQ(Hint(shop), shop.Text("REGISTRAZIONE", "MOTIVI"));
    set(pages::Reason::None);
    EXPECT_EQ(Hint(shop), "");
}

// The button under the pointer, or the whole page, goes away.
TEST(Hints, TheReasonGoesWithWhatItIsOf) {
    for (const bool page : {false, true}) {
        SCOPED_TRACE(page);
        Workshop shop;
        shop.BeginLive();
        shop.Choose(MenuId::MenuPunto, OverSpeed);
        pages::Page& messaP = shop.program.tuning.messaP;
        PointAt(shop.Find<QPushButton>(messaP, "InMemor"));
        EXPECT_EQ(Hint(shop), shop.Text("TRANSAZIONE", "MOTIVI"));
        if (page) {
            shop.Stack().ClosePage(messaP);
        } else {
            messaP.Find("InMemor")->SetVisible(false);
        }
        shop.windows.Sync();
        EXPECT_EQ(Hint(shop), "");
    }
}

}  // namespace
