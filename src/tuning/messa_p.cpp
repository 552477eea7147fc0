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

// texts of MESSAP
constexpr DialogRow Dialog{
    Section,
    {81, "lor", TimeOut::F},
    "wis",
    TimeOut::P,
    {{
        {Work::TryingNew, 100, 1, Homes::Trial, true, "SEGNALAZIONE_8", "SEGNALAZIONE_4", Refusal, "SEGNALAZIONE_9",
         "SEGNALAZIONE_10"},
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

// Where the engine runs.
constexpr Text EngineRevs{"B_LAM.0", "MESSAP"};
constexpr Text EngineLoad{"B_LAM.1", "MESSAP"};
constexpr Text EngineIdle{"B_LAM.2", "MESSAP"};
constexpr Text EngineFullLoad{"B_LAM.3", "MESSAP"};

std::string Words(const Thresholds& thresholds) {
    return "   LamMM = " + frames::Format0(thresholds.lean) + "   LamRR = " + frames::Format0(thresholds.rich);
}

}  // namespace

MessaP::MessaP(Tuning& owner)
    : Page("MessaP"),
      controls(*this, owner.memory.link.shell, Section, MessaPPages()),
      live(*this, owner),
      editing(owner, controls, foot.Segnalazione, Section),
      cycle(owner, Dialog, {*this, head, controls, live, foot, editing}),
      tuning_(owner) {
    LeggoTPS.onPress = [this] { TakeThrottle(); };
    LeggoTPS.fills = [this]() -> const pages::Control* {
        for (const FieldControls& field : controls.Shown().fields) {
            if (field.value == Focus() && TakesThrottle(field)) return field.value;
        }
        return nullptr;
    };
    controls.onView = [this] { FollowView(); };
    editing.onFigures = [this] { FollowFigures(); };
    cycle.onShown = [this] { FollowFigures(); };
    cycle.onEditable = [this](pages::Reason why) { LeggoTPS.SetWhy(why); };
    live.onTick = [this] { FollowEngine(); };
    owner.memory.link.catalogue.Add(ReadingThrottle, {}, {}, [this](int) { cycle.TellNotRead(); });
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

void MessaP::FollowView() {
    B_Lam.SetVisible(controls.IsOpen(LambdaTables));
    LeggoTPS.SetVisible(ThrottleField() != nullptr);
}

void MessaP::FollowFigures() {
    LeggoTPS.SetVisible(ThrottleField() != nullptr);
    pages::Control* axis = controls.ValueOf(table::NumberOf("LabTPS", 0));
    if (axis == nullptr) return;
    const bool throttle = frames::ValoreNum(tuning_.memoria[LoadAxis].Dato[1]) == 0;
    axis->beside.label->SetText(tuning_.memory.link.shell.TestoLingua(throttle ? ThrottleAxis : PressureAxis));
}

void MessaP::FollowEngine() {
    if (!controls.IsOpen(LambdaTables)) return;
    const int column = cycle.Read() ? CheZonaGiri(tuning_) : NoZone;
    const int row = cycle.Read() ? CheZonaMAP(tuning_) : NoZone;
    const bool known = column != NoZone && row != NoZone;
    for (const char* grid : {"T_LamSup", "T_LamInf", "T_LamSupDef", "T_LamInfDef"})
        Find(grid)->MarkCell(known ? row : -1, known ? column : -1);
    ShowEngine(column, row);
    ShowPointed(column, row);
}

// In words where idle or full load rule instead of the zone.
void MessaP::ShowEngine(int column, int row) {
    const shell::Shell& shell = tuning_.memory.link.shell;
    const auto text = [&shell](const Text& key) { return std::string(shell.TestoLingua(key)); };
    const Thresholds now = cycle.Read() ? ThresholdsNow(tuning_) : Thresholds{};
    switch (now.ruler) {
        case Ruler::Nothing:
            return B_Lam.SetText({});
        case Ruler::Zone:
            return B_Lam.SetText(text(EngineRevs) + std::to_string(column + 1) + text(EngineLoad) +
                                 std::to_string(row + 1) + Words(now));
        case Ruler::Idle:
            return B_Lam.SetText(text(EngineIdle) + Words(now));
        case Ruler::FullLoad:
            return B_Lam.SetText(text(EngineFullLoad) + Words(now));
    }
}

// The button of the tables tells the thresholds of the cell in which the hand stands; of the engine's zone otherwise.
void MessaP::ShowPointed(int column, int row) {
    for (const char* name : {"T_LamInf", "T_LamSup"}) {
        const pages::Control* grid = Find(name);
        const pages::CellPlace cell = grid->FocusCell();
        if (cell.row < 0) continue;
        row = cell.row;
        column = cell.column;
        if (grid == Focus()) break;
    }
    const Thresholds pointed = cycle.Read() ? ThresholdsOf(tuning_, column, row) : Thresholds{};
    Find(LambdaTables)
        ->SetText(controls.Caption(LambdaTables) + (pointed.ruler == Ruler::Nothing ? std::string() : Words(pointed)));
}

// Thresholds of the throttle may be taken from the pedal as it stands, unless a table covers them.
bool MessaP::TakesThrottle(const FieldControls& field) const {
    const bool pressure = IsPressure(ParameterRows[field.row->record], tuning_.CurrentContext());
    if (!field.value->Visible()) return false;
    return field.row->measure == Measure::Throttle || (field.row->measure == Measure::OfSensor && !pressure);
}

const FieldControls* MessaP::ThrottleField() const {
    const FieldControls* first = nullptr;
    for (const FieldControls& field : controls.Shown().fields) {
        if (!TakesThrottle(field)) continue;
        if (field.value == FocusBefore()) return &field;
        if (first == nullptr) first = &field;
    }
    return first;
}

void MessaP::TakeThrottle() {
    const FieldControls* field = ThrottleField();
    const std::string& reading = tuning_.memory.link.RecCanali.Grezzo[eculink::Tps];
    if (field == nullptr) return;
    const Context context = tuning_.CurrentContext();
    if (!frames::IsNumeric(reading)) {
        tuning_.memory.link.shell.Beep();
        if (field->value->pending) SetFocus(field->value);  // what is typed there is still to be put right
        return cycle.TellNotRead();
    }
    const double kept = ThrottleKept(frames::ValoreNum(reading), context);
    const auto shown =
        ToShown(ParameterRows[field->row->record], static_cast<std::uint32_t>(std::max(0.0, kept)), context);
    if (!shown) return;
    if (editing.Take(field->row->record, frames::Format0(*shown))) SetFocus(field->value);
    editing.onTouched();
}

}  // namespace tuning
