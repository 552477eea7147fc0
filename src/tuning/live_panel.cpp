#include "tuning/live_panel.h"

#include <algorithm>

#include "tuning/tuning.h"

namespace tuning {

namespace {

constexpr int Interval = 200;  // ms

// Where the unit works is told by a word, not by its digit.
std::string FigureOf(const eculink::Link& link, const LiveChannel& row) {
    const auto channel = static_cast<std::size_t>(row.channel);
    const bool word = row.channel == eculink::Macro || row.channel == eculink::Zone;
    if (word) return link.RecCanali.Valore[channel];
    return row.raw ? link.RecCanali.Grezzo[channel] : eculink::InstrumentText(link, row.channel, eculink::RawView);
}

}  // namespace

LivePanel::LivePanel(pages::Page& page, Tuning& tuning)
    : tuning_(tuning),
      labAuto_(page, "LabAuto", Most),
      datiAuto_(page, "DatiAuto", Most),
      umAuto_(page, "UmAuto", Most),
      timer_(tuning.memory.link.shell.host.timers.Make(Interval)) {
    timer_->SetHandler([this] { Tick(); });
}

void LivePanel::Show(std::span<const LiveChannel> channels) {
    channels_ = channels.first(std::min<std::size_t>(channels.size(), Most));
    const eculink::Link& link = tuning_.memory.link;
    for (int i = 0; i < Most; ++i) {
        const bool used = static_cast<std::size_t>(i) < channels_.size();
        for (auto* labels : {&labAuto_, &datiAuto_, &umAuto_}) (*labels)[i].SetVisible(used);
        if (!used) continue;
        const auto channel = static_cast<std::size_t>(channels_[static_cast<std::size_t>(i)].channel);
        labAuto_[i].SetText(link.DescrCanale[channel].Nome);
        umAuto_[i].SetText(link.DescrCanale[channel].UM[eculink::RawView]);
    }
    Look();
}

void LivePanel::Follow(bool on) {
    timer_->SetEnabled(on);
}

// While an exchange runs, frames reach the raw figures alone: what the page shows stands until it has ended.
void LivePanel::Tick() {
    if (tuning_.memory.link.state.StatoCmd == eculink::Idle) Look();
}

void LivePanel::Look() {
    const eculink::Link& link = tuning_.memory.link;
    for (std::size_t i = 0; i < channels_.size(); ++i)
        datiAuto_[static_cast<int>(i)].SetText(FigureOf(link, channels_[i]));
    if (onTick) onTick();
}

}  // namespace tuning
