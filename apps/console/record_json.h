#pragma once

#include <string_view>

#include "console/json.h"

namespace tuning {
struct Tuning;
}

namespace console {

// A parameter record or a calibration record by its name: where its cell is, how wide, its limits and its figures. A
// calibration record has no limits, one figure as acquired and one as it stands in the unit. Not ok when there is no
// record of that name.
Json OfRecord(const tuning::Tuning& tuning, std::string_view name);

}  // namespace console
