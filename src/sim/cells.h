#pragma once

#include <algorithm>
#include <array>

namespace sim {

// A run of permanent cells with a live copy in working memory, byte for byte. Permanent addresses from 3072 on lie in
// INTERNA, those below in ESTERNA.
struct LiveCopy {
    int permanent;
    int working;
    int count;
};

// The live copies that the unit makes when the ignition comes on, by rising permanent address.
inline constexpr auto LiveCopies = std::to_array<LiveCopy>({
    // The learned map and its axes.
    {0, 217, 2},      // first breakpoint of revolutions
    {2, 1024, 28},    // the next fourteen
    {32, 219, 2},     // first load zone
    {34, 1052, 12},   // the six between
    {46, 221, 2},     // last load zone
    {48, 1064, 128},  // the map: sixteen columns of eight rows
    {176, 1374, 16},  // stepper reset in cut-off, by revolutions
    {192, 1390, 16},  // stepper reset at full load
    // Sensors.
    {3074, 0, 3},   // lambda probe: type, direction, absorption
    {3077, 4, 2},   // throttle signal type, self-adaptation
    {3079, 3, 1},   // divider of revolutions, tenths
    {3080, 77, 1},  // pulse wheel
    {3084, 7, 1},   // relay of the emulated probe
    {3088, 8, 4},   // throttle closed and open
    {3092, 12, 4},  // throttle in and out of cut-off
    {3096, 16, 3},  // throttle of the change-over, direction of the throttle
    {3100, 75, 1},
    {3102, 176, 1},
    {3104, 204, 4},  // manifold pressure at idle and at rest
    {3108, 19, 4},   // full load in and out
    {3112, 23, 2},   // into idle by throttle or pressure
    {3114, 179, 2},  // out of it
    {3116, 181, 2},  // out of idle by revolutions
    {3118, 234, 1},
    {3124, 25, 12},  // lambda thresholds: normal, idle, full load
    {3136, 51, 2},   // into idle by revolutions
    {3138, 43, 4},   // cut-off by revolutions
    {3142, 49, 2},
    {3144, 47, 2},
    {3146, 37, 2},  // revolutions of the change-over
    {3148, 41, 2},  // over-speed: back to gas, out to petrol
    {3150, 39, 2},
    {3152, 208, 2},  // lowest idle revolutions
    // Speeds and counts of the control.
    {3154, 90, 4},
    {3158, 88, 2},
    {3160, 198, 2},
    {3162, 196, 2},
    {3164, 76, 1},
    {3166, 72, 2},
    {3169, 136, 1},
    {3170, 54, 2},
    {3172, 128, 1},
    {3173, 130, 1},
    {3174, 129, 1},
    {3176, 168, 2},
    {3178, 200, 2},
    {3180, 132, 4},
    // Tank levels: empty, full, reserve, three levels, overfull.
    {3184, 106, 2},
    {3186, 116, 2},
    {3188, 108, 8},
    {3196, 118, 2},
    {3208, 66, 2},  // divider of revolutions, thousandths
    {3210, 235, 2},
    {3214, 56, 2},
    {3240, 210, 5},
    {3248, 82, 2},
    {3250, 80, 2},
    {3252, 84, 4},
    {3256, 140, 2},
    {3258, 170, 2},
    {3260, 183, 2},
    {3262, 177, 2},
    {3268, 229, 1},
    {3270, 232, 2},
    {3278, 215, 2},
    {3312, 122, 1},  // pressure sensor
    {3320, 251, 4},
    // Lambda map: breakpoints, thresholds, full load by revolutions.
    {3328, 1192, 14},
    {3344, 1206, 8},
    {3352, 74, 1},
    {3354, 137, 1},
    {3360, 1214, 160},
    {3520, 1407, 32},
    // Transients and releases.
    {3584, 142, 10},
    {3598, 152, 1},
    {3652, 223, 1},
    {3660, 185, 2},
    {3662, 153, 2},
    {3712, 155, 10},
    {3724, 165, 2},
    {3726, 167, 1},
    // Self-adaptation and its history.
    {3798, 241, 10},
    {3808, 1471, 16},
    {3824, 1499, 1},
    {3825, 1505, 3},
    {3828, 1525, 1},
    {3829, 1531, 1},
    {3830, 1508, 3},
    {3836, 138, 1},
    {3837, 120, 2},
    {3840, 255, 1},
    {3842, 256, 1},
});

// The cells of INTERNA that are one byte wide. The unit knows them: a word written to one of them whose second byte is
// FF stores the first byte alone.
inline constexpr auto ByteCells = std::to_array<int>({
    3074, 3075, 3076, 3077, 3078, 3079, 3080, 3082, 3084, 3098, 3100, 3102, 3118, 3164, 3166, 3167,
    3168, 3169, 3170, 3171, 3172, 3173, 3174, 3202, 3244, 3268, 3290, 3312, 3324, 3352, 3354, 3598,
    3640, 3641, 3642, 3643, 3652, 3726, 3768, 3769, 3770, 3771, 3802, 3803, 3804, 3805, 3806, 3807,
    3824, 3825, 3826, 3827, 3828, 3829, 3830, 3831, 3832, 3836, 3837, 3838, 3840, 3842, 3936,
});
static_assert(std::is_sorted(ByteCells.begin(), ByteCells.end()));

constexpr bool IsByteCell(int address) {
    return std::binary_search(ByteCells.begin(), ByteCells.end(), address);
}

// Cells of the working memory that the unit's control looks at.
namespace live {
inline constexpr int DividerThousandths = 66;
inline constexpr int PressureSensor = 122;
inline constexpr int Mode = 127;
inline constexpr int ThrottleCutOff = 12;
inline constexpr int FullLoadIn = 19;
inline constexpr int FullLoadOut = 21;
inline constexpr int LambdaUpper = 25;
inline constexpr int LambdaLower = 27;
inline constexpr int ChangeOver = 37;
inline constexpr int OverSpeed = 39;
inline constexpr int OverSpeedReturn = 41;
inline constexpr int CutOffOut = 43;
inline constexpr int CutOffIn = 45;
inline constexpr int FullLoadRevolutions = 49;
inline constexpr int IdleIn = 51;
inline constexpr int IdleOut = 181;
inline constexpr int IdleSpeed = 88;
inline constexpr int NormalSpeed = 90;
inline constexpr int FirstBreakpoint = 217;
inline constexpr int Breakpoints = 1024;
inline constexpr int LastBreakpoint = 39;
inline constexpr int FirstZone = 219;
inline constexpr int LastZone = 221;
inline constexpr int Zones = 1052;
inline constexpr int Map = 1064;
inline constexpr int CutOffReset = 1374;
inline constexpr int FullLoadReset = 1390;
inline constexpr int SelfAdaptation = 5;
inline constexpr auto TankLevels = std::to_array<int>({106, 108, 110, 112, 114, 116, 118});
}  // namespace live

inline constexpr int MapColumns = 16;
inline constexpr int MapRows = 8;

}  // namespace sim
