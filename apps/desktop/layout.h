#pragma once

#include <string_view>
#include <vector>

#include "pages/page.h"

namespace desktop {

// One row of a page: what it is called, the value that the unit holds, the value that can be edited, its unit. Any part
// but the value may be missing.
struct FieldRow {
    pages::Control* label = nullptr;
    pages::Control* initial = nullptr;
    pages::Control* value = nullptr;
    pages::Control* unit = nullptr;
};

// Where each control of a page stands in its window, worked out from kinds and names. Every control stands in exactly
// one place.
struct PagePlan {
    std::vector<pages::Control*> headings;
    std::vector<pages::Control*> pictures;  // left of the text
    std::vector<pages::Control*> texts;
    std::vector<pages::Control*> progress;  // labels that hold a percentage, shown as bars
    std::vector<FieldRow> rows;
    FieldRow heads;                     // captions above the columns
    std::vector<pages::Control*> wide;  // lists, tables, options: the whole width
    std::vector<pages::Control*> side;  // live figures and lamps beside the fields
    pages::Control* strip = nullptr;    // the message at the bottom
    std::vector<pages::Control*> buttons;
    bool message = false;  // a question: its text is what the window is for
};

PagePlan PlanOf(const pages::Page& page);

}  // namespace desktop
