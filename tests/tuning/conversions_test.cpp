#include "tuning/conversions.h"

#include <gtest/gtest.h>

#include "tuning/parameter_names.h"

namespace {

using tuning::Context;

const tuning::Row& RowOf(std::string_view name) {
    return tuning::ParameterRows[tuning::FindRecord(name)->number];
}

tuning::Record RecordOf(std::string_view name) {
    const tuning::Row& row = RowOf(name);
    return {.EE = row.EE,
            .RAM = row.RAM,
            .NByte = row.NByte,
            .Min = 0,
            .Max = 0,
            .Dato = {},
            .raw = {},
            .shown = {},
            .tried = {},
            .row = &row};
}

Context Reduced(int tipoSonda) {
    Context context;
    context.tipoSonda = tipoSonda;
    return context;
}

TEST(Conversions, ProbeThresholdsFollowTheProbeTypeInTheReducedDisplayAlone) {
    struct Case {
        int type;
        double count;
        double shown;
        double back;
    };
    constexpr Case cases[] = {
        {0, 300, 300, 300},   {0, 65535, 65535, 65535},  // as it is
        {1, 0, 0, 0},         {1, 1, 0, 0},
        {1, 2, 1, 1},  // cut, not rounded
        {1, 100, 54, 99},     {1, 470, 255, 470},
        {1, 471, 255, 470},  // held at the end of the scale
        {2, 512, 127, 509},   {2, 1022, 254, 1018},
        {2, 1023, 255, 1023}, {2, 65535, 255, 1023},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(tuning::LambdaShown(c.count, Reduced(c.type)), c.shown) << c.type << ' ' << c.count;
        EXPECT_EQ(tuning::LambdaCount(c.shown, Reduced(c.type)), c.back) << c.type << ' ' << c.count;
        Context full = Reduced(c.type);
        full.risoluzionePiena = true;
        EXPECT_EQ(tuning::LambdaShown(c.count, full), c.count);
        EXPECT_EQ(tuning::LambdaCount(c.count, full), c.count);
    }
}

TEST(Conversions, EveryProbeThresholdIsShownAsOne) {
    for (std::string_view name : {"ValLam(1)", "ValLam(2)", "ValPC(11)", "ValPC(12)", "ValMin(5)", "ValMin(6)",
                                  "T_LamSup(0)", "T_LamInf(39)", "Giri_Lambda(1)", "Giri_Lambda(23)"}) {
        EXPECT_EQ(tuning::ToShown(RowOf(name), 470, Reduced(1)), 255) << name;
        EXPECT_EQ(tuning::ToRaw(RowOf(name), 255, Reduced(2)), 1023U) << name;
    }
    for (std::string_view name : {"Giri_Lambda(0)", "Giri_Lambda(24)", "LabTPS(0)", "ValPC(0)"}) {
        EXPECT_EQ(tuning::ToShown(RowOf(name), 470, Reduced(1)), 470) << name;
    }
}

TEST(Conversions, SpeedsArePeriodsInTheCell) {
    struct Case {
        std::uint32_t count;
        std::string shown;
        std::uint32_t back;
    };
    const Case cases[] = {
        {0, "       1", 977}, {1, "     977", 1}, {8, "     122", 8}, {24, "      41", 24}, {977, "       1", 977}};
    for (const Case& c : cases) {
        const auto shown = tuning::ToShown(RowOf("ValFreq(0)"), c.count, {});
        ASSERT_TRUE(shown);
        EXPECT_EQ(tuning::FigureText(*shown), c.shown);
        EXPECT_EQ(tuning::ToRaw(RowOf("ValFreq(0)"), std::stod(c.shown), {}), c.back) << c.count;
    }
    EXPECT_EQ(tuning::ToRaw(RowOf("ValTrans(2)"), 0, {}), 1U);
    EXPECT_EQ(tuning::ToRaw(RowOf("ValMin(7)"), 40, {}), 24U);
}

TEST(Conversions, ThrottleOrPressureAsTheSelectorSays) {
    Context context = Reduced(0);
    context.datiLunghi = true;
    context.tabella.tipoSensoreMAP = 0;
    struct Case {
        std::string_view name;
        bool cutOffByPressure;
        bool idleByPressure;
        double shown;  // of 500 counts
    };
    constexpr Case cases[] = {
        {"ValCut(3)", true, false, 1303}, {"ValCut(4)", false, true, 124},  {"ValMin(3)", false, true, 1303},
        {"ValMin(4)", true, false, 124},  {"ValPC(2)", false, false, 1303}, {"ValCom(0)", false, false, 124},
        {"ValTrans(6)", true, true, 124},
    };
    for (const Case& c : cases) {
        context.cutOffByPressure = c.cutOffByPressure;
        context.idleByPressure = c.idleByPressure;
        EXPECT_EQ(tuning::ToShown(RowOf(c.name), 500, context), c.shown) << c.name;
    }
    EXPECT_EQ(tuning::ToRaw(RowOf("ValCom(0)"), 124, context), 497U);
    context.idleByPressure = false;
    context.risoluzionePiena = true;
    EXPECT_EQ(tuning::ToShown(RowOf("ValTrans(6)"), 500, context), 500);
    EXPECT_EQ(tuning::ToShown(RowOf("ValMin(4)"), 500, context), 500) << "the full display shows the throttle as it is";
}

TEST(Conversions, ListsOfTwoKeepZeroAnd255AndLongerOnesTheIndex) {
    struct Case {
        std::string_view name;
        std::uint32_t cell;
        double shown;
        std::uint32_t back;
    };
    constexpr Case cases[] = {
        {"ScelgoMAP", 0, 0, 0}, {"ScelgoMAP", 255, 1, 255}, {"ScelgoMAP", 1, 1, 255}, {"Piatta", 7, 1, 255},
        {"StepCut", 3, 3, 3},   {"GestStep", 2, 2, 2},      {"VeloAuto", 5, 5, 5},    {"VeloAutoM", 255, 6, 6},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(tuning::ToShown(RowOf(c.name), c.cell, {}), c.shown) << c.name << ' ' << c.cell;
        EXPECT_EQ(tuning::ToRaw(RowOf(c.name), c.shown, {}), c.back) << c.name << ' ' << c.cell;
    }
}

TEST(Conversions, CountsStayWithinTheCell) {
    EXPECT_EQ(tuning::ToRaw(RowOf("ValLam(3)"), 300, {}), 255U);
    EXPECT_EQ(tuning::ToRaw(RowOf("ValCut(9)"), 70000, {}), 65535U);
    EXPECT_EQ(tuning::ToRaw(RowOf("ValCut(9)"), -5, {}), 0U);
}

TEST(Conversions, PercentOfTheScaleGoesBothWays) {
    EXPECT_DOUBLE_EQ(tuning::PercentOfCount(1000), 10.24);
    EXPECT_DOUBLE_EQ(tuning::CountOfPercent(10.24), 1000);
}

TEST(Conversions, AFigureNobodyEditedGoesOutAsItWasRead) {
    const Context context = Reduced(1);
    for (std::uint32_t count = 0; count <= 1023; ++count) {
        tuning::Record threshold = RecordOf("ValLam(1)");
        tuning::Record speed = RecordOf("ValLam(5)");
        tuning::TakeRead(threshold, count, context);
        tuning::TakeRead(speed, count, context);
        EXPECT_EQ(tuning::Outgoing(threshold, 1, context), count);
        EXPECT_EQ(tuning::Outgoing(speed, 0, context), count);
    }
    tuning::Record threshold = RecordOf("ValLam(1)");
    tuning::TakeRead(threshold, 100, context);
    EXPECT_EQ(threshold.Dato[0], "      54");
    threshold.Dato[1] = "54";
    EXPECT_EQ(tuning::Outgoing(threshold, 1, context), 100U) << "compared as numbers";
    threshold.Dato[1] = "      55";
    EXPECT_EQ(tuning::Outgoing(threshold, 1, context), 101U);
    EXPECT_EQ(tuning::Outgoing(threshold, 0, context), 100U) << "putting back what was read";
}

TEST(Conversions, APressureWithoutASensorHasNoFigureAndStillGoesOutAsRead) {
    tuning::Record record = RecordOf("ValPC(2)");
    tuning::TakeRead(record, 321, {});
    EXPECT_EQ(record.Dato[0], "    ****");
    EXPECT_EQ(tuning::Outgoing(record, 1, {}), 321U);
    record.Dato[1] = "       0";
    EXPECT_FALSE(tuning::Outgoing(record, 1, {}));
}

TEST(Conversions, ASelectorChangesTheFiguresAndNotTheCounts) {
    Context before = Reduced(0);
    before.tabella.linea[1] = {200, 820};
    before.cutOffByPressure = false;
    Context after = before;
    after.cutOffByPressure = true;
    tuning::Record record = RecordOf("ValCut(3)");
    tuning::TakeRead(record, 501, before);
    record.Dato[1] = tuning::FigureText(100);  // 401 counts
    tuning::ShowAnew(record, before, after);
    EXPECT_EQ(record.Dato[0], "     124") << "what was read is shown by the sensor for which it was read";
    EXPECT_EQ(record.Dato[1], "     581");
    EXPECT_EQ(tuning::Outgoing(record, 0, after), 501U);
    EXPECT_EQ(tuning::Outgoing(record, 1, after), 401U);
    EXPECT_TRUE(tuning::Differ(record));
    tuning::ShowAnew(record, after, before);
    EXPECT_EQ(record.Dato[1], "      99") << "cut to whole figures on the way";
    EXPECT_EQ(tuning::Outgoing(record, 1, before), 401U);
    // Read again, not edited: the count outlives a sensor that cannot show it.
    tuning::TakeRead(record, 50, before);
    tuning::ShowAnew(record, before, after);
    EXPECT_EQ(record.Dato[1], "     230");
    tuning::ShowAnew(record, after, before);
    EXPECT_EQ(tuning::Outgoing(record, 1, before), 50U);
    EXPECT_FALSE(tuning::Differ(record));
}

TEST(Conversions, TheUnitsCalibrationGivesTheContext) {
    tuning::CalibrationTable calibration;
    tuning::CostruisciCalibrazione(calibration);
    calibration.Sonda_Lambda[0].Letto = 2;
    calibration.P1.Letto = 1;
    calibration.MAP[0].Letto = 150;
    calibration.MAP[1].Letto = 800;
    calibration.MAP[0].Dato = 160;
    const Context context = tuning::ContextOf(calibration, true, true);
    EXPECT_EQ(context.tipoSonda, 2);
    EXPECT_EQ(context.tabella.tipoSensoreMAP, 1);
    EXPECT_EQ(context.tabella.linea[1].a, 150);
    EXPECT_EQ(context.tabella.linea[1].b, 800);
    EXPECT_EQ(context.tabella.linea[0].a, 160);
    EXPECT_TRUE(context.risoluzionePiena && context.datiLunghi);
}

}  // namespace
