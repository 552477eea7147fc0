#include "link/catalogue.h"

#include <array>
#include <stdexcept>
#include <string>

namespace eculink {

namespace {

// Silence in every state beeps, unless nobody waits for the end of the exchange. The watchdog on the stream comes back
// as it was; pages that live beside the running engine switch it on, a recognition leaves it to the next live frame. Of
// a recognition nobody is told while a calibration step runs.
constexpr auto Reactions = std::to_array<ReactionRow>({
    {TimeOut::None, false, Watchdog::Restored}, {TimeOut::A, true, Watchdog::Restored},
    {TimeOut::B, true, Watchdog::Restored},     {TimeOut::C, true, Watchdog::Restored},
    {TimeOut::D, true, Watchdog::Restored},     {TimeOut::D2, true, Watchdog::On},
    {TimeOut::E, true, Watchdog::Off, false},   {TimeOut::F, true, Watchdog::Restored},
    {TimeOut::F2, true, Watchdog::Restored},    {TimeOut::F3, true, Watchdog::Restored},
    {TimeOut::G, true, Watchdog::On},           {TimeOut::H, true, Watchdog::On},
    {TimeOut::I, true, Watchdog::On},           {TimeOut::J, true, Watchdog::Restored},
    {TimeOut::K, true, Watchdog::Restored},     {TimeOut::K2, true, Watchdog::Restored},
    {TimeOut::L, true, Watchdog::Restored},     {TimeOut::M, true, Watchdog::Restored},
    {TimeOut::N, true, Watchdog::Restored},     {TimeOut::P, true, Watchdog::On},
    {TimeOut::Q, true, Watchdog::Restored},     {TimeOut::R, true, Watchdog::Restored},
    {TimeOut::R2, true, Watchdog::Restored},    {TimeOut::S, true, Watchdog::Restored},
    {TimeOut::S2, true, Watchdog::Restored},    {TimeOut::S3, true, Watchdog::Restored},
    {TimeOut::T, true, Watchdog::Restored},     {TimeOut::T2, true, Watchdog::Restored},
    {TimeOut::T3, false, Watchdog::Restored},   {TimeOut::T4, false, Watchdog::Restored},
    {TimeOut::U, true, Watchdog::Restored},     {TimeOut::U2, true, Watchdog::Restored},
    {TimeOut::V, true, Watchdog::Restored},     {TimeOut::W, true, Watchdog::Restored},
    {TimeOut::X, false, Watchdog::Restored},
});

}  // namespace

const ReactionRow& ReactionOf(TimeOut letter) {
    for (const ReactionRow& row : Reactions) {
        if (row.letter == letter) return row;
    }
    return Reactions.front();
}

void Catalogue::Add(const StateRow& row, ReplyHandler reply, RefusalHandler refused, TimeOutHandler timeOut) {
    const bool added =
        rows_.try_emplace(row.state, Entry{row, std::move(reply), std::move(refused), std::move(timeOut), {}}).second;
    if (!added) throw std::logic_error("transaction state " + std::to_string(row.state) + " has two owners");
}

void Catalogue::AddReply(int state, char letter, ReplyHandler reply) {
    rows_.at(state).byLetter[letter] = std::move(reply);
}

const ReplyHandler* Catalogue::Entry::HandlerOf(const std::string& frame) const {
    const char letter = frame.at(1);
    if (row.letters.find(letter) == std::string_view::npos) return nullptr;
    const auto own = byLetter.find(letter);
    const ReplyHandler& handler = own == byLetter.end() ? reply : own->second;
    return handler ? &handler : nullptr;
}

const Catalogue::Entry* Catalogue::Find(int state) const {
    const auto found = rows_.find(state);
    return found == rows_.end() ? nullptr : &found->second;
}

}  // namespace eculink
