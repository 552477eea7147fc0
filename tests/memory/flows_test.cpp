#include "memory/flows.h"

#include <gtest/gtest.h>

#include "link/frames/numbers.h"
#include "link/transaction.h"
#include "memory/image.h"
#include "memory/image_cells.h"
#include "support/simulated.h"

namespace {

using eculink::Idle;
using memory::Flow;
using shell::True;
using support::Simulated;

// A unit that has been recognised, and a count of how the flow told its end.
struct Connected : Simulated {
    explicit Connected(const char* before = "image programmed") {
        Sim(before);
        if (!Connect()) throw std::runtime_error("the unit was not recognised");
        for (const Flow flow : {Flow::Inspector, Flow::Archive, Flow::Programming}) {
            memory::FlowEvents& events = memory::EventsOf(program.memory, flow);
            events.done = [this] { ++done; };
            events.refused = [this] { ++refused; };
            events.silent = [this](int state) { silent = state; };
            events.progress = [this](int address) { lastAddress = address; };
        }
        host.line.ForgetSent();
    }
    bool Finish() {
        return RunUntil([this] { return program.link.state.StatoCmd == Idle; }, 120000);
    }
    // The frames sent since the last forgetting, without STX and ETX.
    std::vector<std::string> Sent() const {
        std::vector<std::string> frames;
        std::string_view rest = host.line.Sent();
        while (!rest.empty()) {
            const std::size_t end = rest.find('\x03');
            if (end == std::string_view::npos) break;
            frames.emplace_back(rest.substr(1, end - 1));
            rest.remove_prefix(end + 1);
        }
        return frames;
    }
    int Byte(sim::Area area, int address) { return unit.Cells().Byte(area, address); }
    memory::Memory& Room() { return program.memory; }
    platform::Path File(const char* name) const { return folder.Path() / name; }

    int done = 0;
    int refused = 0;
    int silent = 0;
    int lastAddress = -1;
};

std::string WholeImage(const char* marker) {
    std::string image;
    for (int byte = 0; byte < 2 * memory::AreaBytes; ++byte)
        image += frames::Hex(static_cast<std::uint32_t>(byte % 250), 1);
    memory::SetCella(image, memory::MarkerCell, marker);
    return image;
}

TEST(Flows, TheInspectorsReadFillsOneFileInLongFrames) {
    Connected c;
    c.files.Write(c.File("FILEEEPROM.DAT"), "left over");
    ASSERT_TRUE(memory::StartInspectorRead(c.Room()));
    EXPECT_EQ(c.program.link.state.StatoCmd, 70);
    EXPECT_EQ(c.program.link.state.ByteRestanti, 992);
    EXPECT_FALSE(memory::StartInspectorRead(c.Room())) << "one transaction at a time";
    ASSERT_TRUE(c.Finish());
    EXPECT_EQ(c.done, 1);
    EXPECT_EQ(c.files.Size(c.File("FILEEEPROM.DAT")), memory::ImageFileSize);
    const auto sent = c.Sent();
    ASSERT_EQ(sent.size(), 64U);
    EXPECT_EQ(sent.front(), "L00000032");
    EXPECT_EQ(sent[31], "L09920032");
    EXPECT_EQ(sent[32], "O30720032");
    EXPECT_EQ(sent.back(), "O40640032");
    EXPECT_EQ(memory::LeggiImmagine(c.files, c.File("FILEEEPROM.DAT")), c.program.tuning.image);
    EXPECT_TRUE(c.program.link.timers.TimeOutDati->Enabled());
}

TEST(Flows, SavingFilesTheImageAndMakesItsFolders) {
    Connected c;
    const auto target = c.folder.Path() / "ARCHIVI" / "EEPROM" / "FIAT" / "PUNTO" / "A.MVN";
    ASSERT_TRUE(memory::StartArchiveRead(c.Room(), target));
    ASSERT_TRUE(c.Finish());
    const auto sent = c.Sent();
    ASSERT_EQ(sent.size(), 128U);
    EXPECT_EQ(sent.front(), "L00000016");
    EXPECT_EQ(sent[64], "O30720016");
    EXPECT_EQ(c.files.Size(target), memory::ImageFileSize);
    EXPECT_EQ(memory::LeggiImmagine(c.files, target), c.program.tuning.image);
    EXPECT_FALSE(c.files.Exists(c.File("FILEEE1.APP")));
    EXPECT_EQ(c.done, 1);
}

TEST(Flows, ProgrammingWritesTheMarkerLastAndNeverTheCellsThatSayWhoTheUnitIs) {
    Connected c;
    c.Sim("cell O 4074 FFFFFFFFFFFF");
    c.program.memory.state.ScriviData = True;
    c.files.Write(c.File("X.MVN"),
                  memory::ImageText({WholeImage("1234").substr(0, 2048), WholeImage("1234").substr(2048)}));
    c.files.Write(c.File("APPACQ.AMP"), "log");
    c.files.Write(c.File((c.Room().state.CodiceAcq + ".AMP").c_str()), "log");
    std::vector<int> identity;
    for (int address = 4016; address < 4096; ++address) identity.push_back(c.Byte(sim::Area::Interna, address));
    const int beeps = c.program.shell.state.beeps;
    ASSERT_EQ(memory::LoadForProgramming(c.Room(), c.File("X.MVN")), memory::ImageProblem::None);
    ASSERT_TRUE(memory::StartProgramming(c.Room()));
    ASSERT_TRUE(c.Finish());
    const auto sent = c.Sent();
    ASSERT_EQ(sent.size(), 32U + 59U + 1U + 1U);
    EXPECT_EQ(sent[0], "I00000016000102030405060708090A0B0C0D0E0F");
    EXPECT_EQ(sent[31].substr(0, 9), "I04960016");
    EXPECT_EQ(sent[32].substr(0, 9), "S30740014");
    EXPECT_EQ(sent[33].substr(0, 9), "S30880016");
    EXPECT_EQ(sent[90].substr(0, 9), "S40000016");
    EXPECT_EQ(sent[91], "S307200021234");
    EXPECT_EQ(sent[92], "S40740006" + memory::DateStamp(c.host.world.Now()));
    for (int address = 4016; address < 4074; ++address) {
        EXPECT_EQ(c.Byte(sim::Area::Interna, address), identity[static_cast<std::size_t>(address - 4016)]) << address;
    }
    EXPECT_EQ(c.Byte(sim::Area::Interna, 3808), 0) << "the adaptation is never restored";
    EXPECT_EQ(c.Byte(sim::Area::Interna, 4015), (1024 + 943) % 250);
    EXPECT_FALSE(c.files.Exists(c.File("APPACQ.AMP")));
    EXPECT_FALSE(c.files.Exists(c.File((c.Room().state.CodiceAcq + ".AMP").c_str())));
    EXPECT_EQ(c.program.shell.state.beeps, beeps + 1);
    EXPECT_EQ(c.done, 1);
}

TEST(Flows, AValidDateIsNeverOverwritten) {
    Connected c;
    c.program.memory.state.ScriviData = shell::False;
    c.program.memory.state.ImmagineEE = WholeImage("FFFF");
    ASSERT_TRUE(memory::StartProgramming(c.Room()));
    ASSERT_TRUE(c.Finish());
    EXPECT_EQ(c.Sent().back(), "S30720002FFFF") << "a blank image leaves a blank unit";
}

TEST(Flows, WhatIsNoImageIsNeverSent) {
    Connected c;
    const std::string good = memory::ImageText({WholeImage("0000").substr(0, 2048), WholeImage("0000").substr(2048)});
    std::string notHex = good;
    notHex[10] = 'g';
    std::string lineFeeds;
    for (const char ch : good) {
        if (ch != '\r') lineFeeds += ch;
    }
    struct Row {
        const char* name;
        std::string content;
    };
    for (const Row& row : {Row{"short", good.substr(1)}, Row{"long", good + " "}, Row{"unix", lineFeeds},
                           Row{"not hex", notHex}, Row{"empty", ""}}) {
        c.files.Write(c.File("B.MVN"), row.content);
        EXPECT_EQ(memory::LoadForProgramming(c.Room(), c.File("B.MVN")), memory::ImageProblem::WrongSize) << row.name;
        EXPECT_FALSE(memory::StartProgramming(c.Room())) << row.name;
    }
    EXPECT_EQ(memory::LoadForProgramming(c.Room(), c.File("NONE.MVN")), memory::ImageProblem::Missing);
    EXPECT_TRUE(c.Sent().empty());
}

// What a problem leaves behind must never be sent: not the image that was loaded before, not while another flow runs.
TEST(Flows, AnImageThatCannotBeLoadedLeavesNothingToBeSent) {
    Connected c;
    const std::string good = memory::ImageText({WholeImage("0000").substr(0, 2048), WholeImage("0000").substr(2048)});
    c.files.Write(c.File("GOOD.MVN"), good);
    ASSERT_EQ(memory::LoadForProgramming(c.Room(), c.File("GOOD.MVN")), memory::ImageProblem::None);
    EXPECT_NE(memory::LoadForProgramming(c.Room(), c.File("NONE.MVN")), memory::ImageProblem::None);
    EXPECT_EQ(c.Room().state.ImmagineEE, "");
    EXPECT_FALSE(memory::StartProgramming(c.Room()));
    EXPECT_TRUE(c.Sent().empty());

    ASSERT_EQ(memory::LoadForProgramming(c.Room(), c.File("GOOD.MVN")), memory::ImageProblem::None);
    ASSERT_TRUE(memory::StartProgramming(c.Room()));
    const std::string loaded = c.Room().state.ImmagineEE;
    EXPECT_NE(memory::LoadForProgramming(c.Room(), c.File("NONE.MVN")), memory::ImageProblem::None);
    EXPECT_EQ(c.Room().state.ImmagineEE, loaded) << "the flow that runs goes on with its own image";
    ASSERT_TRUE(c.Finish());
    EXPECT_EQ(c.done, 1);
}

// Whether the date must be stamped is known of a unit that has been read, and of no other.
TEST(Flows, AUnitThatHasNotBeenReadIsNotProgrammed) {
    Simulated s;
    s.Sim("cable out");
    ASSERT_TRUE(s.Start());
    memory::Memory& room = s.program.memory;
    const std::string image = WholeImage("0000");
    s.files.Write(s.folder.Path() / "A.MVN", memory::ImageText({image.substr(0, 2048), image.substr(2048)}));
    EXPECT_NE(memory::LoadForProgramming(room, s.folder.Path() / "A.MVN"), memory::ImageProblem::None);
    room.state.ImmagineEE = image;
    EXPECT_FALSE(memory::StartProgramming(room));
    EXPECT_EQ(s.host.line.Sent(), "");
    EXPECT_EQ(s.program.link.state.StatoCmd, Idle);
}

// Menus and toolbar rest while a flow that a menu has started owns the link, and come back however it ends.
TEST(Flows, TheMenusAreOffAsLongAsALongFlowRuns) {
    using Start = bool (*)(Connected&);
    constexpr std::array<Start, 3> Starts{{
        [](Connected& c) { return memory::StartArchiveRead(c.Room(), c.folder.Path() / "A.MVN"); },
        [](Connected& c) {
            return (c.Room().state.ImmagineEE = WholeImage("0000"), memory::StartProgramming(c.Room()));
        },
        [](Connected& c) { return memory::StartErasing(c.Room()); },
    }};
    for (const char* how :
         {"", "misbehave refuse command all at frame 3", "misbehave silence command all at frame 3"}) {
        for (const bool blank : {false, true}) {
            for (const Start start : Starts) {
                Connected c(blank ? "image blank" : "image programmed");
                shell::Marlovent& main = c.program.shell.main;
                const pages::Reason tuning = main.Item(shell::MenuId::MainMenu, 3).why;
                if (*how != '\0') c.Sim(how);
                ASSERT_TRUE(start(c));
                EXPECT_EQ(main.Item(shell::MenuId::MainMenu, 0).why, pages::Reason::LongOperation);
                EXPECT_EQ(main.Tool("OFFLINE").why, pages::Reason::LongOperation);
                EXPECT_FALSE(c.program.link.grafici.Enabled());
                ASSERT_TRUE(c.Finish());
                EXPECT_EQ(main.Item(shell::MenuId::MainMenu, 0).why, pages::Reason::None) << how;
                EXPECT_EQ(main.Tool("OFFLINE").why, pages::Reason::None) << how;
                EXPECT_TRUE(c.program.link.grafici.Enabled()) << how;
                EXPECT_EQ(main.Item(shell::MenuId::MainMenu, 3).why, tuning) << "a blank unit keeps its own menus";
            }
        }
    }
}

// A recognition takes over from a flow that asked a dead line: its menus count.
TEST(Flows, TheMenusComeBackWhenAUnitTakesOverFromAFlow) {
    Simulated s;
    s.Sim("cable out");
    ASSERT_TRUE(s.Start());
    ASSERT_TRUE(memory::StartErasing(s.program.memory));
    s.Run(500);
    s.Sim("cable in");
    ASSERT_TRUE(s.RunUntil([&] { return s.program.link.state.StatoCmd == 80; }, 3000));
    EXPECT_EQ(s.program.shell.main.Item(shell::MenuId::MainMenu, 0).why, pages::Reason::None);
    EXPECT_TRUE(s.program.link.grafici.Enabled());
}

TEST(Flows, ErasingAsksTwiceAndKeepsTheCellsThatSayWhoTheUnitIs) {
    Connected c;
    memory::InEEPROM& page = c.Room().inEEPROM;
    pages::PageStack& stack = c.program.shell.stack;
    shell::PressTool(c.program.shell, "EEPROM_SETUP");
    ASSERT_TRUE(page.IsOpen());
    EXPECT_EQ(page.Segnalazione.Text(), c.Text("SEGNALAZIONE_4", "INEEPROM"));
    EXPECT_EQ(page.Focus(), &page.Esci) << "Enter must not erase";
    EXPECT_FALSE(stack.Press(page.TastoSI).ok);
    ASSERT_TRUE(stack.Press(page.Inizializza).ok);
    EXPECT_EQ(page.Segnalazione.Text(), c.Text("SEGNALAZIONE_5", "INEEPROM"));
    EXPECT_EQ(page.Focus(), &page.Esci);
    const int date = c.Byte(sim::Area::Interna, 4074);
    ASSERT_TRUE(stack.Press(page.TastoSI).ok);
    EXPECT_FALSE(page.Enabled());
    EXPECT_EQ(page.Segnalazione.Text(), c.Text("SEGNALAZIONE_3", "INEEPROM") + " 0)");
    int percent = 0;
    while (c.program.link.state.StatoCmd != eculink::Idle) {
        c.Run(100);
        EXPECT_GE(std::stoi(page.Avanzamento.Text()), percent) << "the bar never runs back";
        percent = std::stoi(page.Avanzamento.Text());
    }
    EXPECT_EQ(percent, 99) << "the marker comes last";
    const auto sent = c.Sent();
    ASSERT_EQ(sent.size(), 64U + 59U + 1U);
    EXPECT_EQ(sent[0], "I00000016" + std::string(32, 'F'));
    EXPECT_EQ(sent[63], "I10080016" + std::string(32, 'F'));
    EXPECT_EQ(sent[64], "S30740014" + std::string(28, 'F'));
    EXPECT_EQ(sent.back(), "S30720002FFFF");
    EXPECT_EQ(c.Byte(sim::Area::Interna, 4015), 255);
    EXPECT_EQ(c.Byte(sim::Area::Interna, 4074), date);
    EXPECT_EQ(page.Segnalazione.Text(), c.Text("SEGNALAZIONE_1", "INEEPROM"));
    EXPECT_TRUE(page.Enabled() && page.Inizializza.Visible() && !page.TastoSI.Visible());
    stack.Press(page.Esci);
    EXPECT_FALSE(page.IsOpen());
}

TEST(Flows, ErasingThatCannotBeginSaysSo) {
    Connected c;
    memory::InEEPROM& page = c.Room().inEEPROM;
    shell::PressTool(c.program.shell, "EEPROM_SETUP");
    EXPECT_EQ(page.MessaggioSel.Text(), c.Text("MESSAGGIOSEL", "INEEPROM"))
        << "what the page is about, in its own words";
    EXPECT_EQ(page.Title(), c.Text("TOOLTIP", "EEPROM_SETUP"));
    c.program.shell.stack.Press(page.Inizializza);
    ASSERT_TRUE(memory::StartInspectorRead(c.Room()));
    ASSERT_TRUE(c.program.shell.stack.Press(page.TastoSI).ok);
    EXPECT_EQ(page.Segnalazione.Text(), c.Text("SEGNALAZIONE_2", "INEEPROM"));
    EXPECT_TRUE(page.Enabled() && page.Inizializza.Visible());
    ASSERT_TRUE(c.Finish());
    EXPECT_EQ(c.unit.Seen().Of('I'), 0);
}

TEST(Flows, WithNoImageErasingOpensNothing) {
    Simulated s;
    s.Sim("cable out");
    ASSERT_TRUE(s.Start());
    shell::PressTool(s.program.shell, "EEPROM_SETUP");
    EXPECT_FALSE(s.program.memory.inEEPROM.IsOpen());
    EXPECT_EQ(s.program.shell.messaggio.Segnalazione.Text(), s.Text("SEGNALAZIONE_1", "MARLOVENT"));
    EXPECT_EQ(s.program.shell.messaggio.Title(), s.Text("TITOLO_2", "ERRORI"));
}

// How each flow ends when the unit refuses or is silent at a certain frame.
TEST(Flows, RefusalAndSilenceEndEveryWriteWithAUsablePage) {
    struct Row {
        int frame;        // 1 is the first one
        const char* how;  // of the misbehaviour
        const char* words;
        int beeps;
    };
    // 64 frames in the first area, 59 in the second, the marker.
    for (const Row& row :
         {Row{1, "refuse", "SEGNALAZIONE_2", 0}, Row{65, "refuse", "SEGNALAZIONE_2", 0},
          Row{124, "refuse", "SEGNALAZIONE_2", 0}, Row{1, "silence", "SEGNALAZIONE_6", 1},
          Row{64, "silence", "SEGNALAZIONE_6", 1}, Row{65, "silence", nullptr, 0}, Row{124, "silence", nullptr, 0}}) {
        Connected c;
        memory::InEEPROM& page = c.Room().inEEPROM;
        c.program.shell.stack.OpenPage(page, true);
        c.Sim(std::string("misbehave ") + row.how + " command all once at frame " + std::to_string(row.frame));
        const int beeps = c.program.shell.state.beeps;
        page.Inizializza.onPress();
        page.TastoSI.onPress();
        ASSERT_TRUE(c.Finish());
        EXPECT_EQ(c.Sent().size(), static_cast<std::size_t>(row.frame)) << "nothing is sent behind the fault";
        if (row.words != nullptr) {
            EXPECT_EQ(page.Segnalazione.Text(), c.Text(row.words, "INEEPROM")) << row.how << row.frame;
        } else {
            EXPECT_EQ(page.Segnalazione.Text().substr(0, 5), c.Text("SEGNALAZIONE_3", "INEEPROM").substr(0, 5));
        }
        const bool refused = row.how == std::string("refuse");
        EXPECT_EQ(page.Segnalazione.GetTone(), refused ? pages::Tone::Refused : pages::Tone::Failed) << row.frame;
        EXPECT_EQ(c.program.shell.state.beeps, beeps + row.beeps) << row.how << row.frame;
        EXPECT_TRUE(page.Enabled() && page.Inizializza.Visible() && !page.TastoSI.Visible()) << row.how << row.frame;
        EXPECT_TRUE(c.program.link.timers.TimeOutDati->Enabled());
        EXPECT_EQ(c.program.shell.state.pointer, shell::Pointer::Normal);
    }
}

TEST(Flows, ADiskThatFailsEndsLikeSilence) {
    Connected c;
    ASSERT_TRUE(memory::StartArchiveRead(c.Room(), c.folder.Path() / "A.MVN"));
    c.host.files.FailNth(3, true);
    ASSERT_TRUE(c.RunUntil([&] { return c.silent != 0; }, 3000)) << "200 ms, not the 5 s of a silent unit";
    EXPECT_EQ(c.silent, 95);
    EXPECT_EQ(c.done, 0);
    EXPECT_EQ(c.program.link.state.StatoCmd, Idle);
}

TEST(Flows, AShortReplyFillsItsLinesWithWhatItHas) {
    Connected c;
    c.Sim("misbehave cut command L once at frame 1");
    ASSERT_TRUE(memory::StartInspectorRead(c.Room()));
    c.Finish();
    const auto size = c.files.Size(c.File("FILEEEPROM.DAT"));
    EXPECT_NE(size, memory::ImageFileSize) << "the file is refused later, for its size";
}

TEST(Flows, AReplyAfterTheLimitIsDropped) {
    Connected c;
    c.Sim("misbehave slow 5300 command L once");
    ASSERT_TRUE(memory::StartInspectorRead(c.Room()));
    ASSERT_TRUE(c.Finish());
    EXPECT_EQ(c.silent, 70);
    c.Run(2000);
    EXPECT_FALSE(c.files.Exists(c.File("FILEEEPROM.DAT")));
}

}  // namespace
