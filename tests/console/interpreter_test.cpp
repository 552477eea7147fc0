#include "console/interpreter.h"

#include <gtest/gtest.h>

#include "pages/stack.h"
#include "support/console_rig.h"
#include "support/json_subset.h"

namespace {

using console::Json;

// A page with one control of each kind.
struct AllKinds : pages::Page {
    AllKinds() : Page("AllKinds") {
        SetTitle("Tutto \xE8 qui");
        Umi.filter = pages::KeyFilter::Digits;
        Umi.SetMaxLength(4);
        Umi.onLeave = [this] {
            if (Umi.Text() == "999") SetFocus(&Umi);
        };
        Scelta.SetItems({"uno", "due"});
        Molti.SetItems({"a", "b", "c"});
        Molti.SetDetails({"prima", "seconda", "terza"});
        Molti.SetMultiple(true);
        Tabella.SetCells({{"", "giri"}, {"0", "800"}}, 1, 1);
        Tabella.onCell = [this](int row, int column, const std::string& text) { Tabella.SetCell(row, column, text); };
        Righe.SetCells({{"", "giri"}, {"0", "800"}}, 1, 1);
        Righe.onCell = [](int, int, const std::string&) {};
        Molti.onDoubleClick = [this] { Voce.SetText("doppio"); };
        Spia.SetColour("green");
        Immagine.SetIndex(3);
        Salva.onPress = [this] { Voce.SetText("salvato"); };
        BindKey("F1", Salva);
    }

    pages::Label Voce{*this, "Voce"};
    pages::Field Umi{*this, "Umi(5)"};
    pages::Field Nome{*this, "Nome"};
    pages::Array<pages::Option> Velocita{*this, "Velocita", 2};
    pages::Check Abil{*this, "Abil"};
    pages::Combo Scelta{*this, "Scelta"};
    pages::List Molti{*this, "Molti"};
    pages::Grid Tabella{*this, "Tabella"};
    pages::Grid Righe{*this, "Righe"};
    pages::Lamp Spia{*this, "Spia"};
    pages::Picture Immagine{*this, "Immagine"};
    pages::Chart Grafico{*this, "Grafico"};
    pages::Button Salva{*this, "Salva"};
};

struct KindsRig : ConsoleRig {
    KindsRig() {
        Start();
        program->shell.stack.Register(page);
        program->shell.stack.OpenPage(page, true);
    }
    ~KindsRig() { program->shell.stack.ClosePage(page); }

    // The answer holds at least this.
    void Expect(const char* line, const char* expected) {
        const Json answer = Say(line);
        EXPECT_EQ(Mismatch(answer, Json::parse(expected)), "") << line << "\n" << answer;
    }

    AllKinds page;
};

TEST(Interpreter, ShowsEveryKindOfControl) {
    KindsRig rig;
    rig.Expect("show AllKinds", R"~({"ok":true,"title":"Tutto è qui","enabled":true,"controls":{
        "Voce":{"kind":"label","enabled":true,"visible":true,"text":""},
        "Umi(5)":{"kind":"field","text":"","locked":false,"maxLength":4,"focus":true},
        "Velocita(0)":{"kind":"option","selected":false},
        "Abil":{"kind":"check","selected":false},
        "Scelta":{"kind":"combo","items":["uno","due"],"selected":-1},
        "Molti":{"kind":"list","items":["a","b","c"],"selected":[],"details":["prima","seconda","terza"]},
        "Tabella":{"kind":"grid","cells":[["","giri"],["0","800"]],"headerRows":1},
        "Spia":{"kind":"lamp","colour":"green"},
        "Immagine":{"kind":"picture","index":3},
        "Grafico":{"kind":"chart"},
        "Salva":{
        "kind" : "button", "text" : ""}
}
})~");
    EXPECT_FALSE(rig.Say("get AllKinds Nome").contains("focus"));
    EXPECT_EQ(rig.Say("get AllKinds Nome")["maxLength"], 0);
}

TEST(Interpreter, ReachesEveryInput) {
    KindsRig rig;
    struct Case {
        const char* line;
        const char* expected;
    };
    const Case cases[] = {
        {"type AllKinds Umi(5) 12a345", R"~({"ok":true,"text":"1234"})~"},
        {"get AllKinds Umi(5)", R"~({"focus":true})~"},
        {"leave AllKinds Umi(5)", R"~({"ok":true,"text":"1234","focus":"Nome"})~"},
        {"enter AllKinds Umi(5) 999", R"~({"ok":true,"text":"999","focus":"Umi(5)"})~"},
        {"enter AllKinds Umi(5) \"\"", R"~({"ok":true,"text":"","focus":"Nome"})~"},
        {"enter AllKinds Nome \"perché no\"", R"~({"ok":true,"text":"perché no"})~"},
        {"press AllKinds Velocita(1)", R"~({"ok":true})~"},
        {"get AllKinds Velocita(1)", R"~({"selected":true})~"},
        {"press AllKinds Velocita(0)", R"~({"ok":true})~"},
        {"get AllKinds Velocita(1)", R"~({"selected":false})~"},
        {"press AllKinds Abil", R"~({"ok":true})~"},
        {"get AllKinds Abil", R"~({"selected":true})~"},
        {"select AllKinds Scelta 1", R"~({"ok":true})~"},
        {"get AllKinds Scelta", R"~({"selected":1})~"},
        {"select AllKinds Molti 0,2", R"~({"ok":true})~"},
        {"get AllKinds Molti", R"~({"selected":[0,2]})~"},
        {"cell AllKinds Tabella 1 1 850", R"~({"ok":true,"text":"850"})~"},
        {"doubleclick AllKinds Molti", R"~({"ok":true})~"},
        {"get AllKinds Voce", R"~({"text":"doppio"})~"},
        {"key AllKinds F1", R"~({"ok":true})~"},
        {"get AllKinds Voce", R"~({"text":"salvato"})~"},
        {"close AllKinds", R"~({"ok":true})~"},
        {"show AllKinds", R"~({"ok":false})~"},
    };
    for (const Case& c : cases) rig.Expect(c.line, c.expected);
}

TEST(Interpreter, RefusesWhatAPersonCouldNotDoAndChangesNothing) {
    KindsRig rig;
    rig.page.Nome.SetLocked(true);
    rig.page.Scelta.Enable(false, pages::Reason::NoUnit);
    rig.page.Abil.SetVisible(false);
    rig.page.Velocita[1].SetLocked(true);
    rig.page.Tabella.SetLocked(true);
    rig.page.Tabella.onDoubleClick = [&rig] { rig.page.Voce.SetText("doppio"); };
    rig.Say("type AllKinds Umi(5) 999");
    const std::string before = rig.Say("show AllKinds").dump();
    struct Case {
        const char* line;
        const char* reason;  // key of the sentence
    };
    const Case cases[] = {
        {"type AllKinds Nome x", "BLOCCATO"},
        {"enter AllKinds Nome x", "BLOCCATO"},
        {"select AllKinds Scelta 1", "NESSUNA_CENTRALINA"},
        {"press AllKinds Abil", "NASCOSTO"},
        {"select AllKinds Molti 3", "INDICE"},
        {"select AllKinds Molti -1", "INDICE"},
        {"cell AllKinds Righe 0 1 x", "INDICE"},
        {"cell AllKinds Righe 1 9 x", "INDICE"},
        {"cell AllKinds Tabella 1 1 x", "BLOCCATO"},
        {"doubleclick AllKinds Tabella", "BLOCCATO"},
        {"press AllKinds Velocita(1)", "BLOCCATO"},
        {"leave AllKinds Nome", "BLOCCATO"},
        {"press AllKinds Voce", "ALTRO_COMANDO"},
        {"type AllKinds Salva x", "ALTRO_COMANDO"},
        {"doubleclick AllKinds Salva", "ALTRO_COMANDO"},
        {"leave AllKinds Voce", "ALTRO_COMANDO"},
        {"select AllKinds Salva 0", "ALTRO_COMANDO"},
        {"cell AllKinds Molti 1 1 x", "ALTRO_COMANDO"},
        {"key AllKinds F9", "TASTO"},
        {"press Grafici Visualizzo(0)", "PAGINA_COPERTA"},
        {"menu MenuConf 1", "PAGINA_COPERTA"},
        {"tool ESCI", "PAGINA_COPERTA"},
        {"press Messaggio TastoOK", "CHIUSA"},
        {"get ConfSer Salva", "CHIUSA"},
        {"close Infor", "CHIUSA"},
    };
    for (const Case& c : cases) {
        const Json answer = rig.Say(c.line);
        EXPECT_EQ(answer["ok"], false) << c.line;
        EXPECT_EQ(answer["error"], rig.Say(std::string("text ") + c.reason + " MOTIVI")["text"]) << c.line;
        EXPECT_NE(answer["error"], "") << c.line;
    }
    rig.page.SetEnabled(false);
    EXPECT_EQ(rig.Say("press AllKinds Salva")["ok"], false);
    rig.page.SetEnabled(true);
    EXPECT_EQ(rig.Say("show AllKinds").dump(), before);
}

// Without a sentence in the language the reason still has its name.
TEST(Interpreter, ARefusalWithoutTextGivesItsKey) {
    ConsoleRig rig;
    rig.options.shipped.clear();
    rig.Start();
    while (rig.Say("press SystemMessage OK")["ok"] == true) {
    }
    EXPECT_EQ(rig.Say("show Infor"), (Json{{"ok", false}, {"error", "CHIUSA"}}));
}

TEST(Interpreter, AnswersEveryBadLineWithAReason) {
    KindsRig rig;
    const char* lines[] = {
        "nonsense",
        "STATE",
        "state now",
        "show",
        "show NoSuchPage",
        "get AllKinds",
        "get AllKinds NoSuchControl",
        "get AllKinds umi(5)",
        "type AllKinds Nome",
        "type AllKinds Nome two words",
        "type AllKinds Nome \"open",
        "select AllKinds Molti x",
        "select AllKinds Molti 0,",
        "select AllKinds Molti ,",
        "select AllKinds Molti 99999999999",
        "cell AllKinds Tabella x 1 y",
        "menu NoSuchMenu 0",
        "menu MenuPunto x",
        "menu MenuPunto 99",
        "menu MenuPunto 5",  // a separator
        "tool NO_SUCH_TOOL",
        "record NoSuchRecord",
        "record ValMin(99)",
        "text ONLY_KEY",
        "sim",
        "sim nonsense",
        "run",
        "run -1",
        "run soon",
        "run 1.5",
        "run 99999999999999999999",
        "wait StatoCmd -1",
        "wait StatoCmd idle 10",
        "wait NoSuchState 1 10",
        "wait Lingua INGLESE -1",
        "wait page NoSuchPage open 10",
        "wait page Grafici shut 10",
        "wait page Grafici open",
        "wait StatoCmd -1 10 20",
        "\xFF\xFE\x80",
        "\"",
        "show \x01\x02",
    };
    for (const char* line : lines) {
        const Json answer = rig.Say(line);
        EXPECT_EQ(answer["ok"], false) << line;
        EXPECT_TRUE(answer["error"].is_string() && answer["error"] != "") << line;
        EXPECT_EQ(answer.size(), 2U) << line;
    }
}

TEST(Interpreter, SkipsARemarkAndNothingThatOnlyLooksLikeOne) {
    ConsoleRig rig;
    rig.Start();
    for (const char* line : {"", "   ", "\t\r", "#", "# state"}) EXPECT_TRUE(rig.Say(line).is_null()) << line;
    EXPECT_EQ(rig.Say(" # state")["ok"], false) << "a remark starts with its mark";
}

TEST(Interpreter, RefusesEachUnknownThingByItsOwnReason) {
    ConsoleRig rig;
    rig.Start();
    for (const auto& [line, reason] : {std::pair{"tool FOO", "NESSUN_PULSANTE"}, {"close Grafici", "GRAFICO_VUOTO"}}) {
        EXPECT_EQ(rig.Say(line)["error"], rig.Say(std::string("text ") + reason + " MOTIVI")["text"]) << line;
    }
}

TEST(Interpreter, TimePassesOnlyInRunAndWait) {
    ConsoleRig rig;
    rig.Start();
    const auto now = [&] { return rig.simulation.world.ElapsedMicros(); };
    rig.Say("state");
    rig.Say("press Grafici Visualizzo(0)");
    EXPECT_EQ(now(), 0);
    EXPECT_EQ(rig.Say("run 250"), (Json{{"ok", true}, {"ms", 250}}));
    EXPECT_EQ(now(), 250000);
    EXPECT_EQ(rig.Say("run 0"), (Json{{"ok", true}, {"ms", 0}}));

    // Holds already: no time passes.
    EXPECT_EQ(rig.Say("wait page Grafici open 1000"), (Json{{"ok", true}, {"ms", 0}}));
    EXPECT_EQ(rig.Say("wait Lingua INGLESE 1000"), (Json{{"ok", true}, {"ms", 0}}));
    EXPECT_EQ(now(), 250000);

    // The wait ends with the event that brings the value, not at the end of its time.
    const Json found = rig.Say("wait SenzaImmagine 0 60000");
    EXPECT_EQ(found["ok"], true);
    EXPECT_EQ(now(), 250000 + found["ms"].get<std::int64_t>() * 1000);
    EXPECT_LT(found["ms"], 10000);

    const Json missed = rig.Say("wait FaseAcq 3 700");
    EXPECT_EQ(missed["ok"], false);
    EXPECT_EQ(missed["ms"], 700);
    EXPECT_TRUE(missed["error"].is_string());
}

TEST(Interpreter, TheUnitTakesItsLineWithAndWithoutQuotes) {
    ConsoleRig rig;
    rig.Start();
    for (const char* line : {"sim throttle 30", "sim \"throttle 30\"", "sim \"state\"", "sim state"})
        EXPECT_EQ(rig.Say(line)["ok"], true) << line;
}

TEST(Interpreter, StateNamesEveryVariable) {
    ConsoleRig rig;
    rig.Start();
    rig.Say(
        "sim send \"\x02"
        "D08\"");
    const Json state = rig.Say("state");
    for (const char* name : {"StatoCmd", "FaseAcq", "SottoFase", "CentralinaDaRiconoscere", "SenzaImmagine",
                             "ImmagineProgrammata", "FlussoAttivo", "VistaDati", "DatiLunghi", "TipoComputer",
                             "RisoluzionePiena", "StatoRx", "ContaRx", "FirmwareVecchio", "ScriviData"}) {
        EXPECT_TRUE(state[name].is_number_integer()) << name;
    }
    for (const char* name : {"VersioneECU", "CodiceAcq", "DataProgrammazione", "FileRegistrazione", "Lingua",
                             "CartellaProg", "BufferRx", "ComandoTx", "pointer"}) {
        EXPECT_TRUE(state[name].is_string()) << name;
    }
    for (const char* name :
         {"Elaborazione", "TimeOutComandi", "TimeOutDati", "Lampeggio", "LampeggioC", "Checks", "Reopening"}) {
        EXPECT_TRUE(state["timers"][name]["enabled"].is_boolean()) << name;
        EXPECT_TRUE(state["timers"][name]["interval"].is_number_integer()) << name;
    }
    EXPECT_EQ(Mismatch(state, Json::parse(R"~({"ok":true,"StatoCmd":-1,"pointer":"normal","beeps":0,
        "timers":{"Elaborazione":{"enabled":true,"interval":100}},
        "port":{"open":true,"device":"/dev/ttyS0","settings":"38400,N,8,1"}})~")),
              "");
}

// Characters beyond ASCII reach the reader whole; control characters are escapes, also those that a terminal acts on.
TEST(Interpreter, AnswersInUtf8OnOneLine) {
    ConsoleRig rig;
    rig.Start();
    rig.program->link.state.BufferRx =
        "\x02"
        "D\x80\xE8\xC2\x7F\x9D\x81\r\n\"\\";
    const std::string answer = *rig.interpreter->Do("state");
    EXPECT_EQ(answer.find('\n'), std::string::npos);
    EXPECT_NE(answer.find(R"~("BufferRx":"\u0002D€èÂ\u007f\u009d\u0081\r\n\"\\")~"), std::string::npos) << answer;
}

TEST(Interpreter, ASecondProgramOnTheDirectoryEndsWithStatusOne) {
    ConsoleRig first;
    first.Start();
    ConsoleRig second;
    const platform::Path own = second.options.folder;
    second.options.folder = first.options.folder;
    second.Start();
    EXPECT_FALSE(second.started);
    EXPECT_EQ(second.Say("pages")["pages"].back()["name"], "SystemMessage");
    EXPECT_NE(second.Say("get SystemMessage Text")["text"], "");
    EXPECT_EQ(second.Say("state")["timers"]["Elaborazione"]["enabled"], false);
    EXPECT_FALSE(second.interpreter->Finished());
    EXPECT_EQ(second.Say("press SystemMessage OK")["ok"], true);
    EXPECT_TRUE(second.interpreter->Finished());
    EXPECT_EQ(second.program->shell.state.exitStatus, 1);
    second.options.folder = own;
}

TEST(Interpreter, ChannelsShowBothViews) {
    ConsoleRig rig;
    rig.Start();
    ASSERT_EQ(rig.Say("wait Progressivo 5 30000")["ok"], true);
    const Json answer = rig.Say("channels");
    EXPECT_EQ(answer["Progressivo"], 5);
    ASSERT_EQ(answer["channels"].size(), 18U);
    const Json& speed = answer["channels"][0];
    EXPECT_EQ(speed["no"], 0);
    EXPECT_EQ(speed["Valore"].get<std::string>().size(), 8U);
    EXPECT_EQ(speed["Grezzo"].get<std::string>().size(), 4U);
    EXPECT_TRUE(speed["Minimo"][0].is_number() && speed["Minimo"][0] <= speed["Massimo"][0]);
    EXPECT_EQ(speed["MaxScala"][1], 8000);
    const Json none = Json::parse("[null,null]");
    EXPECT_EQ(answer["channels"][10]["Minimo"], none);    // no field of the frame fills it
    EXPECT_EQ(answer["channels"][15]["MinScala"], none);  // stored only
}

TEST(Interpreter, FindsRecordsUnderTheirNames) {
    ConsoleRig rig;
    rig.Start();
    ASSERT_EQ(rig.Say("wait page LeggoIn open 5000")["ok"], true);
    ASSERT_EQ(rig.Say("wait page LeggoIn closed 30000")["ok"], true);
    const Json idle = rig.Say("record ValMin(1)");
    EXPECT_EQ(Mismatch(idle, Json::parse(R"~({"ok":true,"EE":3116,"RAM":181,"NByte":2,"Dato":["*","*","*"]})~")), "");
    EXPECT_LT(idle["Min"], idle["Max"]);
    const Json overSpeed = rig.Say("record SogliaFG");
    EXPECT_EQ(Mismatch(overSpeed, Json::parse(R"~({"ok":true,"EE":3150,"RAM":39,"NByte":2})~")), "");
    EXPECT_EQ(overSpeed["Dato"][0], overSpeed["Letto"]);
    EXPECT_EQ(overSpeed["Letto"].get<std::string>().size(), 8U) << "a text, like the figures of a parameter";
    EXPECT_EQ(rig.Say("record Memoria(362)")["ok"], true);
    EXPECT_EQ(rig.Say("record Memoria(363)")["ok"], false);
}

}  // namespace
