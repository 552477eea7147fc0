#pragma once

#include <span>

#include "tuning/page_rows.h"

namespace tuning {

inline constexpr int TankPage = 1;

// The seven pages of Imposta, by their numbers.
std::span<const PageRow> ImpostaPages();

}  // namespace tuning
