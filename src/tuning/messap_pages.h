#pragma once

#include <span>

#include "tuning/page_rows.h"

namespace tuning {

// The twelve pages of MessaP, by their numbers.
std::span<const PageRow> MessaPPages();

}  // namespace tuning
