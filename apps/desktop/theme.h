#pragma once

#include <QColor>
#include <QPalette>
#include <string_view>

namespace desktop {

// The colours of the program by what they mean. Every text colour stands out by at least 4.5 to 1 from the grounds it
// is used on.
struct Theme {
    bool dark = false;
    QColor window;      // ground of windows
    QColor surface;     // ground of cards, fields and lists
    QColor text;        // on both grounds
    QColor quiet;       // units, initial values, figures that are not live
    QColor line;        // frames
    QColor accent;      // focus, choice, live
    QColor accentText;  // on accent
    QColor good;        // done
    QColor warn;        // changed, attention
    QColor bad;         // refused, failed, lost
};

const Theme& LightTheme();
const Theme& DarkTheme();

// "auto" follows the lightness of the system's palette, "chiaro" and "scuro" choose; anything else counts as "auto".
const Theme& ChooseTheme(std::string_view word, const QPalette& system);

QPalette PaletteOf(const Theme& theme);
// Style, palette and fonts of the whole program; labels never fall below 11 point.
void ApplyTheme(const Theme& theme);

// The contrast of two colours, 1 to 21, as the accessibility guidelines of the web define it.
double Contrast(const QColor& a, const QColor& b);

// The colour behind a lamp's name ("red", "green", "yellow", "white", "blue" or "#RRGGBB"); anything else is white.
QColor LampColour(std::string_view name);

}  // namespace desktop
