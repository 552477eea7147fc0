#include "link/frames/pressure.h"

#include <gtest/gtest.h>

namespace {

frames::MAPTable Sensor(int type) {
    // Just acquired: 100 and 720 counts; in the unit: 160 and 780.
    return {.tipoSensoreMAP = type, .linea = {{{100, 720}, {160, 780}}}};
}

TEST(Pressure, EachSensorHasItsOwnCurveAndTheWayBack) {
    struct Case {
        int type;
        int modo;
        bool lungo;
        double count;
        double mbar;
    };
    constexpr Case cases[] = {
        {0, 1, true, 0, 93},     {0, 1, true, 50, 214},
        {1, 1, true, 182, 0},    {1, 1, true, 1023, 841 * 3230.0 / 1023},
        {2, 1, true, 160, 380},  {2, 1, true, 780, 1000},
        {2, 0, true, 100, 380},                             // type 2: the line, by mode
        {0, 1, false, 160, 380}, {1, 0, false, 720, 1000},  // a short frame: the line
    };
    for (const Case& c : cases) {
        const auto mbar = frames::ConverteMAP(c.count, c.modo, c.lungo, Sensor(c.type));
        ASSERT_TRUE(mbar) << c.type << ' ' << c.count;
        EXPECT_NEAR(*mbar, c.mbar, 1e-9) << c.type << ' ' << c.count;
        EXPECT_EQ(frames::MAPCount(c.mbar, c.modo, c.lungo, Sensor(c.type)), c.count) << c.type << ' ' << c.mbar;
    }
}

TEST(Pressure, TheLineIsNotBelievedBelowAHundredAndTheCurvesAre) {
    const frames::MAPTable steep{.tipoSensoreMAP = 1, .linea = {{{}, {500, 600}}}};
    EXPECT_EQ(frames::ConverteMAP(0, 1, false, steep), 100);
    EXPECT_LT(*frames::ConverteMAP(0, 1, true, steep), 0);
}

TEST(Pressure, CountsStayOnTheConverter) {
    EXPECT_EQ(frames::MAPCount(0, 1, true, Sensor(0)), 0);
    EXPECT_EQ(frames::MAPCount(9000, 1, true, Sensor(0)), 1023);
    EXPECT_EQ(frames::MAPCount(380.5, 1, false, Sensor(2)), 160) << "half a count goes to the even neighbour";
    EXPECT_EQ(frames::MAPCount(381.5, 1, false, Sensor(2)), 162);
}

TEST(Pressure, WithoutAnAcquiredSensorThereIsNoValue) {
    const frames::MAPTable none{.tipoSensoreMAP = 0, .linea = {}};
    EXPECT_FALSE(frames::ConverteMAP(300, 1, false, none));
    EXPECT_FALSE(frames::MAPCount(300, 0, false, none));
    EXPECT_TRUE(frames::ConverteMAP(300, 1, true, none)) << "a known curve needs no acquisition";
}

}  // namespace
