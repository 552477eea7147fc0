#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "platform/real/real_files.h"
#include "platform/virtual/faulty_files.h"
#include "rig.h"
#include "sim/image.h"

namespace {

TEST(Scenario, ABadLineIsAnsweredWithAReasonAndChangesNothing) {
    const char* const lines[] = {
        "throttel 40",
        "throttle",
        "throttle 101",
        "throttle -1",
        "throttle forty",
        "throttle 40 over",
        "throttle 40 over soon",
        "throttle 40 in 3",
        "rpm 10000",
        "rpm",
        "switch red",
        "probe 3",
        "ignition maybe",
        "length 50",
        "rate 0",
        "rate 1001",
        "rate nan",
        "status 5 1",
        "status 0 1",
        "status 1 12",
        "field 4 1",
        "field STEP 1234",
        "field STEP \\x0",
        "cell Z 0 00",
        "cell O 4096 00",
        "cell O 3072 0",
        "cell O 99999999999 00",
        "read L 1020 5",
        "read L 0 0",
        "version \"01.04 A0012\"",
        "version \"01.04",
        "image",
        "image nowhere.mvn",
        "fault 10 on",
        "misbehave",
        "misbehave badly",
        "misbehave silence 3",
        "misbehave silence 0 times",
        "misbehave silence command Q",
        "misbehave silence command",
        "misbehave refuse command D",
        "misbehave slow 600001",
        "misbehave length at frame",
        "cable",
        "cable out after",
        "cable out after many",
        "cable in after 3",
        "send 0",
        "send",
        "send-text \\q",
        "count r",
        "log many",
        "play nothing.txt",
        "at",
        "at 3",
        "at soon throttle 3",
        "at -1 throttle 3",
        "at 3 throttel 3",
        "at 0.5 loop",
        "state now",
    };
    Rig rig;
    const std::string image = sim::ImageText(rig.unit.Cells());
    const auto state = [&] {
        std::string out;
        for (const auto& [key, value] : rig.Say("state").values) {
            if (const auto* number = std::get_if<std::int64_t>(&value)) out += key + std::to_string(*number) + ' ';
        }
        return out;
    };
    const std::string before = state();
    for (const char* line : lines) {
        const sim::Answer answer = rig.Say(line);
        EXPECT_FALSE(answer.ok) << line;
        EXPECT_FALSE(answer.error.empty()) << line;
        EXPECT_TRUE(answer.values.empty()) << line;
    }
    EXPECT_EQ(state(), before);
    EXPECT_EQ(sim::ImageText(rig.unit.Cells()), image);
    EXPECT_EQ(rig.Received(100), "");
    EXPECT_EQ(rig.Say("throttle 101").error, "throttle goes from 0 to 100");
    EXPECT_EQ(rig.Say("throttle").error, "usage: throttle PERCENT [over TIME]");
    EXPECT_EQ(rig.Say("throttel 40").error, "unknown command \"throttel\"");
    EXPECT_EQ(rig.Say("\xff\x01\"").error, "unknown command \"\\xFF\\x01\"\"");
}

TEST(Scenario, LinesRunAtTheirTimesAndCommentsAndBlanksCountForNothing) {
    Rig rig;
    const sim::Answer loaded = rig.unit.Load(
        "# a comment\r\n"
        "\n"
        "  temperature 30   # at once\r\n"
        "at 2 temperature 40\n"
        "at 1500ms temperature 35\n"
        "at 0:03 temperature 50\n"
        "at 4s temperature 60 over 2s\n");
    ASSERT_TRUE(loaded.ok) << loaded.error;
    const std::pair<int, int> course[] = {{0, 30},    {1500, 35}, {2000, 40}, {2999, 40}, {3000, 50},
                                          {4000, 50}, {5000, 55}, {6000, 60}, {9000, 60}};
    std::int64_t now = 0;
    for (const auto& [millis, degrees] : course) {
        rig.world.RunFor(millis - now);
        now = millis;
        EXPECT_EQ(rig.Figure("state", "temperature"), degrees) << millis;
    }
    rig.Say("at 1 temperature 70");  // counts from now
    rig.world.RunFor(999);
    EXPECT_EQ(rig.Figure("state", "temperature"), 60);
    rig.world.RunFor(1);
    EXPECT_EQ(rig.Figure("state", "temperature"), 70);
}

TEST(Scenario, AScenarioWithABadLineIsNotBegunAndALoopBeginsItsTimedLinesAgain) {
    Rig rig;
    const sim::Answer bad = rig.unit.Load("temperature 30\nat 1 temperature 40\n\nat 2 temperatur 50\n");
    EXPECT_EQ(bad.error, "line 4: unknown command \"temperatur\"");
    rig.world.RunFor(3000);
    EXPECT_EQ(rig.Figure("state", "temperature"), 85);

    ASSERT_TRUE(rig.unit.Load("level 100\nat 1 level 200\nat 2 level 300\nat 3 loop\n").ok);
    std::string levels;
    for (int i = 0; i < 8; ++i) {
        rig.world.RunFor(1000);
        levels += std::to_string(rig.Figure("state", "level")) + ' ';
    }
    EXPECT_EQ(levels, "200 300 300 200 300 300 200 300 ");
    ASSERT_TRUE(rig.unit.Load("level 500").ok);  // in place of the one that runs
    rig.world.RunFor(5000);
    EXPECT_EQ(rig.Figure("state", "level"), 500);
    EXPECT_EQ(rig.Figure("state", "waiting"), 0);
}

TEST(Scenario, LinesReadAndSetMemoryAndSendAnything) {
    Rig rig;
    EXPECT_EQ(rig.Text("cell O 3136 0320", "data"), "0320");
    EXPECT_EQ(rig.Text("read O 3135 4", "data"), "71032005");
    EXPECT_EQ(rig.Ask("O31360002"), "o0320");
    EXPECT_EQ(rig.Text("cell R 51", "data"), "04");  // a live copy follows the ignition or a reload alone
    rig.Say("reload");
    EXPECT_EQ(rig.Text("read R 51 2", "data"), "0320");
    rig.Say("fault 3 on");
    rig.Say("fault 9 on");
    EXPECT_EQ(rig.Ask("O39480012"), "oFFFF01FFFFFFFFFF01FFFFFF");
    rig.Say("version \"00.99\"");
    EXPECT_EQ(rig.Ask("X327680010"), "x30302E39392020202020");
    rig.Say("send 0244");
    EXPECT_EQ(rig.Received(),
              "\x02"
              "D");
    rig.Say("send-text \\x02Dnoise\\x03\\\\");
    EXPECT_EQ(rig.Received(),
              "\x02"
              "Dnoise\x03\\");
    rig.Say("image blank");
    EXPECT_EQ(rig.Figure("state", "programmed"), 0);
    EXPECT_EQ(rig.Ask("L00000004"), "lFFFFFFFF");
}

TEST(Scenario, TheUnitCountsAndKeepsWhatItSaw) {
    Rig rig;
    rig.Ask("L00000002");
    rig.Ask("L00020002");
    rig.Ask("Q");
    rig.line.Port().Output("noise");
    rig.world.RunFor(5);
    EXPECT_EQ(rig.Figure("count L", "count"), 2);
    EXPECT_EQ(rig.Figure("count R", "count"), 0);
    EXPECT_EQ(rig.Figure("counters", "bad"), 1);
    const auto frames = std::get<std::vector<std::string>>(rig.Say("log 3").values.front().second);
    EXPECT_EQ(frames, (std::vector<std::string>{"0 > \\x02L00020002\\x03", "0 < \\x02l033E\\x03", "0 > \\x02Q\\x03"}));
    EXPECT_EQ(rig.Figure("counters clear", "all"), 2);
    EXPECT_EQ(rig.Figure("counters", "all"), 0);
}

struct Folder {
    Folder() { std::filesystem::create_directories(path); }
    ~Folder() { std::filesystem::remove_all(path); }
    std::string Put(const std::string& name, const std::string& content) const {
        std::ofstream(path / name, std::ios::binary) << content;
        return '"' + (path / name).string() + '"';
    }
    std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("marlovent-sim-" + std::to_string(std::random_device{}()));
};

TEST(Scenario, AnImageFileTakesThePlaceOfTheMemory) {
    const Folder folder;
    platform::real::RealFiles files;
    Rig rig;
    EXPECT_FALSE(rig.Say("image some.mvn").ok);  // nobody lent it files
    rig.unit.UseFiles(files);
    sim::Memory other;
    other.Poke(sim::Area::Interna, 3136, {0x12, 0x34});
    const std::string text = sim::ImageText(other);
    ASSERT_TRUE(rig.Say("image " + folder.Put("a.mvn", text)).ok);
    EXPECT_EQ(sim::ImageText(rig.unit.Cells()), text);
    EXPECT_EQ(rig.Ask("R00510002"), "r1234");
    EXPECT_FALSE(rig.Say("image " + folder.Put("b.mvn", text + "\r\n")).ok);
    EXPECT_EQ(sim::ImageText(rig.unit.Cells()), text);
}

TEST(Scenario, ARecordedSessionIsPlayedAtItsOwnTimes) {
    const Folder folder;
    platform::real::RealFiles files;
    const std::string session =
        "# a session\n"
        "120000 < \\x02D1\\x03\n"
        "120030 > \\x02X327680010\\x03\n"
        "120050 < \\x02x41\\x03\n"
        "120100 < \\x02D2\\x03\r\n";
    const std::string name = folder.Put("session.txt", session);
    {
        Rig rig;
        rig.unit.UseFiles(files);
        rig.Say("stream on");
        const sim::Answer answer = rig.Say("play " + name);
        ASSERT_TRUE(answer.ok) << answer.error;
        EXPECT_EQ(std::get<std::int64_t>(answer.values[0].second), 3);
        EXPECT_EQ(rig.Received(1), sim::Framed("D1"));
        EXPECT_EQ(rig.Ask("R01270001", 48), "");  // the session speaks, not the unit
        EXPECT_EQ(rig.Received(1), sim::Framed("x41"));
        EXPECT_EQ(rig.Received(49), "");
        EXPECT_EQ(rig.Received(1), sim::Framed("D2"));
        EXPECT_EQ(rig.Frames(500).size(), 5U);  // then the unit itself again
        EXPECT_EQ(rig.Ask("R01270001"), "r00");
    }
    {
        Rig rig;
        rig.unit.UseFiles(files);
        rig.Say("stream on");
        ASSERT_TRUE(rig.Say("play " + name + " live").ok);
        rig.line.Port().Output(sim::Framed("R01270001"));
        EXPECT_EQ(rig.Received(1), sim::Framed("r00") + sim::Framed("D1"));
        EXPECT_EQ(rig.Received(60), "");
        ASSERT_TRUE(rig.Say("play stop").ok);
        EXPECT_EQ(rig.Received(30), "");
    }
    for (const char* bad : {"x < \\x02\\x03", "1 = \\x02", "1 <", "5 < a\n4 < b", "1 < \\x0"}) {
        Rig rig;
        rig.unit.UseFiles(files);
        EXPECT_FALSE(rig.Say("play " + folder.Put("bad.txt", bad)).ok) << bad;
    }
}

TEST(Scenario, TheScenariosThatShipCanBeRun) {
    platform::real::RealFiles files;
    std::size_t seen = 0;
    for (const auto& entry : std::filesystem::directory_iterator(MARLOVENT_DATA "/scenarios")) {
        Rig rig;
        rig.unit.UseFiles(files);
        const auto text = files.Read(entry.path(), platform::Files::DefaultLimit);
        ASSERT_TRUE(text.has_value());
        const sim::Answer answer = rig.unit.Load(*text);
        EXPECT_TRUE(answer.ok) << entry.path() << ": " << answer.error;
        rig.world.RunFor(600 * 1000);
        EXPECT_GE(rig.Figure("state", "temperature"), 0);
        ++seen;
    }
    EXPECT_GE(seen, 4U);
}

}  // namespace
