#include "shell/message.h"

#include <gtest/gtest.h>

#include <vector>

#include "link/transaction.h"
#include "support/machine.h"

namespace shell {

namespace {

struct Talk : support::Machine {
    Talk() { Start(); }
    void Ask(int style, const std::string& text = "testo") {
        MostraMessaggio(Shell(), "titolo", text, style,
                        [this](Answer answer) { answers.push_back(static_cast<int>(answer)); });
    }
    Messaggio& Page() { return Shell().messaggio; }
    pages::Outcome Press(pages::Control& control) { return Shell().stack.Press(control); }

    std::vector<int> answers;
};

struct StyleCase {
    int style;
    std::vector<std::pair<const char*, int>> buttons;  // left to right, with their answers
    int escape;                                        // what Esc and the window's button answer
};

const std::vector<StyleCase> Styles{
    {0, {{"TastoOK", 1}}, 1},
    {1, {{"TastoOK", 1}, {"TastoCancel", 2}}, 2},
    {2, {{"TastoAbort", 3}, {"TastoRetry", 4}, {"TastoIgnore", 5}}, 3},
    {3, {{"TastoYes", 6}, {"TastoNo", 7}, {"TastoCancel", 2}}, 2},
    {4, {{"TastoYes", 6}, {"TastoNo", 7}}, 7},
    {5, {{"TastoRetry", 4}, {"TastoCancel", 2}}, 2},
};

}  // namespace

TEST(MostraMessaggio, ShowsTheButtonsOfItsStyleAndAnswersByThem) {
    Talk t;
    for (const StyleCase& c : Styles) {
        for (const auto& [name, answer] : c.buttons) {
            t.Ask(c.style);
            std::vector<std::string> shown;
            for (const pages::Button* button : t.Page().Shown()) shown.push_back(button->Name());
            std::vector<std::string> expected;
            for (const auto& button : c.buttons) expected.emplace_back(button.first);
            EXPECT_EQ(shown, expected) << c.style;
            for (pages::Control* control : t.Page().Controls()) {
                if (control->GetKind() != pages::Kind::Button) continue;
                const bool belongs = std::count(expected.begin(), expected.end(), control->Name()) > 0;
                EXPECT_EQ(control->Visible(), belongs) << c.style << control->Name();
                if (!belongs) {
                    EXPECT_FALSE(t.Press(*control).ok);
                }
            }
            EXPECT_TRUE(t.Press(*t.Page().Find(name)).ok);
            EXPECT_EQ(t.answers, std::vector<int>{answer});
            EXPECT_FALSE(t.Page().IsOpen());
            t.answers.clear();
        }
    }
}

TEST(MostraMessaggio, CanBeLeftWithoutAButtonAndNeverByAWrongAnswer) {
    Talk t;
    for (const StyleCase& c : Styles) {
        t.Ask(c.style);
        EXPECT_TRUE(t.Shell().stack.Key(t.Page(), "Esc").ok);
        t.Ask(c.style);
        EXPECT_TRUE(t.Shell().stack.Close(t.Page()).ok);
        EXPECT_EQ(t.answers, (std::vector<int>{c.escape, c.escape})) << c.style;
        t.answers.clear();
    }
    t.Ask(StyleQuestion);
    EXPECT_TRUE(t.Shell().stack.Key(t.Page(), "Enter").ok);
    EXPECT_EQ(t.answers, std::vector<int>{7}) << "Enter alone must not say yes";
}

TEST(MostraMessaggio, ShowsPictureTitleTextAndCaptions) {
    Talk t;
    for (const auto& [style, picture] : {std::pair{16, 0}, {32, 1}, {48, 2}, {64, 3}, {0, -1}, {128, -1}}) {
        t.Ask(style, "un testo");
        EXPECT_EQ(t.Page().Immagine.Index(), picture) << style;
        EXPECT_EQ(t.Page().Title(), "titolo");
        EXPECT_EQ(t.Page().Segnalazione.Text(), "un testo");
        EXPECT_TRUE(t.Page().Modal());
        t.Press(t.Page().TastoOK);
    }
    const std::vector<std::pair<const char*, const char*>> captions{
        {"TastoOK", "OK.0"},         {"TastoCancel", "ANNULLA.0"}, {"TastoAbort", "INTERROMPI.0"},
        {"TastoRetry", "RIPROVA.0"}, {"TastoIgnore", "IGNORA.0"},  {"TastoYes", "SI.0"},
        {"TastoNo", "NO.0"},
    };
    for (const auto& [name, key] : captions) {
        EXPECT_EQ(t.Page().Find(name)->Text(), t.Text(key, "TASTI"));
        EXPECT_NE(t.Page().Find(name)->Text(), "") << name;
    }
}

TEST(MostraMessaggio, KeepsASecondMessageUntilTheFirstIsAnswered) {
    Talk t;
    t.Ask(StyleInformation, "primo");
    t.Ask(StyleQuestion, "secondo");
    EXPECT_EQ(t.Page().Segnalazione.Text(), "primo");
    t.Press(t.Page().TastoOK);
    EXPECT_TRUE(t.Page().IsOpen());
    EXPECT_EQ(t.Page().Segnalazione.Text(), "secondo");
    EXPECT_EQ(t.answers, std::vector<int>{1});
    t.Press(t.Page().TastoYes);
    EXPECT_EQ(t.answers, (std::vector<int>{1, 6}));
    EXPECT_FALSE(t.Page().IsOpen());
}

TEST(MostraMessaggio, LetsTheAnswerAskAgain) {
    Talk t;
    MostraMessaggio(t.Shell(), "", "primo", StyleQuestion, [&](Answer) { t.Ask(StyleQuestion, "secondo"); });
    t.Press(t.Page().TastoYes);
    EXPECT_TRUE(t.Page().IsOpen());
    EXPECT_EQ(t.Page().Segnalazione.Text(), "secondo");
    t.Press(t.Page().TastoNo);
    EXPECT_EQ(t.answers, std::vector<int>{7});
}

TEST(MostraMessaggio, DropsEveryAnswerWhenThePageClosesByItself) {
    Talk t;
    t.Ask(StyleQuestion, "primo");
    t.Ask(StyleQuestion, "secondo");
    eculink::StreamLost(t.Link());
    EXPECT_FALSE(t.Page().IsOpen());
    EXPECT_TRUE(t.answers.empty());
    t.Ask(StyleInformation, "terzo");
    EXPECT_EQ(t.Page().Segnalazione.Text(), "terzo") << "nothing of the lost ones is left";
    t.Press(t.Page().TastoOK);
    EXPECT_EQ(t.answers, std::vector<int>{1});
}

TEST(MostraMessaggio, WorksByPositionWithoutAnyLanguage) {
    Talk t;
    t.Shell().language = {};
    t.Ask(StyleQuestion);
    EXPECT_EQ(t.Page().TastoYes.Text(), "");
    EXPECT_TRUE(t.Press(t.Page().TastoYes).ok);
    EXPECT_EQ(t.answers, std::vector<int>{6});
}

TEST(SystemMessage, ShowsOneBoxAfterTheOtherAndStaysUntilItIsRead) {
    Talk t;
    std::string log;
    t.Shell().systemMessage.Show("uno", "testo uno", [&] { log += "uno "; });
    t.Shell().systemMessage.Show("due", "testo due", [&] { log += "due "; });
    SystemMessage& box = t.Shell().systemMessage;
    EXPECT_EQ(box.Title.Text(), "uno");
    EXPECT_EQ(box.Text.Text(), "testo uno");
    eculink::StreamLost(t.Link());
    EXPECT_TRUE(box.IsOpen()) << "the system's own box is no page of the program";
    t.Press(box.OK);
    EXPECT_EQ(box.Text.Text(), "testo due");
    EXPECT_TRUE(t.Shell().stack.Key(box, "Esc").ok);
    EXPECT_FALSE(box.IsOpen());
    EXPECT_EQ(log, "uno due ");
}

}  // namespace shell
