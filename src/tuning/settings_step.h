#pragma once

#include <cstddef>
#include <vector>

namespace tuning {

struct Tuning;

// A first acquisition keeps the settings of the installation in the base map that it works on, not in the unit.
inline constexpr const char* BaseMapFile = "MAPPAB.MPP";

// Takes the figures of records from the base map. False when there is none, or none of the right size.
bool TakeFromBaseMap(Tuning& tuning, const std::vector<std::size_t>& records);
// Writes what has been edited of them into it; digits of other cells stay as they stand. `last`: the base map is
// complete; its marker counts as programmed, and it gets today's date unless it has one. False when the file cannot be
// read or written; it is then as it was.
bool PutIntoBaseMap(Tuning& tuning, const std::vector<std::size_t>& records, bool last);

}  // namespace tuning
