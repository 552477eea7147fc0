#include "link/channels.h"

#include <gtest/gtest.h>

#include <vector>

#include "link/grafici.h"
#include "support/live_frame.h"
#include "support/machine.h"

namespace eculink {

namespace {

using support::LiveFrame;

struct Engine : support::Machine {
    explicit Engine(shell::Variant variant = shell::Variant::None) {
        options.variant = variant;
        Start();
        BecomeReady();
        State().mapTable.linea[1] = {200, 820};
    }
    const std::string& Raw(int channel) { return Link().RecCanali.Grezzo.at(static_cast<std::size_t>(channel)); }
    const std::string& Value(int channel) { return Link().RecCanali.Valore.at(static_cast<std::size_t>(channel)); }
    ChannelInfo& Info(int channel) { return Link().DescrCanale.at(static_cast<std::size_t>(channel)); }
};

}  // namespace

TEST(AggiornaCanali, GivesEachSignalItsEngineeringText) {
    Engine e;
    LiveFrame f;
    f.giri = "0850";
    f.lambda = "0205";
    f.tps = "0120";
    f.map = " 510";
    f.temperatura = " 512";
    f.livello = "1023";
    f.step = "097";
    f.cstec = "200";
    f.zone = "12 ";
    f.stored = "abc";
    e.Take(f.Short());
    struct Case {
        int channel;
        const char* raw;
        const char* value;
    };
    for (const Case& c : {
             Case{Giri, " 850", "     850"},
             Case{Lambda, " 205", "    1002"},  // 205 x 5000 / 1023 = 1001.96 mV
             Case{Tps, " 120", "     586"},     // 585.6 mV
             Case{Map, " 690", "    2489"},     // mbar, and 510 x 4.88 mV
             Case{P1, "****", "********"},
             Case{Temperatura, " 512", "     512"},
             Case{Livello, "1023", "    4992"},
             Case{Step, "  97", "      97"},
             Case{CStec, " -56", "     -56"},
             Case{Zone, " 12 ", "     12 "},
             Case{RiccoMagro, "   R", "       R"},
             Case{StatoAA, "  65", "      65"},
             Case{Stored, " abc", "     abc"},
             Case{Led, "    ", "        "},
             Case{Pompata, "    ", "--------"},
         }) {
        EXPECT_EQ(e.Raw(c.channel), c.raw) << c.channel;
        EXPECT_EQ(e.Value(c.channel), c.value) << c.channel;
    }
    EXPECT_EQ(e.Link().RecCanali.Progressivo, 1);
}

TEST(AggiornaCanali, StarsTheOneSignalThatCannotBeReadAndKeepsItsLimits) {
    Engine e;
    e.Take(LiveFrame().Long());
    const struct {
        std::string LiveFrame::*field;
        int channel;
    } fields[] = {{&LiveFrame::giri, Giri},
                  {&LiveFrame::lambda, Lambda},
                  {&LiveFrame::tps, Tps},
                  {&LiveFrame::map, Map},
                  {&LiveFrame::temperatura, Temperatura},
                  {&LiveFrame::livello, Livello},
                  {&LiveFrame::step, Step},
                  {&LiveFrame::p1, P1}};
    for (const auto& [field, channel] : fields) {
        LiveFrame f;
        (f.*field).assign((f.*field).size(), '?');
        const auto low = e.Info(channel).Minimo;
        const auto high = e.Info(channel).Massimo;
        e.Take(f.Long());
        for (int other = 0; other < SignalChannels; ++other) {
            const bool starred = other == channel || (other == P1 && channel == Map);
            if (other == P1 && channel == Map) continue;  // worked out from the pressure below
            EXPECT_EQ(e.Value(other) == "********", starred) << channel << " " << other;
            // The second pressure has no raw text without its sensor.
            if (other != P1) {
                EXPECT_EQ(e.Raw(other) == "****", starred) << channel << " " << other;
            }
        }
        EXPECT_EQ(e.Info(channel).Minimo, low);
        EXPECT_EQ(e.Info(channel).Massimo, high);
    }
}

TEST(AggiornaCanali, WorksTheSecondPressureOutByTheSensor) {
    struct Case {
        const char* name;
        int type;
        int phase;
        const char* map;
        const char* raw;  // of the field " 400"
    };
    for (const Case& c :
         {Case{"type 0: from the manifold pressure", 0, -1, " 300", "2186"},  // 1932 + 819 - 565
          Case{"type 0 without a manifold pressure", 0, -1, "????", "****"},
          Case{"type 1: by itself", 1, -1, "????", "1560"},  // 359 x 4444 / 1023
          Case{"any other: unknown", 2, -1, " 300", "****"}, Case{"a step takes the reading", 0, 1, " 300", " 400"}}) {
        Engine e;
        e.State().mapTable.tipoSensoreMAP = c.type;
        e.Shell().state.FaseAcq = c.phase;
        LiveFrame f;
        f.map = c.map;
        e.Take(f.Long());
        EXPECT_EQ(e.Raw(P1), c.raw) << c.name;
        EXPECT_EQ(e.Value(P1), "    1952") << c.name;  // 400 x 4.88 mV
    }
}

TEST(AggiornaCanali, NamesTheZoneOfTheMapAndThePump) {
    for (const auto variant : {shell::Variant::None, shell::Variant::Qt}) {
        Engine e(variant);
        const auto zone = [&](char digit) {
            if (digit < '1' || digit > '6') return std::string("--------");
            const bool merged = variant == shell::Variant::Qt && digit == '3';
            return FixedText(e.Shell().TestoLingua(std::string("ZONA_") + (merged ? '2' : digit), "ZONE"), 8);
        };
        LiveFrame f;
        for (const char digit : std::string("0123456789x ")) {
            f.macro = digit;
            e.Take(f.Short());
            EXPECT_EQ(e.Value(Macro), zone(digit)) << digit;
            EXPECT_EQ(e.Raw(Macro), std::string("   ") + digit);
            EXPECT_EQ(e.Link().grafici.DatiMot[Macro].Text(), e.Value(Macro));
        }
        EXPECT_NE(zone('1'), std::string(8, ' '));
    }
}

TEST(AggiornaCanali, KeepsTheExtremesOfBothViewsAndRescalesWhatLeavesItsScale) {
    Engine e;
    LiveFrame f;
    for (const char* giri : {" 850", "3000", "0700", "????", "2000"}) {
        f.giri = giri;
        e.Take(f.Short());
    }
    for (const int view : {EngineeringView, RawView}) {
        const auto v = static_cast<std::size_t>(view);
        EXPECT_EQ(e.Info(Giri).Minimo[v], 700);
        EXPECT_EQ(e.Info(Giri).Massimo[v], 3000);
        EXPECT_EQ(e.Info(Giri).MaxScala[v], 8000);
    }
    f.giri = "9000";
    e.Take(f.Short());
    // 8300 wide and 2 percent on both sides: 864.2, that is 864 steps of 10 about the middle, and one.
    EXPECT_EQ(e.Info(Giri).MaxScala[0], 9171);
    EXPECT_EQ(e.Info(Giri).MinScala[0], 9171 - 8640);
    EXPECT_EQ(e.Info(Giri).MaxPrec[0], 8000);
    EXPECT_EQ(e.Info(Temperatura).MaxScala[0], 5000) << "each channel by itself";
    AzzeraDati(e.Link());
    EXPECT_EQ(e.Info(Giri).MaxScala[0], 8000);
    EXPECT_FALSE(e.Info(Giri).Minimo[0].has_value());
    EXPECT_EQ(e.Link().RecCanali.Progressivo, 0);
    EXPECT_EQ(e.Value(Giri), "        ");
}

TEST(History, KeepsTheLatestSamplesInARing) {
    Engine e;
    const History& history = e.Link().history;
    EXPECT_EQ(history.position, -1);
    LiveFrame f;
    f.giri = "1234";
    e.Take(f.Short());
    EXPECT_EQ(history.position, 0);
    EXPECT_EQ(history.samples[0].Progressivo, 1);
    EXPECT_EQ(history.samples[0].Valore[Giri], "    1234");
    EXPECT_EQ(history.samples[1].Progressivo, 0) << "an empty place";
    e.Shell().state.FaseAcq = 1;
    e.Take(f.Short());
    EXPECT_EQ(history.position, 1) << "a calibration step does not hold it up";
    e.Shell().state.FaseAcq = shell::NoPhase;
    for (int i = 2; i < HistoryPlaces; ++i) e.Take(f.Short());
    EXPECT_EQ(history.position, 620);
    f.giri = "4321";
    e.Take(f.Short());
    EXPECT_EQ(history.position, 0) << "behind the last place comes the first";
    EXPECT_EQ(history.samples[0].Progressivo, 622);
    EXPECT_EQ(history.samples[0].Grezzo[Giri], "4321");
    AzzeraDati(e.Link());
    EXPECT_EQ(history.position, -1);
    for (const Record& sample : history.samples) EXPECT_EQ(sample.Progressivo, 0);
}

TEST(NuovaScala, HoldsEveryExtremeWithoutLeavingItsNumbers) {
    for (const auto& [low, high] : {std::pair{0.0, 0.0}, {-1e300, 1e300}, {1e300, 1e300}, {-5.0, 5.0}}) {
        for (const int step : {0, 1, 6, 17}) {
            ChannelInfo channel;
            channel.Passo = {step, step};
            channel.Margine = {2, 2};
            channel.Minimo[0] = low;
            channel.Massimo[0] = high;
            NuovaScala(channel, 0);
            EXPECT_GE(channel.MaxScala[0], channel.MinScala[0]);
        }
    }
}

TEST(CaricaCanali, FillsTheTableFromTheLanguage) {
    struct Row {
        int channel;
        const char* key;
        int chart;
        int max0, max1;
        int step0, step1;
        int grid0, grid1;
        int margin;
    };
    const std::vector<Row> rows{
        {0, "GIRI", 0, 8000, 8000, 10, 10, 10, 10, 2},   {1, "LAMBDA", 1, 1000, 1024, 10, 16, 10, 4, 2},
        {2, "TPS", 2, 5000, 1024, 10, 16, 10, 4, 2},     {3, "MAP", 3, 5000, 1000, 10, 10, 10, 10, 2},
        {4, "P1", 4, 1000, 1024, 10, 16, 10, 4, 2},      {5, "TEMPERATURA", 5, 5000, 1024, 10, 16, 10, 4, 2},
        {6, "LIVELLO", 6, 5000, 1024, 10, 16, 10, 4, 2}, {7, "STEP", 7, 255, 255, 17, 17, 3, 3, 2},
        {8, "CSTEC", -1, 255, 255, 17, 17, 3, 3, 2},     {9, "ZONE", -1, 100, 255, 10, 17, 0, 3, 2},
        {10, "POMPATA", -1, 100, 255, 10, 17, 0, 3, 2},  {11, "RICCOMAGRO", -1, 100, 255, 10, 17, 0, 3, 2},
        {12, "STATOAA", -1, 255, 255, 17, 17, 3, 3, 2},  {13, "COMMUT", -1, 100, 255, 10, 17, 0, 3, 2},
        {14, "LED", -1, 100, 255, 10, 17, 0, 3, 2},      {15, nullptr, -1, 0, 0, 0, 0, 0, 0, 0},
        {16, "MACRO", 8, 100, 255, 10, 17, 0, 3, 2},     {17, "CAMP", -1, 300, 300, 6, 6, 10, 10, 1},
    };
    for (const auto variant : {shell::Variant::None, shell::Variant::Qt}) {
        Engine e(variant);
        const bool diesel = variant == shell::Variant::Qt;
        for (const Row& row : rows) {
            const ChannelInfo& info = e.Info(row.channel);
            EXPECT_EQ(info.Grafico, row.chart) << row.channel;
            EXPECT_EQ(info.Min, (std::array<std::int32_t, 2>{0, 0}));
            EXPECT_EQ(info.Max, (std::array<std::int32_t, 2>{row.max0, row.max1})) << row.channel;
            EXPECT_EQ(info.Passo, (std::array<int, 2>{row.step0, row.step1}));
            EXPECT_EQ(info.Griglia, (std::array<int, 2>{row.grid0, row.grid1}));
            EXPECT_EQ(info.Margine, (std::array<int, 2>{row.margin, row.margin}));
            if (row.key == nullptr) {
                EXPECT_EQ(info.Nome + info.UM[0] + info.UM[1], "");
                continue;
            }
            const bool pressure = diesel && row.channel == Map;
            const std::string label = pressure ? "TPS" : row.key;
            const char* section = diesel && row.channel == Tps ? "CANALI_QT" : "CANALI";
            EXPECT_EQ(info.Nome, e.Shell().TestoLingua(label, section).substr(0, 20));
            EXPECT_NE(info.Nome, "") << row.channel;
            const std::string unit = std::string("UM") + row.key;
            EXPECT_EQ(info.UM[0], e.Shell().TestoLingua(unit + "_0", "CANALI").substr(0, 6));
            EXPECT_EQ(info.UM[1], e.Shell().TestoLingua(unit + (pressure ? "_2" : "_1"), "CANALI").substr(0, 6));
        }
    }
}

TEST(AggiornaPagina, WritesTheViewInForce) {
    Engine e;
    LiveFrame f;
    f.lambda = " 205";
    e.Shell().state.RisoluzionePiena = shell::True;
    e.Take(f.Short());
    Grafici& page = e.Link().grafici;
    EXPECT_EQ(e.State().VistaDati, RawView);
    EXPECT_EQ(page.DatiMot[Lambda].Text(), "R  205") << "the flag, a blank, the figure";
    EXPECT_EQ(page.DatiMot[Giri].Text(), " 850");
    EXPECT_EQ(page.DatiMot[Zone].Text(), e.Value(Zone));
    EXPECT_FALSE(page.Visualizzo[RawView].Visible());
    EXPECT_TRUE(e.Shell().stack.Press(page.Visualizzo[EngineeringView]).ok);
    e.Tick();
    EXPECT_EQ(page.DatiMot[Lambda].Text(), "R     1002");
    EXPECT_EQ(page.DatiMot[Giri].Text(), "     850");
    EXPECT_EQ(page.UmMot[Lambda].Text(), e.Info(Lambda).UM[0]);
}

TEST(AggiornaPagina, ScalesProbeThrottleAndLevelInTheReducedDisplay) {
    struct Case {
        int probe;
        const char* lambda;
        const char* figure;
    };
    for (const Case& c :
         {Case{2, "1023", "R  255"}, Case{2, " 205", "R   51"}, Case{1, " 470", "R  255"}, Case{1, "1023", "R  255"},
          Case{1, " 235", "R  128"}, Case{0, "1023", "R 1023"}, Case{2, "????", "R ****"}}) {
        Engine e;
        e.State().TipoSondaLambda = c.probe;
        LiveFrame f;
        f.lambda = c.lambda;
        f.tps = " 600";
        f.livello = "1023";
        e.Take(f.Short());
        Grafici& page = e.Link().grafici;
        EXPECT_EQ(page.DatiMot[Lambda].Text(), c.figure);
        EXPECT_EQ(page.DatiMot[Tps].Text(), " 150");
        EXPECT_EQ(page.DatiMot[Livello].Text(), " 255");
        EXPECT_EQ(page.DatiMot[Giri].Text(), " 850") << "the rest stays whole";
        EXPECT_EQ(e.Raw(Tps), " 600") << "and the record too";
        e.Shell().state.RisoluzionePiena = shell::True;
        e.Take(f.Short());
        EXPECT_EQ(page.DatiMot[Tps].Text(), " 600");
    }
}

TEST(AggiornaPagina, RestsWhileTheInstrumentsAreClosedOrAStepRuns) {
    Engine e;
    e.Take(LiveFrame().Short());
    LiveFrame f;
    f.giri = "3000";
    f.digit1 = '2';
    SetInstrumentsInView(e.Link(), false);
    EXPECT_EQ(e.State().PaginaStrumenti, shell::False);
    e.Take(f.Short());
    EXPECT_EQ(e.Link().grafici.DatiMot[Giri].Text(), " 850");
    EXPECT_EQ(e.Link().grafici.Commu.Index(), 0);
    SetInstrumentsInView(e.Link(), true);
    e.Tick();
    EXPECT_EQ(e.Link().grafici.DatiMot[Giri].Text(), "3000");
    EXPECT_EQ(e.Link().grafici.Commu.Index(), 2);
    e.Shell().state.FaseAcq = 1;
    e.Take(LiveFrame().Short());
    EXPECT_EQ(e.Link().grafici.DatiMot[Giri].Text(), "3000");
    EXPECT_EQ(e.Link().grafici.Commu.Index(), 0) << "the replica of the switch follows all the same";
}

}  // namespace eculink
