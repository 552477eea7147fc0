#include "desktop/theme.h"

#include <QApplication>
#include <QFont>
#include <QToolTip>
#include <algorithm>
#include <array>
#include <cmath>

#include "desktop/focus_style.h"
#include "platform/text.h"

namespace desktop {

namespace {

constexpr double LeastPointSize = 11;
constexpr int HalfLightness = 128;

double Linear(double channel) {
    constexpr double Knee = 0.03928;
    return channel <= Knee ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& colour) {
    return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) + 0.0722 * Linear(colour.blueF());
}

struct LampRow {
    std::string_view name;
    const char* colour;
};
// The colours of the lamps on the dashboard switch.
constexpr std::array<LampRow, 5> Lamps{{
    {"red", "#d8322a"},
    {"green", "#23a455"},
    {"yellow", "#f0b800"},
    {"white", "#ffffff"},
    {"blue", "#2b86d9"},
}};

}  // namespace

const Theme& LightTheme() {
    static const Theme theme{false,
                             QColor("#eef1f4"),
                             QColor("#ffffff"),
                             QColor("#161d26"),
                             QColor("#525c68"),
                             QColor("#9aa5b1"),
                             QColor("#0a5aa8"),
                             QColor("#ffffff"),
                             QColor("#17703a"),
                             QColor("#855300"),
                             QColor("#b3201a")};
    return theme;
}

const Theme& DarkTheme() {
    static const Theme theme{true,
                             QColor("#14181d"),
                             QColor("#1f262d"),
                             QColor("#eef2f6"),
                             QColor("#a7b2be"),
                             QColor("#55616e"),
                             QColor("#5cabf6"),
                             QColor("#08121c"),
                             QColor("#6dd18c"),
                             QColor("#f2c04a"),
                             QColor("#ff8d84")};
    return theme;
}

const Theme& ChooseTheme(std::string_view word, const QPalette& system) {
    if (platform::EqualsIgnoringCase(platform::Trim(word), "chiaro")) return LightTheme();
    if (platform::EqualsIgnoringCase(platform::Trim(word), "scuro")) return DarkTheme();
    return system.color(QPalette::Window).lightness() < HalfLightness ? DarkTheme() : LightTheme();
}

QPalette PaletteOf(const Theme& theme) {
    QPalette palette;
    struct Role {
        QPalette::ColorRole role;
        QColor colour;
    };
    const std::array<Role, 15> roles{{
        {QPalette::Window, theme.window},
        {QPalette::WindowText, theme.text},
        {QPalette::Base, theme.surface},
        {QPalette::AlternateBase, theme.window},
        {QPalette::Text, theme.text},
        {QPalette::PlaceholderText, theme.quiet},
        {QPalette::Button, theme.dark ? theme.surface.lighter(125) : theme.window},
        {QPalette::ButtonText, theme.text},
        {QPalette::BrightText, theme.bad},
        {QPalette::Highlight, theme.accent},
        {QPalette::HighlightedText, theme.accentText},
        {QPalette::Link, theme.accent},
        {QPalette::LinkVisited, theme.accent},
        {QPalette::ToolTipBase, theme.surface},
        {QPalette::ToolTipText, theme.text},
    }};
    for (const Role& role : roles) palette.setColor(role.role, role.colour);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText}) {
        palette.setColor(QPalette::Disabled, role, theme.quiet);
    }
    palette.setColor(QPalette::Disabled, QPalette::Highlight, theme.line);
    return palette;
}

void ApplyTheme(const Theme& theme) {
    QApplication::setStyle(new FocusStyle(theme));
    QApplication::setPalette(PaletteOf(theme));
    QToolTip::setPalette(PaletteOf(theme));
    QFont font = QApplication::font();
    if (font.pointSizeF() < LeastPointSize) font.setPointSizeF(LeastPointSize);
    QApplication::setFont(font);
    for (const char* name : {"QMenu", "QMenuBar", "QToolTip", "QStatusBar", "QHeaderView", "QMessageBox"}) {
        QApplication::setFont(font, name);
    }
}

double Contrast(const QColor& a, const QColor& b) {
    constexpr double Flare = 0.05;
    const double first = Luminance(a);
    const double second = Luminance(b);
    return (std::max(first, second) + Flare) / (std::min(first, second) + Flare);
}

QColor LampColour(std::string_view name) {
    for (const LampRow& row : Lamps) {
        if (row.name == name) return {row.colour};
    }
    const QColor colour(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())));
    return colour.isValid() ? colour : QColor(Qt::white);
}

}  // namespace desktop
