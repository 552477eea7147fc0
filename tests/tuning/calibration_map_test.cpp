#include "tuning/calibration_map.h"

#include <gtest/gtest.h>

#include "tuning/crafted_image.h"

namespace {

TEST(CalibrationMap, EveryNameLeadsToItsOwnRecord) {
    tuning::CalibrationTable table;
    tuning::CostruisciCalibrazione(table);
    struct Case {
        const tuning::CalibrationRecord& record;
        int Ind;
        int IndW;
        int Dim;
    };
    const Case cases[] = {
        {table.Sonda_Lambda[0], 3074, 0, 1},
        {table.Sonda_Lambda[4], 3122, -1, 2},
        {table.Altri_Lambda[0], 3124, 25, 2},
        {table.Altri_Lambda[4], 3132, 33, 2},
        {table.Altri_Lambda[5], 3134, 35, 2},
        {table.TPS[0], 3077, 4, 1},
        {table.TPS[3], 3098, 18, 1},
        {table.TPS[4], 3152, -1, 2},
        {table.TPS[5], 3078, 5, 1},
        {table.Altri_TPS[2], 3096, 16, 2},
        {table.MAP[0], 3104, -1, 2},
        {table.MAP[1], 3106, -1, 2},
        {table.Altri_MAP[3], 3114, 179, 2},
        {table.DIVGIRI_10, 3079, 3, 1},
        {table.DIVGIRI_1000, 3208, 66, 2},
        {table.RuotaFonica, 3080, 77, 1},
        {table.SogliaFG, 3150, 39, 2},
        {table.RitornoFG, 3148, 41, 2},
        {table.P1, 3312, 122, 1},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.record.Ind, c.Ind);
        EXPECT_EQ(c.record.IndW, c.IndW) << c.Ind;
        EXPECT_EQ(c.record.Dim, c.Dim) << c.Ind;
    }
}

TEST(CalibrationMap, ChoicesAreDecodedAndUnknownBytesHaveAMeaning) {
    struct Case {
        std::string_view name;
        int number;
        std::uint32_t byte;
        bool differentialProbes;
        double value;
    };
    constexpr Case cases[] = {
        {"Sonda_Lambda", 0, 2, false, 2},
        {"Sonda_Lambda", 0, 3, false, 0},
        {"Sonda_Lambda", 0, 255, true, 0},
        {"Sonda_Lambda", 1, 1, false, 1},
        {"Sonda_Lambda", 1, 2, true, 0},
        {"Sonda_Lambda", 2, 1, false, 1},
        {"Sonda_Lambda", 2, 2, false, 0},
        {"Sonda_Lambda", 2, 2, true, 2},
        {"Sonda_Lambda", 2, 3, true, 0},
        {"TPS", 0, 0, false, 0},
        {"TPS", 0, 255, false, 1},
        {"TPS", 5, 1, false, 1},
        {"RuotaFonica", -1, 255, false, 0},
        {"RuotaFonica", -1, 254, false, 1},
        {"RuotaFonica", -1, 170, false, 2},
        {"RuotaFonica", -1, 7, false, 0},
        {"P1", -1, 255, false, 0},
        {"P1", -1, 17, false, 1},
        {"P1", -1, 0, false, 2},
        {"P1", -1, 99, false, 2},
        {"SogliaFG", -1, 6200, false, 6200},
        {"MAP", 1, 65535, false, 65535},
    };
    for (const Case& c : cases) {
        const std::size_t number = tuning::CalibrationNumberOf(c.name, c.number);
        tuning_test::CraftedImage image;
        image.Put(tuning::CalibrationRows[number].Ind, c.byte);
        tuning::CalibrationTable table;
        tuning::DecodeCalibration(table, image.Reader(), true, c.differentialProbes);
        EXPECT_EQ(RecordAt(table, number).Letto, c.value) << c.name << c.number << ' ' << c.byte;
        EXPECT_EQ(RecordAt(table, number).Dato, c.value) << c.name << c.number << ' ' << c.byte;
    }
}

TEST(CalibrationMap, ABlankUnitHasLearnedNothing) {
    tuning_test::CraftedImage image;
    tuning::CalibrationTable table;
    tuning::DecodeCalibration(table, image.Reader(), true, true);
    tuning::DecodeCalibration(table, image.Reader(), false, true);
    for (std::size_t i = 0; i < tuning::CalibrationCount; ++i) {
        EXPECT_EQ(RecordAt(table, i).Letto, 0) << i;
        EXPECT_EQ(RecordAt(table, i).Dato, 0) << i;
    }
}

}  // namespace
