#pragma once

#include <QHash>
#include <QPixmap>
#include <QWidget>

#include "desktop/widgets/shows.h"

namespace desktop {

// The figure of an instrument, right-aligned, every digit equally wide, so that nothing jumps while it changes. A word
// in its place is drawn smaller when it would not fit.
class FigureView : public QWidget, public Shows {
    Q_OBJECT
  public:
    explicit FigureView(QWidget* parent);

    void Show(const pages::Control& control, const Look& look) override;
    void SetFigureSize(int pixels);
    int FigureSize() const { return font().pixelSize(); }
    // Figures that are not live stand back.
    void SetDimmed(bool dimmed, const Look& look);
    QString Text() const { return text_; }
    // Width of `digits` digits in a font.
    static int WidthOf(const QFont& font, int digits);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void SetInk(const Look& look);
    void DrawWord(QPainter& painter);
    void DrawFigure(QPainter& painter);
    const QPixmap& CellOf(QChar character);

    QString text_;
    QColor ink_;
    QColor ground_;
    bool dimmed_ = false;
    int cell_ = 0;                 // width of a digit
    QHash<QChar, QPixmap> cells_;  // each character is drawn once: figures change ten times a second
};

}  // namespace desktop
