#include <gtest/gtest.h>

#include "pages/stack.h"

namespace {

using pages::Outcome;
using pages::Reason;

struct TwoFields : pages::Page {
    TwoFields() : Page("TwoFields") {
        // A figure above 99 keeps the focus.
        First.onLeave = [this] {
            if (First.Text().size() > 2) SetFocus(&First);
        };
        stack.Register(*this);
        stack.OpenPage(*this, true);
    }

    pages::PageStack stack;
    pages::Field First{*this, "First"};
    pages::Label Unit{*this, "Unit"};
    pages::Field Second{*this, "Second"};
    pages::Field Fixed{*this, "Fixed"};
};

// A refused figure must not be passed by leaving another field instead.
TEST(Leaving, AnotherFieldIsLeftOnlyWhenTheEditedOneLetsGo) {
    TwoFields page;
    ASSERT_TRUE(page.stack.Type(page.First, "100").ok);
    const Outcome refused = page.stack.Leave(page.Second);
    EXPECT_FALSE(refused.ok);
    EXPECT_EQ(refused.why, Reason::ValueRefused);
    EXPECT_EQ(page.Focus(), &page.First);

    ASSERT_TRUE(page.stack.Type(page.First, "99").ok);
    EXPECT_TRUE(page.stack.Leave(page.Second).ok);
    EXPECT_FALSE(page.First.pending);
}

TEST(Leaving, WhatNeverHasTheFocusCannotBeLeft) {
    TwoFields page;
    page.Fixed.SetLocked(true);
    EXPECT_EQ(page.stack.Leave(page.Unit).why, Reason::WrongKind);
    EXPECT_EQ(page.stack.Leave(page.Fixed).why, Reason::Locked);
    EXPECT_EQ(page.Focus(), &page.First);
}

}  // namespace
