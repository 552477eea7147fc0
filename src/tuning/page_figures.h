#pragma once

#include <string>

#include "tuning/conversions.h"
#include "tuning/page_controls.h"
#include "tuning/parameter_map.h"

namespace tuning {

struct Tuning;

// A figure without the blanks in front.
std::string ShownFigure(const Record& record, std::size_t slot);
// Both columns of the page shown, from its records: figures, chosen entries, cells, marks of what has been changed. A
// field in which an edit is under way keeps what is typed. An initial value that the unit's selector shows otherwise
// than the edited one bears its own unit.
void ShowFigures(const PageSet& set, const Tuning& tuning, std::string_view section);
// Both columns empty and without marks: the page has not been read, or has been left.
void ClearFigures(const PageSet& set);

}  // namespace tuning
