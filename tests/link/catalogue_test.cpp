#include "link/catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

#include "support/machine.h"

namespace eculink {

namespace {

using T = TimeOut;

struct Expected {
    std::vector<int> states;
    const char* letters;  // of the replies, in any order
    T timeOut;
};

// Every exchange of the program: which replies it takes and how its silence is told.
const std::vector<Expected> All{
    {{50}, "wis", T::A},
    {{70}, "l", T::B},
    {{71}, "o", T::B},
    {{72, 73}, "is", T::C},
    {{76, 150}, "", T::None},
    {{79}, "wis", T::D},
    {{80}, "xlo", T::E},
    {{89}, "lo", T::E},
    {{81}, "lor", T::F},
    {{82, 204}, "w", T::G},
    {{83}, "w", T::H},
    {{84}, "lor", T::D2},
    {{85}, "lo", T::F2},
    {{87}, "w", T::I},
    {{88}, "lo", T::J},
    {{95}, "lis", T::J},
    {{90}, "lo", T::K},
    {{91}, "is", T::K2},
    {{86, 92, 94}, "is", T::None},
    {{93, 96, 98}, "is", T::L},
    {{97}, "is", T::M},
    {{99}, "is", T::N},
    {{100, 101, 110, 120}, "wis", T::P},
    {{115, 116, 119}, "is", T::Q},
    {{121}, "r", T::F3},
    {{130}, "lox", T::R},
    {{131}, "is", T::R2},
    {{160, 161, 165, 166}, "wis", T::S},
    {{164}, "lor", T::S2},
    {{167}, "r", T::S3},
    {{170}, "wlor", T::T},
    {{171}, "is", T::T2},
    {{172}, "w", T::T3},
    {{173}, "w", T::T4},
    {{200, 201, 202}, "is", T::U},
    {{205}, "wis", T::U2},
    {{280}, "lo", T::V},
    {{300}, "isp", T::W},
    {{310}, "w", T::X},
};

std::string Sorted(std::string_view letters) {
    std::string out(letters);
    std::sort(out.begin(), out.end());
    return out;
}

}  // namespace

TEST(Catalogue, OnlyDiagnosisAndDownloadCountEveryLetterOfTheirRow) {
    support::Machine m;
    m.Start();
    std::vector<int> alike;
    for (const auto& [state, entry] : m.Link().catalogue.Rows()) {
        if (entry.row.counting == Counting::Alike) alike.push_back(state);
    }
    EXPECT_EQ(alike, (std::vector<int>{79, 90, 91, 130, 131, 300}));
}

TEST(Catalogue, HoldsEveryStateWithItsRepliesAndItsSilence) {
    support::Machine m;
    m.Start();
    std::map<int, std::pair<std::string, T>> expected;
    for (const Expected& row : All) {
        for (const int state : row.states) {
            EXPECT_TRUE(expected.emplace(state, std::pair{Sorted(row.letters), row.timeOut}).second) << state;
        }
    }
    std::map<int, std::pair<std::string, T>> found;
    for (const auto& [state, entry] : m.Link().catalogue.Rows()) {
        EXPECT_EQ(state, entry.row.state);
        found.emplace(state, std::pair{Sorted(entry.row.letters), entry.row.timeOut});
    }
    for (const auto& [state, row] : expected) {
        const auto at = found.find(state);
        ASSERT_NE(at, found.end()) << state;
        EXPECT_EQ(at->second.first, row.first) << state;
        EXPECT_EQ(at->second.second, row.second) << state;
    }
    EXPECT_EQ(found.size(), expected.size());
}

TEST(Catalogue, EndsEveryStateOfThisVersionInSilenceWithoutAFailure) {
    support::Machine m;
    m.Start();
    for (const auto& [state, entry] : m.Link().catalogue.Rows()) {
        m.State().StatoCmd = state;
        m.Link().timers.TimeOutComandi->SetInterval(FailureLimit);
        m.Link().timers.TimeOutComandi->SetEnabled(true);
        m.Run(FailureLimit);
        EXPECT_EQ(m.State().StatoCmd, Idle) << state;
        EXPECT_FALSE(m.Link().timers.TimeOutComandi->Enabled()) << state;
    }
}

TEST(Catalogue, DropsTheRepliesOfAPageThatDoesNotExistYet) {
    Catalogue catalogue;
    catalogue.Add({50, "w", T::A});
    EXPECT_EQ(catalogue.Find(50)->HandlerOf("\x02wok\x03"), nullptr);
    EXPECT_EQ(catalogue.Find(51), nullptr);
}

TEST(Catalogue, AStateBelongsToOneRoom) {
    Catalogue catalogue;
    catalogue.Add({50, "w", T::A});
    EXPECT_THROW(catalogue.Add({50, "r", T::B}), std::logic_error);
    EXPECT_EQ(catalogue.Find(50)->row.letters, "w");
    EXPECT_THROW(catalogue.AddReply(51, 'x', {}), std::logic_error);
}

}  // namespace eculink
