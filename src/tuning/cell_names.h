#pragma once

#include <optional>
#include <string_view>

#include "pages/control.h"

namespace tuning {

struct Tuning;

struct NamedCell {
    pages::Control* grid;
    pages::CellPlace place;
};

// The cell of a table that bears the name of its figure, as the fields of a page do: on `MessaP` the name of a record
// of the page shown ("T_LamSup(3)"), or that of its initial value ("T_LamSupDef(3)"); on `MessaL1` "LambdaRicco(12)",
// counted by columns of eight. Nothing for any other name.
std::optional<NamedCell> CellNamed(Tuning& tuning, const pages::Page& page, std::string_view name);

}  // namespace tuning
