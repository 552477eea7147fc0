#include "tuning/messa_p.h"

#include <algorithm>

#include "link/frames/numbers.h"
#include "tuning/lambda_zones.h"
#include "tuning/messap_pages.h"
#include "tuning/parameter_table.h"
#include "tuning/tuning.h"

namespace tuning {

namespace {

using eculink::TimeOut;
using shell::Text;

constexpr std::string_view Section = "MESSAP";
constexpr Text Refusal{"ERRORE_3", "ERRORI"};
constexpr Text StoreRefusal{"SEGNALAZIONE_2", "MESSAP"};
constexpr Text NoReading{"ERRORE_18", "ERRORI"};

// texts of MESSAP
constexpr DialogRow Dialog{
    Section,
    {81, "lor", TimeOut::F},
    "wis",
    TimeOut::P,
    {{
        {Work::TryingNew, 100, 1, Homes::Trial, true, "SEGNALAZIONE_8", "SEGNALAZIONE_4", Refusal, "SEGNALAZIONE_9"},
        {Work::TryingInitial, 101, 0, Homes::Trial, true, "SEGNALAZIONE_8", "SEGNALAZIONE_5", Refusal},
        {Work::Storing, 110, 1, Homes::Both, true, "SEGNALAZIONE_6", "SEGNALAZIONE_1", StoreRefusal},
        {Work::Leaving, 120, 0, Homes::Working, false, "SEGNALAZIONE_7", "", Refusal},
    }},
    true,
    true,
};
constexpr eculink::StateRow ReadingThrottle{121, "r", TimeOut::F3};

constexpr std::string_view LambdaTables = "SoglieLam";
constexpr std::size_t LoadAxis = table::NumberOf("ScelgoMAP");

// The load axis is named by its sensor.
constexpr Text PressureAxis{"LABLA.1", "MESSAP"};
constexpr Text ThrottleAxis{"LABLA.2", "MESSAP"};

}  // namespace

MessaP::MessaP(Tuning& owner)
    : Page("MessaP"),
      controls(*this, owner.memory.link.shell, Section, MessaPPages()),
      live(*this, owner),
      editing(owner, controls, foot.Segnalazione, Section),
      cycle(owner, Dialog, {*this, head, controls, live, foot, editing}),
      tuning_(owner) {
    LeggoTPS.onPress = [this] { TakeThrottle(); };
    editing.onFigures = [this] { FollowFigures(); };
    cycle.onShown = [this] { FollowFigures(); };
    cycle.onEditable = [this](pages::Reason why) { LeggoTPS.SetWhy(why); };
    live.onTick = [this] { FollowEngine(); };
    owner.memory.link.catalogue.Add(ReadingThrottle, {}, {}, [this](int) { cycle.Tell(NoReading); });
}

void MessaP::Opening() {
    const shell::Shell& shell = tuning_.memory.link.shell;
    SetTitle(shell.TestoLingua("CAPTION", "MESSAP"));
    LeggoTPS.SetText(shell.TestoLingua("LEGGOTPS.0", "MESSAP"));
    cycle.Open(shell.state.PaginaMessaP);
    live.Follow(true);
}

void MessaP::Closed() {
    live.Follow(false);
    cycle.Forget();
}

void MessaP::FollowFigures() {
    LeggoTPS.SetVisible(ThrottleField() != nullptr);
    pages::Control* axis = controls.ValueOf(table::NumberOf("LabTPS", 0));
    if (axis == nullptr) return;
    const bool throttle = frames::ValoreNum(tuning_.memoria[LoadAxis].Dato[1]) == 0;
    axis->beside.label->SetText(tuning_.memory.link.shell.TestoLingua(throttle ? ThrottleAxis : PressureAxis));
}

void MessaP::FollowEngine() {
    const bool tables = controls.IsOpen(LambdaTables);
    B_Lam.SetVisible(tables);
    if (!tables) return;
    const int column = CheZonaGiri(tuning_);
    const int row = CheZonaMAP(tuning_);
    const bool known = cycle.Read() && column != NoZone && row != NoZone;
    for (const char* grid : {"T_LamSup", "T_LamInf", "T_LamSupDef", "T_LamInfDef"})
        Find(grid)->MarkCell(known ? row : -1, known ? column : -1);
    const ActiveThresholds now = ThresholdsNow(tuning_);
    if (!now.known || !cycle.Read()) return B_Lam.SetText({});
    B_Lam.SetText("   LamMM = " + frames::Format0(now.lean) + "   LamRR = " + frames::Format0(now.rich) +
                  "   LamSt = " + frames::Format0((now.lean + now.rich) / 2));
}

// Thresholds of the throttle may be taken from the pedal as it stands.
const FieldControls* MessaP::ThrottleField() const {
    const FieldControls* first = nullptr;
    const Context context = tuning_.CurrentContext();
    for (const FieldControls& field : controls.Shown().fields) {
        const bool pressure = IsPressure(ParameterRows[field.row->record], context);
        const bool takes =
            field.row->measure == Measure::Throttle || (field.row->measure == Measure::OfSensor && !pressure);
        if (!takes) continue;
        if (field.value == FocusBefore()) return &field;
        if (first == nullptr) first = &field;
    }
    return first;
}

void MessaP::TakeThrottle() {
    const FieldControls* field = ThrottleField();
    const std::string& reading = tuning_.memory.link.RecCanali.Grezzo[eculink::Tps];
    if (field == nullptr) return;
    if (!frames::IsNumeric(reading)) {
        tuning_.memory.link.shell.Beep();
        return cycle.Tell(NoReading);
    }
    const auto count = static_cast<std::uint32_t>(std::max(0.0, frames::ValoreNum(reading)));
    const auto shown = ToShown(ParameterRows[field->row->record], count, tuning_.CurrentContext());
    if (!shown) return;
    if (editing.Take(field->row->record, frames::Format0(*shown))) SetFocus(field->value);
    editing.onTouched();
}

}  // namespace tuning
