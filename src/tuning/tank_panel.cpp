#include "tuning/tank_panel.h"

#include <algorithm>
#include <array>

#include "link/frames/numbers.h"
#include "tuning/page_figures.h"
#include "tuning/parameter_table.h"
#include "tuning/tuning.h"

namespace tuning {

namespace {

using shell::Text;

constexpr Text LevelNames{"LIVELLI.", "IMPOSTA"};
constexpr Text Captions{"ACQUISISCI.", "IMPOSTA"};
constexpr int BlinkInterval = 500;  // ms
constexpr int Reserve = 1;
constexpr int Top = TankLevels - 1;
constexpr double Percent = 100;

// The records of the levels, rising.
constexpr std::array<std::size_t, TankLevels> Records{{
    table::NumberOf("ValSerb", 0),
    table::NumberOf("ValSerb", 1),
    table::NumberOf("ValSerb", 2),
    table::NumberOf("ValSerb", 3),
    table::NumberOf("ValSerb", 4),
    table::NumberOf("ValSerb", 5),
    table::NumberOf("ValSerb", 6),
}};

// A lamp of the dashboard and the level from which it is lit. The one of the reserve is lit up to its level.
struct LedRow {
    pages::Lamp TankPanel::*lamp;
    int level;
    const char* colour;
};
constexpr std::array<LedRow, 6> Leds{{
    {&TankPanel::LedRis, Reserve, "red"},
    {&TankPanel::LedLiv1, 2, "green"},
    {&TankPanel::LedLiv2, 3, "green"},
    {&TankPanel::LedLiv3, 4, "green"},
    {&TankPanel::LedLive, 5, "green"},
    {&TankPanel::LedMax, Top, "green"},
}};
constexpr const char* Dark = "white";

}  // namespace

TankPanel::TankPanel(pages::Page& page, Tuning& tuning, PageControls& controls)
    : Livello(page, "Livello"),
      LabLivello(page, "LabLivello"),
      BarraS(page, "BarraS"),
      LedRis(page, "LedRis"),
      LedLiv1(page, "LedLiv1"),
      LedLiv2(page, "LedLiv2"),
      LedLiv3(page, "LedLiv3"),
      LedLive(page, "LedLive"),
      LedMax(page, "LedMax"),
      Acquisisci(page, "Acquisisci", TankLevels),
      tuning_(tuning),
      controls_(controls),
      lampeggio_(tuning.memory.link.shell.host.timers.Make(BlinkInterval)) {
    for (int i = 0; i < TankLevels; ++i) {
        Acquisisci[i].onPress = [this, i] { Press(i); };
        Acquisisci[i].fills = [this, i] { return controls_.ValueOf(Records[static_cast<std::size_t>(i)]); };
    }
    lampeggio_->SetHandler([this] {
        lit_ = !lit_;
        ShowLeds();
    });
}

void TankPanel::Show(bool visible) {
    visible_ = visible;
    Arm(-1);
    Livello.SetVisible(visible);
    LabLivello.SetVisible(visible);
    BarraS.SetVisible(visible);
    for (const LedRow& row : Leds) (this->*row.lamp).SetVisible(visible);
    for (const auto& button : Acquisisci) button->SetVisible(visible);
    lampeggio_->SetEnabled(visible);
    if (visible) Follow();
}

void TankPanel::SetWhy(pages::Reason why) {
    for (const auto& button : Acquisisci) button->SetWhy(why);
}

// -1: none.
void TankPanel::Arm(int level) {
    armed_ = level;
    for (int i = 0; i < TankLevels; ++i)
        Acquisisci[i].SetText(tuning_.memory.link.shell.TestoLingua(Captions, i == armed_ ? 1 : 0));
}

void TankPanel::Rest() {
    if (armed_ < 0) return;
    const std::size_t record = Records[static_cast<std::size_t>(armed_)];
    Arm(-1);
    onTaken(record, {});
}

void TankPanel::Typed(std::size_t record) {
    if (armed_ >= 0 && Records[static_cast<std::size_t>(armed_)] == record) Arm(-1);
}

// The first press arms, and the field follows the sensor, whatever was typed there; the second takes what it shows.
void TankPanel::Press(int level) {
    const std::size_t record = Records[static_cast<std::size_t>(level)];
    if (armed_ != level) {
        Rest();
        onTaken(record, {});
        Arm(level);
        return Follow();
    }
    const auto live = LiveLevel();
    Arm(-1);
    onTaken(record, live ? frames::Format0(*live) : std::string());
    if (!live) onNoReading();
}

void TankPanel::Follow() {
    if (!visible_) return;
    const auto live = LiveLevel();
    known_ = live.has_value();
    reached_ = Reached(live);
    FollowArmed(live);
    ShowCurve(live);
    ShowBar(live);
    ShowLeds();
}

void TankPanel::FollowArmed(const std::optional<double>& live) {
    if (armed_ < 0 || !live) return;
    pages::Control* field = controls_.ValueOf(Records[static_cast<std::size_t>(armed_)]);
    if (field == nullptr) return;
    field->SetText(frames::Format0(*live));
    field->SetChanged(true);
}

void TankPanel::ShowCurve(const std::optional<double>& live) {
    pages::Cells rows;
    for (int i = 0; i < TankLevels; ++i) {
        const std::size_t record = Records[static_cast<std::size_t>(i)];
        rows.push_back({tuning_.memory.link.shell.TestoLingua(LevelNames, i), ShownFigure(tuning_.memoria[record], 1)});
    }
    Livello.SetCells(std::move(rows), 0, 1);
    Livello.SetText(live ? frames::Format0(*live) : std::string());
    Livello.MarkCell(reached_, reached_ < 0 ? -1 : 1);
    LabLivello.SetText(reached_ < 0 ? std::string() : tuning_.memory.link.shell.TestoLingua(LevelNames, reached_));
}

void TankPanel::ShowBar(const std::optional<double>& live) {
    const double range = Level(Top) - Level(0);
    const double part = live && range > 0 ? (*live - Level(0)) / range : 0;
    BarraS.SetText(frames::Format0(std::clamp(part, 0.0, 1.0) * Percent));
}

void TankPanel::ShowLeds() {
    const int present = std::max(reached_, Reserve);
    for (const LedRow& row : Leds) {
        const bool on = known_ && (row.level == Reserve ? present == Reserve : present >= row.level);
        const bool dark = !on || (row.level == present && !lit_);
        (this->*row.lamp).SetColour(dark ? Dark : row.colour);
    }
}

std::optional<double> TankPanel::LiveLevel() const {
    const std::string& text = tuning_.memory.link.RecCanali.Grezzo[eculink::Livello];
    if (!frames::IsNumeric(text)) return std::nullopt;
    return frames::ValoreNum(text);
}

double TankPanel::Level(int level) const {
    return frames::ValoreNum(tuning_.memoria[Records[static_cast<std::size_t>(level)]].Dato[1]);
}

int TankPanel::Reached(const std::optional<double>& live) const {
    int level = -1;
    while (live && level < Top && *live >= Level(level + 1)) ++level;
    return level;
}

}  // namespace tuning
