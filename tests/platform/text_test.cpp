#include "platform/text.h"

#include <gtest/gtest.h>

namespace platform {

TEST(Text, EveryByteOfTheCodePageSurvivesTheWayThroughUtf8) {
    std::string all;
    for (int code = 0; code < 256; ++code) all += static_cast<char>(code);
    EXPECT_EQ(FromUtf8(ToUtf8(all)), all);
    EXPECT_EQ(ToUtf8("\x80 8\xB0 perch\xE9 \x92 \x81"), "\xE2\x82\xAC 8\xC2\xB0 perch\xC3\xA9 \xE2\x80\x99 \xC2\x81");
}

TEST(Text, WhatIsNoUtf8IsReadByteByByteAndWhatTheCodePageLacksIsAQuestionMark) {
    struct Case {
        const char* why;
        std::string_view utf8;
        std::string_view text;
    };
    const Case cases[] = {
        {"arrow", "a\xE2\x86\x92z", "a?z"},
        {"engine", "\xF0\x9F\x9A\x97", "?"},
        {"code page 1252 taken for UTF-8", "Citt\xE0 8\xB0", "Citt\xE0 8\xB0"},
        {"cut short", "\xE2\x82", "\xE2\x82"},
        {"cut short by a letter", "\xC3z", "\xC3z"},
        {"lone continuation", "\x80z", "\x80z"},
        {"five bytes", "\xF8\x88\x80\x80\x80", "\xF8\x88\x80\x80\x80"},
        {"slash in two bytes", "\xC0\xAF", "\xC0\xAF"},
        {"slash in three bytes", "\xE0\x80\xAF", "\xE0\x80\xAF"},
        {"slash in four bytes", "\xF0\x80\x80\xAF", "\xF0\x80\x80\xAF"},
        {"half of a pair", "\xED\xA0\x80", "\xED\xA0\x80"},
        {"beyond the last character", "\xF4\x90\x80\x80", "\xF4\x90\x80\x80"},
        {"nothing", "", ""},
    };
    for (const Case& c : cases) EXPECT_EQ(FromUtf8(c.utf8), c.text) << c.why;
}

TEST(Text, UpperCaseKnowsTheLettersOfTheCodePage) {
    EXPECT_EQ(UpperCase("az{ \xE0\xFE\xF7\xDF \x9A\x9C\x9E\xFF"), "AZ{ \xC0\xDE\xF7\xDF \x8A\x8C\x8E\x9F");
    EXPECT_TRUE(EqualsIgnoringCase("Citt\xE0", "CITT\xC0"));
    EXPECT_FALSE(EqualsIgnoringCase("a", "ab"));
    EXPECT_FALSE(EqualsIgnoringCase("[", "{"));
    EXPECT_EQ(Trim("  a b \t "), "a b \t");
    EXPECT_EQ(Trim("   "), "");
}

}  // namespace platform
