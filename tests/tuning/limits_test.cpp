#include "tuning/limits.h"

#include <gtest/gtest.h>

#include <memory>

#include "tuning/crafted_image.h"
#include "tuning/parameter_names.h"

namespace {

// A unit whose image sets the limits.
struct Unit {
    Unit() {
        image.Put(3120, 100);  // probe
        image.Put(3122, 900);
        image.Put(3130, 300);  // lean and rich at idle
        image.Put(3128, 700);
        image.Put(3136, 900);  // revs: idle, cut-off, over-speed
        image.Put(3140, 1800);
        image.Put(3150, 6200);
        image.Put(3088, 60);  // throttle
        image.Put(3090, 900);
        image.Put(3104, 200);  // manifold
        image.Put(3106, 820);
        image.Put(3100, 255);  // cut-off looks at the throttle,
        image.Put(3102, 0);    // idle at the manifold
        tuning::CostruisciMemoria(memoria);
        context.tipoSonda = 2;
        context.tabella.linea[1] = {200, 820};
        Decode();
    }

    void Decode() {
        tuning::TakeSelectors(context, memoria, image.Reader());
        tuning::SetLimits(memoria, image.Reader(), context);
    }

    std::size_t NumberOf(std::string_view name) const { return tuning::FindRecord(name)->number; }
    tuning::Record& Of(std::string_view name) { return memoria[NumberOf(name)]; }

    void Edit(std::string_view name, double figure) {
        Of(name).Dato[1] = tuning::FigureText(figure);
        tuning::FollowNeighbour(memoria, NumberOf(name), image.Reader(), context);
    }

    void Read(std::string_view name, std::uint32_t count) {
        tuning::TakeRead(Of(name), count, context);
        tuning::FollowNeighbour(memoria, NumberOf(name), image.Reader(), context);
    }

    tuning_test::CraftedImage image;
    tuning::MemoriaTable memoria;
    tuning::Context context;
};

struct Expected {
    std::string_view name;
    double Min;
    double Max;
};

void Expect(Unit& unit, std::initializer_list<Expected> table) {
    for (const Expected& e : table) {
        EXPECT_EQ(unit.Of(e.name).Min, e.Min) << e.name;
        EXPECT_EQ(unit.Of(e.name).Max, e.Max) << e.name;
    }
}

TEST(Limits, TheImageFillsWhatTheTableLeavesOpen) {
    const auto unit = std::make_unique<Unit>();
    unit->context.risoluzionePiena = true;
    unit->Decode();
    Expect(*unit, {{"ValLam(1)", 100, 900},
                   {"ValLam(2)", 100, 900},
                   {"ValPC(11)", 100, 900},
                   {"ValPC(12)", 100, 900},
                   {"ValCut(0)", 900, 6200},
                   {"ValCut(1)", 900, 6200},
                   {"ValMin(12)", 900, 6200},  // the cell of ValCut(1)
                   {"ValPC(0)", 0, 6200},
                   {"ValMin(0)", 500, 1800},
                   {"ValMin(1)", 500, 1800},
                   {"ValMin(5)", 0, 700},
                   {"ValMin(6)", 300, 900},
                   {"ValFG(0)", 4500, 10000},
                   {"ValFG(1)", 1500, 6200},
                   {"ValCut(3)", 60, 900},
                   {"ValCut(4)", 60, 900},
                   {"ValMin(3)", 380, 1000},
                   {"ValMin(4)", 380, 1000},
                   {"ValPC(2)", 0, 1500},
                   {"ValTrans(2)", 0, 130},
                   {"ValFreq(11)", 0, 130},  // the cell of ValTrans(2)
                   {"ValFreq(0)", 1, 130},
                   {"ValFreq(3)", 1, 130},
                   {"ValFreq(9)", 1, 130},
                   {"ValAutoE(11)", 0, 65535},
                   {"ValAutoE(14)", 0, 255},
                   {"RPMZone(16)", 4500, 10000},  // the over-speed threshold
                   {"Giri_Lambda(24)", 4500, 10000},
                   {"RPMZone(15)", 0, 65535},
                   {"T_LamSup(3)", 0, 65535},
                   {"LabTPS(0)", 0, 1023},
                   {"TransitT(5)", 0, 255}});
}

TEST(Limits, TheReducedDisplayScalesTheLimitsOfWhatItScales) {
    const auto unit = std::make_unique<Unit>();
    Expect(*unit, {{"ValLam(1)", 24, 224},
                   {"ValMin(5)", 0, 174},
                   {"ValMin(6)", 74, 224},
                   {"T_LamSup(3)", 0, 255},
                   {"ValCut(3)", 14, 224},
                   {"ValMin(3)", 380, 1000},
                   {"ValCut(0)", 900, 6200},
                   {"ValCom(0)", 0, 255},
                   {"ValTrans(6)", 0, 255}});
}

TEST(Limits, AThrottleWiredTheOtherWayRoundHasItsEndsInOrder) {
    const auto unit = std::make_unique<Unit>();
    unit->context.risoluzionePiena = true;
    unit->image.Put(3088, 900);
    unit->image.Put(3090, 60);
    unit->Decode();
    Expect(*unit, {{"ValCut(3)", 60, 900}});
}

TEST(Limits, SelectorsMoveTheirThresholdsFromOneSensorToTheOther) {
    const auto unit = std::make_unique<Unit>();
    unit->Of("SogliaTM").Dato[1] = tuning::FigureText(0);
    tuning::TakeSelectors(unit->context, unit->memoria, unit->image.Reader());
    EXPECT_TRUE(unit->context.cutOffByPressure) << "the edited figure counts, not the image";
    tuning::FollowNeighbour(unit->memoria, unit->NumberOf("SogliaTM"), unit->image.Reader(), unit->context);
    Expect(*unit, {{"ValCut(3)", 380, 1000}, {"ValCut(4)", 380, 1000}});
}

TEST(Limits, WithoutAnAcquiredSensorAnyPressurePasses) {
    const auto unit = std::make_unique<Unit>();
    unit->context.tabella.linea[1] = {};
    unit->Decode();
    Expect(*unit, {{"ValMin(3)", 0, 1500}});
}

TEST(Limits, FiguresReadFromTheUnitTakeThePlaceOfTheImage) {
    const auto unit = std::make_unique<Unit>();
    unit->context.risoluzionePiena = true;
    unit->Decode();
    unit->Read("ValFG(0)", 5000);
    unit->Read("ValMin(6)", 650);
    unit->Read("ValMin(5)", 320);
    Expect(*unit, {{"ValFG(1)", 1500, 5000}, {"ValMin(5)", 0, 650}, {"ValMin(6)", 320, 900}});
    unit->Edit("ValFG(0)", 7000);
    Expect(*unit, {{"ValFG(1)", 1500, 5000}});
}

TEST(Limits, TankLevelsCannotCross) {
    const auto unit = std::make_unique<Unit>();
    Expect(*unit, {{"ValSerb(0)", 0, 143},
                   {"ValSerb(1)", 125, 230},
                   {"ValSerb(2)", 143, 318},
                   {"ValSerb(3)", 230, 405},
                   {"ValSerb(4)", 318, 500},
                   {"ValSerb(5)", 405, 528},
                   {"ValSerb(6)", 500, 1023},
                   {"Memoria(334)", 405, 528}});
    unit->Edit("ValSerb(5)", 510);
    Expect(*unit, {{"ValSerb(4)", 318, 510}, {"ValSerb(5)", 405, 528}, {"ValSerb(6)", 510, 1023}});
    unit->Read("ValSerb(0)", 10);
    Expect(*unit, {{"ValSerb(1)", 10, 230}});
}

TEST(Limits, FollowingOneRecordEndsWhereSettingAllDoes) {
    const auto unit = std::make_unique<Unit>();
    unit->Read("ValMin(6)", 600);
    unit->Edit("ValSerb(2)", 300);
    const auto whole = std::make_unique<tuning::MemoriaTable>(unit->memoria);
    tuning::SetLimits(*whole, unit->image.Reader(), unit->context);
    for (std::size_t i = 0; i < whole->size(); ++i) {
        EXPECT_EQ((*whole)[i].Min, unit->memoria[i].Min) << i;
        EXPECT_EQ((*whole)[i].Max, unit->memoria[i].Max) << i;
    }
}

TEST(Limits, APageAcceptsWhatLiesWithin) {
    const auto unit = std::make_unique<Unit>();
    struct Case {
        std::string_view name;
        double figure;
        bool accepted;
    };
    constexpr Case cases[] = {
        {"ValMin(1)", 499, false}, {"ValMin(1)", 500, true}, {"ValMin(1)", 1800, true}, {"ValMin(1)", 1801, false},
        {"VeloAuto", 6, true},     {"VeloAuto", 7, false},   {"StepCut", 3, true},      {"StepCut", 255, false},
        {"TipoCutOff", -1, false}, {"ValFreq(11)", 0, true}, {"ValFreq(0)", 0, false},
    };
    for (const Case& c : cases)
        EXPECT_EQ(tuning::WithinLimits(unit->Of(c.name), c.figure), c.accepted) << c.name << c.figure;
}

}  // namespace
