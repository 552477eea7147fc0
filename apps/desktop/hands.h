#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "pages/stack.h"

namespace desktop {

// What a person's hands do in the windows, given to the pages; afterwards the windows are brought up to date. A refusal
// is told to `refused` with its reason.
class Hands {
  public:
    explicit Hands(pages::PageStack& stack) : stack_(stack) {}

    std::function<void()> after;
    std::function<void(pages::Reason)> refused;

    bool Press(pages::Control& control) { return Done(stack_.Press(control)); }
    bool Edit(pages::Control& control, std::string_view text);
    bool Select(pages::Control& control, std::vector<int> indices) {
        return Done(stack_.Select(control, std::move(indices)));
    }
    bool EditCell(pages::Control& control, int row, int column, std::string_view text) {
        return Done(stack_.EditCell(control, row, column, text));
    }
    bool PointAtCell(pages::Control& control, int row, int column) {
        return Done(stack_.PointAtCell(control, row, column));
    }
    bool DoubleClick(pages::Control& control) { return Done(stack_.DoubleClick(control)); }
    bool FocusOn(pages::Control& control) { return Done(stack_.FocusOn(control)); }
    bool Close(pages::Page& page) { return Done(stack_.Close(page)); }
    // A key without meaning on the page is no refusal: it is left to the window.
    bool Key(pages::Page& page, std::string_view key);
    // Tells the outcome of an input on menus and toolbar.
    bool Done(const pages::Outcome& outcome);

  private:
    pages::PageStack& stack_;
};

}  // namespace desktop
