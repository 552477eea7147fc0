#include "pages/control.h"

#include "pages/page.h"

namespace pages {

Control::Control(Page& page, std::string name, Kind kind) : page_(page), name_(std::move(name)), kind_(kind) {
    page.Add(*this);
}

void Control::Touch() {
    ++version_;
    page_.Touch();
}

template <class T>
void Control::Assign(T& member, T value) {
    if (member == value) return;
    member = std::move(value);
    Touch();
}

void Control::Say(Tone tone, std::string text) {
    Assign(tone_, tone);
    Assign(text_, std::move(text));
}
void Control::SetWhy(Reason why) {
    Assign(why_, why);
}
void Control::SetVisible(bool visible) {
    Assign(visible_, visible);
    if (!visible && page_.Focus() == this) page_.SetFocus(page_.NextFocus(this));
}
void Control::SetLocked(bool locked) {
    Assign(locked_, locked);
}
void Control::SetMaxLength(std::size_t length) {
    Assign(maxLength_, length);
}
void Control::SetItems(std::vector<std::string> items) {
    Assign(items_, std::move(items));
}
void Control::SetDetails(std::vector<std::string> details) {
    Assign(details_, std::move(details));
}
void Control::SetSelection(std::vector<int> selection) {
    Assign(selection_, std::move(selection));
}
void Control::SetColour(std::string colour) {
    Assign(colour_, std::move(colour));
}
void Control::SetChanged(bool changed) {
    Assign(changed_, changed);
}
void Control::SetRefused(bool refused, std::string legal) {
    Assign(refused_, refused);
    Assign(legal_, std::move(legal));
}

void Control::SetIndex(int index) {
    if (Index() == index && selection_.size() <= 1) return;
    selection_.clear();
    if (index >= 0) selection_.push_back(index);
    Touch();
}

void Control::SetCells(Cells cells, int headerRows, int headerColumns) {
    Assign(headerRows_, headerRows);
    Assign(headerColumns_, headerColumns);
    Assign(cells_, std::move(cells));
}

void Control::SetCell(int row, int column, const std::string& text) {
    if (row < 0 || static_cast<std::size_t>(row) >= cells_.size()) return;
    auto& line = cells_[static_cast<std::size_t>(row)];
    if (column < 0 || static_cast<std::size_t>(column) >= line.size()) return;
    Assign(line[static_cast<std::size_t>(column)], text);
}

void Control::SetFocusCell(CellPlace cell) {
    Assign(focusCell_, cell);
}
void Control::SetChangedCells(std::vector<CellPlace> cells) {
    Assign(changedCells_, std::move(cells));
}
void Control::SetRefusedCells(std::vector<CellPlace> cells) {
    Assign(refusedCells_, std::move(cells));
}
void Control::MarkCell(int row, int column) {
    Assign(markedRow_, row);
    Assign(markedColumn_, column);
}

}  // namespace pages
