#include "tuning/limits.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "link/frames/numbers.h"
#include "tuning/parameter_table.h"

namespace tuning {
namespace {

constexpr int WordBytes = 2;
constexpr int ModeOfUnit = 1;
constexpr std::array<int, 2> ThrottleEnds = {3088, 3090};  // throttle closed and open
constexpr std::array<int, 2> PressureEnds = {3104, 3106};  // manifold at idle and with the engine stopped
// What a full-load threshold accepts; holds for every pressure while no sensor has been acquired.
constexpr Limits AnyPressure{0, 1500};

constexpr std::size_t CutOffSelector = table::NumberOf("SogliaTM");
constexpr std::size_t IdleSelector = table::NumberOf("SogliaMin");

// For each record the one whose bound it takes: itself, or the owner of the cell that it shares.
using Owners = std::array<std::size_t, MemoriaCount>;

constexpr Owners BuildOwners(Bound Row::*bound) {
    Owners owners{};
    for (std::size_t i = 0; i < MemoriaCount; ++i) {
        const Row& row = table::Rows[i];
        owners[i] = (row.*bound).source == Source::SameCell ? table::OwnerOf(row.EE, bound) : i;
    }
    return owners;
}

// For each record the neighbour whose figure bounds it; MemoriaCount when there is none.
constexpr Owners BuildNeighbours(Bound Row::*bound) {
    Owners neighbours{};
    for (std::size_t i = 0; i < MemoriaCount; ++i) {
        const Bound& of = table::Rows[i].*bound;
        const bool follows = of.source == Source::Dato0 || of.source == Source::Dato1;
        neighbours[i] = follows ? table::OwnerOf(of.value, bound) : MemoriaCount;
    }
    return neighbours;
}

struct Side {
    Bound Row::*bound;
    Owners owners;
    Owners neighbours;
};

constexpr Side Lower{&Row::min, BuildOwners(&Row::min), BuildNeighbours(&Row::min)};
constexpr Side Upper{&Row::max, BuildOwners(&Row::max), BuildNeighbours(&Row::max)};

constexpr bool AllOwned(const Owners& owners) {
    return std::all_of(owners.begin(), owners.end(), [](std::size_t at) { return at < MemoriaCount; });
}
static_assert(AllOwned(Lower.owners) && AllOwned(Upper.owners), "a record shares a cell that nobody bounds");

std::size_t SelectorOf(const Row& row) {
    if (row.conversion == Conversion::CutOffThreshold) return CutOffSelector;
    return row.conversion == Conversion::IdleThreshold ? IdleSelector : MemoriaCount;
}

double Word(const CellReader& cell, int address) {
    return cell(address, WordBytes);
}

// Both ends of the sensor in the unit of the page. A throttle may be wired the other way round.
Limits SensorEnds(const Row& row, const CellReader& cell, const Context& context) {
    std::array<double, 2> ends{};
    for (std::size_t i = 0; i < ends.size(); ++i) {
        if (IsPressure(row, context)) {
            const auto pressure =
                frames::ConverteMAP(Word(cell, PressureEnds[i]), ModeOfUnit, context.datiLunghi, context.tabella);
            if (!pressure) return AnyPressure;
            ends[i] = std::round(*pressure);
        } else {
            ends[i] = ThrottleShown(Word(cell, ThrottleEnds[i]), context);
        }
    }
    return {std::min(ends[0], ends[1]), std::max(ends[0], ends[1])};
}

// An erased cell says nothing of its record.
bool IsErased(const Record& record, std::size_t slot) {
    const std::uint32_t erased = record.NByte == 1 ? 0xFF : 0xFFFF;
    return record.raw == erased && record.Dato[slot] == record.Dato[0];
}

double NeighbourFigure(const Record& neighbour, std::size_t slot, const CellReader& cell, const Context& context) {
    if (frames::IsNumeric(neighbour.Dato[slot]) && !IsErased(neighbour, slot))
        return frames::ValoreNum(neighbour.Dato[slot]);
    const std::optional<double> shown = ToShown(*neighbour.row, cell(neighbour.EE, neighbour.NByte), context);
    return shown ? std::round(*shown) : 0;
}

struct Reader {
    const MemoriaTable& memoria;
    const CellReader& cell;
    const Context& context;

    double Limit(const Side& side, std::size_t number) const {
        const std::size_t owner = side.owners[number];
        const Row& row = ParameterRows[owner];
        const Bound& bound = row.*side.bound;
        switch (bound.source) {
            case Source::Constant:
                return Count(row, bound.value);
            case Source::Cell:
                return Count(row, Word(cell, bound.value));
            case Source::Dato0:
                return NeighbourFigure(memoria[side.neighbours[owner]], 0, cell, context);
            case Source::Dato1:
                return NeighbourFigure(memoria[side.neighbours[owner]], 1, cell, context);
            case Source::SensorLow:
                return SensorEnds(row, cell, context).Min;
            case Source::SensorHigh:
                return SensorEnds(row, cell, context).Max;
            case Source::SameCell:
                break;  // an owner bounds itself
        }
        return 0;
    }

    // The limits of a threshold of probe or throttle are counts like the threshold itself.
    double Count(const Row& row, double value) const {
        if (row.conversion == Conversion::Throttle) return ThrottleShown(value, context);
        return row.conversion == Conversion::Lambda ? LambdaShown(value, context) : value;
    }
};

void SetLimitsOf(MemoriaTable& memoria, std::size_t number, const CellReader& cell, const Context& context) {
    const auto [least, most] = LimitsOf(memoria, number, cell, context);
    memoria[number].Min = least;
    memoria[number].Max = most;
}

bool Follows(std::size_t number, std::size_t changed) {
    const std::size_t least = Lower.owners[number];
    const std::size_t most = Upper.owners[number];
    return Lower.neighbours[least] == changed || Upper.neighbours[most] == changed ||
           SelectorOf(ParameterRows[number]) == changed;
}

// Whether a selector stands on the manifold pressure.
bool ByPressure(const Record& selector, const CellReader& cell, std::size_t slot) {
    if (frames::IsNumeric(selector.Dato[slot])) return frames::ValoreNum(selector.Dato[slot]) == 0;
    return cell(selector.EE, selector.NByte) == 0;
}

}  // namespace

Limits LimitsOf(const MemoriaTable& memoria, std::size_t number, const CellReader& cell, const Context& context) {
    const Reader reader{memoria, cell, context};
    return {reader.Limit(Lower, number), reader.Limit(Upper, number)};
}

void SetLimits(MemoriaTable& memoria, const CellReader& cell, const Context& context) {
    for (std::size_t i = 0; i < memoria.size(); ++i) SetLimitsOf(memoria, i, cell, context);
}

void FollowNeighbour(MemoriaTable& memoria, std::size_t changed, const CellReader& cell, const Context& context) {
    for (std::size_t i = 0; i < memoria.size(); ++i) {
        if (Follows(i, changed)) SetLimitsOf(memoria, i, cell, context);
    }
}

void TakeSelectors(Context& context, const MemoriaTable& memoria, const CellReader& cell, std::size_t slot) {
    context.cutOffByPressure = ByPressure(memoria[CutOffSelector], cell, slot);
    context.idleByPressure = ByPressure(memoria[IdleSelector], cell, slot);
}

bool WithinLimits(const Record& record, double figure) {
    if (record.row->positions > 0) {
        return figure >= 0 && figure < record.row->positions && figure == std::floor(figure);
    }
    return figure >= record.Min && figure <= record.Max;
}

}  // namespace tuning
