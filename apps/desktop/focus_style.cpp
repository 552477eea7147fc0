#include "desktop/focus_style.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

namespace desktop {

namespace {

constexpr int FrameWidth = 2;

}  // namespace

void DrawFocusFrame(QPainter& painter, const QRect& inside, const QColor& colour) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, FrameWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(inside).adjusted(1, 1, -1, -1), 3, 3);
    painter.restore();
}

FocusStyle::FocusStyle(const Theme& theme) : QProxyStyle(QStyleFactory::create("Fusion")), theme_(theme) {}

void FocusStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    if (element == PE_FrameFocusRect) return DrawFocusFrame(*painter, option->rect, theme_.accent);
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_FrameLineEdit && option->state.testFlag(State_HasFocus))
        DrawFocusFrame(*painter, option->rect, theme_.accent);
}

void FocusStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element == CE_PushButton && option->state.testFlag(State_HasFocus))
        DrawFocusFrame(*painter, option->rect, theme_.accent);
}

void FocusStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                    const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    const bool framed = control == CC_ComboBox || control == CC_ToolButton;
    if (framed && option->state.testFlag(State_HasFocus)) DrawFocusFrame(*painter, option->rect, theme_.accent);
}

int FocusStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returned) const {
    // Access keys are always underlined: one who works by keyboard need not ask for them first.
    if (hint == SH_UnderlineShortcut) return 1;
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

}  // namespace desktop
