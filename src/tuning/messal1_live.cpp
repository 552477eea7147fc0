#include <cmath>
#include <cstdlib>

#include "link/frames/numbers.h"
#include "tuning/messal1.h"
#include "tuning/tuning.h"

namespace tuning {

namespace {

// A key of the language and its section.
struct Text {
    const char* key;
    const char* section;
};

// A live figure: its channel and its label, which the diesel build words differently.
struct LiveRow {
    int channel;
    Text label;
    Text diesel;
};

constexpr std::array<LiveRow, LiveFigures> LiveRows{{
    {eculink::Giri, Text{"GIRI", "CANALI"}, Text{"GIRI", "CANALI_QT"}},
    {eculink::Map, Text{"MAP", "CANALI"}, Text{"TPS", "CANALI_QT"}},
    {eculink::Step, Text{"STEP", "CANALI"}, Text{"STEP", "CANALI_QT"}},
    {eculink::Temperatura, Text{"TEMPERATURA", "CANALI"}, Text{"TEMPERATURA", "CANALI_QT"}},
    {eculink::Lambda, Text{"LAMBDA", "CANALI"}, Text{"LAMBDA", "CANALI_QT"}},
    {eculink::CStec, Text{"CSTEC", "CANALI"}, Text{"CSTEC", "CANALI_QT"}},
}};

// The place whose breakpoint lies nearest: from one midpoint to the next.
template <std::size_t N>
int Nearest(const std::array<int, N>& breakpoints, double figure) {
    std::size_t nearest = 0;
    for (std::size_t i = 1; i < N; ++i) {
        if (std::abs(breakpoints[i] - figure) < std::abs(breakpoints[nearest] - figure)) nearest = i;
    }
    return static_cast<int>(nearest);
}

}  // namespace

void MessaL1::LoadLiveTexts() {
    const eculink::Link& link = tuning_.memory.link;
    const bool diesel = link.shell.state.VarianteQT == shell::True;
    for (int i = 0; i < LiveFigures; ++i) {
        const LiveRow& row = LiveRows[static_cast<std::size_t>(i)];
        const Text& label = diesel ? row.diesel : row.label;
        LabAuto[i].SetText(link.shell.TestoLingua(label.key, label.section));
        UmAuto[i].SetText(link.DescrCanale[static_cast<std::size_t>(row.channel)].UM[eculink::RawView]);
    }
}

// Raw figures whatever the instruments show: the pressure in mbar as on the axis.
void MessaL1::ShowLive() {
    const eculink::Link& link = tuning_.memory.link;
    for (int i = 0; i < LiveFigures; ++i)
        DatiAuto[i].SetText(
            eculink::InstrumentText(link, LiveRows[static_cast<std::size_t>(i)].channel, eculink::RawView));
    MarkPresentCell();
}

// By the axes that the unit holds, not by those being edited: it is the cell from which the unit works now.
void MessaL1::MarkPresentCell() {
    const eculink::Record& live = tuning_.memory.link.RecCanali;
    const std::string& speed = live.Grezzo[eculink::Giri];
    const std::string& pressure = live.Grezzo[eculink::Map];
    const bool turning = frames::IsNumeric(speed) && frames::ValoreNum(speed) > 0;
    if (!tableRead_ || !turning || !frames::IsNumeric(pressure)) return LambdaRicco.MarkCell(-1, -1);
    const Context context = tuning_.CurrentContext();
    const auto count = frames::MAPCount(frames::ValoreNum(pressure), PointsInUnit, context.datiLunghi, context.tabella);
    if (!count) return LambdaRicco.MarkCell(-1, -1);
    LambdaRicco.MarkCell(Nearest(held_.MAPV, *count) + LambdaRicco.HeaderRows(),
                         Nearest(held_.Giri, frames::ValoreNum(speed)) + LambdaRicco.HeaderColumns());
}

}  // namespace tuning
