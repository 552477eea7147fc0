#include "tuning/live_figures.h"

#include <algorithm>

#include "tuning/tuning.h"

namespace tuning {

namespace {

constexpr int Interval = 200;  // ms

// Where the unit works is told by a word, not by its digit.
std::string FigureOf(const eculink::Link& link, int channel) {
    const bool word = channel == eculink::Macro || channel == eculink::Zone;
    if (word) return link.RecCanali.Valore[static_cast<std::size_t>(channel)];
    return eculink::InstrumentText(link, channel, eculink::RawView);
}

}  // namespace

LiveFigures::LiveFigures(pages::Page& page, Tuning& tuning)
    : tuning_(tuning),
      labAuto_(page, "LabAuto", Most),
      datiAuto_(page, "DatiAuto", Most),
      umAuto_(page, "UmAuto", Most),
      timer_(tuning.memory.link.shell.host.timers.Make(Interval)) {
    timer_->SetHandler([this] { Tick(); });
}

void LiveFigures::Show(std::span<const int> channels) {
    channels_ = channels.first(std::min<std::size_t>(channels.size(), Most));
    const eculink::Link& link = tuning_.memory.link;
    for (int i = 0; i < Most; ++i) {
        const bool used = static_cast<std::size_t>(i) < channels_.size();
        for (auto* labels : {&labAuto_, &datiAuto_, &umAuto_}) (*labels)[i].SetVisible(used);
        if (!used) continue;
        const auto channel = static_cast<std::size_t>(channels_[static_cast<std::size_t>(i)]);
        labAuto_[i].SetText(link.DescrCanale[channel].Nome);
        umAuto_[i].SetText(link.DescrCanale[channel].UM[eculink::RawView]);
    }
    Tick();
}

void LiveFigures::Follow(bool on) {
    timer_->SetEnabled(on);
}

void LiveFigures::Tick() {
    const eculink::Link& link = tuning_.memory.link;
    for (std::size_t i = 0; i < channels_.size(); ++i)
        datiAuto_[static_cast<int>(i)].SetText(FigureOf(link, channels_[i]));
    if (onTick) onTick();
}

}  // namespace tuning
