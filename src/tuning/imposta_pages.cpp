#include "tuning/imposta_pages.h"

#include "link/channels.h"
#include "tuning/page_builders.h"

namespace tuning {

namespace {

using enum Measure;
using shell::Text;

constexpr Text ChangeOverKind{"TIPO.", "TIPOCOMMU"};
constexpr Text AfterSwings{"TIPO.", "OSCILLA"};
constexpr Text Relay{"TIPO.", "CONFR"};
constexpr Text LedFunction{"TIPO.", "FUNZLED"};
constexpr Text FlatMap{"TIPO.", "PIATTA"};
constexpr Text ValveCheck{"ABIEV.", "ABIEV"};

constexpr auto ChangeOverFields = std::to_array<FieldRow>({
    List("TipoCommu", ChangeOverKind, 0),
    Number("ValCom", 0, Throttle, 1),
    Number("ValCom", 1, Revolutions, 2),
    Number("ValCom", 2, Counts, 3),
    Number("ValCom", 3, Tenths, 4),
    Number("ValCom", 4, Tenths, 5),
    Number("ValCom", 5, Tenths, 6),
    Number("ValCom", 6, Tenths, 7),
    Number("ValCom", 7, Tenths, 8),
    Number("ValCom", 8, Revolutions, 9),
    Number("ValCom", 9, StepSpeed, 10),
    List("Oscilla", AfterSwings, 11),
});
// By rising level.
constexpr auto TankFields = std::to_array<FieldRow>({
    Number("ValSerb", 0, Counts),
    Number("ValSerb", 1, Counts),
    Number("ValSerb", 2, Counts),
    Number("ValSerb", 3, Counts),
    Number("ValSerb", 4, Counts),
    Number("ValSerb", 5, Counts),
    Number("ValSerb", 6, Counts),
});
constexpr auto EmulationFields = std::to_array<FieldRow>({
    List("ConfR", Relay, 0),
    Number("ValEMU", 0, Counts, 1),
    Number("ValEMU", 1, Counts, 2),
    Number("ValEMU", 2, Counts, 3),
    Number("ValEMU", 3, Counts, 4),
    Number("ValEMU", 4, Counts, 5),
    Number("ValEMU", 5, Counts, 6),
    Number("ValEMU", 6, Counts, 7),
    Number("ValEMU", 7, Counts, 8),
    Number("ValEMU", 8, Counts, 9),
    Number("ValEMU", 9, Counts, 10),
    Number("ValEMU", 10, Counts, 11),
    Number("ValEMU", 11, Counts, 12),
});
constexpr auto InhibitionFields = std::to_array<FieldRow>({
    Number("ValInibiz", 0, Tenths),
    Number("ValInibiz", 1, Tenths),
});
constexpr auto LedFields = std::to_array<FieldRow>({List("FunzLed", LedFunction, 0)});
constexpr auto BaseMapFields = std::to_array<FieldRow>({
    List("Piatta", FlatMap, 0),
    Single("ValPiatta", Revolutions, 1),
});
constexpr auto FaultFields = std::to_array<FieldRow>({
    List("AbilEV", ValveCheck, 0),
    Number("Anom", 0, Millibar, 1),
    Number("Anom", 1, Millibar, 2),
    Number("Anom", 2, Tenths, 3),
    Number("Anom", 3, Tenths, 4),
});

constexpr auto ChangeOverLive = std::to_array<LiveChannel>({{eculink::Giri}, {eculink::Tps}, {eculink::Temperatura}});
constexpr auto TankLive = std::to_array<LiveChannel>({{eculink::Livello, true}});
constexpr auto ProbeLive = std::to_array<LiveChannel>({{eculink::Lambda}});
constexpr auto LoadLive = std::to_array<LiveChannel>({{eculink::Giri}, {eculink::Map}, {eculink::Macro}});
constexpr auto LedLive = std::to_array<LiveChannel>({{eculink::Livello, true}, {eculink::Lambda}});
constexpr auto MapLive = std::to_array<LiveChannel>({{eculink::Giri}, {eculink::Step}});
constexpr auto FaultLive = std::to_array<LiveChannel>({{eculink::P1}, {eculink::Map}, {eculink::Lambda}});

// texts of IMPOSTA
constexpr std::array<PageRow, 7> Pages{{
    {"CTRLCOMMUT", "LABCOMM.", ChangeOverFields, {}, {}, ChangeOverLive},
    {"CTRLSERBATOIO", "LABSERB.", TankFields, {}, {}, TankLive},
    {"CTRLEMU", "LABEMU.", EmulationFields, {}, {}, ProbeLive},
    {"CTRLINIBIZ", "LABINIB.", InhibitionFields, {}, {}, LoadLive},
    {"CTRLLED", "LABLED.", LedFields, {}, {}, LedLive},
    {"CTRLMAPPA", "LABMAPPA.", BaseMapFields, {}, {}, MapLive},
    {"CTRLANOMALIE", "LABANO.", FaultFields, {}, {}, FaultLive},
}};
static_assert(AllKnown(Pages));

}  // namespace

std::span<const PageRow> ImpostaPages() {
    return Pages;
}

}  // namespace tuning
