#include "console/words.h"

#include <gtest/gtest.h>

namespace {

using console::SplitWords;
using console::WholeNumber;
using console::Words;

TEST(Words, AreSplitAtBlanksAndHeldTogetherByQuotes) {
    struct Case {
        const char* text;
        std::optional<Words> words;
    };
    const Case cases[] = {
        {"", Words{}},
        {"  \t ", Words{}},
        {"a  b\tc", Words{"a", "b", "c"}},
        {"Memorf Nome \"giro di prova\"", Words{"Memorf", "Nome", "giro di prova"}},
        {"\"\"", Words{""}},
        {"a \"\" b", Words{"a", "", "b"}},
        {"\"due \"\"virgolette\"\"\"", Words{"due \"virgolette\""}},
        {"5\" x", Words{"5\"", "x"}},  // a quote within a word is a sign as any other
        {"C:\\dati\\ \"C:\\mie mappe\\\"", Words{"C:\\dati\\", "C:\\mie mappe\\"}},
        {"\"not closed", std::nullopt},
        {"\"\"\"", std::nullopt},
        {"\"a\"b", std::nullopt},
    };
    for (const Case& c : cases) EXPECT_EQ(SplitWords(c.text), c.words) << c.text;
}

TEST(Words, NumbersAreWholeAndWithinTheLimit) {
    struct Case {
        const char* text;
        std::optional<long long> number;
    };
    const Case cases[] = {
        {"0", 0},
        {"-7", -7},
        {"100", 100},
        {"101", std::nullopt},
        {"-101", std::nullopt},
        {"", std::nullopt},
        {"1.5", std::nullopt},
        {"1 ", std::nullopt},
        {"0x10", std::nullopt},
        {"99999999999999999999", std::nullopt},
    };
    for (const Case& c : cases) EXPECT_EQ(WholeNumber(c.text, 100), c.number) << c.text;
}

}  // namespace
