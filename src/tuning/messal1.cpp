#include "tuning/messal1.h"

#include <algorithm>
#include <optional>

#include "link/frames/numbers.h"
#include "shell/message.h"
#include "tuning/limits.h"
#include "tuning/parameter_table.h"
#include "tuning/tuning.h"

namespace tuning {

namespace {

using frames::Format0;
using frames::ValoreNum;
using pages::Reason;

constexpr double LeastCell = 5;
constexpr double LargestCell = 210;
constexpr double LargestByte = 0xFF;
constexpr double LargestWord = 0xFFFF;
constexpr double LargestCount = 1023;
constexpr std::size_t AxisDigits = 5;
constexpr int Headers = 1;  // rows above the cells, and columns left of them
constexpr int FirstAnchor = 1;
constexpr std::size_t OverSpeedRecord = table::NumberOf("ValFG", 0);
constexpr int LastAnchor = 7;  // of the rows of a column; those between them are worked out

constexpr int RowOf(int cell) {
    return cell % MapRows + Headers;
}
constexpr int ColumnOf(int cell) {
    return cell / MapRows + Headers;
}

std::optional<double> Pressure(const Context& context, double count) {
    return frames::ConverteMAP(count, PointsInUnit, context.datiLunghi, context.tabella);
}

std::string PressureText(const Context& context, double count) {
    const auto mbar = Pressure(context, count);
    return mbar ? Format0(*mbar) : std::string(NoFigure);
}

int Whole(const std::string& text, double largest) {
    return static_cast<int>(frames::RoundHalfEven(std::clamp(ValoreNum(text), 0.0, largest)));
}

}  // namespace

MessaL1::MessaL1(Tuning& owner) : Page("MessaL1"), tuning_(owner) {
    shell::Shell& shell = owner.memory.link.shell;
    for (int column = 0; column < MapColumns; ++column) Giri[column].onLeave = [this, column] { GiriLeft(column); };
    for (int row = 0; row < MapRows; ++row) MAPV[row].onLeave = [this, row] { MAPVLeft(row); };
    const auto prepare = [this](pages::Field& field) {
        field.filter = pages::KeyFilter::Digits;
        field.SetMaxLength(AxisDigits);
        field.onChange = [this] { Edited(); };
    };
    for (const auto& field : Giri) prepare(*field);
    for (const auto& field : MAPV) prepare(*field);
    LambdaRicco.filter = pages::KeyFilter::Digits;
    LambdaRicco.onCell = [this](int row, int column, const std::string& text) { CellLeft(row, column, text); };
    Modifica.onPress = [this] {
        SetEditing(!editing_);
        if (editing_) SetFocus(&LambdaRicco);
    };
    Distribuisci.onPress = [this] { Spread(); };
    LimDistr.onPress = [this] { TellAnchors(); };
    Memorizza.onPress = [this] { Store(); };
    RileggoReset.onPress = [this] { BeginReading(ReadingAgain, LiveReads()); };
    Esci.onPress = [this] { Leave(); };
    Esci.escapes = true;
    BindKey("Esc", Esci);
    onClose = [this] { Leave(); };
    TVis = shell.host.timers.Make(DisplayInterval);
    TVis->SetHandler([this] {
        // While an exchange runs, frames reach the raw figures alone.
        if (tuning_.memory.link.state.StatoCmd == eculink::Idle) ShowLive();
    });
    AddStates();
    shell.AddDialog(*this);
}

void MessaL1::Opening() {
    held_ = {};
    tableRead_ = halfStored_ = false;
    LoadTexts();
    for (auto* axis : {&Giri, &MAPV}) {
        for (const auto& field : *axis) {
            field->SetText({});
            field->SetRefused(false);
        }
    }
    LambdaRicco.SetCells(pages::Cells(MapRows + Headers, std::vector<std::string>(MapColumns + Headers)), Headers,
                         Headers);
    MarkChanges();
    SetEditing(false);
    SetTableWhy(Reason::None);
    ShowLive();
    TVis->SetEnabled(true);
    BeginReading(ReadingTable, OpeningReads());
}

void MessaL1::Closed() {
    TVis->SetEnabled(false);
    tableRead_ = false;
    MarkChanges();
}

void MessaL1::LoadTexts() {
    const shell::Shell& shell = tuning_.memory.link.shell;
    SetTitle(shell.TestoLingua("CAPTION", "MESSAL1"));
    LabGiri.SetText(shell.TestoLingua("GIRI.0", "MESSAL1"));
    LabMAPV.SetText(shell.TestoLingua("MAP.0", "MESSAL1"));
    Distribuisci.SetText(shell.TestoLingua("DISTRIBUISCI.0", "TASTI"));
    LimDistr.SetText(shell.TestoLingua("LIMDISTR.0", "MESSAL1"));
    Memorizza.SetText(shell.TestoLingua("MEMORIZZA.0", "TASTI"));
    LabStorico.SetText(shell.TestoLingua("STORICO.0", "MESSAL1"));
    RileggoReset.SetText(shell.TestoLingua("RILEGGORESET.0", "MESSAL1"));
    Esci.SetText(shell.TestoLingua("ESCI.0", "TASTI"));
    LoadLiveTexts();
}

void MessaL1::SetEditing(bool on) {
    const shell::Shell& shell = tuning_.memory.link.shell;
    editing_ = on;
    Modifica.SetText(on ? shell.TestoLingua("MODIFICA.1", "TASTI") : shell.TestoLingua("MODIFICA.0", "TASTI"));
    LambdaRicco.SetLocked(!on);
    for (const auto& field : Giri) field->SetLocked(!on);
    // A pressure without a figure cannot be converted back: no sensor has been acquired.
    for (const auto& field : MAPV) {
        const bool none = field->Text() == NoFigure;
        field->SetLocked(!on || none);
        field->SetWhy(none ? Reason::NoSensor : Reason::None);
    }
}

void MessaL1::SetTableWhy(Reason why) {
    for (pages::Button* button : {&Modifica, &Distribuisci, &LimDistr, &Memorizza, &RileggoReset}) button->SetWhy(why);
}

void MessaL1::Say(pages::Tone tone, std::string text) {
    Segnalazione.Say(tone, std::move(text));
}

const std::string& MessaL1::CellText(int cell) const {
    return LambdaRicco.GetCells()
        .at(static_cast<std::size_t>(RowOf(cell)))
        .at(static_cast<std::size_t>(ColumnOf(cell)));
}

void MessaL1::SetCellText(int cell, const std::string& text) {
    LambdaRicco.SetCell(RowOf(cell), ColumnOf(cell), text);
}

void MessaL1::ShowMap(const BaseMap& map) {
    const Context context = tuning_.CurrentContext();
    for (int column = 0; column < MapColumns; ++column) {
        Giri[column].SetText(Format0(map.Giri[static_cast<std::size_t>(column)]));
        LambdaRicco.SetCell(0, column + Headers, Giri[column].Text());
    }
    for (int row = 0; row < MapRows; ++row) {
        const auto at = static_cast<std::size_t>(row);
        readMAPV_[at] = PressureText(context, map.MAPV[at]);
        MAPV[row].SetText(readMAPV_[at]);
        LambdaRicco.SetCell(row + Headers, 0, readMAPV_[at]);
    }
    ShowCells(map);
}

void MessaL1::ShowCells(const BaseMap& map) {
    for (int cell = 0; cell < MapCells; ++cell)
        SetCellText(cell, Format0(map.LambdaRicco[static_cast<std::size_t>(cell)]));
}

std::string MessaL1::AxisText(int row, int column) const {
    return LambdaRicco.GetCells().at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column));
}

// A figure that nobody has changed stands as the unit holds it, whatever it is; an emptied field gets it back.
void MessaL1::GiriLeft(int column) {
    pages::Field& field = Giri[column];
    const std::string before = AxisText(0, column + Headers);
    const bool typed = !field.Text().empty() && field.Text() != before;
    const double figure = std::min(ValoreNum(field.Text()), LargestWord);
    const Record& limits = tuning_.memoria[OverSpeedRecord];
    if (typed && column == OverSpeedColumn && !WithinLimits(limits, figure)) return RefuseOverSpeed(limits);
    TakeAxis(field, 0, column + Headers, typed ? Format0(figure) : before);
    WarnOfAxis(Giri);
}

// The end of the axis is the over-speed threshold, with the limits that it has on its own page.
void MessaL1::RefuseOverSpeed(const Record& limits) {
    shell::Shell& shell = tuning_.memory.link.shell;
    pages::Field& field = Giri[OverSpeedColumn];
    const std::string legal = Format0(limits.Min) + " - " + Format0(limits.Max);
    shell.Beep();
    Say(pages::Tone::Refused, legal);
    field.SetRefused(true, legal);
    field.pending = true;
    SetFocus(&field);
}

// A pressure that the sensor cannot tell is brought to the nearest one that it can.
void MessaL1::MAPVLeft(int row) {
    pages::Field& field = MAPV[row];
    const std::string before = AxisText(row + Headers, 0);
    const Context context = tuning_.CurrentContext();
    const auto none = Pressure(context, 0);
    const auto full = Pressure(context, LargestCount);
    std::string figure = before;
    if (!field.Text().empty() && field.Text() != before && none && full) {
        const auto [least, most] = std::minmax(*none, *full);
        figure = Format0(std::clamp(ValoreNum(field.Text()), least, most));
    }
    TakeAxis(field, row + Headers, 0, figure);
    WarnOfAxis(MAPV);
}

void MessaL1::TakeAxis(pages::Field& field, int row, int column, const std::string& figure) {
    if (field.Refused() || figure != AxisText(row, column)) Tell({});
    field.SetText(figure);
    field.SetRefused(false);
    LambdaRicco.SetCell(row, column, figure);
    MarkChanges();
}

// A unit may hold breakpoints in any order: an axis that does not rise is told when one of its fields is left, not
// refused.
void MessaL1::WarnOfAxis(pages::Array<pages::Field>& axis) {
    for (int i = axis.First() + 1; i < axis.End(); ++i) {
        if (ValoreNum(axis[i].Text()) <= ValoreNum(axis[i - 1].Text()))
            return Tell(tuning_.memory.link.shell.TestoLingua("SEGNALAZIONE_7", "MESSAL1"));
    }
}

void MessaL1::CellLeft(int row, int column, const std::string& text) {
    LambdaRicco.SetCell(row, column, Format0(std::clamp(ValoreNum(text), LeastCell, LargestCell)));
    Edited();
}

void MessaL1::Edited() {
    Tell({});
    MarkChanges();
}

bool MessaL1::CellChanged(int cell) const {
    return CellText(cell) != Format0(held_.LambdaRicco[static_cast<std::size_t>(cell)]);
}

void MessaL1::MarkChanges() {
    for (int column = 0; column < MapColumns; ++column) {
        const std::string read = Format0(held_.Giri[static_cast<std::size_t>(column)]);
        Giri[column].SetChanged(tableRead_ && Giri[column].Text() != read);
    }
    for (int row = 0; row < MapRows; ++row)
        MAPV[row].SetChanged(tableRead_ && MAPV[row].Text() != readMAPV_[static_cast<std::size_t>(row)]);
    std::vector<pages::CellPlace> changed;
    for (int cell = 0; cell < MapCells && tableRead_; ++cell) {
        if (CellChanged(cell)) changed.push_back({RowOf(cell), ColumnOf(cell)});
    }
    LambdaRicco.SetChanged(!changed.empty());
    LambdaRicco.SetChangedCells(std::move(changed));
}

bool MessaL1::Unsaved() const {
    return halfStored_ ||
           std::any_of(Controls().begin(), Controls().end(), [](const pages::Control* c) { return c->Changed(); });
}

// The rows between the anchors of each column are put on the straight line between them; row 0 is left alone.
void MessaL1::Spread() {
    for (int column = 0; column < MapColumns; ++column) {
        const int first = MapRows * column + FirstAnchor;
        const int last = MapRows * column + LastAnchor;
        double figure = ValoreNum(CellText(first));
        const double delta = (ValoreNum(CellText(last)) - figure) / (last - first);
        for (int cell = first + 1; cell < last; ++cell) {
            figure = std::clamp(figure + delta, LeastCell, LargestCell);
            SetCellText(cell, Format0(figure));
        }
    }
    Edited();
    Tell(tuning_.memory.link.shell.TestoLingua("SEGNALAZIONE_6", "MESSAL1"));
}

// An axis figure that was not touched goes out as it was read: not every count comes back from its pressure.
BaseMap MessaL1::MapOnPage() {
    const Context context = tuning_.CurrentContext();
    BaseMap map = held_;
    for (int column = 0; column < MapColumns; ++column)
        map.Giri[static_cast<std::size_t>(column)] = Whole(Giri[column].Text(), LargestWord);
    for (int row = 0; row < MapRows; ++row) {
        const auto at = static_cast<std::size_t>(row);
        if (MAPV[row].Text() == readMAPV_[at]) continue;
        const auto count =
            frames::MAPCount(ValoreNum(MAPV[row].Text()), PointsInUnit, context.datiLunghi, context.tabella);
        if (count) map.MAPV[at] = static_cast<int>(*count);
    }
    for (int cell = 0; cell < MapCells; ++cell)
        map.LambdaRicco[static_cast<std::size_t>(cell)] = Whole(CellText(cell), LargestByte);
    return map;
}

// The rows are known by their pressures.
void MessaL1::TellAnchors() {
    Tell(shell::Fill(tuning_.memory.link.shell.TestoLingua("LIMDISTR.1", "MESSAL1"), MAPV[FirstAnchor].Text(),
                     MAPV[LastAnchor].Text()));
}

void MessaL1::Leave() {
    shell::Shell& shell = tuning_.memory.link.shell;
    if (!Unsaved()) return shell.stack.ClosePage(*this);
    shell::Ask(shell, shell.TestoLingua("ERRORE_20", "ERRORI"), [this, &shell](shell::Answer answer) {
        if (answer == shell::Answer::Yes && IsOpen()) shell.stack.ClosePage(*this);
    });
}

}  // namespace tuning
