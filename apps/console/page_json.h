#pragma once

#include "console/json.h"

namespace pages {
class Control;
class Page;
class PageStack;
struct CellPlace;
}  // namespace pages

namespace shell {
struct Shell;
}

namespace console {

// A control as a person sees it: what its kind shows, whether it can be used, whether it has the focus.
Json OfControl(const pages::Control& control);
// A cell of a table under the name of its figure, shown as a field is; empty where the table has no such cell now.
Json OfCell(const pages::Control& grid, const pages::CellPlace& place);
// Title, state and all controls of a page by name.
Json OfPage(const pages::Page& page);
// The open pages, bottom to top.
Json OfStack(const pages::PageStack& stack);
// What the main window has beside its controls: menus, toolbar, panels of the status bar.
void AddMainWindow(const shell::Shell& shell, Json& answer);

}  // namespace console
