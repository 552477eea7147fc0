// Windows cost nothing while nothing happens.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "desktop/workshop.h"

namespace {

std::size_t allocations = 0;

}  // namespace

// All allocations of this program are counted.
void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace {

using desktop_test::Workshop;

TEST(Idle, SyncAllocatesNothingWhenNothingHasChanged) {
    struct Case {
        shell::MenuId menu;
        int index;
    };
    constexpr Case SerialLine{shell::MenuId::MenuConf, 1};
    constexpr Case BaseMap{shell::MenuId::MenuPunto, 14};
    for (const Case& page : {SerialLine, BaseMap}) {
        Workshop shop;
        shop.BeginLive();
        shop.Choose(page.menu, page.index);
        shop.windows.Sync();
        const std::size_t before = allocations;
        for (int i = 0; i < 100; ++i) shop.windows.Sync();
        EXPECT_EQ(allocations, before) << page.index;
        EXPECT_GT(before, 0U);
    }
}

// Paints of a widget since the last look.
class Paints : public QObject {
  public:
    explicit Paints(QWidget& widget) { widget.installEventFilter(this); }
    int Take() { return std::exchange(count_, 0); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++count_;
        return false;
    }

  private:
    int count_ = 0;
};

TEST(Idle, OnlyTheFigureThatChangesIsPainted) {
    Workshop shop;
    shop.BeginLive();
    QTest::qWait(50);
    pages::Label& speed = shop.program.link.grafici.DatiMot[0];
    Paints changed(shop.InMain<QWidget>("DatiMot(0)"));
    Paints still(shop.InMain<QWidget>("DatiMot(5)"));
    Paints chart(shop.InMain<QWidget>("GraficoC"));
    Paints window(shop.windows.Main());
    speed.SetText("    1234");
    shop.windows.Sync();
    QTest::qWait(50);
    EXPECT_EQ(changed.Take(), 1);
    EXPECT_EQ(still.Take(), 0);
    EXPECT_EQ(chart.Take(), 0);
    EXPECT_EQ(window.Take(), 0);
}

}  // namespace
