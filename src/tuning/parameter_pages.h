#pragma once

#include "tuning/parameter_rows.h"

// The single parameters, page by page, in the order of the pages' fields. Addresses, widths and limits are those of
// the unit's own program.
namespace tuning::table {

using enum Conversion;

constexpr Bound At(int value) {
    return {Source::Constant, value};
}
constexpr Bound Cell(int address) {
    return {Source::Cell, address};
}
constexpr Bound Read(int address) {
    return {Source::Dato0, address};
}
constexpr Bound Edited(int address) {
    return {Source::Dato1, address};
}
inline constexpr Bound SensorLow{Source::SensorLow, 0};
inline constexpr Bound SensorHigh{Source::SensorHigh, 0};
inline constexpr Bound Shared{Source::SameCell, 0};

inline constexpr int SpeedLimit = 130;  // steps a second
inline constexpr int WordLimit = 65535;
inline constexpr int ByteLimit = 255;
inline constexpr int CounterLimit = 32767;
inline constexpr int ConverterLimit = 1023;

// Cells that serve others as limits.
inline constexpr int LowestLambda = 3120;  // extremes of the probe seen by the acquisition
inline constexpr int HighestLambda = 3122;
inline constexpr int IdleRevs = 3136;    // ValMin(0)
inline constexpr int CutOffRevs = 3140;  // ValCut(1)
inline constexpr int OverSpeed = 3150;   // ValFG(0)
inline constexpr int IdleLean = 3130;    // ValMin(5)
inline constexpr int IdleRich = 3128;    // ValMin(6)

inline constexpr Row Singles[] = {
    // Probe
    {"ScelgoMAP", -1, 3352, 74, 1, At(0), At(1), Choice, 2},
    {"ValLam", 1, 3126, 27, 2, Cell(LowestLambda), Cell(HighestLambda), Lambda},
    {"ValLam", 2, 3124, 25, 2, Cell(LowestLambda), Cell(HighestLambda), Lambda},
    {"ValLam", 3, 3167, 73, 1, At(3), At(100)},
    {"ValLam", 4, 3166, 72, 1, At(1), At(100)},
    {"ValLam", 5, 3154, 90, 2, At(1), At(SpeedLimit), Speed},
    {"ValLam", 6, 3156, 92, 2, At(1), At(SpeedLimit), Speed},
    // Cut-off
    {"ValCut", 0, 3138, 43, 2, Cell(IdleRevs), Cell(OverSpeed)},
    {"ValCut", 1, CutOffRevs, 45, 2, Cell(IdleRevs), Cell(OverSpeed)},
    {"SogliaTM", -1, 3100, 75, 1, At(0), At(1), Choice, 2},
    {"ValCut", 3, 3092, 12, 2, SensorLow, SensorHigh, CutOffThreshold},
    {"ValCut", 4, 3094, 14, 2, SensorLow, SensorHigh, CutOffThreshold},
    {"ValCut", 5, 3252, 84, 2, At(1), At(SpeedLimit), Speed},
    {"ValCut", 6, 3250, 80, 2, At(1), At(SpeedLimit), Speed},
    {"TipoCutOff", -1, 3169, 136, 1, At(0), At(1), Choice, 2},
    {"ValCut", 8, 3258, 170, 2, At(1), At(SpeedLimit), Speed},
    {"ValCut", 9, 3178, 200, 2, At(1), At(1000)},
    {"StepCut", -1, 3168, NoWorkingCopy, 1, At(0), At(3), Choice, 4},
    {"ValCut", 11, 3268, 229, 1, At(1), At(100)},
    {"ValCut", 12, 3210, 235, 2, At(0), At(WordLimit)},
    // Idle
    {"ValMin", 0, IdleRevs, 51, 2, At(500), Cell(CutOffRevs)},
    {"ValMin", 1, 3116, 181, 2, At(500), Cell(CutOffRevs)},
    {"SogliaMin", -1, 3102, 176, 1, At(0), At(1), Choice, 2},
    {"ValMin", 3, 3112, 23, 2, SensorLow, SensorHigh, IdleThreshold},
    {"ValMin", 4, 3114, 179, 2, SensorLow, SensorHigh, IdleThreshold},
    {"ValMin", 5, IdleLean, 31, 2, At(0), Read(IdleRich), Lambda},
    {"ValMin", 6, IdleRich, 29, 2, Read(IdleLean), Cell(HighestLambda), Lambda},
    {"ValMin", 7, 3260, 183, 2, At(1), At(SpeedLimit), Speed},
    {"ValMin", 8, 3158, 88, 2, At(1), At(SpeedLimit), Speed},
    {"ValMin", 9, 3164, 76, 1, At(1), At(50)},
    {"Inibiz", -1, 3118, 234, 1, At(0), At(1), Choice, 2},
    {"ValMin", 11, 3160, 198, 2, At(1), At(WordLimit)},
    {"ValMin", 12, CutOffRevs, 45, 2, Shared, Shared},
    {"ValMin", 13, 3290, NoWorkingCopy, 1, At(0), At(ByteLimit)},
    // Full load
    {"ValPC", 0, 3142, 49, 2, At(0), Cell(OverSpeed)},
    {"ValPC", 1, 3144, 47, 2, At(0), Cell(OverSpeed)},
    {"ValPC", 2, 3108, 19, 2, At(0), At(1500), Pressure},
    {"ValPC", 3, 3110, 21, 2, At(0), At(1500), Pressure},
    {"GestStep", -1, 3171, 55, 1, At(0), At(2), Choice, 3},
    {"ValPC", 5, 3256, 140, 2, At(1), At(SpeedLimit), Speed},
    {"ValPC", 6, 3244, 214, 1, At(0), At(50)},
    {"ValPC", 7, 3240, 210, 2, At(1), At(WordLimit)},
    {"ValPC", 8, 3242, 212, 2, At(1), At(1000)},
    {"TipoMappa", -1, 3170, 54, 1, At(0), At(1), Choice, 2},
    {"PCFunz", -1, 3354, 137, 1, At(0), At(1), Choice, 2},
    {"ValPC", 11, 3134, 35, 2, Cell(LowestLambda), Cell(HighestLambda), Lambda},
    {"ValPC", 12, 3132, 33, 2, Cell(LowestLambda), Cell(HighestLambda), Lambda},
    // Transients
    {"AbilTrans", -1, 3598, 152, 1, At(0), At(1), Choice, 2},
    {"ValTrans", 1, 3662, 153, 2, At(0), At(WordLimit)},
    {"ValTrans", 2, 3262, 177, 2, At(0), At(SpeedLimit), Speed},
    {"ValTrans", 3, 3658, NoWorkingCopy, 2, At(0), At(WordLimit)},
    {"ValTrans", 4, 3270, 232, 2, At(0), At(WordLimit)},
    {"TipoPomp", -1, 3652, 223, 1, At(0), At(1), Choice, 2},
    {"ValTrans", 6, 3660, 185, 2, At(0), At(ConverterLimit), Throttle},
    // Releases
    {"AbilRil", -1, 3726, 167, 1, At(0), At(1), Choice, 2},
    {"ValRil", 1, 3724, 165, 2, At(0), At(WordLimit)},
    // Over-speed
    {"ValFG", 0, OverSpeed, 39, 2, At(4500), At(10000)},
    {"ValFG", 1, 3148, 41, 2, At(1500), Read(OverSpeed)},
    // Control frequency
    {"ValFreq", 0, 3158, 88, 2, Shared, Shared, Speed},
    {"ValFreq", 1, 3154, 90, 2, Shared, Shared, Speed},
    {"ValFreq", 2, 3156, 92, 2, Shared, Shared, Speed},
    {"ValFreq", 3, 3248, 82, 2, At(1), At(SpeedLimit), Speed},
    {"ValFreq", 4, 3250, 80, 2, Shared, Shared, Speed},
    {"ValFreq", 5, 3252, 84, 2, Shared, Shared, Speed},
    {"ValFreq", 6, 3258, 170, 2, Shared, Shared, Speed},
    {"ValFreq", 7, 3254, 86, 2, At(1), At(SpeedLimit), Speed},
    {"ValFreq", 8, 3256, 140, 2, Shared, Shared, Speed},
    {"ValFreq", 9, 3162, 196, 2, Shared, Shared, Speed},
    {"ValFreq", 10, 3260, 183, 2, Shared, Shared, Speed},
    {"ValFreq", 11, 3262, 177, 2, Shared, Shared, Speed},
    // Stoichiometry
    {"ValStechio", 0, 3172, 128, 1, At(0), At(ByteLimit)},
    {"ValStechio", 1, 3173, 130, 1, At(0), At(ByteLimit)},
    {"ValStechio", 2, 3174, 129, 1, At(0), At(ByteLimit)},
    // Self-adaptation, first page
    {"VeloAuto", -1, 3842, 256, 1, At(0), At(1), SpeedChoice, 7},
    {"ValAuto", 1, NoAddress, NoWorkingCopy, 2, At(0), At(5)},
    {"ValAuto", 2, 3796, NoWorkingCopy, 2, At(0), At(WordLimit)},
    {"ValAuto", 3, 3798, 241, 2, At(0), At(WordLimit)},
    {"ValAuto", 4, 3800, 243, 2, At(0), At(WordLimit)},
    {"ValAuto", 5, 3802, 245, 1, At(0), At(ByteLimit)},
    {"ValAuto", 6, 3803, 246, 1, At(0), At(ByteLimit)},
    {"ValAuto", 7, 3804, 247, 1, At(0), At(ByteLimit)},
    {"ValAuto", 8, 3805, 248, 1, At(0), At(ByteLimit)},
    {"ValAuto", 9, 3806, 249, 1, At(0), At(ByteLimit)},
    {"ValAuto", 10, 3807, 250, 1, At(0), At(ByteLimit)},
    // Self-adaptation, second page
    {"VeloAutoE", -1, 3842, 256, 1, At(0), At(1), SpeedChoice, 7},
    {"ValAutoE", 2, 3825, 1505, 1, At(0), At(ByteLimit)},
    {"ValAutoE", 3, 3826, 1506, 1, At(0), At(ByteLimit)},
    {"ValAutoE", 4, 3827, 1507, 1, At(0), At(ByteLimit)},
    {"ValAutoE", 5, 3824, 1499, 1, At(0), At(ByteLimit)},
    {"ValAutoE", 6, 3828, 1525, 1, At(0), At(ByteLimit)},
    {"ValAutoE", 7, 3830, 1508, 1, At(0), At(ByteLimit)},
    {"ValAutoE", 8, 3831, 1509, 1, At(0), At(ByteLimit)},
    {"ValAutoE", 9, 3832, 1510, 1, At(0), At(ByteLimit)},
    {"ValAutoE", 10, 3829, 1531, 1, At(0), At(ByteLimit)},
    {"ValAutoE", 11, 3798, 241, 2, Shared, Shared},
    {"ValAutoE", 12, 3800, 243, 2, Shared, Shared},
    {"ValAutoE", 13, 3804, 247, 1, Shared, Shared},
    {"ValAutoE", 14, 3805, 248, 1, Shared, Shared},
    // Self-adaptation at idle
    {"VeloAutoM", -1, 3840, 255, 1, At(0), At(1), SpeedChoice, 7},
    {"ValAutoM", 1, NoAddress, NoWorkingCopy, 2, At(0), At(5)},
    {"ValAutoM", 2, 3836, 138, 1, At(0), At(ByteLimit)},
    {"ValAutoM", 3, 3837, 120, 1, At(0), At(ByteLimit)},
    {"ValAutoM", 4, 3838, 121, 1, At(0), At(ByteLimit)},
};

// Settings of the installation. The tank levels stand in the order of their cells; their numbers rise with the level,
// and each is held between its neighbours.
inline constexpr Row Settings[] = {
    // Change-over
    {"TipoCommu", -1, 3082, NoWorkingCopy, 1, At(0), At(1), Choice, 2},
    {"ValCom", 0, 3096, 16, 2, At(0), At(ConverterLimit), Throttle},
    {"ValCom", 1, 3146, 37, 2, At(1500), At(3000)},
    {"ValCom", 2, 3206, NoWorkingCopy, 2, At(1), At(240)},
    {"ValCom", 3, 3200, NoWorkingCopy, 2, At(0), At(WordLimit)},
    {"ValCom", 4, 3204, NoWorkingCopy, 2, At(0), At(WordLimit)},
    {"ValCom", 5, 3264, NoWorkingCopy, 2, At(1), At(WordLimit)},
    {"ValCom", 6, 3214, 56, 2, At(0), At(30)},
    {"ValCom", 7, 3278, 215, 2, At(0), At(30)},
    {"ValCom", 8, 3176, 168, 2, At(1000), At(5000)},
    {"ValCom", 9, 3162, 196, 2, At(1), At(SpeedLimit), Speed},
    {"Oscilla", -1, 3202, NoWorkingCopy, 1, At(0), At(1), Choice, 2},
    // Tank
    {"ValSerb", 0, 3184, 106, 2, At(0), Edited(3188)},
    {"ValSerb", 5, 3186, 116, 2, Edited(3194), Edited(3196)},
    {"ValSerb", 1, 3188, 108, 2, Edited(3184), Edited(3190)},
    {"ValSerb", 2, 3190, 110, 2, Edited(3188), Edited(3192)},
    {"ValSerb", 3, 3192, 112, 2, Edited(3190), Edited(3194)},
    {"ValSerb", 4, 3194, 114, 2, Edited(3192), Edited(3186)},
    {"ValSerb", 6, 3196, 118, 2, Edited(3186), At(ConverterLimit)},
    // Emulation of the probe
    {"ConfR", -1, 3084, 7, 1, At(0), At(1), Choice, 2},
    {"ValEMU", 0, 3970, NoWorkingCopy, 2, At(0), At(CounterLimit)},
    {"ValEMU", 1, 3972, NoWorkingCopy, 2, At(0), At(CounterLimit)},
    {"ValEMU", 2, 3976, NoWorkingCopy, 2, At(0), At(CounterLimit)},
    {"ValEMU", 3, 3978, NoWorkingCopy, 2, At(0), At(CounterLimit)},
    {"ValEMU", 4, 3982, NoWorkingCopy, 2, At(0), At(CounterLimit)},
    {"ValEMU", 5, 3984, NoWorkingCopy, 2, At(0), At(CounterLimit)},
    {"ValEMU", 6, 3988, NoWorkingCopy, 2, At(0), At(CounterLimit)},
    {"ValEMU", 7, 3990, NoWorkingCopy, 2, At(0), At(CounterLimit)},
    {"ValEMU", 8, 3994, NoWorkingCopy, 2, At(0), At(CounterLimit)},
    {"ValEMU", 9, 3996, NoWorkingCopy, 2, At(0), At(CounterLimit)},
    {"ValEMU", 10, 4000, NoWorkingCopy, 2, At(0), At(CounterLimit)},
    {"ValEMU", 11, 4002, NoWorkingCopy, 2, At(0), At(CounterLimit)},
    // Inhibition at full load
    {"ValInibiz", 0, 3180, 132, 2, At(0), At(WordLimit)},
    {"ValInibiz", 1, 3182, 134, 2, At(0), At(WordLimit)},
    // Fault checks
    {"AbilEV", -1, 3936, NoWorkingCopy, 1, At(0), At(1), Choice, 2},
    {"Anom", 0, 3322, NoWorkingCopy, 2, At(2000), At(6000)},
    {"Anom", 1, 3320, NoWorkingCopy, 2, At(1000), At(3500)},
    {"Anom", 2, 3794, NoWorkingCopy, 2, At(0), At(CounterLimit)},
    {"Anom", 3, 3276, NoWorkingCopy, 2, At(5), At(1620)},
    // Base map
    {"Piatta", -1, 3290, NoWorkingCopy, 1, At(0), At(1), Choice, 2},
    {"ValPiatta", -1, 3292, NoWorkingCopy, 2, At(500), At(6200)},
    // Led
    {"FunzLed", -1, 3324, NoWorkingCopy, 1, At(0), At(1), Choice, 2},
};

}  // namespace tuning::table
