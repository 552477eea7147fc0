#pragma once

#include <cstddef>
#include <optional>

#include "tuning/limits.h"

namespace tuning {

struct Tuning;

// Whether a page accepts a figure for a record; if not, the limits that it breaks. Besides its own limits a threshold
// must keep to its side of its partner: the counts are compared, since these are what the unit compares, and the
// partner narrows the limits that are told of a figure that breaks nothing else.
std::optional<Limits> WhyRefused(const Tuning& tuning, std::size_t number, double figure);

}  // namespace tuning
