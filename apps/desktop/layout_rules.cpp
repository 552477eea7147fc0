#include "desktop/layout_rules.h"

#include <array>

namespace desktop {

namespace {

constexpr auto Places = std::to_array<PlaceRule>({
    {"", "Segnalazione", Place::Strip},
    {"", "Avanzamento", Place::Progress},
    {"Messaggio", "Segnalazione", Place::Text},
    {"SystemMessage", "Title", Place::Heading},
    {"SystemMessage", "Text", Place::Text},
    {"Infor", "lblTitle", Place::Heading},
    {"InEEPROM", "MessaggioSel", Place::Heading},
    {"", "MP1", Place::Heading},
    {"", "Pagine", Place::Selector},
    {"", "LabTxt", Place::Head},
    {"MessaP", "LeggoTPS", Place::Tool},
    {"Imposta", "Livello", Place::Gauge},
    {"Imposta", "LedRis", Place::Gauge},
    {"Imposta", "LedLiv1", Place::Gauge},
    {"Imposta", "LedLiv2", Place::Gauge},
    {"Imposta", "LedLiv3", Place::Gauge},
    {"Imposta", "LedLive", Place::Gauge},
    {"Imposta", "LedMax", Place::Gauge},
    {"Imposta", "BarraS", Place::Gauge},
    {"Imposta", "LabLivello", Place::Gauge},
});

constexpr auto Actions = std::to_array<ActionRule>({
    {"Imposta", "Acquisisci", "ValSerb"},
});

constexpr auto Lives = std::to_array<LiveRule>({
    {"MessaL1", "LabAuto", "DatiAuto", "UmAuto", true},
    {"MessaP", "LabAuto", "DatiAuto", "UmAuto", false},
    {"Imposta", "LabAuto", "DatiAuto", "UmAuto", false},
});

constexpr auto AllAxes = std::to_array<AxesRule>({
    {"MessaL1", "LambdaRicco", "Giri", "MAPV", "LabGiri", "LabMAPV"},
});

constexpr auto Messages = std::to_array<MessageRule>({
    {"Messaggio", ""},
    {"SystemMessage", ""},
    {"InEEPROM", "exclamation"},
});

}  // namespace

std::span<const PlaceRule> PlaceRules() {
    return Places;
}
std::span<const ActionRule> ActionRules() {
    return Actions;
}
std::span<const LiveRule> LiveRules() {
    return Lives;
}
std::span<const AxesRule> AxesRules() {
    return AllAxes;
}
std::span<const MessageRule> MessageRules() {
    return Messages;
}

}  // namespace desktop
