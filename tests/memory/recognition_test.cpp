#include <gtest/gtest.h>

#include "link/transaction.h"
#include "link/waiting.h"
#include "memory/image.h"
#include "memory/recognition.h"
#include "support/live_frame.h"
#include "support/scripted_unit.h"
#include "support/simulated.h"

namespace {

using eculink::Idle;
using shell::False;
using shell::True;
using support::Simulated;

bool PageOpen(Simulated& s, const char* name) {
    const pages::Page* page = s.program.shell.stack.Find(name);
    return page != nullptr && page->IsOpen();
}

// Brings the recognition into the read of the second area.
void ConnectUntilSecondArea(Simulated& s) {
    ASSERT_TRUE(s.Start());
    ASSERT_TRUE(s.RunUntil([&] { return s.program.link.state.StatoCmd == 89; }, 60000));
}

TEST(Recognition, IdentifiesReadsDecodesAndOpensTheMenus) {
    Simulated s;
    s.files.Write(s.folder.Path() / "FILEEEPROM.DAT", "old");
    ASSERT_TRUE(s.Connect());
    const auto& state = s.program.link.state;
    EXPECT_EQ(state.VersioneECU.substr(0, 5), "01.04");
    EXPECT_EQ(state.StatoCmd, Idle);
    EXPECT_EQ(state.CentralinaDaRiconoscere, False);
    EXPECT_EQ(s.program.shell.state.SenzaImmagine, False);
    EXPECT_EQ(s.program.shell.state.ImmagineProgrammata, True);
    EXPECT_EQ(s.program.shell.state.FirmwareVecchio, False);
    EXPECT_FALSE(PageOpen(s, "LeggoIn"));
    EXPECT_FALSE(s.files.Exists(s.folder.Path() / "FILEEEPROM.DAT"));
    EXPECT_EQ(s.files.Size(s.folder.Path() / "FILEEEEXT.APP"), 34U * 64);
    EXPECT_EQ(s.files.Size(s.folder.Path() / "FILEEEINT.APP"), 34U * 64);
    // What was read is what the unit holds.
    EXPECT_EQ(memory::ByteCella(s.program.tuning.image, 3150, 2),
              static_cast<std::uint32_t>(s.unit.Cells().Word(sim::Area::Interna, 3150)));
    EXPECT_EQ(s.unit.Seen().Of('X'), 1);
    EXPECT_EQ(s.unit.Seen().Of('L'), 32);
    EXPECT_EQ(s.unit.Seen().Of('O'), 32);
    EXPECT_EQ(s.unit.Seen().Of('I') + s.unit.Seen().Of('S') + s.unit.Seen().Of('W'), 0) << "nothing is written unasked";
    EXPECT_EQ(s.program.shell.state.beeps, 0);
}

TEST(Recognition, TheReadTakesAsManyTicksAsItHasExchanges) {
    Simulated s;
    ASSERT_TRUE(s.Start());
    ASSERT_TRUE(s.RunUntil([&] { return !s.program.link.state.VersioneECU.empty(); }, 10000));
    const std::int64_t from = s.host.world.ElapsedMicros();
    ASSERT_TRUE(s.RunUntil([&] { return s.program.link.state.StatoCmd == Idle; }, 60000));
    const double ticks = static_cast<double>(s.host.world.ElapsedMicros() - from) / 100000.0;
    EXPECT_LE(ticks, 64 * 1.05);
}

TEST(Recognition, VersionsBefore0104AreOld) {
    struct Row {
        const char* text;
        bool old;
    };
    for (const Row& row : {Row{"00.99", true}, Row{"01.03", true}, Row{"01.04", false}, Row{"01.10", false},
                           Row{"02.00", false}, Row{"", true}, Row{"01", true}}) {
        EXPECT_EQ(memory::IsOldVersion(row.text), row.old) << row.text;
    }
    EXPECT_EQ(memory::ReadVersion("\x02x30312E3034\x03"), "01.04");
    EXPECT_EQ(memory::ReadVersion("\x02x30zz31\x03"), "01") << "a bad pair yields nothing";
}

TEST(Recognition, AnOldProgramWaitsForTheFitter) {
    Simulated s;
    s.Sim("version \"00.99 A001\"");
    ASSERT_TRUE(s.Start());
    ASSERT_TRUE(s.RunUntil([&] { return s.program.shell.state.FirmwareVecchio == True; }, 5000));
    memory::LeggoIn& page = s.program.memory.leggoIn;
    s.Run(20000);
    EXPECT_EQ(s.program.link.state.StatoCmd, 80);
    EXPECT_FALSE(page.Esci.Visible());
    EXPECT_EQ(page.Segnalazione.Text(),
              s.Text("SEGNALAZIONE_4", "LEGGOIN") + "\r\n" + s.Text("SEGNALAZIONE_5", "LEGGOIN"));
    EXPECT_EQ(s.unit.Seen().Of('L'), 0);
    ASSERT_TRUE(s.program.shell.stack.Press(page.Continua).ok);
    EXPECT_FALSE(page.Continua.Visible());
    EXPECT_FALSE(page.EsciP.Visible());
    EXPECT_TRUE(s.RunUntil([&] { return s.program.link.state.FlussoAttivo == True; }, 60000));
    EXPECT_FALSE(s.program.shell.main.Item(shell::MenuId::MenuPunto, 11).visible);
    EXPECT_TRUE(s.program.shell.main.Item(shell::MenuId::MenuPunto, 12).visible);
    shell::PressTool(s.program.shell, "EEPROM_FILE");
    EXPECT_TRUE(PageOpen(s, "Messaggio"));
}

TEST(Recognition, ABlankUnitGetsTheMenusThatNeedNoImage) {
    Simulated s;
    s.Sim("image blank");
    ASSERT_TRUE(s.Connect());
    EXPECT_EQ(s.program.shell.state.ImmagineProgrammata, False);
    EXPECT_EQ(s.program.shell.state.SenzaImmagine, False);
    EXPECT_NE(s.program.shell.main.Item(shell::MenuId::MainMenu, 3).why, pages::Reason::None);
    EXPECT_EQ(s.program.shell.main.Item(shell::MenuId::MainMenu, 4).why, pages::Reason::None);
    EXPECT_NE(s.program.shell.main.Tool("MESSA_PUNTO").why, pages::Reason::None);
    EXPECT_EQ(s.program.memory.state.CodiceAcq, "000_0");
}

TEST(Recognition, AStreamThatDoesNotAnswerCyclesAndSaysWhy) {
    Simulated s;
    s.Sim("misbehave silence command X forever");
    ASSERT_TRUE(s.Start());
    ASSERT_TRUE(s.RunUntil([&] { return PageOpen(s, "LeggoIn"); }, 2000));
    s.Run(3000);
    s.Sim("stream off");  // a live frame would close the message at once
    ASSERT_TRUE(s.RunUntil([&] { return s.program.shell.state.beeps == 1; }, 6000));
    memory::LeggoIn& page = s.program.memory.leggoIn;
    EXPECT_EQ(page.Segnalazione.Text(), s.Text("SEGNALAZIONE_2", "LEGGOIN"));
    EXPECT_TRUE(page.Esci.Visible() && page.Esci.Enabled());
    EXPECT_EQ(s.program.link.state.StatoCmd, Idle);
    EXPECT_EQ(s.program.link.state.CentralinaDaRiconoscere, True);
    EXPECT_FALSE(s.program.link.timers.TimeOutDati->Enabled());
    // The next live frame closes the page and starts over.
    s.Sim("stream on");
    ASSERT_TRUE(s.RunUntil([&] { return s.unit.Seen().Of('X') == 3; }, 20000));
    EXPECT_EQ(s.program.link.state.unanswered, 2);
    s.Run(1500);
    EXPECT_EQ(s.program.link.grafici.AttesaCausa.Text(), s.Text("CAUSA.5", "ATTESA"));
    EXPECT_TRUE(s.program.link.grafici.AttesaCausa.Visible());
}

// Said to be silent is a unit from which the identification gets no answer, and only as long as it gets none.
TEST(Recognition, AUnitThatHasAnsweredIsNotSaidToBeSilent) {
    support::ScriptedUnit u;
    const auto saidToBeSilent = [&u] {
        u.Take(support::LiveFrame().Long());
        return eculink::FindObstacle(u.Link()) == eculink::Obstacle::Unanswered;
    };
    ASSERT_TRUE(u.Start());
    u.Take(support::LiveFrame().Long());
    u.Run(5000);
    EXPECT_TRUE(saidToBeSilent());
    EXPECT_TRUE(u.Link().grafici.Attesa.Visible());
    ASSERT_TRUE(u.Step());
    EXPECT_FALSE(saidToBeSilent()) << "while its memory is being read";
    EXPECT_FALSE(u.Link().grafici.Attesa.Visible());
    // The cable is pulled in the middle of the read and put back.
    ASSERT_TRUE(u.Step());
    u.Run(5000);
    ASSERT_EQ(u.State().StatoCmd, Idle);
    u.Sent();
    EXPECT_FALSE(saidToBeSilent()) << "the identification was answered";
    ASSERT_TRUE(u.Converse([&u] { return u.State().StatoCmd == Idle; }));
    EXPECT_FALSE(saidToBeSilent());
}

TEST(Recognition, ACablePulledInTheMiddleLeavesAPartialImageThatTheNextIdentificationDeletes) {
    Simulated s;
    ConnectUntilSecondArea(s);
    s.Sim("cable out");
    ASSERT_TRUE(s.RunUntil([&] { return s.program.shell.state.beeps == 1; }, 10000));
    EXPECT_EQ(s.program.memory.leggoIn.Segnalazione.Text(), s.Text("SEGNALAZIONE_2", "LEGGOIN"));
    EXPECT_EQ(s.files.Size(s.folder.Path() / "FILEEEEXT.APP"), 34U * 64);
    EXPECT_EQ(s.program.shell.state.pointer, shell::Pointer::Normal);
    s.Sim("cable in");
    ASSERT_TRUE(s.RunUntil([&] { return s.program.link.state.FlussoAttivo == True; }, 60000));
    EXPECT_EQ(s.files.Size(s.folder.Path() / "FILEEEEXT.APP"), 34U * 64);
}

TEST(Recognition, AnotherUnitCanBePutOnAtAnyMoment) {
    Simulated s;
    ASSERT_TRUE(s.Connect());
    s.Sim("cable out");
    ASSERT_TRUE(s.RunUntil([&] { return s.program.link.state.FlussoAttivo == False; }, 5000));
    EXPECT_EQ(s.program.shell.state.SenzaImmagine, True);
    EXPECT_EQ(s.program.link.state.VersioneECU, "");
    s.Sim("image blank");
    s.Sim("cable in");
    ASSERT_TRUE(s.RunUntil([&] { return s.program.link.state.FlussoAttivo == True; }, 60000));
    EXPECT_EQ(s.program.shell.state.ImmagineProgrammata, False);
}

TEST(Recognition, ACommandOfAPageThatWaitedForNobodyGivesWayToTheUnit) {
    Simulated s;
    s.Sim("cable out");
    ASSERT_TRUE(s.Start());
    ASSERT_TRUE(memory::StartErasing(s.program.memory)) << "the line is dead, but nothing forbids asking";
    s.Run(500);
    s.Sim("cable in");
    EXPECT_TRUE(s.RunUntil([&] { return s.program.link.state.FlussoAttivo == True; }, 60000));
    EXPECT_EQ(s.unit.Seen().Of('I'), 0);
}

bool HoldsTheUnitsImage(Simulated& s) {
    for (int address = 0; address < memory::AreaBytes; ++address) {
        for (const bool internal : {false, true}) {
            const int cell = internal ? address + memory::FirstInternal : address;
            const int own = s.unit.Cells().Byte(internal ? sim::Area::Interna : sim::Area::Esterna, cell);
            if (memory::ByteCella(s.program.tuning.image, cell, 1) != static_cast<std::uint32_t>(own)) return false;
        }
    }
    return true;
}

// A block that comes damaged spoils its own cells and no others; one that comes twice or late spoils nothing.
TEST(Recognition, ADamagedBlockSpoilsItsOwnCellsAlone) {
    struct Row {
        const char* fault;
        bool whole;
    };
    for (const Row& row : {Row{"refuse command L once at frame 5", false}, Row{"cut command L once at frame 5", true},
                           Row{"repeat command L once at frame 32", true}, Row{"refuse command X once", true}}) {
        Simulated s;
        s.Sim(std::string("misbehave ") + row.fault);
        ASSERT_TRUE(s.Start());
        s.Run(1000);
        if (s.program.memory.leggoIn.Continua.Visible()) s.program.memory.leggoIn.Continua.onPress();
        ASSERT_TRUE(s.RunUntil([&] { return s.program.link.state.FlussoAttivo == True; }, 60000)) << row.fault;
        EXPECT_EQ(HoldsTheUnitsImage(s), row.whole) << row.fault;
        EXPECT_EQ(memory::ByteCella(s.program.tuning.image, 1000, 1),
                  static_cast<std::uint32_t>(s.unit.Cells().Byte(sim::Area::Esterna, 1000)))
            << row.fault;
        EXPECT_EQ(s.program.memory.state.CodiceAcq, "1234567_1") << row.fault;
    }
}

// Whatever goes wrong in a read ends in the same place.
TEST(Recognition, EveryFaultOfAReadEndsWithThePageUsable) {
    for (const char* fault : {"silence", "cut", "length", "other-letter", "garble", "slow 9000"}) {
        for (const char* letter : {"X", "L", "O"}) {
            Simulated s;
            s.Sim(std::string("misbehave ") + fault + " command " + letter + " forever");
            ASSERT_TRUE(s.Start()) << fault << letter;
            s.Run(30000);
            s.Sim("behave");
            EXPECT_TRUE(s.RunUntil([&] { return s.program.link.state.FlussoAttivo == True; }, 120000))
                << fault << letter;
            EXPECT_EQ(s.unit.Seen().Of('W') + s.unit.Seen().Of('I') + s.unit.Seen().Of('S'), 0);
            // A reply has neither checksum nor address: digits that come damaged but whole, or that belong to a
            // question asked long ago, cannot be told from good ones.
            const bool damaged = std::string_view(fault) != "silence" && std::string_view(fault) != "cut" &&
                                 std::string_view(fault) != "other-letter";
            EXPECT_TRUE(damaged || HoldsTheUnitsImage(s)) << fault << letter;
        }
    }
}

TEST(Recognition, AFullDiskEndsLikeASilentUnit) {
    Simulated s;
    ConnectUntilSecondArea(s);
    s.host.files.FailWrites(true);
    ASSERT_TRUE(s.RunUntil([&] { return s.program.shell.state.beeps == 1; }, 2000));
    EXPECT_EQ(s.program.memory.leggoIn.Segnalazione.Text(), s.Text("SEGNALAZIONE_2", "LEGGOIN"));
    EXPECT_EQ(s.program.link.state.StatoCmd, Idle);
}

// Each live frame asks the unit anew, which answers: the failure comes back three times a second.
TEST(Recognition, AFullDiskRingsTheBellOnceAndTheWaitSaysWhy) {
    Simulated s;
    ASSERT_TRUE(s.Start());
    s.host.files.FailWrites(true);
    ASSERT_TRUE(s.RunUntil([&] { return s.program.shell.state.beeps == 1; }, 2000));
    EXPECT_EQ(s.program.memory.leggoIn.Segnalazione.Text(), s.Text("SEGNALAZIONE_2", "LEGGOIN"));
    for (int i = 0; i < 30; ++i) {
        s.Run(100);
        EXPECT_EQ(s.program.memory.leggoIn.Segnalazione.Text(), s.Text("SEGNALAZIONE_2", "LEGGOIN"));
    }
    EXPECT_GT(s.unit.Seen().Of('X'), 3) << "the next live frame starts over";
    EXPECT_EQ(s.program.shell.state.beeps, 1);
    EXPECT_TRUE(s.program.link.grafici.AttesaCausa.Visible());
    EXPECT_EQ(s.program.link.grafici.AttesaCausa.Text(), s.Text("CAUSA.7", "ATTESA"));
    EXPECT_NE(s.program.link.grafici.AttesaValore.Text().find(s.folder.Path().string()), std::string::npos);
    s.host.files.FailWrites(false);
    s.Run(1500);
    EXPECT_FALSE(s.program.link.grafici.AttesaCausa.Visible()) << "a block of the image has been kept";
    ASSERT_TRUE(s.RunUntil([&] { return s.program.link.state.FlussoAttivo == True; }, 60000));
    EXPECT_EQ(s.program.shell.state.beeps, 1);
}

TEST(Recognition, AnotherUnitAfterAFullDiskIsNotSaidToHaveNoRoom) {
    Simulated s;
    ASSERT_TRUE(s.Start());
    s.host.files.FailWrites(true);
    // The cable goes while the failure waits to be told: then no question is open, and no silence ends one.
    ASSERT_TRUE(s.RunUntil([&] { return eculink::FailedInside(s.program.link); }, 2000));
    s.Sim("cable out");
    s.Run(6000);
    EXPECT_EQ(s.program.shell.state.beeps, 1);
    EXPECT_EQ(s.program.shell.main.RxOK.Colour(), "white");
    s.host.files.FailWrites(false);
    s.Sim("version \"00.99 A001\"");
    s.Sim("cable in");
    ASSERT_TRUE(s.RunUntil([&] { return s.program.memory.leggoIn.Continua.Visible(); }, 10000));
    s.Run(1500);
    EXPECT_FALSE(s.program.link.grafici.Attesa.Visible());
}

// What was heard before the silence says nothing about the line afterwards.
TEST(Recognition, AfterASilenceTheWaitTellsWhatTheLineBringsNow) {
    for (const char* unanswered : {"X", "L"}) {
        Simulated s;
        s.Sim(std::string("misbehave silence command ") + unanswered + " forever");
        ASSERT_TRUE(s.Start());
        ASSERT_TRUE(s.RunUntil([&] { return PageOpen(s, "LeggoIn"); }, 2000));
        s.Run(3000);
        s.Sim("stream off");
        ASSERT_TRUE(s.RunUntil([&] { return s.program.shell.state.beeps == 1; }, 8000));
        s.Run(3000);
        EXPECT_EQ(eculink::FindObstacle(s.program.link), eculink::Obstacle::Silent) << unanswered;
        for (int i = 0; i < 4; ++i) {
            s.Sim("send-text xyzxyz");
            s.Run(500);
        }
        EXPECT_EQ(eculink::FindObstacle(s.program.link), eculink::Obstacle::NoFrames) << unanswered;
        EXPECT_EQ(s.program.link.grafici.AttesaCausa.Text(), s.Text("CAUSA.4", "ATTESA"));
    }
}

// With a calibration step running the silence of a recognition is nobody's news: the unit counts as unknown, no more.
TEST(Recognition, SilenceDuringACalibrationStepSetsTheFlagAlone) {
    for (const char* silent : {"X", "L", "O"}) {
        for (const int flow : {True, False}) {
            support::ScriptedUnit u;
            ASSERT_TRUE(u.Start());
            u.Take(support::LiveFrame().Long());
            const auto asks = [&] { return u.host.line.Sent().substr(1, 1) == silent; };
            ASSERT_TRUE(u.Converse(asks));
            u.Shell().state.FaseAcq = 2;
            u.State().FlussoAttivo = flow;
            memory::LeggoIn& page = u.program->memory.leggoIn;
            const std::string told = page.Segnalazione.Text();
            const std::string lamp = u.Shell().main.RxOK.Colour();
            const std::string version = u.State().VersioneECU;
            ASSERT_EQ(lamp, "green");
            u.Run(4999);
            ASSERT_NE(u.State().StatoCmd, Idle);
            u.Run(1);
            EXPECT_EQ(u.State().StatoCmd, Idle);
            EXPECT_EQ(u.State().CentralinaDaRiconoscere, True);
            EXPECT_EQ(u.host.sound.beeps, 0);
            EXPECT_EQ(page.Segnalazione.Text(), told);
            EXPECT_FALSE(page.Esci.Enabled());
            EXPECT_EQ(u.Shell().main.RxOK.Colour(), lamp);
            EXPECT_EQ(u.State().unanswered, 0);
            EXPECT_EQ(u.State().VersioneECU, version);
            EXPECT_EQ(u.Link().timers.TimeOutDati->Enabled(), flow == True) << "as it was";
        }
    }
}

TEST(Recognition, ASilentUnitLeavesNoVersionBehind) {
    support::ScriptedUnit u;
    u.version = "01.03 A001";
    ASSERT_TRUE(u.Start());
    u.Take(support::LiveFrame().Long());
    ASSERT_TRUE(u.Step());
    u.Shell().stack.Press(u.program->memory.leggoIn.Continua);
    ASSERT_TRUE(u.Step());
    ASSERT_EQ(u.Shell().state.FirmwareVecchio, True);
    u.Run(5000);
    EXPECT_EQ(u.State().VersioneECU, "");
    EXPECT_EQ(u.Shell().state.FirmwareVecchio, False);
    EXPECT_TRUE(u.Shell().main.Item(shell::MenuId::MenuPunto, 11).visible);
    EXPECT_FALSE(u.Shell().main.Item(shell::MenuId::MenuPunto, 12).visible);
    EXPECT_EQ(u.program->memory.leggoIn.Focus(), &u.program->memory.leggoIn.Esci) << "the one thing left to do";
}

// The image on the disk must be of this unit: what an earlier one left is gone, or nothing is read at all.
TEST(Recognition, AWorkFileThatCannotBeDeletedEndsLikeASilentUnit) {
    for (const int operation : {1, 2, 3}) {
        support::ScriptedUnit u;
        ASSERT_TRUE(u.Start());
        u.Take(support::LiveFrame().Long());
        u.host.files.FailNth(operation);
        ASSERT_TRUE(u.Step());
        EXPECT_EQ(u.Sent(), "") << "nothing is asked";
        u.Run(200);
        EXPECT_EQ(u.State().StatoCmd, Idle);
        EXPECT_EQ(u.host.sound.beeps, 1);
        EXPECT_EQ(u.program->memory.leggoIn.Segnalazione.Text(), u.Text("SEGNALAZIONE_2", "LEGGOIN"));
        EXPECT_TRUE(u.program->memory.leggoIn.Esci.Enabled());
    }
    // The inspector's file goes again with the decoding.
    support::ScriptedUnit u;
    ASSERT_TRUE(u.Start());
    u.Take(support::LiveFrame().Long());
    ASSERT_TRUE(u.Converse([&] { return u.host.line.Sent() == frames::Frame("O40640032"); }));
    u.host.files.FailNth(2);  // after the last block has been appended
    ASSERT_TRUE(u.Step());
    u.Run(200);
    EXPECT_EQ(u.Shell().state.SenzaImmagine, True);
    EXPECT_EQ(u.program->memory.leggoIn.Segnalazione.Text(), u.Text("SEGNALAZIONE_2", "LEGGOIN"));
}

// The watchdog on the stream runs while the link is idle and the stream alive, and at no other time.
TEST(Recognition, TheStreamIsWatchedOnlyWhileTheLinkIsReady) {
    support::ScriptedUnit u;
    u.version = "01.03 A001";
    ASSERT_TRUE(u.Start());
    const auto watched = [&u] { return u.Link().timers.TimeOutDati->Enabled(); };
    // Longer than the limit, with and without a live frame at its end: nothing is lost.
    const auto stays = [&](const char* state) {
        for (const bool frame : {false, true}) {
            if (frame) u.Take(support::LiveFrame().Long());
            EXPECT_FALSE(watched()) << state;
            EXPECT_EQ(u.State().CentralinaDaRiconoscere, False) << state;
        }
    };
    u.Run(10000);
    EXPECT_FALSE(watched()) << "waiting";
    u.Take(support::LiveFrame().Long());
    u.Run(4500);
    stays("identifying");
    ASSERT_TRUE(u.Step());
    u.Run(20000);
    stays("old program");
    u.Shell().stack.Press(u.program->memory.leggoIn.Continua);
    for (int block = 0; block < 64; ++block) {
        if (block % 16 == 5) {
            u.Run(4500);
            stays("reading");
        }
        ASSERT_TRUE(u.Step()) << block;
    }
    EXPECT_EQ(u.State().StatoCmd, Idle);
    u.Run(6000);
    EXPECT_FALSE(watched()) << "read, and no frame since";
    EXPECT_EQ(u.Shell().state.SenzaImmagine, False);
    u.Take(support::LiveFrame().Long());
    EXPECT_TRUE(watched()) << "ready";
    memory::StartInspectorRead(u.program->memory);
    u.Run(4500);
    stays("a command runs");
    ASSERT_TRUE(u.Converse([&] { return u.State().StatoCmd == Idle; }));
    EXPECT_TRUE(watched()) << "and has ended";
    u.Run(3900);
    EXPECT_EQ(u.State().CentralinaDaRiconoscere, False);
    u.Run(100);
    EXPECT_EQ(u.State().CentralinaDaRiconoscere, True);
    EXPECT_FALSE(watched()) << "waiting again";
}

TEST(Recognition, AStreamThatBeginsWithBadFramesIsTakenFromItsFirstGoodOne) {
    support::ScriptedUnit u;
    ASSERT_TRUE(u.Start());
    const std::string good = support::LiveFrame().Short();
    for (const std::string& bad :
         {good.substr(0, 20), good.substr(25), good.substr(0, 45) + "\x03", good.substr(0, 46) + "0\x03"}) {
        u.Take(bad);
        EXPECT_EQ(u.Sent(), "") << bad;
        EXPECT_EQ(u.State().CentralinaDaRiconoscere, True) << bad;
        EXPECT_FALSE(u.program->memory.leggoIn.IsOpen()) << bad;
    }
    EXPECT_FALSE(u.State().lastFrameAt);
    u.Take(good);
    EXPECT_EQ(u.Sent(), frames::IdentityFrame());
    u.Take(good);
    EXPECT_EQ(u.Sent(), "") << "once";
}

TEST(Recognition, EsciPEndsTheProgramAndAsksTheUnitNothing) {
    support::ScriptedUnit u;
    u.version = "01.03 A001";
    ASSERT_TRUE(u.Start());
    bool ended = false;
    u.Shell().hooks.End = [&ended] { ended = true; };
    u.Take(support::LiveFrame().Long());
    ASSERT_TRUE(u.Step());
    ASSERT_TRUE(u.Shell().stack.Press(u.program->memory.leggoIn.EsciP).ok);
    EXPECT_TRUE(ended && u.Shell().state.ended);
    EXPECT_EQ(u.Shell().state.exitStatus, 0);
    EXPECT_EQ(u.Sent(), "");
}

}  // namespace
