#pragma once

#include <QProxyStyle>

#include "desktop/theme.h"

namespace desktop {

// Fusion with a frame that shows from two metres where the keyboard's focus stands, and pictures on buttons that keep
// their size.
class FocusStyle : public QProxyStyle {
  public:
    explicit FocusStyle(const Theme& theme);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;

  private:
    void DrawIndicator(QPainter& painter, const QStyleOption& option, bool round) const;

    const Theme& theme_;
};

// The frame of the focus, inside the rectangle.
void DrawFocusFrame(QPainter& painter, const QRect& inside, const QColor& colour);

}  // namespace desktop
