#include "common/options.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

using common::CommandLine;
using common::FrontEnd;
using common::ReadCommandLine;
using common::Reading;
using Arguments = std::vector<std::string>;

TEST(Options, EachIsUnderstood) {
    const Reading reading =
        ReadCommandLine(FrontEnd::Console, {"--folder", "here", "--port", "COM1=/dev/ttyUSB0", "--port=com10=COM3",
                                            "--virtual-time", "--simulate", "--variant", "avx", "--trace", "t.txt"});
    ASSERT_TRUE(reading.line) << reading.message;
    const CommandLine& line = *reading.line;
    const platform::Path here = std::filesystem::current_path();
    EXPECT_EQ(line.folder, here / "here");
    EXPECT_EQ(line.ports, (std::map<int, std::string>{{1, "/dev/ttyUSB0"}, {10, "COM3"}}));
    EXPECT_TRUE(line.simulate);
    EXPECT_FALSE(line.scenario);
    EXPECT_TRUE(line.virtualTime);
    EXPECT_EQ(line.variant, shell::Variant::Avx);
    EXPECT_EQ(line.trace, here / "t.txt");
    EXPECT_EQ(ReadCommandLine(FrontEnd::Console, {"--port", "COM1=./pty"}).line->ports.at(1), here / "pty");
    EXPECT_EQ(ReadCommandLine(FrontEnd::Console, {"--port", "COM1=ttyUSB0"}).line->ports.at(1), "ttyUSB0");

    EXPECT_EQ(ReadCommandLine(FrontEnd::Console, {"--simulate", "drive.scn"}).line->scenario, "drive.scn");
    EXPECT_TRUE(ReadCommandLine(FrontEnd::Desktop, {"--console"}).line->console);
    EXPECT_FALSE(ReadCommandLine(FrontEnd::Desktop, {}).line->simulate);
}

TEST(Options, BadOnesEndWithStatusTwoAndOneLine) {
    struct Case {
        FrontEnd frontEnd;
        Arguments arguments;
    };
    const FrontEnd c = FrontEnd::Console;
    const Case cases[] = {
        {c, {"--unknown"}},
        {c, {"stray"}},
        {c, {"--folder"}},
        {c, {"--folder", ""}},
        {c, {"--trace="}},
        {c, {"--port"}},
        {c, {"--port", ""}},
        {c, {"--port", "COM1"}},
        {c, {"--port", "COM1="}},
        {c, {"--port", "COM0=/dev/x"}},
        {c, {"--port", "COM11=/dev/x"}},
        {c, {"--port", "COM01=/dev/x"}},
        {c, {"--port", "COM1x=/dev/x"}},
        {c, {"--port", "LPT1=/dev/x"}},
        {c, {"--port", "COM99999999999=/dev/x"}},
        {c, {"--virtual-time"}},
        {c, {"--variant", "LPG"}},
        {c, {"--variant", ""}},
        {c, {"--variant", "two\nlines"}},
        {c, {"--console"}},
        {FrontEnd::Desktop, {"--simulate", "--virtual-time"}},
    };
    for (const Case& bad : cases) {
        const Reading reading = ReadCommandLine(bad.frontEnd, bad.arguments);
        const std::string shown = ::testing::PrintToString(bad.arguments);
        EXPECT_FALSE(reading.line) << shown;
        EXPECT_EQ(reading.exitStatus, 2) << shown;
        EXPECT_FALSE(reading.message.empty()) << shown;
        EXPECT_EQ(reading.message.find('\n'), std::string::npos) << reading.message;
    }
}

TEST(Options, HelpAndVersionEndWithStatusZero) {
    const Reading version = ReadCommandLine(FrontEnd::Desktop, {"--version"});
    EXPECT_FALSE(version.line);
    EXPECT_EQ(version.exitStatus, 0);
    EXPECT_EQ(version.message, "marlovent 1.00");

    const Reading help = ReadCommandLine(FrontEnd::Console, {"--help"});
    EXPECT_EQ(help.exitStatus, 0);
    for (const char* option : {"--folder", "--port", "--simulate", "--virtual-time", "--variant", "--trace"}) {
        EXPECT_NE(help.message.find(option), std::string::npos) << option;
    }
}

}  // namespace
