#pragma once

#include <string>

#include "tuning/page_controls.h"
#include "tuning/parameter_map.h"

namespace tuning {

// A figure without the blanks in front.
std::string ShownFigure(const Record& record, std::size_t slot);
// Whether two figures differ, as numbers.
bool Differ(const Record& record);

// Both columns of the page shown, from its records: figures, chosen entries, cells, marks of what has been changed. A
// field in which an edit is under way keeps what is typed.
void ShowFigures(const PageSet& set, const MemoriaTable& memoria, const shell::Shell& shell, std::string_view section);
// Both columns empty: the page has not been read.
void ClearFigures(const PageSet& set);

}  // namespace tuning
