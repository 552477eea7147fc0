#include "platform/virtual/world.h"

#include <gtest/gtest.h>

#include <string>

namespace platform::virt {

namespace {

class FixedDriver : public World::Driver {
  public:
    std::int64_t Micros() const override { return micros; }
    void Rearm() override { ++rearmed; }

    std::int64_t micros = 0;
    int rearmed = 0;
};

}  // namespace

TEST(World, RunsWhatIsDueInTheOrderOfTimeAndThenOfArming) {
    World world;
    std::string log;
    const auto write = [&log](char letter) { return [&log, letter] { log += letter; }; };
    EXPECT_EQ(world.NextDue(), World::Never);
    world.After(20, write('c'));
    world.After(10, write('a'));
    world.After(10, [&] {
        log += 'b';
        world.After(0, write('d'));   // due now, behind what was armed for now before
        world.After(-5, write('e'));  // never in the past
        world.After(10, write('f'));
    });
    world.After(10, write('x'));
    EXPECT_EQ(world.NextDue(), 10);
    world.RunUntil(19);
    EXPECT_EQ(log, "abxde");
    EXPECT_EQ(world.ElapsedMicros(), 19);
    world.RunUntil(20);
    EXPECT_EQ(log, "abxdecf");
    world.RunUntil(5);
    EXPECT_EQ(world.ElapsedMicros(), 20) << "time never goes back";
}

TEST(World, ATimerThatIsGoneOrArmedAfreshLeavesNothingBehind) {
    World world;
    std::string log;
    auto gone = world.Make(10);
    gone->SetHandler([&] { log += 'g'; });
    gone->SetEnabled(true);
    auto afresh = world.Make(10);
    afresh->SetHandler([&] { log += std::to_string(world.ElapsedMicros() / 1000) + " "; });
    afresh->SetEnabled(true);
    world.RunFor(5);
    afresh->SetEnabled(true);
    gone.reset();
    world.RunFor(30);
    EXPECT_EQ(log, "15 25 35 ");
}

TEST(World, TheWallClockGoesOnFromItsStartThroughMidnightAndLeapDays) {
    World world;
    world.SetStart({2028, 2, 28, 23, 59, 59, 900});
    world.RunFor(100);
    WallTime now = world.Now();
    EXPECT_EQ(now.month * 100 + now.day, 229);
    EXPECT_EQ(now.hour * 10000 + now.minute * 100 + now.second, 0);
    EXPECT_EQ(now.millisecond, 0);
    constexpr std::int64_t DayMillis = 24 * 60 * 60 * 1000;
    world.RunFor(DayMillis * 307);
    now = world.Now();
    EXPECT_EQ(now.year * 10000 + now.month * 100 + now.day, 20290101);
}

TEST(World, WhatADrivenWorldIsAskedForCountsFromTheRealNow) {
    World world;
    FixedDriver driver;
    world.SetDriver(&driver);
    std::string log;
    world.After(50, [&] {
        log += 'a';
        world.After(10, [&] { log += 'b'; });  // within a run the world's own time counts
    });
    EXPECT_EQ(driver.rearmed, 1);
    driver.micros = 30;
    world.After(100, [&] { log += 'd'; });
    driver.micros = 70;
    world.After(0, [&] { log += 'A'; });  // the first is overdue: this one may not overtake it
    EXPECT_EQ(world.ElapsedMicros(), 50);
    world.RunUntil(70);
    EXPECT_EQ(log, "aAb");
    EXPECT_EQ(driver.rearmed, 3);
    EXPECT_EQ(world.NextDue(), 130);
    world.SetDriver(nullptr);
    world.After(0, [] {});
    EXPECT_EQ(driver.rearmed, 3);
}

}  // namespace platform::virt
