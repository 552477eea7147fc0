#include "tuning/parameter_map.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <set>
#include <vector>

#include "tuning/calibration_map.h"
#include "tuning/parameter_names.h"

namespace {

using tuning::NoAddress;
using tuning::ParameterRows;
using tuning::Row;
using tuning::Source;

const Row& RowOf(std::string_view name) {
    const auto found = tuning::FindRecord(name);
    EXPECT_TRUE(found && !found->calibration) << name;
    return ParameterRows.at(found ? found->number : 0);
}

struct Home {
    int EE;
    int RAM;
    int NByte;

    bool operator==(const Home&) const = default;
};

void PrintTo(const Home& home, std::ostream* out) {
    *out << home.EE << '/' << home.RAM << '/' << home.NByte;
}

TEST(ParameterMap, CellsStandWhereTheUnitKeepsThem) {
    struct Case {
        std::string_view name;
        Home home;
    };
    constexpr Case cases[] = {
        // both ends of every table that follows a rule
        {"LabRPM(0)", {3328, 1192, 2}},
        {"LabRPM(6)", {3340, 1204, 2}},
        {"LabTPS(0)", {3344, 1206, 2}},
        {"LabTPS(3)", {3350, 1212, 2}},
        {"T_LamSup(0)", {3360, 1214, 2}},
        {"T_LamSup(39)", {3516, 1370, 2}},
        {"T_LamInf(0)", {3362, 1216, 2}},
        {"T_LamInf(39)", {3518, 1372, 2}},
        {"Giri_ResCO(0)", {176, 1374, 1}},
        {"Giri_ResCO(15)", {191, 1389, 1}},
        {"Giri_ResCO(16)", {192, 1390, 1}},
        {"Giri_ResCO(17)", {193, 1391, 1}},
        {"Giri_ResCO(31)", {207, 1405, 1}},
        {"Giri_Lambda(0)", {3328, 1192, 2}},
        {"Giri_Lambda(1)", {3520, 1407, 2}},
        {"Giri_Lambda(2)", {3522, 1409, 2}},
        {"Giri_Lambda(3)", {3330, 1194, 2}},
        {"Giri_Lambda(21)", {3342, 1206, 2}},
        {"Giri_Lambda(22)", {3548, 1435, 2}},
        {"Giri_Lambda(23)", {3550, 1437, 2}},
        {"Giri_Lambda(24)", {3150, 39, 2}},
        {"TransitT(0)", {3584, 142, 2}},
        {"TransitT(1)", {3586, 144, 2}},
        {"TransitT(2)", {3600, 0, 2}},
        {"TransitT(5)", {3640, 0, 1}},
        {"TransitT(19)", {3592, 150, 2}},
        {"TransitT(21)", {3622, 0, 2}},
        {"TransitT(23)", {3643, 0, 1}},
        {"TransitT(24)", {3712, 155, 2}},
        {"TransitT(25)", {3714, 157, 2}},
        {"TransitT(27)", {3752, 0, 2}},
        {"TransitT(47)", {3771, 0, 1}},
        {"RPMZone(0)", {0, 217, 2}},
        {"RPMZone(1)", {2, 1024, 2}},
        {"RPMZone(15)", {30, 1052, 2}},
        {"RPMZone(16)", {3150, 39, 2}},
        // fields of each page
        {"ScelgoMAP", {3352, 74, 1}},
        {"ValLam(4)", {3166, 72, 1}},
        {"ValCut(12)", {3210, 235, 2}},
        {"StepCut", {3168, 0, 1}},
        {"ValMin(1)", {3116, 181, 2}},
        {"ValMin(13)", {3290, 0, 1}},
        {"ValPC(8)", {3242, 212, 2}},
        {"ValTrans(4)", {3270, 232, 2}},
        {"ValRil(1)", {3724, 165, 2}},
        {"ValFG(1)", {3148, 41, 2}},
        {"ValFreq(7)", {3254, 86, 2}},
        {"ValStechio(1)", {3173, 130, 1}},
        {"ValAuto(1)", {NoAddress, 0, 2}},
        {"ValAuto(10)", {3807, 250, 1}},
        {"ValAutoE(10)", {3829, 1531, 1}},
        {"VeloAutoM", {3840, 255, 1}},
        {"TipoCommu", {3082, 0, 1}},
        {"ValCom(9)", {3162, 196, 2}},
        {"ValSerb(5)", {3186, 116, 2}},
        {"ValEMU(11)", {4002, 0, 2}},
        {"Anom(3)", {3276, 0, 2}},
        {"FunzLed", {3324, 0, 1}},
    };
    for (const Case& c : cases) {
        const Row& row = RowOf(c.name);
        EXPECT_EQ((Home{row.EE, row.RAM, row.NByte}), c.home) << c.name;
    }
}

TEST(ParameterMap, SettingsKeepTheirNumbers) {
    struct Case {
        std::string_view name;
        std::size_t number;
    };
    constexpr Case cases[] = {
        {"TipoCommu", 321},    {"ValCom(0)", 322},    {"ValCom(9)", 331},    {"Oscilla", 332},      {"ValSerb(0)", 333},
        {"ValSerb(5)", 334},   {"ValSerb(1)", 335},   {"ValSerb(4)", 338},   {"ValSerb(6)", 339},   {"ConfR", 340},
        {"ValEMU(0)", 341},    {"ValEMU(11)", 352},   {"ValInibiz(0)", 353}, {"ValInibiz(1)", 354}, {"AbilEV", 355},
        {"Anom(0)", 356},      {"Anom(3)", 359},      {"Piatta", 360},       {"ValPiatta", 361},    {"FunzLed", 362},
        {"Memoria(321)", 321}, {"Memoria(362)", 362}, {"Memoria(0)", 0},
    };
    for (const Case& c : cases) {
        const auto found = tuning::FindRecord(c.name);
        ASSERT_TRUE(found) << c.name;
        EXPECT_EQ(found->number, c.number) << c.name;
    }
}

TEST(ParameterMap, EveryRecordIsInItsImageAndFiveAreSpare) {
    std::size_t spare = 0;
    for (const Row& row : ParameterRows) {
        spare += row.name.empty() ? 1 : 0;
        EXPECT_TRUE(row.NByte == 1 || row.NByte == 2) << row.name;
        if (row.name.empty() || row.EE == NoAddress) continue;
        const int end = row.EE + row.NByte;
        EXPECT_TRUE((row.EE >= 0 && end <= 1024) || (row.EE >= 3072 && end <= 4096)) << row.name << row.number;
    }
    EXPECT_EQ(spare, 5U);
}

TEST(ParameterMap, RowsOfTheTransientTablesShareTheirBreakpoints) {
    for (int first : {0, 24}) {
        for (int row = 0; row < 3; ++row) {
            const auto name = [&](int column) { return "TransitT(" + std::to_string(first + column) + ")"; };
            const Row& end = RowOf(name(6 * row + 1));
            const Row& next = RowOf(name(6 * (row + 1)));
            EXPECT_EQ((Home{end.EE, end.RAM, end.NByte}), (Home{next.EE, next.RAM, next.NByte})) << first << ' ' << row;
        }
    }
}

// Two records either are the same cell, with the same working copy, or have no byte in common in either memory. One
// working copy is known to stand for two cells: the eighth rev breakpoint and the first load breakpoint.
TEST(ParameterMap, NoTwoCellsOverlap) {
    struct Named {
        std::string name;
        Home home;
    };
    std::vector<Named> all;
    for (const Row& row : ParameterRows) {
        if (row.EE != NoAddress)
            all.push_back({std::string(row.name) + std::to_string(row.number), {row.EE, row.RAM, row.NByte}});
    }
    for (const tuning::CalibrationRow& row : tuning::CalibrationRows) {
        all.push_back({std::string(row.name) + std::to_string(row.number), {row.Ind, std::max(row.IndW, 0), row.Dim}});
    }
    const auto overlap = [](int a, int aBytes, int b, int bBytes) { return a < b + bBytes && b < a + aBytes; };
    for (std::size_t i = 0; i < all.size(); ++i) {
        for (std::size_t j = i + 1; j < all.size(); ++j) {
            const auto& [nameA, a] = all[i];
            const auto& [nameB, b] = all[j];
            if (a == b) continue;
            EXPECT_FALSE(overlap(a.EE, a.NByte, b.EE, b.NByte)) << nameA << ' ' << nameB;
            if (a.RAM == 0 || b.RAM == 0 || (nameA == "LabTPS0" && nameB == "Giri_Lambda21")) continue;
            EXPECT_FALSE(overlap(a.RAM, a.NByte, b.RAM, b.NByte)) << nameA << ' ' << nameB;
        }
    }
}

TEST(ParameterMap, ConstantLimitsDoNotCrossAndFitTheCell) {
    for (const Row& row : ParameterRows) {
        if (row.min.source != Source::Constant || row.max.source != Source::Constant) continue;
        EXPECT_LE(row.min.value, row.max.value) << row.name << row.number;
        EXPECT_GE(row.min.value, 0) << row.name << row.number;
        EXPECT_LE(row.max.value, row.NByte == 1 ? 255 : 65535) << row.name << row.number;
    }
}

TEST(ParameterMap, SpeedsAreAllTheFieldsThatShareACellWithAStepFrequency) {
    std::set<int> speedCells;
    for (const Row& row : ParameterRows) {
        if (row.conversion == tuning::Conversion::Speed) speedCells.insert(row.EE);
    }
    EXPECT_EQ(speedCells.size(), 12U);
    for (const Row& row : ParameterRows) {
        EXPECT_EQ(row.conversion == tuning::Conversion::Speed, speedCells.contains(row.EE)) << row.name << row.number;
        EXPECT_TRUE(row.max.value != 130 || speedCells.contains(row.EE)) << row.name << row.number;
    }
}

TEST(ParameterMap, ANewInstallationStartsFromItsFiguresAndNothingElseHasAny) {
    const auto memoria = std::make_unique<tuning::MemoriaTable>();
    (*memoria)[7].Dato[2] = "left over";
    tuning::CostruisciMemoria(*memoria);
    struct Case {
        std::size_t number;
        std::string figure;
    };
    const Case cases[] = {{321, "       1"}, {322, "     150"}, {330, "    5000"}, {333, "     125"},
                          {334, "     500"}, {335, "     143"}, {339, "     528"}, {340, "       0"},
                          {351, "     112"}, {352, "     133"}};
    for (const Case& c : cases) {
        EXPECT_EQ((*memoria)[c.number].Dato[0], c.figure) << c.number;
        EXPECT_EQ((*memoria)[c.number].Dato[1], c.figure) << c.number;
    }
    for (std::size_t i = 0; i < memoria->size(); ++i) {
        const tuning::Record& record = (*memoria)[i];
        EXPECT_EQ(record.Dato[0] == std::string(8, ' '), i < 321 || i > 352) << i;
        EXPECT_EQ(record.row, &ParameterRows[i]);
        EXPECT_FALSE(record.raw) << i;
        EXPECT_EQ(record.Dato[2], std::string(8, ' ')) << i;
    }
}

TEST(ParameterNames, EveryRecordIsFoundByItsOwnName) {
    const auto text = [](std::string_view name, int number) {
        return std::string(name) + (number < 0 ? "" : "(" + std::to_string(number) + ")");
    };
    for (std::size_t i = 0; i < ParameterRows.size(); ++i) {
        const auto byNumber = tuning::FindRecord("Memoria(" + std::to_string(i) + ")");
        ASSERT_TRUE(byNumber);
        EXPECT_EQ(byNumber->number, i);
        if (ParameterRows[i].name.empty()) continue;
        const auto byName = tuning::FindRecord(text(ParameterRows[i].name, ParameterRows[i].number));
        ASSERT_TRUE(byName && !byName->calibration) << i;
        EXPECT_EQ(byName->number, i);
    }
    for (std::size_t i = 0; i < tuning::CalibrationCount; ++i) {
        const tuning::CalibrationRow& row = tuning::CalibrationRows[i];
        const auto found = tuning::FindRecord(text(row.name, row.number));
        ASSERT_TRUE(found && found->calibration) << row.name;
        EXPECT_EQ(found->number, i);
    }
}

TEST(ParameterNames, WhatIsNoNameFindsNothing) {
    for (std::string_view text : {"",
                                  "(",
                                  ")",
                                  "()",
                                  "(1)",
                                  "ValMin",
                                  "ValMin(",
                                  "ValMin()",
                                  "ValMin(2)",
                                  "ValMin(14)",
                                  "ValMin(-1)",
                                  "ValMin(+1)",
                                  "ValMin(01)",
                                  "ValMin( 1)",
                                  "ValMin(1) ",
                                  " ValMin(1)",
                                  "ValMin(1))",
                                  "ValMin(1)x",
                                  "ValMin(1.0)",
                                  "valmin(1)",
                                  "ValMin(99999999999999999999)",
                                  "ValMin 1",
                                  "Memoria",
                                  "Memoria(363)",
                                  "Memoria(-1)",
                                  "ScelgoMAP(0)",
                                  "SogliaFG(0)",
                                  "MAP",
                                  "MAP(2)",
                                  "Giri_Lambda(25)",
                                  "T_LamSup(40)",
                                  "Giri_ResCO(32)",
                                  "TransitT(48)"}) {
        EXPECT_FALSE(tuning::FindRecord(text)) << text;
    }
}

}  // namespace
