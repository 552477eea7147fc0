#include "contract/timers_contract.h"

#include <string>

namespace contract {

namespace {

// Each timer writes its letter into one log, so that every test is about order and never about how loaded the machine
// is; where nothing may happen, a later timer marks the end of the wait.
class Log {
  public:
    Log(TimersMachine& machine, std::string& text) : machine_(machine), text_(text) {}

    std::unique_ptr<platform::Timer> Make(char letter, int milliseconds, std::function<void()> also = nullptr) {
        auto timer = machine_.Timers().Make(milliseconds);
        timer->SetHandler([this, letter, also] {
            text_ += letter;
            if (also) also();
        });
        return timer;
    }
    bool Reaches(std::size_t count) {
        return machine_.RunUntil([this, count] { return text_.size() >= count; });
    }
    bool Shows(char letter) {
        return machine_.RunUntil([this, letter] { return text_.find(letter) != std::string::npos; });
    }

  private:
    TimersMachine& machine_;
    std::string& text_;
};

constexpr int Short = 20;
constexpr int Middle = 50;
constexpr int Long = 80;

}  // namespace

TEST_P(TimersContract, StartsOffAndRepeatsUntilItIsSwitchedOff) {
    std::string text;
    Log log(*machine_, text);
    auto off = log.Make('x', Short);
    auto on = log.Make('a', Short);
    EXPECT_FALSE(on->Enabled());
    EXPECT_EQ(on->Interval(), Short);
    on->SetEnabled(true);
    ASSERT_TRUE(log.Reaches(3));
    EXPECT_EQ(text.substr(0, 3), "aaa");
    EXPECT_TRUE(on->Enabled());

    on->SetEnabled(false);
    text.clear();
    auto mark = log.Make('m', Long);
    mark->SetEnabled(true);
    ASSERT_TRUE(log.Shows('m'));
    EXPECT_EQ(text, "m");
}

TEST_P(TimersContract, TimersDueTogetherFireInTheOrderOfTheirArming) {
    std::string text;
    Log log(*machine_, text);
    auto first = log.Make('a', Middle);
    auto second = log.Make('b', Middle);
    second->SetEnabled(true);
    first->SetEnabled(true);
    ASSERT_TRUE(log.Reaches(2));
    EXPECT_EQ(text, "ba");
    second->SetEnabled(true);  // armed afresh, it stands behind the other from now on
    first->SetEnabled(true);
    second->SetEnabled(true);
    text.clear();
    ASSERT_TRUE(log.Reaches(2));
    EXPECT_EQ(text, "ab");
}

TEST_P(TimersContract, EnablingAndSettingTheIntervalArmAfreshFromNow) {
    enum class Act { SetInterval, Enable };
    for (const Act act : {Act::SetInterval, Act::Enable}) {
        std::string text;
        Log log(*machine_, text);
        auto delayed = log.Make('d', Middle);
        auto mark = log.Make('m', Long);
        auto early = log.Make('e', Short * 2,
                              [&] { act == Act::Enable ? delayed->SetEnabled(true) : delayed->SetInterval(Middle); });
        delayed->SetEnabled(true);
        mark->SetEnabled(true);
        early->SetEnabled(true);
        // Armed afresh at 40 and at 80, the timer that was first due at 50 does not fire before the mark at 80.
        ASSERT_TRUE(log.Shows('m'));
        EXPECT_EQ(text.find('d'), std::string::npos) << text;
        EXPECT_EQ(text.front(), 'e');
    }
}

TEST_P(TimersContract, TheIntervalOfATimerThatIsOffStartsNothing) {
    std::string text;
    Log log(*machine_, text);
    auto off = log.Make('x', Long);
    off->SetInterval(0);
    EXPECT_EQ(off->Interval(), 1);
    EXPECT_FALSE(off->Enabled());
    auto mark = log.Make('m', Short);
    mark->SetEnabled(true);
    ASSERT_TRUE(log.Shows('m'));
    EXPECT_EQ(text, "m");
}

TEST_P(TimersContract, ATimerIsArmedAgainBeforeItsHandlerRuns) {
    std::string text;
    Log log(*machine_, text);
    std::unique_ptr<platform::Timer> once;
    std::unique_ptr<platform::Timer> slower;
    bool wasArmed = false;
    once = log.Make('o', Short, [&] {
        wasArmed = once->Enabled();
        once->SetEnabled(false);
    });
    slower = log.Make('s', Short, [&] { slower->SetInterval(Long * 2); });
    auto mark = log.Make('m', Long);
    once->SetEnabled(true);
    slower->SetEnabled(true);
    mark->SetEnabled(true);
    ASSERT_TRUE(log.Shows('m'));
    EXPECT_EQ(text, "osm");
    EXPECT_TRUE(wasArmed);
}

TEST_P(TimersContract, AStoppedTimerNeverFiresAlsoWhenItIsAlreadyDue) {
    std::string text;
    Log log(*machine_, text);
    auto victim = log.Make('v', Short);
    auto deleted = log.Make('d', Short);
    auto stopper = log.Make('s', Short, [&] {
        victim->SetEnabled(false);
        deleted.reset();
    });
    stopper->SetEnabled(true);
    victim->SetEnabled(true);
    deleted->SetEnabled(true);
    ASSERT_TRUE(log.Reaches(2));
    EXPECT_EQ(text, "ss");
}

TEST_P(TimersContract, AHandlerMayReplaceItselfOrEndItsTimer) {
    std::string text;
    Log log(*machine_, text);
    std::unique_ptr<platform::Timer> changing = log.Make('1', Short);
    changing->SetHandler([&] {
        text += '1';
        changing->SetHandler([&] {
            text += '2';
            changing.reset();
        });
    });
    changing->SetEnabled(true);
    auto mark = log.Make('m', Long * 2);
    mark->SetEnabled(true);
    ASSERT_TRUE(log.Shows('m'));
    EXPECT_EQ(text, "12m");
}

TEST_P(TimersContract, ElapsedTimeNeverGoesBackAndCoversTheInterval) {
    std::int64_t last = machine_->Clock().ElapsedMicros();
    const std::int64_t start = last;
    int ticks = 0;
    bool wentBack = false;
    auto timer = machine_->Timers().Make(Short);
    timer->SetHandler([&] {
        const std::int64_t now = machine_->Clock().ElapsedMicros();
        wentBack = wentBack || now < last;
        last = now;
        ++ticks;
    });
    timer->SetEnabled(true);
    ASSERT_TRUE(machine_->RunUntil([&] { return ticks >= 3; }));
    EXPECT_FALSE(wentBack);
    constexpr std::int64_t ThreeIntervalsLessOneMilli = (3 * Short - 1) * 1000;
    EXPECT_GE(last - start, ThreeIntervalsLessOneMilli);
}

}  // namespace contract
