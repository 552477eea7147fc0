#include "tuning/messap_pages.h"

#include "link/channels.h"
#include "tuning/page_builders.h"

namespace tuning {

namespace {

using enum Measure;
using shell::Text;

constexpr Text LoadAxis{"TIPO.", "SCELGOMAP"};
constexpr Text ThresholdSensor{"TIPO.", "SOGLIATM"};
constexpr Text CutOffKind{"TIPO.", "TIPOCO"};
constexpr Text CutOffStepper{"TIPO.", "STEPCUT"};
constexpr Text RichControl{"TIPO.", "INIBIZ"};
constexpr Text FullLoadStepper{"TIPO.", "GESTSTEP"};
constexpr Text FullLoadMap{"TIPO.", "TIPOMAPPA"};
constexpr Text FullLoadLoop{"TIPO.", "PCFUNZ"};
constexpr Text TransientsEnabled{"TIPO.", "ABILTRANS"};
constexpr Text PumpSensor{"TIPO.", "POMPATA"};
constexpr Text ReleasesEnabled{"TIPO.", "ABILRIL"};
constexpr Text AdaptationSpeed{"VELO.", "VELOAUTO"};

constexpr auto LambdaFields = std::to_array<FieldRow>({
    List("ScelgoMAP", LoadAxis, 0),
    Number("ValLam", 1, Counts),
    Number("ValLam", 2, Counts),
    Number("ValLam", 3, Steps),
    Number("ValLam", 4, Steps),
    Number("ValLam", 5, StepSpeed),
    Number("ValLam", 6, StepSpeed),
});
constexpr auto CutOffFields = std::to_array<FieldRow>({
    Number("ValCut", 0, Revolutions),
    Number("ValCut", 1, Revolutions),
    List("SogliaTM", ThresholdSensor, 2),
    Number("ValCut", 3, OfSensor),
    Number("ValCut", 4, OfSensor),
    Number("ValCut", 5, StepSpeed),
    Number("ValCut", 6, StepSpeed),
    List("TipoCutOff", CutOffKind, 7),
    Number("ValCut", 8, StepSpeed),
    Number("ValCut", 9, Revolutions),
    List("StepCut", CutOffStepper, 10),
    Number("ValCut", 11, Steps),
    Number("ValCut", 12, Tenths),
});
constexpr auto IdleFields = std::to_array<FieldRow>({
    Number("ValMin", 0, Revolutions),
    Number("ValMin", 1, Revolutions),
    List("SogliaMin", ThresholdSensor, 2),
    Number("ValMin", 3, OfSensor),
    Number("ValMin", 4, OfSensor),
    Number("ValMin", 5, Counts),
    Number("ValMin", 6, Counts),
    Number("ValMin", 7, StepSpeed),
    Number("ValMin", 8, StepSpeed),
    Number("ValMin", 9, Steps),
    List("Inibiz", RichControl, 10),
    Number("ValMin", 11, Tenths),
    Number("ValMin", 12, Revolutions),
    Number("ValMin", 13, Tenths),
});
constexpr auto FullLoadFields = std::to_array<FieldRow>({
    Number("ValPC", 0, Revolutions),
    Number("ValPC", 1, Revolutions),
    Number("ValPC", 2, Millibar),
    Number("ValPC", 3, Millibar),
    List("GestStep", FullLoadStepper, 4),
    Number("ValPC", 5, StepSpeed),
    Number("ValPC", 6, Steps),
    Number("ValPC", 7, Tenths),
    Number("ValPC", 8, Tenths),
    List("TipoMappa", FullLoadMap, 9),
    List("PCFunz", FullLoadLoop, 10),
    Number("ValPC", 11, Counts),
    Number("ValPC", 12, Counts),
});
constexpr auto TransientFields = std::to_array<FieldRow>({
    List("AbilTrans", TransientsEnabled, 0),
    Number("ValTrans", 1, Tenths),
    Number("ValTrans", 2, StepSpeed),
    Number("ValTrans", 3, Cycles),
    Number("ValTrans", 4, Tenths),
    List("TipoPomp", PumpSensor, 5),
    Number("ValTrans", 6, Throttle),
});
constexpr auto ReleaseFields = std::to_array<FieldRow>({
    List("AbilRil", ReleasesEnabled, 0),
    Number("ValRil", 1, Tenths),
});
constexpr auto OverSpeedFields = std::to_array<FieldRow>({
    Number("ValFG", 0, Revolutions),
    Number("ValFG", 1, Revolutions),
});
constexpr auto FrequencyFields = std::to_array<FieldRow>({
    Number("ValFreq", 0, StepSpeed),
    Number("ValFreq", 1, StepSpeed),
    Number("ValFreq", 2, StepSpeed),
    Number("ValFreq", 3, StepSpeed),
    Number("ValFreq", 4, StepSpeed),
    Number("ValFreq", 5, StepSpeed),
    Number("ValFreq", 6, StepSpeed),
    Number("ValFreq", 7, StepSpeed),
    Number("ValFreq", 8, StepSpeed),
    Number("ValFreq", 9, StepSpeed),
    Number("ValFreq", 10, StepSpeed),
    Number("ValFreq", 11, StepSpeed),
});
constexpr auto StoichiometryFields = std::to_array<FieldRow>({
    Number("ValStechio", 0, Cycles),
    Number("ValStechio", 1, Cycles),
    Number("ValStechio", 2, Cycles),
});
constexpr auto AdaptationFields = std::to_array<FieldRow>({
    List("VeloAuto", AdaptationSpeed, 0),
    Number("ValAuto", 2, Tenths),
    Number("ValAuto", 3, Revolutions),
    Number("ValAuto", 4, Counts),
    Number("ValAuto", 5, Counts),
    Number("ValAuto", 6, Counts),
    Number("ValAuto", 7, None),
    Number("ValAuto", 8, Steps),
    Number("ValAuto", 9, Steps),
    Number("ValAuto", 10, Steps),
});
constexpr auto SecondAdaptationFields = std::to_array<FieldRow>({
    List("VeloAutoE", AdaptationSpeed, 0),
    Number("ValAutoE", 2, Steps),
    Number("ValAutoE", 3, Steps),
    Number("ValAutoE", 4, Steps),
    Number("ValAutoE", 5, Steps),
    Number("ValAutoE", 6, Steps),
    Number("ValAutoE", 7, Steps),
    Number("ValAutoE", 8, Steps),
    Number("ValAutoE", 9, Steps),
    Number("ValAutoE", 10, None),
    Number("ValAutoE", 11, Revolutions),
    Number("ValAutoE", 12, Counts),
    Number("ValAutoE", 13, None),
    Number("ValAutoE", 14, Steps),
});
constexpr auto IdleAdaptationFields = std::to_array<FieldRow>({
    List("VeloAutoM", AdaptationSpeed, 0),
    Number("ValAutoM", 2, None),
    Number("ValAutoM", 3, Steps),
    Number("ValAutoM", 4, Steps),
});

// texts of MESSAP
constexpr std::array<GridRow, 4> LambdaGrids{{
    Grid("LabRPM", {0, 1, 7, 0, 1, 7}, "LabLa(0)", "LABLA.0"),
    Grid("LabTPS", {0, 4, 1, 1, 0, 4}, "LabLa(1)", "LABLA.1"),
    // five load rows in each of eight rev columns
    Grid("T_LamSup", {0, 5, 8, 1, 5, 40}, "RiccoMagro(0)", "RICCOMAGRO.0"),
    Grid("T_LamInf", {0, 5, 8, 1, 5, 40}, "RiccoMagro(1)", "RICCOMAGRO.1"),
}};
constexpr Layout CutOffResets{0, 16, 1, 1, 0, 16};
constexpr Layout FullLoadResets{16, 16, 1, 1, 0, 16};
// Revs, rich, lean; the ninth row holds nothing but the revs that end the last zone.
constexpr Layout FullLoadZones{0, 9, 3, 3, 1, 25};
constexpr Layout TransientRowsOfSix{0, 4, 6, 6, 1, 24};
constexpr Layout ReleaseRowsOfSix{24, 4, 6, 6, 1, 24};

// texts of MESSAP
constexpr std::array<GridRow, 5> OtherGrids{{
    Numbered(Grid("Giri_ResCO", CutOffResets, "LabResCO", "LABCO.13"), "RESCO.2"),
    Numbered(Grid("Giri_ResCO", FullLoadResets, "LabResCO", "LABPC.13"), "RESCO.2"),
    Headed(Grid("Giri_Lambda", FullLoadZones, "LabMappa", "LABPC.14"), "GIRILAMBDA.", 0),
    Numbered(Headed(Grid("TransitT", TransientRowsOfSix, "LabTransitT", "LABTRANS.7"), "TABTRANS.", 1), "TABTRANS.0"),
    Numbered(Headed(Grid("TransitT", ReleaseRowsOfSix, "LabTransitT", "LABRIL.2"), "TABRIL.", 1), "TABRIL.0"),
}};
constexpr std::span<const GridRow> OneGrid(std::size_t at) {
    return std::span<const GridRow>(OtherGrids).subspan(at, 1);
}

constexpr auto LambdaBlocks = std::to_array<Block>({
    {3328, 14},
    {3344, 8},
    {3360, 16},
    {3376, 16},
    {3392, 16},
    {3408, 16},
    {3424, 16},
    {3440, 16},
    {3456, 16},
    {3472, 16},
    {3488, 16},
    {3504, 16},
});
constexpr auto CutOffResetBlocks = std::to_array<Block>({{176, 16}});
constexpr auto FullLoadResetBlocks = std::to_array<Block>({{192, 16}});
constexpr auto FullLoadZoneBlocks = std::to_array<Block>({{3328, 16}, {3520, 16}, {3536, 16}, {3150, 2}});
constexpr auto TransientBlocks = std::to_array<Block>({{3584, 10}, {3600, 8}, {3616, 8}, {3632, 8}, {3640, 4}});
constexpr auto ReleaseBlocks = std::to_array<Block>({{3712, 10}, {3728, 8}, {3752, 8}, {3760, 8}, {3768, 4}});

// texts of MESSAP
constexpr std::array<TableRow, 6> Tables{{
    {"SoglieLam", "SOGLIELAM.", LambdaGrids, LambdaBlocks},
    {"ResetCO", "RESCO.", OneGrid(0), CutOffResetBlocks},
    {"ResetPC", "RESCO.", OneGrid(1), FullLoadResetBlocks},
    {"TastoMappa", "TASTOMAPPA.", OneGrid(2), FullLoadZoneBlocks},
    {"TastoTrans", "TASTOTRANS.", OneGrid(3), TransientBlocks},
    {"TastoRil", "TASTORIL.", OneGrid(4), ReleaseBlocks},
}};
constexpr std::span<const TableRow> TablesFrom(std::size_t first, std::size_t count) {
    return std::span<const TableRow>(Tables).subspan(first, count);
}

// Thresholds of idle and full load, which bound the zone of the lambda map.
constexpr auto ZoneCells = std::to_array<Block>(
    {{3112, 2}, {3136, 2}, {3128, 2}, {3130, 2}, {3108, 2}, {3142, 2}, {3132, 2}, {3134, 2}, {3110, 2}, {3144, 2}});

// The loads of the map are counts.
constexpr auto MapLive = std::to_array<LiveChannel>(
    {{eculink::Giri}, {eculink::Map}, {eculink::Tps, true}, {eculink::Lambda}, {eculink::Step}, {eculink::Macro}});
constexpr auto LambdaLive = std::to_array<LiveChannel>(
    {{eculink::Giri}, {eculink::Map}, {eculink::Tps}, {eculink::Lambda}, {eculink::Step}, {eculink::Macro}});
constexpr auto ThrottleLive =
    std::to_array<LiveChannel>({{eculink::Giri}, {eculink::Tps}, {eculink::Map}, {eculink::Step}, {eculink::Macro}});
// So are the changes of the throttle in the releases map.
constexpr auto ReleaseLive = std::to_array<LiveChannel>(
    {{eculink::Giri}, {eculink::Tps, true}, {eculink::Map}, {eculink::Step}, {eculink::Macro}});
constexpr auto RevolutionsLive = std::to_array<LiveChannel>({{eculink::Giri}, {eculink::Macro}});
constexpr auto ControlLive = std::to_array<LiveChannel>(
    {{eculink::Giri}, {eculink::Lambda}, {eculink::Step}, {eculink::CStec}, {eculink::Macro}});
constexpr auto AdaptationLive = std::to_array<LiveChannel>(
    {{eculink::Giri}, {eculink::Map}, {eculink::CStec}, {eculink::StatoAA}, {eculink::Macro}});

// texts of MESSAP
constexpr std::array<PageRow, 12> Pages{{
    {"CTRLLAMBDA", "LABLAMBDA.", LambdaFields, TablesFrom(0, 1), ZoneCells, MapLive},
    {"CTRLCUTOFF", "LABCO.", CutOffFields, TablesFrom(1, 1), ZoneCells, ThrottleLive},
    {"CTRLMINIMO", "LABMIN.", IdleFields, {}, {}, LambdaLive},
    {"CTRLPC", "LABPC.", FullLoadFields, TablesFrom(2, 2), {}, LambdaLive},
    {"CTRLTRANS", "LABTRANS.", TransientFields, TablesFrom(4, 1), {}, ThrottleLive},
    {"CTRLRIL", "LABRIL.", ReleaseFields, TablesFrom(5, 1), {}, ReleaseLive},
    {"CTRLFG", "LABFG.", OverSpeedFields, {}, {}, RevolutionsLive},
    {"CTRLFREQ", "LABFREQ.", FrequencyFields, {}, {}, ControlLive},
    {"CTRLSTECHIO", "LABSTECHIO.", StoichiometryFields, {}, {}, ControlLive},
    {"CTRLAUTOA", "LABAUTOA.", AdaptationFields, {}, {}, AdaptationLive},
    {"CTRLAUTOAE", "LABAUTOAE.", SecondAdaptationFields, {}, {}, AdaptationLive, true},
    {"CTRLAUTOAM", "LABAUTOAM.", IdleAdaptationFields, {}, {}, AdaptationLive},
}};
static_assert(AllKnown(Pages));

}  // namespace

std::span<const PageRow> MessaPPages() {
    return Pages;
}

}  // namespace tuning
