#include "link/frames/build.h"

#include <gtest/gtest.h>

namespace frames {

TEST(Frames, CarryAddressAndCountInFourDigits) {
    EXPECT_EQ(ReadFrame('L', 1024, 32), "\x02L10240032\x03");
    EXPECT_EQ(WriteFrame('W', 127, 1, "00"), "\x02W0127000100\x03");
    EXPECT_EQ(ReadFrame('R', 0, 0), "\x02R00000000\x03");
    EXPECT_EQ(ReadFrame('O', 4095, 9999), "\x02O40959999\x03");
    EXPECT_EQ(ReadFrame('R', 12345, 32), "\x02R23450032\x03");  // high digits are lost without a word
    EXPECT_EQ(IdentityFrame(), "\x02X327680010\x03");
}

TEST(Frames, AreTakenOffAChainOneByOne) {
    const std::string chain = ReadFrame('L', 0, 2) + ReadFrame('O', 3072, 2);
    EXPECT_EQ(FirstFrame(chain), ReadFrame('L', 0, 2));
    EXPECT_EQ(FirstFrame("\x02half"), "\x02half");
    EXPECT_EQ(FirstFrame(""), "");
}

TEST(Frames, FillDataToWholeWords) {
    EXPECT_EQ(PareggiaF(""), "");
    EXPECT_EQ(PareggiaF("12"), "12FF");
    EXPECT_EQ(PareggiaF("123"), "123F");
    EXPECT_EQ(PareggiaF("1234"), "1234");
    EXPECT_EQ(PareggiaF("123456"), "123456FF");
}

TEST(Frames, ShowTheirPayloadHoweverShortTheyAre) {
    EXPECT_EQ(Payload("\x02r0102\x03"), "0102");
    EXPECT_EQ(Payload("\x02r\x03"), "");
    EXPECT_EQ(Payload("\x02r"), "");
    EXPECT_EQ(Payload("\x02"), "");
    EXPECT_TRUE(IsOk("\x02wok\x03"));
    for (const char* refusal : {"\x02wno\x03", "\x02wOK\x03", "\x02wo\x03", "\x02w\x03", "\x02", ""}) {
        EXPECT_FALSE(IsOk(refusal)) << refusal;
    }
}

}  // namespace frames
