#include "tuning/cell_names.h"

#include <charconv>
#include <string>

#include "tuning/parameter_names.h"
#include "tuning/tuning.h"

namespace tuning {

namespace {

constexpr std::string_view Twin = "Def(";

// "T_LamSup(3)" of "T_LamSupDef(3)"; empty when the name is not that of a twin.
std::string WithoutTwin(std::string_view name) {
    const std::size_t at = name.find(Twin);
    if (at == std::string_view::npos) return {};
    return std::string(name.substr(0, at)) + std::string(name.substr(at + Twin.size() - 1));
}

std::optional<NamedCell> InTables(const MessaP& page, std::string_view name) {
    const std::string plain = WithoutTwin(name);
    const auto record = FindRecord(plain.empty() ? name : std::string_view(plain));
    if (!record || record->calibration) return std::nullopt;
    pages::CellPlace place;
    const GridControls* grid = page.controls.GridOf(record->number, &place);
    if (grid == nullptr) return std::nullopt;
    return NamedCell{plain.empty() ? grid->value : grid->initial, place};
}

std::optional<NamedCell> InMap(pages::Control& map, std::string_view name) {
    const std::string opening = map.Name() + "(";
    if (!name.starts_with(opening) || !name.ends_with(")")) return std::nullopt;
    name = name.substr(opening.size(), name.size() - opening.size() - 1);
    int cell = -1;
    const auto [end, fault] = std::from_chars(name.data(), name.data() + name.size(), cell);
    if (fault != std::errc() || end != name.data() + name.size()) return std::nullopt;
    if (cell < 0 || cell >= MapRows * MapColumns) return std::nullopt;
    return NamedCell{&map, {map.HeaderRows() + cell % MapRows, map.HeaderColumns() + cell / MapRows}};
}

}  // namespace

std::optional<NamedCell> CellNamed(Tuning& tuning, const pages::Page& page, std::string_view name) {
    if (&page == &tuning.messaP) return InTables(tuning.messaP, name);
    if (&page == &tuning.messaL1) return InMap(tuning.messaL1.LambdaRicco, name);
    return std::nullopt;
}

}  // namespace tuning
