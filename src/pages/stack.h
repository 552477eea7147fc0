#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "pages/page.h"

namespace pages {

// The pages of the program and which of them are open, bottom to top; and the few inputs that a person can give. Each
// input says whether it was taken; on something hidden, disabled, locked or covered by a modal page it does nothing.
class PageStack {
  public:
    // Makes a page known under its name. The page outlives the stack.
    void Register(Page& page) { all_.push_back(&page); }
    Page* Find(std::string_view name) const;  // null when unknown
    const std::vector<Page*>& All() const { return all_; }
    const std::vector<Page*>& Open() const { return open_; }
    // Raised whenever a page is opened or closed.
    std::int64_t Version() const { return version_; }

    // Opens a page on top, one that is not modal beneath the modal ones: what waits for an answer stays in front. A
    // page that is open already is reset and comes to the front.
    void OpenPage(Page& page, bool modal);
    void ClosePage(Page& page);  // one that is not open: nothing happens
    // Covered: a modal page stands above it.
    bool Covered(const Page& page) const;
    Reason WhyNot(const Page& page) const;
    Reason WhyNot(const Control& control) const;

    Outcome Press(Control& control);  // a button, an option, a check
    // Focuses the field, selects all and types the text key by key through the field's filter: the page hears of each
    // key. An empty text deletes what is there.
    Outcome Type(Control& control, std::string_view text);
    // Takes over the text as it now stands in a window's edit line, through the same filter.
    Outcome Edit(Control& control, std::string_view text);
    // Leaves the field as Tab does; the focus may come back.
    Outcome Leave(Control& control);
    Outcome Select(Control& control, std::vector<int> indices);
    Outcome EditCell(Control& control, int row, int column, std::string_view text);
    // The hand has moved to a cell of a grid.
    Outcome PointAtCell(Control& control, int row, int column);
    Outcome DoubleClick(Control& control);
    // A key by name: one that the page has bound, "Alt+S" for a caption that marks the letter, or one of the control
    // that has the focus: "Enter", "Tab", "Shift+Tab", "Space", "Backspace", "Delete", in a list "Up", "Down", "Home",
    // "End".
    Outcome Key(Page& page, std::string_view key);
    Outcome Close(Page& page);
    // A window's focus has moved to this control by mouse or Tab.
    Outcome FocusOn(Control& control);

  private:
    // Leaves the focused field of the page, unless it is `next` itself or holds no edit. False: a refused value keeps
    // the focus.
    bool LeavePending(Page& page, const Control* next);
    enum class Towards { Next, Previous };
    Outcome MoveOn(Control& from, Towards towards);
    Outcome LeaveTowards(Control& control, Towards towards);
    // Puts a whole text into the field at once, as one change.
    Outcome Replace(Control& field, std::string_view text);
    Outcome KeyOn(Control& focus, std::string_view key);
    Outcome KeyOnGrid(Control& grid, std::string_view key);
    Outcome Reach(Control& control);
    // The same for what changes the control: not while it is locked, nor with what is not legal. What is refused for
    // its own sake leaves the field being edited alone.
    Outcome ReachEditable(
        Control& control, const std::function<bool()>& legal = [] { return true; });

    std::vector<Page*> all_;
    std::vector<Page*> open_;
    std::int64_t version_ = 1;
};

}  // namespace pages
