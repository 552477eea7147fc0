#pragma once

#include <cstddef>

#include "tuning/cell_reader.h"
#include "tuning/conversions.h"
#include "tuning/parameter_map.h"

namespace tuning {

struct Limits {
    double Min = 0;
    double Max = 0;
};

// The limits of one record in the unit of its page: constants, cells of the image, the ends of the selected sensor or
// the figures of its neighbours. A neighbour whose page has not been read, or that is erased, counts with its cell in
// the image. An image may hold limits that cross; they are given as they stand, and then no figure is legal.
Limits LimitsOf(const MemoriaTable& memoria, std::size_t number, const CellReader& cell, const Context& context);

// Sets Min and Max of every record. For an image just decoded the records must be those of CostruisciMemoria, and the
// selectors of the context those of TakeSelectors.
void SetLimits(MemoriaTable& memoria, const CellReader& cell, const Context& context);

// Sets the limits anew that follow the figures of one record: after its page has been read or a figure has been edited.
void FollowNeighbour(MemoriaTable& memoria, std::size_t changed, const CellReader& cell, const Context& context);

// Puts into the context what SogliaTM and SogliaMin select: the figure as now edited (slot 1) or as read (0), or the
// cell in the image while their page has not been read. Position 0 is the manifold pressure, the other the throttle.
void TakeSelectors(Context& context, const MemoriaTable& memoria, const CellReader& cell, std::size_t slot = 1);

// Whether a page accepts a figure: a position of the list, or a number from Min to Max.
bool WithinLimits(const Record& record, double figure);

}  // namespace tuning
