#include "link/lamps.h"

#include <algorithm>
#include <array>
#include <string>

#include "link/link.h"

namespace eculink {

namespace {

constexpr const char* White = "white";
constexpr const char* Green = "green";
constexpr const char* Yellow = "yellow";
constexpr const char* Red = "red";

// StatoRx of the reception lamps.
constexpr int RxLost = -1;
constexpr int RxOn = 0;
constexpr int RxAlternate = 1;
constexpr int RxOff = 2;
constexpr int FramesHeld = 2;  // a lamp holds its colour this long, one frame more

void SetRx(Link& link, const char* ok, const char* ko, int state) {
    link.shell.main.RxOK.SetColour(ok);
    link.shell.main.RxKO.SetColour(ko);
    link.state.StatoRx = state;
    link.state.ContaRx = 0;
}

// True while the lamps still hold; counts the frame.
bool Holds(Link& link) {
    if (link.state.ContaRx >= FramesHeld) return false;
    ++link.state.ContaRx;
    return true;
}

struct CentreRow {
    char digit;
    const char* colour;
    bool blinks;
};
constexpr std::array<CentreRow, 10> Centre{{
    {'1', Red, false},
    {'2', Green, false},
    {'3', Yellow, false},
    {'4', Red, true},
    {'7', Red, true},
    {'8', Red, true},
    {'A', Red, true},
    {'5', Green, true},
    {'9', Green, true},
    {'6', Yellow, true},
}};
constexpr CentreRow CentreOff{'0', White, false};

struct RowRow {
    char digit = '0';
    unsigned lit = 0;  // lamps that are green at first, bit 0 the first one
    RowAnimation animation = RowAnimation::None;
};
constexpr unsigned Outer = 0b1001;
constexpr unsigned Inner = 0b0110;
constexpr unsigned FirstTwo = 0b0011;
constexpr unsigned LastTwo = 0b1100;
constexpr unsigned All = 0b1111;
static_assert(LedCount == 4, "the patterns of the lamp row are those of four lamps");

constexpr std::array<RowRow, 4> BySecond{{
    {'1', Outer, RowAnimation::OuterInner},
    {'2', 0, RowAnimation::None},
    {'3', 1, RowAnimation::Runner},
    {'4', FirstTwo, RowAnimation::Halves},
}};
constexpr std::array<RowRow, 7> ByThird{{
    {'0', 1, RowAnimation::FlashFirst},
    {'1', 0, RowAnimation::None},
    {'2', 1, RowAnimation::None},
    {'3', FirstTwo, RowAnimation::None},
    {'4', 0b0111, RowAnimation::None},
    {'5', All, RowAnimation::None},
    {'6', All, RowAnimation::FlashAll},
}};

template <class Rows>
RowRow FindRow(const Rows& rows, char digit) {
    const auto found =
        std::find_if(rows.begin(), rows.end(), [digit](const RowRow& row) { return row.digit == digit; });
    return found == rows.end() ? RowRow{digit, 0, RowAnimation::None} : *found;
}

void LightRow(Link& link, unsigned lit) {
    link.grafici.lit = lit;
    for (int lamp = 0; lamp < LedCount; ++lamp) link.grafici.Led[lamp].SetColour((lit >> lamp) & 1U ? Green : White);
}

void ShowRow(Link& link, const RowRow& row) {
    platform::Timer& timer = *link.timers.Lampeggio;
    timer.SetEnabled(false);
    timer.SetInterval(BlinkInterval);
    LightRow(link, row.lit);
    link.grafici.animation = row.animation;
    link.grafici.runsUp = true;
    timer.SetEnabled(row.animation != RowAnimation::None);
}

void ShowCentre(Link& link, char digit) {
    platform::Timer& timer = *link.timers.LampeggioC;
    timer.SetEnabled(false);
    timer.SetInterval(BlinkInterval);
    const auto found =
        std::find_if(Centre.begin(), Centre.end(), [digit](const CentreRow& row) { return row.digit == digit; });
    const CentreRow& row = found == Centre.end() ? CentreOff : *found;
    link.grafici.centreColour = row.colour;
    link.grafici.LedC.SetColour(row.colour);
    timer.SetEnabled(row.blinks);
}

constexpr char NoDigit = ' ';

void ShowSwitch(Link& link, char digit) {
    const int cell = digit >= '0' && digit < '0' + UnknownPosition ? digit - '0' : UnknownPosition;
    link.grafici.Commu.SetIndex(cell);
    link.grafici.CommuTesto.SetText(link.shell.TestoLingua("COMMUT." + std::to_string(cell), "GRAFICI"));
}

// The one green lamp of the runner, a place further; at an end it turns round.
unsigned NextRunner(Grafici& page) {
    constexpr unsigned Last = 1U << (LedCount - 1);
    if (page.lit == Last) page.runsUp = false;
    if (page.lit <= 1U) page.runsUp = true;
    return page.runsUp ? page.lit << 1U : page.lit >> 1U;
}

unsigned NextRow(Grafici& page) {
    switch (page.animation) {
        case RowAnimation::OuterInner:
            return page.lit == Outer ? Inner : Outer;
        case RowAnimation::Runner:
            return NextRunner(page);
        case RowAnimation::Halves:
            return page.lit == FirstTwo ? LastTwo : FirstTwo;
        case RowAnimation::FlashFirst:
            return page.lit == 0 ? 1U : 0U;
        case RowAnimation::FlashAll:
            return page.lit == 0 ? All : 0U;
        case RowAnimation::None:
            break;
    }
    return page.lit;
}

}  // namespace

void MarkGoodFrame(Link& link) {
    const int state = link.state.StatoRx;
    if (state != RxOn && state != RxOff) return SetRx(link, Green, White, RxOn);
    if (Holds(link)) return;
    SetRx(link, state == RxOn ? White : Green, White, state == RxOn ? RxOff : RxOn);
}

void MarkBadFrame(Link& link) {
    const int state = link.state.StatoRx;
    if ((state == RxAlternate || state == RxOff) && Holds(link)) return;
    SetRx(link, White, Red, RxOn);
}

void MarkLost(Link& link) {
    SetRx(link, White, White, RxLost);
    // The replica of a switch that nobody hears is dark, and where it stands is not known.
    ShowSwitch(link, NoDigit);
    ShowRow(link, {});
    ShowCentre(link, CentreOff.digit);
}

void LampadeStato(Link& link) {
    constexpr std::size_t Position = 0;
    constexpr std::size_t Second = 1;
    constexpr std::size_t Third = 2;
    constexpr std::size_t CentreLamp = 3;
    const std::string& now = link.RecCanali.Grezzo[Commut];
    std::string& before = link.RecCanali.Valore[Commut];
    if (now[Position] != before[Position]) ShowSwitch(link, now[Position]);
    if (now[CentreLamp] != before[CentreLamp]) ShowCentre(link, now[CentreLamp]);
    const bool second = now[Second] != before[Second];
    if (second) ShowRow(link, FindRow(BySecond, now[Second]));
    if (now[Second] == '0' && (second || now[Third] != before[Third])) ShowRow(link, FindRow(ByThird, now[Third]));
    before.replace(0, RawWidth, now);
}

void AnimateRow(Link& link) {
    LightRow(link, NextRow(link.grafici));
}

void AnimateCentre(Link& link) {
    pages::Lamp& lamp = link.grafici.LedC;
    lamp.SetColour(lamp.Colour() == White ? link.grafici.centreColour : White);
}

}  // namespace eculink
