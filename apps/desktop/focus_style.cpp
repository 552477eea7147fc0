#include "desktop/focus_style.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

namespace desktop {

namespace {

constexpr int FrameWidth = 2;
constexpr int ButtonPadding = 16;
constexpr int IndicatorSize = 18;

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
    if (element == PE_IndicatorRadioButton) return DrawIndicator(*painter, *option, true);
    if (element == PE_IndicatorCheckBox) return DrawIndicator(*painter, *option, false);
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element != PE_FrameLineEdit && element != PE_Frame) return;
    if (option->state.testFlag(State_HasFocus)) return DrawFocusFrame(*painter, option->rect, theme_.accent);
    // Fusion's own frames vanish on a dark ground.
    painter->setPen(theme_.line);
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
}

// Options and checks, large and with the contrast of text, on both grounds.
void FocusStyle::DrawIndicator(QPainter& painter, const QStyleOption& option, bool round) const {
    const bool on = option.state.testFlag(State_On);
    const bool enabled = option.state.testFlag(State_Enabled);
    const QRectF box = QRectF(option.rect).adjusted(1, 1, -1, -1);
    const double inset = box.width() * 0.28;
    const QColor ink = !enabled ? theme_.line : on ? theme_.accent : theme_.quiet;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ink, FrameWidth));
    painter.setBrush(theme_.surface);
    if (round) {
        painter.drawEllipse(box);
    } else {
        painter.drawRoundedRect(box, 2, 2);
    }
    if (on && round) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(ink);
        painter.drawEllipse(box.adjusted(inset, inset, -inset, -inset));
    } else if (on) {
        painter.setPen(QPen(ink, FrameWidth + 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(QPolygonF{QPointF(box.left() + inset, box.center().y()),
                                       QPointF(box.center().x() - 1, box.bottom() - inset),
                                       QPointF(box.right() - inset + 1, box.top() + inset)});
    }
    painter.restore();
}

int FocusStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    const bool indicator = metric == PM_IndicatorWidth || metric == PM_IndicatorHeight ||
                           metric == PM_ExclusiveIndicatorWidth || metric == PM_ExclusiveIndicatorHeight;
    return indicator ? IndicatorSize : QProxyStyle::pixelMetric(metric, option, widget);
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

// A caption with its key behind it wants air at both ends.
QSize FocusStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                   const QWidget* widget) const {
    const QSize base = QProxyStyle::sizeFromContents(type, option, size, widget);
    return type == CT_PushButton ? base + QSize(ButtonPadding, 0) : base;
}

int FocusStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returned) const {
    // Access keys are always underlined: one who works by keyboard need not ask for them first.
    if (hint == SH_UnderlineShortcut) return 1;
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

}  // namespace desktop
