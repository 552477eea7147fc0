#include "console/session.h"

#include <gtest/gtest.h>

#include "support/console_rig.h"

namespace {

// A session whose input comes piece by piece, and whose time passes only where a test lets it.
struct SessionRig : ConsoleRig {
    void Feed(std::string_view bytes) {
        session.Feed(bytes);
        session.Advance();
    }
    void Pass(int milliseconds) {
        simulation.world.RunFor(milliseconds);
        session.Advance();
    }

    std::vector<std::string> answers;
    console::Session session{*Start().interpreter, [this](std::string_view answer) { answers.emplace_back(answer); }};
};

std::size_t Answered(const SessionRig& rig) {
    return rig.answers.size();
}

TEST(Session, LinesBehindAWaitAreDoneInOrderWhenItIsOver) {
    SessionRig rig;
    rig.Feed("run 50\ntext TITOLO_2 ERRORI\nrun 20\nquit\npages\n");
    EXPECT_EQ(Answered(rig), 0U);
    EXPECT_FALSE(rig.session.Hungry());
    rig.Pass(49);
    EXPECT_EQ(Answered(rig), 0U);
    rig.Pass(1);
    EXPECT_EQ(Answered(rig), 2U);
    rig.session.EndOfInput();
    EXPECT_FALSE(rig.session.Finished());
    rig.Pass(20);
    EXPECT_TRUE(rig.session.Finished());
    ASSERT_EQ(Answered(rig), 4U);  // nothing behind quit
    EXPECT_EQ(rig.answers[0], R"({"ok":true,"ms":50})");
    EXPECT_EQ(rig.answers[3], R"({"ok":true})");
}

TEST(Session, TakesLinesAsEditorsAndPipesLeaveThem) {
    SessionRig rig;
    rig.Feed("\xEF\xBB\xBF# mark in front\r\n\r\n  \npag");
    EXPECT_EQ(Answered(rig), 0U);
    EXPECT_TRUE(rig.session.Hungry());
    rig.Feed("es\r\n\tstate\n");
    EXPECT_EQ(Answered(rig), 2U);
    rig.Feed("pages");  // the last line may lack its end
    EXPECT_EQ(Answered(rig), 2U);
    rig.session.EndOfInput();
    rig.session.Advance();
    EXPECT_EQ(Answered(rig), 3U);
    EXPECT_TRUE(rig.session.Finished());
    for (const std::string& answer : rig.answers) EXPECT_TRUE(answer.starts_with(R"({"ok":true)")) << answer;
}

TEST(Session, ALineWithoutEndIsAnsweredOnceAndNotKept) {
    SessionRig rig;
    const std::string piece(4096, 'x');
    for (int i = 0; i < 64; ++i) rig.Feed(piece);
    EXPECT_EQ(Answered(rig), 0U);
    rig.Feed("x\npages\n" + std::string(console::Session::LongestLine + 1, 'y') + "\npages\n");
    ASSERT_EQ(Answered(rig), 4U);
    for (const std::size_t bad : {0U, 2U}) EXPECT_TRUE(rig.answers[bad].starts_with(R"({"ok":false)"));
    for (const std::size_t good : {1U, 3U}) EXPECT_TRUE(rig.answers[good].starts_with(R"({"ok":true)"));
}

TEST(Session, ACommandThatEndsTheProgramIsAnsweredAndIsTheLast) {
    SessionRig rig;
    rig.Feed("tool ESCI\npages\n");
    EXPECT_EQ(rig.answers, std::vector<std::string>{R"({"ok":true})"});
    EXPECT_TRUE(rig.session.Finished());
}

}  // namespace
