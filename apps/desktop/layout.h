#pragma once

#include <string_view>
#include <vector>

#include "pages/page.h"

namespace desktop {

// One row of a page: what it is called, the value that the unit holds, the value that can be edited, its unit, a button
// of its own. Any part but the value may be missing. Rows of one label take turns in one place.
struct FieldRow {
    pages::Control* label = nullptr;
    pages::Control* initial = nullptr;
    pages::Control* value = nullptr;
    pages::Control* unit = nullptr;
    pages::Control* action = nullptr;
};

// A live figure beside the fields: its name, the figure, its unit.
struct LiveFigure {
    pages::Control* label = nullptr;
    pages::Control* figure = nullptr;
    pages::Control* unit = nullptr;
};

// A table whose header cells are edited in fields: the axes, with what they are called.
struct Axes {
    pages::Control* grid = nullptr;
    std::vector<pages::Control*> columns;
    std::vector<pages::Control*> rows;
    pages::Control* columnCaption = nullptr;
    pages::Control* rowCaption = nullptr;
};

// Where each control of a page stands in its window, worked out from kinds and names. Every control stands in exactly
// one place.
struct PagePlan {
    std::vector<pages::Control*> headings;
    pages::Control* selector = nullptr;     // which of its pages a dialog shows; in the line of the heading
    std::vector<pages::Control*> pictures;  // left of the text
    std::vector<pages::Control*> texts;
    std::vector<pages::Control*> progress;  // labels that hold a percentage, shown as bars
    std::vector<pages::Control*> pairs;     // buttons above the fields that choose what is shown, with their twins
    std::vector<pages::Control*> tools;     // others beside them: what is taken from the engine
    std::vector<FieldRow> rows;
    std::vector<FieldRow> tables;       // tables with their initial values beside them
    FieldRow heads;                     // captions above the columns
    std::vector<pages::Control*> wide;  // lists, tables, options: the whole width
    std::vector<pages::Control*> side;  // lamps beside the fields
    std::vector<LiveFigure> live;       // figures of the engine
    bool liveAbove = false;             // in a line above the fields, else in a column beside them
    Axes axes;
    std::vector<pages::Control*> gauge;  // a curve, its lamps, its bar
    bool surface = false;                // the table's cells are coloured by their figures
    pages::Control* strip = nullptr;     // the message at the bottom
    std::vector<pages::Control*> buttons;
    bool message = false;  // a question: its text is what the window is for
    // The picture of the message while nothing runs and nothing is refused.
    const char* stripPicture = "information";
};

PagePlan PlanOf(const pages::Page& page);

}  // namespace desktop
