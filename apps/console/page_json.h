#pragma once

#include "console/json.h"

namespace pages {
class Control;
class Page;
class PageStack;
}  // namespace pages

namespace shell {
struct Shell;
}

namespace console {

// A control as a person sees it: what its kind shows, whether it can be used, whether it has the focus.
Json OfControl(const pages::Control& control);
// Title, state and all controls of a page by name.
Json OfPage(const pages::Page& page);
// The open pages, bottom to top.
Json OfStack(const pages::PageStack& stack);
// What the main window has beside its controls: menus, toolbar, panels of the status bar.
void AddMainWindow(const shell::Shell& shell, Json& answer);

}  // namespace console
