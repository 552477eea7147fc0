#include "link/lamps.h"

#include <gtest/gtest.h>

#include <vector>

#include "link/transaction.h"
#include "support/live_frame.h"
#include "support/machine.h"

namespace eculink {

namespace {

using support::LiveFrame;

struct Dashboard : support::Machine {
    Dashboard() {
        Start();
        BecomeReady();
    }
    // "G-" for a green RxOK and a white RxKO.
    std::string Reception() {
        return std::string(1, Letter(Shell().main.RxOK.Colour())) + Letter(Shell().main.RxKO.Colour());
    }
    std::string Row() {
        std::string out;
        for (int i = 0; i < LedCount; ++i) out += Letter(Link().grafici.Led[i].Colour());
        return out;
    }
    char Centre() { return Letter(Link().grafici.LedC.Colour()); }
    void Digits(char first, char second, char third, char fourth) {
        LiveFrame f;
        f.digit1 = first;
        f.digit2 = second;
        f.digit3 = third;
        f.digit4 = fourth;
        Take(f.Short());
    }
    static char Letter(const std::string& colour) {
        if (colour == "white") return '-';
        if (colour == "green") return 'G';
        return colour == "red" ? 'R' : colour == "yellow" ? 'Y' : '?';
    }
};

}  // namespace

TEST(ReceptionLamps, FollowGoodAndBadFrames) {
    struct Case {
        const char* name;
        std::string frames;                // g good, b bad, l lost
        std::vector<std::string> colours;  // after each
    };
    for (const Case& c : {
             Case{"a healthy stream: three on, three off",
                  "gggggggggg",
                  {"G-", "G-", "G-", "--", "--", "--", "G-", "G-", "G-", "--"}},
             Case{"a bad frame at once", "b", {"-R"}},
             Case{"a bad frame among good ones", "gbgggg", {"G-", "-R", "-R", "-R", "--", "--"}},
             Case{"while off, two are overlooked", "ggggbbbb", {"G-", "G-", "G-", "--", "--", "--", "-R", "-R"}},
             Case{"only bad ones", "bbbb", {"-R", "-R", "-R", "-R"}},
             Case{"lost", "ggl", {"G-", "G-", "--"}},
             Case{"and back", "gglgb", {"G-", "G-", "--", "G-", "-R"}},
         }) {
        Dashboard d;
        ASSERT_EQ(d.Reception(), "--");
        for (std::size_t i = 0; i < c.frames.size(); ++i) {
            switch (c.frames[i]) {
                case 'g':
                    MarkGoodFrame(d.Link());
                    break;
                case 'b':
                    MarkBadFrame(d.Link());
                    break;
                default:
                    MarkLost(d.Link());
                    EXPECT_EQ(d.State().StatoRx, -1);
                    EXPECT_EQ(d.State().ContaRx, 0);
            }
            EXPECT_EQ(d.Reception(), c.colours.at(i)) << c.name << " " << i;
        }
    }
}

TEST(LampadeStato, ShowsThePositionOfTheSwitch) {
    Dashboard d;
    EXPECT_EQ(d.Link().grafici.Commu.Index(), 3) << "nobody has told where it stands";
    EXPECT_EQ(d.Link().grafici.CommuTesto.Text(), d.Text("COMMUT.3", "GRAFICI"));
    for (const auto& [digit, cell] : {std::pair{'0', 0}, {'1', 1}, {'2', 2}, {'3', 3}, {'7', 3}, {'x', 3}, {'0', 0}}) {
        d.Digits(digit, '0', '1', '0');
        EXPECT_EQ(d.Link().grafici.Commu.Index(), cell) << digit;
    }
}

TEST(LampadeStato, ColoursAndFlashesTheCentralLamp) {
    struct Case {
        char digit;
        char colour;
        bool blinks;
    };
    for (const Case& c :
         {Case{'1', 'R', false}, Case{'2', 'G', false}, Case{'3', 'Y', false}, Case{'4', 'R', true},
          Case{'7', 'R', true}, Case{'8', 'R', true}, Case{'A', 'R', true}, Case{'5', 'G', true}, Case{'9', 'G', true},
          Case{'6', 'Y', true}, Case{'0', '-', false}, Case{'B', '-', false}, Case{'a', '-', false}}) {
        Dashboard d;
        d.Digits('0', '2', '1', c.digit);
        EXPECT_EQ(d.Link().timers.LampeggioC->Enabled(), c.blinks) << c.digit;
        std::string seen(1, d.Centre());
        for (int i = 0; i < 3; ++i) {
            d.Run(BlinkInterval);
            seen += d.Centre();
        }
        const std::string flashing{c.colour, '-', c.colour, '-'};
        EXPECT_EQ(seen, c.blinks ? flashing : std::string(4, c.colour)) << c.digit;
    }
}

TEST(LampadeStato, LightsAndMovesTheRow) {
    struct Case {
        char second;
        char third;
        std::vector<std::string> rows;  // at once and after each half second
    };
    for (const Case& c : {
             Case{'1', '0', {"G--G", "-GG-", "G--G", "-GG-"}},
             Case{'2', '5', {"----", "----", "----"}},
             Case{'3', '0', {"G---", "-G--", "--G-", "---G", "--G-", "-G--", "G---", "-G--"}},
             Case{'4', '0', {"GG--", "--GG", "GG--"}},
             Case{'7', '5', {"----", "----"}},
             Case{'0', '0', {"G---", "----", "G---", "----"}},
             Case{'0', '1', {"----", "----"}},
             Case{'0', '2', {"G---", "G---"}},
             Case{'0', '3', {"GG--", "GG--"}},
             Case{'0', '4', {"GGG-", "GGG-"}},
             Case{'0', '5', {"GGGG", "GGGG"}},
             Case{'0', '6', {"GGGG", "----", "GGGG"}},
             Case{'0', '9', {"----", "----"}},
         }) {
        Dashboard d;
        d.Digits('0', c.second, c.third, '0');
        std::vector<std::string> seen{d.Row()};
        while (seen.size() < c.rows.size()) {
            d.Run(BlinkInterval);
            seen.push_back(d.Row());
        }
        EXPECT_EQ(seen, c.rows) << c.second << c.third;
    }
}

TEST(LampadeStato, ActsOnAChangeAloneAndLetsAnAnimationRunOn) {
    Dashboard d;
    d.Digits('0', '1', '0', '4');
    d.Run(300);
    for (int i = 0; i < 2; ++i) d.Digits('0', '1', '0', '4');  // at the half second the lamps turn over
    EXPECT_EQ(d.Row(), "-GG-");
    EXPECT_EQ(d.Centre(), '-');
    d.Digits('0', '1', '6', '4');
    EXPECT_EQ(d.Row(), "-GG-") << "digit 3 counts only while digit 2 is 0";
    d.Digits('0', '0', '6', '4');
    EXPECT_EQ(d.Row(), "GGGG") << "digit 2 turning to 0 draws by digit 3, changed or not";
    d.Run(300);
    d.Digits('0', '0', '3', '2');
    EXPECT_EQ(d.Row(), "GG--");
    EXPECT_EQ(d.Centre(), 'G');
    EXPECT_FALSE(d.Link().timers.Lampeggio->Enabled());
    EXPECT_FALSE(d.Link().timers.LampeggioC->Enabled());
    d.Digits('0', '2', '3', '2');
    EXPECT_EQ(d.Row(), "----");
}

TEST(LampadeStato, KeepsTheDigitsOfThePassBefore) {
    Dashboard d;
    d.Digits('1', '2', '3', '4');
    EXPECT_EQ(d.Link().RecCanali.Valore[Commut], "1234    ");
    d.Link().RecCanali.Grezzo[Commut] = "4321";
    EXPECT_EQ(d.Link().RecCanali.Valore[Commut], "1234    ");
    d.Tick();
    EXPECT_EQ(d.Link().RecCanali.Valore[Commut], "4321    ");
}

TEST(LampadeStato, DarkensTheReplicaOfALostUnit) {
    Dashboard d;
    d.Digits('1', '3', '0', '4');
    StreamLost(d.Link());
    EXPECT_EQ(d.Link().grafici.Commu.Index(), 3);
    EXPECT_EQ(d.Link().grafici.CommuTesto.Text(), d.Text("COMMUT.3", "GRAFICI"));
    for (int i = 0; i < 3; ++i) {
        d.Run(BlinkInterval);
        EXPECT_EQ(d.Row(), "----");
        EXPECT_EQ(d.Centre(), '-');
    }
    d.BecomeReady();
    d.Digits('1', '3', '0', '4');
    EXPECT_EQ(d.Link().grafici.Commu.Index(), 1);
    EXPECT_EQ(d.Row(), "G---") << "the unit that comes back shows the same digits anew";
    EXPECT_EQ(d.Centre(), 'R');
}

}  // namespace eculink
