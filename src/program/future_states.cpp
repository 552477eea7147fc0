#include <array>

#include "program/program.h"

namespace program {

namespace {

using eculink::Counting;
using eculink::StateRow;
using eculink::TimeOut;

// Transaction states whose pages come with later versions. A room that builds such a page takes its rows out of here.
// The pages of diagnosis and the download count whatever their row lists.
constexpr auto FutureStates = std::to_array<StateRow>({
    {50, "wis", TimeOut::A},
    {72, "is", TimeOut::C},
    {73, "is", TimeOut::C},
    {76, "", TimeOut::None},
    {79, "wis", TimeOut::D, Counting::Alike},
    {82, "w", TimeOut::G},
    {83, "w", TimeOut::H},
    {84, "lor", TimeOut::D2},
    {87, "w", TimeOut::I},
    {90, "lo", TimeOut::K, Counting::Alike},
    {91, "is", TimeOut::K2, Counting::Alike},
    {99, "is", TimeOut::N},
    {130, "lox", TimeOut::R, Counting::Alike},
    {131, "is", TimeOut::R2, Counting::Alike},
    {150, "", TimeOut::None},

    {170, "wlor", TimeOut::T},
    {171, "is", TimeOut::T2},
    {172, "w", TimeOut::T3},
    {173, "w", TimeOut::T4},
    {200, "is", TimeOut::U},
    {201, "is", TimeOut::U},
    {202, "is", TimeOut::U},
    {204, "w", TimeOut::G},
    {205, "wis", TimeOut::U2},
    {280, "lo", TimeOut::V},
    {300, "isp", TimeOut::W, Counting::Alike},
    {310, "w", TimeOut::X},
});

}  // namespace

void AddFutureStates(eculink::Catalogue& catalogue) {
    for (const StateRow& row : FutureStates) {
        if (catalogue.Find(row.state) == nullptr) catalogue.Add(row);
    }
}

}  // namespace program
