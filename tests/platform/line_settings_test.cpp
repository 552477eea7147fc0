#include <gtest/gtest.h>

#include "platform/serial_port.h"

namespace platform {

TEST(LineSettings, EachFieldIsReadAndTheStopBitsCountInHalves) {
    struct Case {
        const char* text;
        LineSettings settings;
    };
    const Case cases[] = {
        {"38400,N,8,1", {38400, 'N', 8, 2}},
        {"4800,E,7,1.5", {4800, 'E', 7, 3}},
        {"19200,O,8,2", {19200, 'O', 8, 4}},
        {"1,N,5,1", {1, 'N', 5, 2}},
    };
    for (const Case& c : cases) {
        LineSettings read;
        ASSERT_TRUE(ReadLineSettings(c.text, read)) << c.text;
        EXPECT_EQ(read.baud, c.settings.baud) << c.text;
        EXPECT_EQ(read.parity, c.settings.parity) << c.text;
        EXPECT_EQ(read.dataBits, c.settings.dataBits) << c.text;
        EXPECT_EQ(read.halfStopBits, c.settings.halfStopBits) << c.text;
    }
}

TEST(LineSettings, ABadTextLeavesTheSettingsAlone) {
    for (const char* bad : {"19200,8,1", "19200,N,8,", "19200,N,8,1.25", "19200,,8,1", "19200,NN,8,1", "4000001,N,8,1",
                            "99999999999999999999,N,8,1", "19200,N,4,1", "19200,N,8.0,1", "19200,N,8,1 ", "+1,N,8,1"}) {
        LineSettings settings{7, 'O', 7, 4};
        EXPECT_FALSE(ReadLineSettings(bad, settings)) << bad;
        EXPECT_EQ(settings.baud, 7) << bad;
    }
}

}  // namespace platform
