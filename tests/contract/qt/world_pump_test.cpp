#include "platform/qt/world_pump.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "contract/qt/event_loop.h"
#include "platform/qt/qt_timers.h"

namespace contract {

namespace {

using platform::virt::World;

constexpr std::int64_t MicrosPerMilli = 1000;

// A world that has stood still for a while of real time, as a unit that nobody has asked anything.
class WorldPumpTest : public ::testing::Test {
  protected:
    WorldPumpTest() {
        after_.Set([this] { ++followed_; });
    }

    platform::qt::AfterEvent after_;
    World world_;
    int followed_ = 0;
};

}  // namespace

TEST_F(WorldPumpTest, KeepsPaceWithRealTimeAndTellsTheFrontEnd) {
    const auto pump = std::make_unique<platform::qt::WorldPump>(world_, after_);
    std::string log;
    const auto timer = world_.Make(20);
    timer->SetHandler([&] { log += 't'; });
    timer->SetEnabled(true);
    world_.After(10 * MicrosPerMilli, [&] { log += 'a'; });
    ASSERT_TRUE(RunEventsUntil([&] { return log.size() >= 3; }));
    EXPECT_EQ(log.substr(0, 3), "att");
    EXPECT_GE(world_.ElapsedMicros(), 40 * MicrosPerMilli);
    EXPECT_GE(followed_, 1);
}

TEST_F(WorldPumpTest, WhatIsAskedOfAQuietWorldCountsFromTheRealNow) {
    const auto pump = std::make_unique<platform::qt::WorldPump>(world_, after_);
    RunEventsShortly();
    EXPECT_EQ(followed_, 0) << "a quiet world costs nothing";
    EXPECT_EQ(world_.ElapsedMicros(), 0);
    std::int64_t ranAt = 0;
    world_.After(30 * MicrosPerMilli, [&] { ranAt = world_.ElapsedMicros(); });
    ASSERT_TRUE(RunEventsUntil([&] { return ranAt != 0; }));
    EXPECT_GE(ranAt, 90 * MicrosPerMilli);
}

TEST_F(WorldPumpTest, NothingOvertakesWhatIsDueAndLateWorkKeepsItsOrder) {
    const auto pump = std::make_unique<platform::qt::WorldPump>(world_, after_);
    std::string log;
    world_.After(20 * MicrosPerMilli, [&] {
        log += '1';
        world_.After(0, [&] { log += '2'; });
    });
    world_.After(0, [&] { log += '0'; });
    world_.After(21 * MicrosPerMilli, [&] { log += '3'; });
    ASSERT_TRUE(RunEventsUntil([&] { return log.size() >= 4; }));
    EXPECT_EQ(log, "0123");
}

TEST_F(WorldPumpTest, AWorldOutlivesItsPump) {
    auto pump = std::make_unique<platform::qt::WorldPump>(world_, after_);
    bool ran = false;
    world_.After(MicrosPerMilli, [&] { ran = true; });
    pump.reset();
    RunEventsShortly();
    EXPECT_FALSE(ran);
    world_.After(0, [] {});
    world_.RunFor(1);
    EXPECT_TRUE(ran);
}

TEST(AfterEvent, FollowsEachTickAlsoWhenTheHandlerEndsItsTimer) {
    platform::qt::AfterEvent after;
    std::string log;
    after.Set([&log] { log += '+'; });
    platform::qt::QtTimers timers(after);
    auto timer = timers.Make(1);
    timer->SetHandler([&] {
        log += 't';
        if (log.size() > 2) timer.reset();
    });
    timer->SetEnabled(true);
    ASSERT_TRUE(RunEventsUntil([&] { return timer == nullptr; }));
    RunEventsShortly();
    EXPECT_EQ(log, "t+t+");
}

}  // namespace contract
