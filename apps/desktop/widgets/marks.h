#pragma once

#include <QPainter>
#include <QRect>

#include "desktop/theme.h"
#include "pages/control.h"

namespace desktop {

// How an edited value stands: changed (a dot at its left edge) or refused (a thick frame and an exclamation mark). A
// colour alone would not reach every eye.
struct Marks {
    bool changed = false;
    bool refused = false;

    static constexpr int Width = 16;  // room for the mark at the left edge

    bool Any() const { return changed || refused; }
    bool operator==(const Marks&) const = default;
    void Draw(QPainter& painter, const QRect& inside, const Theme& theme) const;
};

// The same for a cell of a table, which has no room beside its figure: a filled corner at the left when it is changed,
// a thick frame and a filled corner at the right when it is refused. The cell that the engine is in has a frame too.
struct CellMarks {
    bool engine = false;
    bool changed = false;
    bool refused = false;

    void Draw(QPainter& painter, const QRect& cell, const Theme& theme) const;
};

inline Marks MarksOf(const pages::Control& control) {
    return {control.Changed(), control.Refused()};
}

}  // namespace desktop
