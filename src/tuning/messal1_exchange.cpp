#include "link/catalogue.h"
#include "link/frames/build.h"
#include "link/transaction.h"
#include "tuning/messal1.h"
#include "tuning/page_frames.h"
#include "tuning/tuning.h"

namespace tuning {

namespace {

using eculink::StateRow;
using eculink::TimeOut;
using pages::Tone;

constexpr int StoringSpare = 160;  // kept beside the three of the store; nothing starts it
constexpr int StoringAxes = 161;
constexpr int StoringLive = 165;
constexpr int StoringCells = 166;

constexpr char LiveRead = 'R';

// A silence in the axes has no words of its own: the page becomes usable, and nothing of the cells has been sent.
struct StoreState {
    int state;
    bool tellsSilence;
};
constexpr auto StoreStates =
    std::to_array<StoreState>({{StoringSpare, false}, {StoringAxes, false}, {StoringLive, true}, {StoringCells, true}});

}  // namespace

void MessaL1::AddStates() {
    eculink::Catalogue& catalogue = tuning_.memory.link.catalogue;
    const shell::Shell& shell = tuning_.memory.link.shell;
    for (const StoreState& row : StoreStates) {
        catalogue.Add(
            StateRow{row.state, "wis", TimeOut::S}, [this](const std::string&) { return StoreReply(); },
            [this, &shell] { BrokenOff(Tone::Refused, shell.TestoLingua("ERRORE_3", "ERRORI")); },
            [this, &shell, row](int) {
                if (!row.tellsSilence) return BrokenOff(Tone::Plain, {});
                BrokenOff(Tone::Failed, shell.TestoLingua("ERRORE_3", "ERRORI"));
            });
    }
    catalogue.Add(
        StateRow{ReadingTable, "lor", TimeOut::S2},
        [this](const std::string& frame) { return ReadReply(frame, &MessaL1::TableRead); }, {},
        [this](int) { ReadingFailed(); });
    catalogue.Add(
        StateRow{ReadingAgain, "r", TimeOut::S3},
        [this](const std::string& frame) { return ReadReply(frame, &MessaL1::TableReadAgain); }, {},
        [this](int) { Finish(Tone::Plain, {}); });
}

void MessaL1::Begin(std::string text, std::size_t frames) {
    frames_ = frames;
    replies_ = 0;
    Say(Tone::Progress, std::move(text));
    ShowProgress();
    SetEnabled(false);
}

void MessaL1::ShowProgress() {
    constexpr std::size_t Percent = 100;
    Avanzamento.SetText(std::to_string(frames_ == 0 ? 0 : replies_ * Percent / frames_));
    Avanzamento.SetVisible(true);
}

void MessaL1::Finish(Tone tone, std::string text) {
    SetLimits(tuning_);
    Say(tone, std::move(text));
    Avanzamento.SetVisible(false);
    SetEnabled(true);
}

void MessaL1::BeginReading(int state, std::vector<MapFrame> reads) {
    eculink::Link& link = tuning_.memory.link;
    if (!eculink::StartTransaction(link, state, ReadChain(reads))) {
        if (!tableRead_) ReadingFailed();
        return;
    }
    reads_ = std::move(reads);
    moving_ = held_;
    Begin(link.shell.TestoLingua("SEGNALAZIONE_3", "MESSAL1"), reads_.size());
}

bool MessaL1::ReadReply(const std::string& frame, void (MessaL1::*done)()) {
    if (replies_ >= reads_.size()) return false;
    const MapFrame& read = reads_[replies_];
    const std::string_view payload = frames::Payload(frame);
    if (!TakeReply(read, payload, moving_)) return false;
    if (read.letter != LiveRead) TakeCells(tuning_, {read.address, ByteCount(read)}, payload);
    ++replies_;
    ShowProgress();
    if (!eculink::ContinueChain(tuning_.memory.link)) (this->*done)();
    return true;
}

void MessaL1::TableRead() {
    held_ = moving_;
    tableRead_ = true;
    ShowMap(held_);
    MarkChanges();
    Finish(Tone::Plain, {});
}

// The cells on the page are those of the engine; what counts as stored is the memory.
void MessaL1::TableReadAgain() {
    ShowCells(moving_);
    MarkChanges();
    Finish(Tone::Done, tuning_.memory.link.shell.TestoLingua("SEGNALAZIONE_5", "MESSAL1"));
}

// What was read in part is not shown: nothing of it may be stored.
void MessaL1::ReadingFailed() {
    Finish(Tone::Failed, tuning_.memory.link.shell.TestoLingua("ERRORE_18", "ERRORI"));
    SetTableWhy(pages::Reason::ReadingFailed);
    SetFocus(&Esci);
}

// The axes first, then column by column the live cells and the permanent ones.
void MessaL1::Store() {
    eculink::Link& link = tuning_.memory.link;
    if (link.state.StatoCmd != eculink::Idle) return;
    if (pages::Field& end = Giri[OverSpeedColumn]; end.Refused()) return GiriLeft(OverSpeedColumn);
    moving_ = MapOnPage();
    stretches_.clear();
    writes_ = AxisWrites();
    for (int column = 0; column < MapColumns; ++column) {
        AddStretch(StoringLive, LiveColumnWrites(column));
        AddStretch(StoringCells, StoredColumnWrites(column));
    }
    halfStored_ = true;
    Begin(link.shell.TestoLingua("SEGNALAZIONE_4", "MESSAL1"), writes_.size());
    eculink::StartTransaction(link, StoringAxes, WriteChain(AxisWrites(), moving_));
}

void MessaL1::AddStretch(int state, const std::vector<MapFrame>& frames) {
    stretches_.push_back({state, WriteChain(frames, moving_)});
    writes_.insert(writes_.end(), frames.begin(), frames.end());
}

bool MessaL1::StoreReply() {
    eculink::Link& link = tuning_.memory.link;
    if (replies_ >= writes_.size()) return false;
    const MapFrame& write = writes_[replies_];
    if (!write.ToWorkingMemory()) CopyFigures(write, moving_, held_);
    ++replies_;
    ShowProgress();
    TakeConfirmed(tuning_, link.state.ComandoTx);
    if (eculink::ContinueChain(link)) return true;
    if (stretches_.empty()) {
        Stored();
        return true;
    }
    const Stretch next = std::move(stretches_.front());
    stretches_.pop_front();
    eculink::SendFrame(link, next.state, next.chain);
    return true;
}

void MessaL1::Stored() {
    held_ = moving_;
    halfStored_ = false;
    ShowHeld();
    Finish(Tone::Done, tuning_.memory.link.shell.TestoLingua("SEGNALAZIONE_1", "MESSAL1"));
}

// What had been confirmed until then stands in the unit.
void MessaL1::BrokenOff(Tone tone, std::string text) {
    ShowHeld();
    Finish(tone, std::move(text));
}

// The pressures of the page whose counts the unit now holds stand for them; the rest is marked.
void MessaL1::ShowHeld() {
    for (int row = 0; row < MapRows; ++row) {
        const auto at = static_cast<std::size_t>(row);
        if (held_.MAPV[at] == moving_.MAPV[at]) readMAPV_[at] = MAPV[row].Text();
    }
    MarkChanges();
}

}  // namespace tuning
