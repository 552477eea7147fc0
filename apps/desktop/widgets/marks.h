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
    // A refused cell of a table has no room for an exclamation mark: a filled corner takes its place.
    static void DrawRefusedCell(QPainter& painter, const QRect& cell, const Theme& theme);
};

inline Marks MarksOf(const pages::Control& control) {
    return {control.Changed(), control.Refused()};
}

}  // namespace desktop
