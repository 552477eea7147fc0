// Everything that can go wrong with a reply, in every state that this version can be in: each exchange ends with a page
// that can be used, with the words for it, idle, and with nothing sent that nobody asked for.

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <stdexcept>

#include "sim/image.h"
#include "support/scripted_unit.h"

namespace {

using eculink::Idle;
using memory::Flow;
using shell::False;
using shell::True;

struct Rig : support::ScriptedUnit {
    Rig() {
        sim::Memory cells;
        sim::ProgramStandardImage(cells);
        image = memory::JoinLines(sim::ImageText(cells));
    }
    void Connected() {
        if (!Connect()) throw std::runtime_error("the unit was not recognised");
        for (const Flow flow : {Flow::Inspector, Flow::Archive, Flow::Programming}) {
            memory::FlowEvents& events = memory::EventsOf(Room(), flow);
            events.refused = [this] { told = "refused"; };
            events.silent = [this](int state) { told = "silent " + std::to_string(state); };
        }
    }
    memory::Memory& Room() { return program->memory; }
    bool Finished() { return State().StatoCmd == Idle; }
    void Finish() {
        if (!Converse([this] { return Finished(); })) throw std::runtime_error("no end");
    }
    // Goes on until the state waits for the reply to a frame that begins so.
    void Reach(int state, const std::string& frame = {}) {
        const auto there = [&] {
            return State().StatoCmd == state && host.line.Sent().substr(1, frame.size()) == frame;
        };
        if (!Converse(there)) throw std::runtime_error("never reached " + std::to_string(state));
    }
    pages::Page& Page(const std::string& name) { return *Shell().stack.Find(name); }
    pages::Control& Control(const std::string& page, const std::string& control) { return *Page(page).Find(control); }
    void Press(const std::string& page, const std::string& button) {
        if (!Shell().stack.Press(Control(page, button)).ok) throw std::runtime_error("refused: " + button);
    }
    void Open(const std::string& dialog, int page) { (*Shell().commands.Find(dialog))({dialog, page, "title"}); }
    // A tuning page, read, with one figure edited.
    void Edit(const std::string& dialog, int page, const std::string& field, const char* figure) {
        Connected();
        Open(dialog, page);
        Finish();
        if (!Shell().stack.Type(Control(dialog, field), figure).ok) throw std::runtime_error("refused: " + field);
        Shell().stack.Leave(Control(dialog, field));
    }
    void Tuned(const std::string& button) {
        Edit("MessaP", 6, "ValFG(0)", "6000");
        Tried("MessaP", button);
    }
    void Installed(const std::string& button) {
        Edit("Imposta", 3, "ValInibiz(0)", "60");
        Tried("Imposta", button);
    }
    void Tried(const std::string& dialog, const std::string& button) {
        if (button == "Applica(1)" || button == "Esci") {
            Press(dialog, "Applica(0)");
            Finish();
        }
        Press(dialog, button);
    }
    void OpenMap() {
        Connected();
        Open("MessaL1", 0);
    }
    void StoreMap(int state) {
        OpenMap();
        Finish();
        Press("MessaL1", "Modifica");
        Press("MessaL1", "Memorizza");
        Reach(state);
    }
    void Archive() {
        Connected();
        memory::StartArchiveRead(Room(), folder.Path() / "ARCHIVI" / "A.MVN");
    }
    void Program(int state, int stamp = False) {
        Connected();
        Room().state.ScriviData = stamp;
        WriteFile("A.MVN", memory::ImageText({image.substr(0, 2048), image.substr(2048)}));
        memory::LoadForProgramming(Room(), folder.Path() / "A.MVN");
        memory::StartProgramming(Room());
        Reach(state);
    }
    void Erase(int state) {
        Connected();
        shell::PressTool(Shell(), "EEPROM_SETUP");
        Press("InEEPROM", "Inizializza");
        Press("InEEPROM", "TastoSI");
        Reach(state);
    }
    void Recognise(int state, const std::string& frame) {
        Start();
        Take(support::LiveFrame().Long());
        Reach(state, frame);
    }

    std::string told;  // what a flow without a page of its own told last
};

// What a page says in the end; a flow that has no page in this version tells an event.
struct Told {
    const char* key = nullptr;  // null: nothing new; empty: the text is taken away
    const char* section = "";
};
constexpr Told Nothing{};
constexpr Told Cleared{"", ""};
constexpr Told NoAnswer{"ERRORE_3", "ERRORI"};
constexpr Told NotRead{"ERRORE_18", "ERRORI"};

// What becomes of a reply whose digits are damaged, or that says "no".
enum class Damaged {
    GoesOn,   // what is missing reads as erased
    Asks,     // the version cannot be read: an old program, and the fitter decides
    Fails,    // as a silent unit, 200 ms later
    Refused,  // at once
};

struct Way {
    const char* name;
    int state;
    std::function<void(Rig&)> begin;
    const char* page;  // null: none in this version
    Told silent;
    bool beeps;
    Damaged damaged;
    Told refused;
    std::vector<int> failures;  // which of the file operations behind the reply fail
};

const std::vector<Way>& Ways() {
    using enum Damaged;
    constexpr Told Unheard{"SEGNALAZIONE_2", "LEGGOIN"};
    constexpr Told NotErased{"SEGNALAZIONE_2", "INEEPROM"};
    constexpr Told NotStored{"SEGNALAZIONE_2", "MESSAP"};
    constexpr Told NotSet{"SEGNALAZIONE_2", "IMPOSTA"};
    static const std::vector<Way> ways{
        {"identification", 80, [](Rig& r) { r.Recognise(80, "X"); }, "LeggoIn", Unheard, true, Asks, {}, {1, 2, 3}},
        {"first block", 80, [](Rig& r) { r.Recognise(80, "L"); }, "LeggoIn", Unheard, true, GoesOn, {}, {1}},
        {"second area", 89, [](Rig& r) { r.Recognise(89, "O"); }, "LeggoIn", Unheard, true, GoesOn, {}, {1}},
        {"decoding", 89, [](Rig& r) { r.Recognise(89, "O4064"); }, "LeggoIn", Unheard, true, GoesOn, {}, {1, 2, 3, 4}},
        {"inspector",
         70,
         [](Rig& r) { r.Connected(), StartInspectorRead(r.Room()); },
         nullptr,
         {},
         true,
         GoesOn,
         {},
         {1}},
        {"inspector",
         71,
         [](Rig& r) { r.Connected(), StartInspectorRead(r.Room()), r.Reach(71); },
         nullptr,
         {},
         true,
         GoesOn,
         {},
         {1}},
        {"archive", 95, [](Rig& r) { r.Archive(); }, nullptr, {}, true, GoesOn, {}, {1}},
        {"archive", 88, [](Rig& r) { r.Archive(), r.Reach(88); }, nullptr, {}, true, GoesOn, {}, {1}},
        {"filing", 88, [](Rig& r) { r.Archive(), r.Reach(88, "O4080"); }, nullptr, {}, true, GoesOn, {}, {1, 2, 3}},
        {"programming", 96, [](Rig& r) { r.Program(96); }, nullptr, {}, true, Refused, {}, {}},
        {"programming", 93, [](Rig& r) { r.Program(93); }, nullptr, {}, true, Refused, {}, {}},
        {"marker", 98, [](Rig& r) { r.Program(98); }, nullptr, {}, true, Refused, {}, {1, 2}},
        {"date", 86, [](Rig& r) { r.Program(86, True); }, nullptr, {}, false, Refused, {}, {1, 2}},
        {"erasing",
         97,
         [](Rig& r) { r.Erase(97); },
         "InEEPROM",
         {"SEGNALAZIONE_6", "INEEPROM"},
         true,
         Refused,
         NotErased,
         {}},
        {"erasing", 92, [](Rig& r) { r.Erase(92); }, "InEEPROM", Nothing, false, Refused, NotErased, {}},
        {"erasing", 94, [](Rig& r) { r.Erase(94); }, "InEEPROM", Nothing, false, Refused, NotErased, {}},
        {"opening", 81, [](Rig& r) { r.Connected(), r.Open("MessaP", 6); }, "MessaP", NotRead, true, Fails, {}, {}},
        {"new values", 100, [](Rig& r) { r.Tuned("Applica(0)"); }, "MessaP", NoAnswer, true, Refused, NoAnswer, {}},
        {"old values", 101, [](Rig& r) { r.Tuned("Applica(1)"); }, "MessaP", NoAnswer, true, Refused, NoAnswer, {}},
        {"store", 110, [](Rig& r) { r.Tuned("InMemor"); }, "MessaP", NoAnswer, true, Refused, NotStored, {}},
        {"leaving", 120, [](Rig& r) { r.Tuned("Esci"); }, "MessaP", NoAnswer, true, Refused, NoAnswer, {}},
        {"opening", 85, [](Rig& r) { r.Connected(), r.Open("Imposta", 3); }, "Imposta", NotRead, true, Fails, {}, {}},
        {"new values", 115, [](Rig& r) { r.Installed("Applica(0)"); }, "Imposta", NoAnswer, true, Refused, NotSet, {}},
        {"old values", 116, [](Rig& r) { r.Installed("Applica(1)"); }, "Imposta", NoAnswer, true, Refused, NotSet, {}},
        {"leaving", 116, [](Rig& r) { r.Installed("Esci"); }, "Imposta", NoAnswer, true, Refused, NotSet, {}},
        {"store", 119, [](Rig& r) { r.Installed("InMemor"); }, "Imposta", NoAnswer, true, Refused, NotSet, {}},
        {"opening", 164, [](Rig& r) { r.OpenMap(); }, "MessaL1", NotRead, true, Fails, {}, {}},
        {"live cells",
         167,
         [](Rig& r) { r.OpenMap(), r.Finish(), r.Press("MessaL1", "RileggoReset"); },
         "MessaL1",
         Cleared,
         true,
         Fails,
         {},
         {}},
        {"axes", 161, [](Rig& r) { r.StoreMap(161); }, "MessaL1", Cleared, true, Refused, NoAnswer, {}},
        {"live map", 165, [](Rig& r) { r.StoreMap(165); }, "MessaL1", NoAnswer, true, Refused, NoAnswer, {}},
        {"stored map", 166, [](Rig& r) { r.StoreMap(166); }, "MessaL1", NoAnswer, true, Refused, NoAnswer, {}},
    };
    return ways;
}

// One way gone up to where its reply is awaited.
struct Exchange : Rig {
    explicit Exchange(const Way& of) : way(of) {
        way.begin(*this);
        frame = Sent();
        EXPECT_EQ(State().StatoCmd, way.state) << way.name;
        EXPECT_NE(frame, "") << way.name;
        before = Said();
        beeps = host.sound.beeps;
        unitKnown = State().FlussoAttivo == True;
    }
    std::string Said() { return way.page == nullptr ? told : Control(way.page, "Segnalazione").Text(); }
    std::string Words(const Told& words) {
        if (words.key == nullptr) return before;
        return *words.key == '\0' ? std::string() : Text(words.key, words.section);
    }
    void ExpectEnd(bool silence, const char* fault) {
        const std::string at = std::string(way.name) + " " + std::to_string(way.state) + ": " + fault;
        EXPECT_EQ(State().StatoCmd, Idle) << at;
        EXPECT_FALSE(Link().timers.TimeOutComandi->Enabled()) << at;
        EXPECT_EQ(Shell().state.pointer, shell::Pointer::Normal) << at;
        EXPECT_EQ(Sent(), "") << at;
        EXPECT_EQ(host.sound.beeps, beeps + (silence && way.beeps ? 1 : 0)) << at;
        EXPECT_EQ(Link().timers.TimeOutDati->Enabled(), unitKnown) << at;
        EXPECT_EQ(Shell().main.Item(shell::MenuId::MainMenu, 0).why, pages::Reason::None) << at;
        EXPECT_TRUE(Link().grafici.Enabled()) << at;
        if (way.page == nullptr) {
            EXPECT_EQ(told, silence ? "silent " + std::to_string(way.state) : "refused") << at;
            return;
        }
        EXPECT_EQ(Said(), Words(silence ? way.silent : way.refused)) << at;
        EXPECT_TRUE(Page(way.page).IsOpen() && Page(way.page).Enabled()) << at;
        EXPECT_TRUE(Control(way.page, "Esci").Visible()) << at;
        EXPECT_EQ(Shell().stack.WhyNot(Control(way.page, "Esci")), pages::Reason::None) << at;
    }
    void ExpectDamage(const char* fault) {
        switch (way.damaged) {
            case Damaged::GoesOn:
                EXPECT_TRUE(Finished() || Sent() != "") << way.name << way.state << fault;
                return;
            case Damaged::Asks:
                EXPECT_TRUE(Room().leggoIn.Continua.Visible()) << fault;
                EXPECT_EQ(Sent(), "") << fault;
                return;
            case Damaged::Fails:
                Run(199);
                EXPECT_EQ(State().StatoCmd, way.state) << way.name;
                Run(1);
                return ExpectEnd(true, fault);
            case Damaged::Refused:
                return ExpectEnd(false, fault);
        }
    }
    // The letter of the reply that is awaited.
    char Letter() const { return Answer(frame)[1]; }

    const Way& way;
    std::string frame;  // that waits for its reply
    std::string before;
    int beeps = 0;
    bool unitKnown = false;
};

TEST(Exchanges, SilenceAfterStrayRepliesThenALateOneThenALostStream) {
    for (const Way& way : Ways()) {
        Exchange e(way);
        for (const char letter : std::string_view("rwlioxspRq")) {
            if (letter != e.Letter()) e.Receive(frames::Frame(std::string(1, letter) + "ok"));
        }
        e.Run(4999);
        EXPECT_EQ(e.State().StatoCmd, way.state) << way.name << ": a stray reply moves nothing";
        EXPECT_EQ(e.Sent(), "") << way.name << way.state;
        e.Run(1);
        e.ExpectEnd(true, "silence");
        e.beeps = e.host.sound.beeps;
        const std::string said = e.Said();
        e.Take(e.Answer(e.frame));
        EXPECT_EQ(e.State().StatoCmd, Idle) << way.name << ": too late";
        EXPECT_EQ(e.Said(), said) << way.name << way.state;
        EXPECT_EQ(e.Sent(), "") << way.name << way.state;
        e.Run(4000);
        EXPECT_EQ(e.State().CentralinaDaRiconoscere, True) << way.name << way.state;
        EXPECT_EQ(e.Shell().stack.Open().size(), e.unitKnown ? 2U : 3U) << "a lost stream closes every page";
        EXPECT_EQ(e.host.sound.beeps, e.beeps) << way.name << way.state;
        EXPECT_EQ(e.Sent(), "") << way.name << way.state;
    }
}

TEST(Exchanges, ARefusalEndsAWriteAtOnce) {
    for (const Way& way : Ways()) {
        Exchange e(way);
        e.Take(frames::Frame(std::string(1, e.Letter()) + "no"));
        e.ExpectDamage("refusal");
    }
}

TEST(Exchanges, AGarbledReplyNeverCountsAsAGoodOne) {
    for (const Way& way : Ways()) {
        Exchange e(way);
        std::string reply = e.Answer(e.frame);
        std::fill(reply.begin() + 2, reply.end() - 1, '#');
        e.Take(reply);
        e.ExpectDamage("garbled");
    }
}

TEST(Exchanges, AHandlerThatFailsEndsAsASilentUnitDoes) {
    for (const Way& way : Ways()) {
        Exchange e(way);
        const std::string reply = frames::Frame(std::string(1, e.Letter()) + "ok");
        e.Link().catalogue.AddReply(way.state, e.Letter(),
                                    [](const std::string&) -> bool { throw std::runtime_error("out of order"); });
        e.Take(reply);
        e.Run(199);
        EXPECT_EQ(e.State().StatoCmd, way.state) << way.name;
        e.Run(1);
        e.ExpectEnd(true, "handler");
    }
}

TEST(Exchanges, AReplyCutShortByADeviceThatVanishesIsSilence) {
    for (const Way& way : Ways()) {
        Exchange e(way);
        const std::string reply = e.Answer(e.frame);
        e.Receive(reply.substr(0, reply.size() - 1));
        e.host.line.SetPresent(false);
        e.Run(4999);
        EXPECT_EQ(e.State().StatoCmd, way.state) << way.name;
        e.Run(1);
        e.ExpectEnd(true, "cut short");
    }
}

TEST(Exchanges, AFileThatFailsEndsAsSilenceDoesButSooner) {
    for (const Way& way : Ways()) {
        for (const int operation : way.failures) {
            Exchange e(way);
            e.host.files.FailNth(operation);
            e.Take(e.Answer(e.frame));
            e.Run(199);
            EXPECT_EQ(e.State().StatoCmd, way.state) << way.name << operation;
            e.Run(1);
            e.ExpectEnd(true, "file");
        }
    }
}

// Every state that a room of this version gives handlers is gone through above.
TEST(Exchanges, LeaveNoStateOut) {
    Rig rig;
    ASSERT_TRUE(rig.Start());
    // Kept beside the others; nothing starts them.
    std::set<int> states{121, 160};
    for (const Way& way : Ways()) states.insert(way.state);
    for (const auto& [state, entry] : rig.Link().catalogue.Rows()) {
        EXPECT_EQ(states.count(state), entry.timeOut ? 1U : 0U) << state;
    }
}

}  // namespace
