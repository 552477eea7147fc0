#include "link/frames/numbers.h"

#include <gtest/gtest.h>

#include <limits>

namespace frames {

TEST(Numbers, ReadTheLeadingNumberOfWhateverStandsInAField) {
    struct Case {
        std::string text;
        double value;
    };
    for (const Case& c : std::initializer_list<Case>{
             {"", 0},
             {"   ", 0},
             {"850", 850},
             {"  850", 850},
             {"-12", -12},
             {"+12", 12},
             {"1,5", 1.5},
             {"1.5", 1.5},
             {"1,5,7", 1.5},
             {"1.234,5", 1.234},
             {",5", 0.5},
             {"-,5", -0.5},
             {"5.", 5},
             {"12abc", 12},
             {"abc12", 0},
             {"-", 0},
             {".", 0},
             {"--5", 0},
             {"1e3", 1},
             {"0x10", 0},
             {"inf", 0},
             {"nan", 0},
             {"&H1F", 31},
             {"&hff", 255},
             {"  &H0A", 10},
             {"&H", 0},
             {"&HG1", 0},
             {"&HFFFFFFFF", 4294967295.0},
             {"&HFFFFFFFFF", 4294967295.0},
             {"****", 0},
         }) {
        EXPECT_EQ(ValoreNum(c.text), c.value) << '"' << c.text << '"';
    }
    EXPECT_GE(ValoreNum(std::string(5000, '9')), 0);  // must only not fail
}

TEST(Numbers, CallATextNumericOnlyWhenAllOfItIsOneNumber) {
    for (const char* text : {"0", " 850", "850 ", "-3", "+3", "1,5", "1.5", "5.", ",5"}) {
        EXPECT_TRUE(IsNumeric(text)) << text;
    }
    for (const char* text : {"", "    ", "-", ".", ",", "1.5,2", "1,5,2", "12a", "1 2", "- 3", "&H10", "1e3", "****"}) {
        EXPECT_FALSE(IsNumeric(text)) << text;
    }
    EXPECT_FALSE(IsNumeric(std::string_view("1\t", 2)));
    EXPECT_FALSE(IsNumeric(std::string_view("1\0", 2)));
}

TEST(Numbers, ReadHexadecimalPairsAndSayWhenTheyLeaveThirtyTwoBits) {
    struct Case {
        const char* text;
        std::optional<std::int32_t> value;
    };
    for (const Case& c : {Case{"", 0}, Case{"0A", 10}, Case{"0a", 10}, Case{"0102", 258}, Case{"F", 15},
                          Case{"012", 258}, Case{"7FFFFFFF", 2147483647}, Case{"80000000", std::nullopt},
                          Case{"FFFFFFFFFF", std::nullopt}, Case{"ZZ", 0}}) {
        EXPECT_EQ(HexInt(c.text), c.value) << c.text;
    }
}

TEST(Numbers, MakeACharacterOfAPairAndNothingOfABadOne) {
    EXPECT_EQ(HexChr("41"), "A");
    EXPECT_EQ(HexChr("e9"), "\xE9");
    EXPECT_EQ(HexChr("00"), std::string(1, '\0'));
    for (const char* bad : {"", "4", "4G", "G4", "-1", " 1", "414"}) EXPECT_EQ(HexChr(bad), "") << bad;
}

TEST(Numbers, SumTheWordsOfAMemoryText) {
    EXPECT_EQ(SommaParole(""), 0);
    EXPECT_EQ(SommaParole("00010002"), 3);
    EXPECT_EQ(SommaParole("FFFFFFFF"), 131070);
    EXPECT_EQ(SommaParole("0001FF"), 1 + 0xFF * 256);  // a last half word stands for its high byte
    std::string image;
    for (int i = 0; i < 1024; ++i) image += "FFFF";
    EXPECT_EQ(SommaParole(image), 1024.0 * 65535);  // beyond 16 bits, where a word would wrap
}

TEST(Numbers, WriteWholeNumbersWithHalvesAwayFromZero) {
    struct Case {
        double value;
        const char* text;
    };
    for (const Case& c :
         {Case{0, "0"}, Case{-0.4, "0"}, Case{0.5, "1"}, Case{2.5, "3"}, Case{-2.5, "-3"}, Case{1234567, "1234567"},
          Case{std::numeric_limits<double>::infinity(), "0"}, Case{std::numeric_limits<double>::quiet_NaN(), "0"}}) {
        EXPECT_EQ(Format0(c.value), c.text);
    }
    EXPECT_EQ(Format0(1e300), "9000000000000000");
}

TEST(Numbers, RoundHalvesToTheEvenNeighbourWhereNoFormatDoes) {
    for (const auto& [value, rounded] :
         {std::pair{0.5, 0.0}, {1.5, 2.0}, {2.5, 2.0}, {-0.5, 0.0}, {-1.5, -2.0}, {2.4999, 2.0}, {2.5001, 3.0}}) {
        EXPECT_EQ(RoundHalfEven(value), rounded) << value;
    }
}

TEST(Numbers, ScaleWithinTheirRange) {
    EXPECT_EQ(ScalaValore(1023, 1023, 255, true), 255);
    EXPECT_EQ(ScalaValore(2000, 1023, 255, true), 255);
    EXPECT_EQ(ScalaValore(-5, 1023, 255, true), 0);
    EXPECT_EQ(ScalaValore(600, 1023, 255, true), 150);  // 149.56
    EXPECT_DOUBLE_EQ(ScalaValore(600, 1023, 255, false), 600 * 255.0 / 1023);
    EXPECT_EQ(Scala(600, 1023, 255, true), 149);
    EXPECT_EQ(Scala(2000, 1023, 255, true), 255);
    EXPECT_EQ(Scala(2000, 1023, 255, false), 498);
}

TEST(Numbers, StandAgainstTheRightEdgeOfTheirField) {
    EXPECT_EQ(RightAlign("12", 4), "  12");
    EXPECT_EQ(RightAlign("12345", 4), "2345");
    EXPECT_EQ(Hex(0xAB, 1), "AB");
    EXPECT_EQ(Hex(0xAB, 2), "00AB");
    EXPECT_EQ(Hex(0x12345, 2), "2345");
}

}  // namespace frames
