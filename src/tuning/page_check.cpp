#include "tuning/page_check.h"

#include <algorithm>
#include <array>
#include <utility>

#include "link/frames/numbers.h"
#include "tuning/parameter_table.h"
#include "tuning/tuning.h"

namespace tuning {

namespace {

constexpr int ThrottleClosed = 3088;
constexpr int ThrottleOpen = 3090;
constexpr int WordBytes = 2;

// Two thresholds of which the lower never passes the upper: lean and rich, and those of throttle or manifold, entering
// and leaving. Full load is entered at more than it is left. All others are bounded by their limits alone.
struct Pair {
    std::size_t lower;
    std::size_t upper;
};
constexpr std::array<Pair, 4> Pairs{{
    {table::NumberOf("ValLam", 1), table::NumberOf("ValLam", 2)},
    {table::NumberOf("ValCut", 3), table::NumberOf("ValCut", 4)},
    {table::NumberOf("ValMin", 3), table::NumberOf("ValMin", 4)},
    {table::NumberOf("ValPC", 3), table::NumberOf("ValPC", 2)},
}};

// A throttle that falls when it opens turns the pair round, unless the unit has turned its counts round already.
bool TurnedRound(const Tuning& tuning, const Row& row) {
    const Context context = tuning.CurrentContext();
    if (!FollowsSelector(row) || IsPressure(row, context) || context.throttleTurned) return false;
    const CellReader cell = tuning.Cells();
    return cell(ThrottleClosed, WordBytes) > cell(ThrottleOpen, WordBytes);
}

struct Partner {
    std::size_t number = MemoriaCount;
    bool above = false;  // the record may not pass it upwards
};

Partner PartnerOf(const Tuning& tuning, std::size_t number) {
    for (const Pair& pair : Pairs) {
        if (number != pair.lower && number != pair.upper) continue;
        const bool lower = (number == pair.lower) != TurnedRound(tuning, ParameterRows[number]);
        return {number == pair.lower ? pair.upper : pair.lower, lower};
    }
    return {};
}

// Whether the partner's figure is one that a page would accept: one left over from the other sensor bounds nothing.
bool Bounds(const Record& partner) {
    return frames::IsNumeric(partner.Dato[1]) && WithinLimits(partner, frames::ValoreNum(partner.Dato[1]));
}

// Whether the count of the figure would pass the partner's.
bool Passes(const Tuning& tuning, const Partner& partner, std::uint32_t count) {
    const Record& record = tuning.memoria[partner.number];
    const auto other = Outgoing(record, 1, tuning.CurrentContext());
    if (!other || !Bounds(record)) return false;
    return partner.above ? count > *other : count < *other;
}

Limits Narrowed(const Tuning& tuning, Limits limits, const Partner& partner) {
    const Record& record = tuning.memoria[partner.number];
    const std::string& text = record.Dato[1];
    if (!Bounds(record)) return limits;
    double& limit = partner.above ? limits.Max : limits.Min;
    limit = partner.above ? std::min(limit, frames::ValoreNum(text)) : std::max(limit, frames::ValoreNum(text));
    return limits;
}

// The count that would go out: a figure as it was read is the count that was read.
std::optional<std::uint32_t> CountFor(const Record& record, double figure, const Context& context) {
    Record edited = record;
    edited.Dato[1] = FigureText(figure);
    return Outgoing(edited, 1, context);
}

}  // namespace

std::optional<Limits> WhyRefused(const Tuning& tuning, std::size_t number, double figure) {
    const Record& record = tuning.memoria[number];
    const Limits limits{record.Min, record.Max};
    const auto count = CountFor(record, figure, tuning.CurrentContext());
    if (!count || !WithinLimits(record, figure)) return limits;
    const Partner partner = PartnerOf(tuning, number);
    if (partner.number != MemoriaCount && Passes(tuning, partner, *count)) return Narrowed(tuning, limits, partner);
    return std::nullopt;
}

}  // namespace tuning
