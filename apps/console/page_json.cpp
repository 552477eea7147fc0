#include "console/page_json.h"

#include <algorithm>
#include <array>

#include "pages/stack.h"
#include "shell/shell.h"

namespace console {

namespace {

using pages::Control;
using pages::Kind;

// What each kind shows beside its name, whether it is enabled and visible.
struct KindRow {
    Kind kind;
    const char* name;
    bool text;
    bool locked;
    bool items;
    bool on;  // an option or a check: selected or not
};

constexpr std::array<KindRow, 11> Kinds{{
    {Kind::Label, "label", true, false, false, false},
    {Kind::Field, "field", true, true, false, false},
    {Kind::Button, "button", true, false, false, false},
    {Kind::Option, "option", true, true, false, true},
    {Kind::Check, "check", true, true, false, true},
    {Kind::Combo, "combo", false, true, true, false},
    {Kind::List, "list", false, true, true, false},
    {Kind::Grid, "grid", false, true, false, false},
    {Kind::Lamp, "lamp", false, false, false, false},
    {Kind::Picture, "picture", false, false, false, false},
    {Kind::Chart, "chart", false, false, false, false},
}};

const KindRow& RowOf(Kind kind) {
    for (const KindRow& row : Kinds) {
        if (row.kind == kind) return row;
    }
    return Kinds.front();
}

// A message without a tone has no name for it.
constexpr std::array<const char*, 5> Tones{nullptr, "progress", "done", "refused", "failed"};

Json Texts(const std::vector<std::string>& texts) {
    Json out = Json::array();
    for (const std::string& text : texts) out.push_back(Text(text));
    return out;
}

Json Selection(const Control& control) {
    if (control.Multiple()) return control.Selection();
    return control.Index();
}

Json Cells(const Control& grid) {
    Json rows = Json::array();
    for (const std::vector<std::string>& row : grid.GetCells()) rows.push_back(Texts(row));
    return rows;
}

Json Place(const pages::CellPlace& place) {
    return {place.row, place.column};
}

void AddGrid(const Control& grid, Json& out) {
    out["cells"] = Cells(grid);
    out["headerRows"] = grid.HeaderRows();
    out["headerColumns"] = grid.HeaderColumns();
    if (grid.MarkedRow() >= 0) out["marked"] = {grid.MarkedRow(), grid.MarkedColumn()};
    if (grid.FocusCell() != pages::CellPlace{}) out["hand"] = Place(grid.FocusCell());
    for (const pages::CellPlace& place : grid.ChangedCells()) out["changedCells"].push_back(Place(place));
    for (const pages::CellPlace& place : grid.RefusedCells()) out["refusedCells"].push_back(Place(place));
}

void AddMarks(const Control& control, Json& out) {
    if (!control.Colour().empty()) out["colour"] = control.Colour();
    if (control.Changed()) out["changed"] = true;
    if (control.Refused()) out["refused"] = true;
    if (control.Owner().Focus() == &control) out["focus"] = true;
}

Json OfMenu(const std::vector<shell::MenuItem>& items) {
    Json out = Json::array();
    for (const shell::MenuItem& item : items) {
        const bool separator = item.row->target == shell::Target::Separator;
        Json entry = {{"index", item.row->index}, {"caption", separator ? Json("-") : Text(item.caption)}};
        entry["enabled"] = !separator && item.visible && item.why == pages::Reason::None;
        if (!item.visible) entry["visible"] = false;
        if (item.row->target == shell::Target::Submenu) entry["submenu"] = item.row->name;
        out.push_back(std::move(entry));
    }
    return out;
}

}  // namespace

Json OfControl(const Control& control) {
    const KindRow& row = RowOf(control.GetKind());
    Json out = {{"kind", row.name}, {"enabled", control.Enabled()}, {"visible", control.Visible()}};
    if (row.text) out["text"] = Text(control.Text());
    if (const char* const tone = Tones[static_cast<std::size_t>(control.GetTone())]; tone != nullptr)
        out["tone"] = tone;
    if (row.locked) out["locked"] = control.Locked();
    if (control.GetKind() == Kind::Field) out["maxLength"] = control.MaxLength();
    if (row.items) {
        out["items"] = Texts(control.Items());
        out["selected"] = Selection(control);
        if (!control.Details().empty()) out["details"] = Texts(control.Details());
    }
    if (row.on) out["selected"] = control.Selected();
    if (control.GetKind() == Kind::Grid) AddGrid(control, out);
    if (control.GetKind() == Kind::Picture) out["index"] = control.Index();
    AddMarks(control, out);
    return out;
}

Json OfCell(const Control& grid, const pages::CellPlace& place) {
    const auto among = [&place](const std::vector<pages::CellPlace>& cells) {
        return std::find(cells.begin(), cells.end(), place) != cells.end();
    };
    const pages::Cells& cells = grid.GetCells();
    const auto row = static_cast<std::size_t>(place.row);
    const auto column = static_cast<std::size_t>(place.column);
    const bool there = row < cells.size() && column < cells[row].size();
    Json out = {{"kind", "field"}, {"enabled", grid.Enabled()}, {"visible", grid.Visible()}, {"locked", grid.Locked()}};
    out["text"] = there ? Text(cells[row][column]) : Json("");
    out["maxLength"] = grid.MaxLength();
    if (among(grid.ChangedCells())) out["changed"] = true;
    if (among(grid.RefusedCells())) out["refused"] = true;
    if (grid.Owner().Focus() == &grid && grid.FocusCell() == place) out["focus"] = true;
    return out;
}

Json OfPage(const pages::Page& page) {
    Json controls = Json::object();
    for (const Control* control : page.Controls()) controls[control->Name()] = OfControl(*control);
    return {{"title", Text(page.Title())}, {"enabled", page.Enabled()}, {"controls", std::move(controls)}};
}

Json OfStack(const pages::PageStack& stack) {
    Json out = Json::array();
    for (const pages::Page* page : stack.Open()) {
        out.push_back({{"name", page->Name()},
                       {"title", Text(page->Title())},
                       {"enabled", page->Enabled()},
                       {"modal", page->Modal()}});
    }
    return out;
}

void AddMainWindow(const shell::Shell& shell, Json& answer) {
    Json menus = Json::object();
    for (const shell::MenuRow& menu : shell::Menus()) {
        menus[std::string(menu.name)] = OfMenu(shell.main.menus[static_cast<std::size_t>(menu.id)]);
    }
    answer["menus"] = std::move(menus);
    Json tools = Json::array();
    for (const shell::ToolItem& tool : shell.main.tools) {
        tools.push_back(
            {{"key", tool.row->key}, {"tooltip", Text(tool.tooltip)}, {"enabled", tool.why == pages::Reason::None}});
    }
    answer["toolbar"] = std::move(tools);
    Json panels = Json::object();
    for (const shell::Panel& panel : shell.main.panels) panels[std::string(panel.key)] = Text(panel.label->Text());
    answer["panels"] = std::move(panels);
}

}  // namespace console
