#pragma once

#include <QFrame>
#include <vector>

#include "desktop/widgets/figure_view.h"

class QLabel;

namespace desktop {

class CardGrid;

// One instrument: its name above, its figure as large as the card allows, its unit small behind. A bar at the left edge
// is full while the figure is live.
class Card : public QFrame {
    Q_OBJECT
  public:
    // The names of the three labels that the page gives it; the grid says how small its figure may become.
    Card(CardGrid& grid, const QString& name, const QString& figure, const QString& unit);

    FigureView& Figure() const { return *figure_; }
    // Where figure and unit stand; `unitWidth` is the same in all cards of a column.
    void Arrange(int unitWidth);
    // The largest figure, in pixels, that fits a card of this size.
    int LargestFigure(QSize size, int unitWidth) const;
    int UnitWidth() const;
    // The room that a figure of this size asks for.
    QSize SizeFor(double points, int unitWidth) const;
    void SetLive(bool live, const Look& look);

    bool eventFilter(QObject* watched, QEvent* event) override;

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    int Pixels(double points) const;

    CardGrid& grid_;
    QLabel* name_;
    FigureView* figure_;
    QLabel* unit_;
    QColor ground_;
    QColor line_;
    QColor bar_;
};

// Instruments in columns, all cards of one size, all figures of one size.
class CardGrid : public QWidget {
    Q_OBJECT
  public:
    // `characters` is the width that a figure has room for; it wants to be of `points` at least, and gives way on a
    // screen that is too small for that.
    CardGrid(QWidget* parent, int columns, double points, int characters)
        : QWidget(parent), columns_(columns), points_(points), characters_(characters) {}

    int Characters() const { return characters_; }

    Card& Add(const QString& name, const QString& figure, const QString& unit);
    // Cards whose figure is hidden give their place to the next one.
    void Arrange();
    void SetLive(bool live, const Look& look);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    std::vector<Card*> Shown() const;
    int Rows(std::size_t cards) const;
    int UnitWidth(const Card& card) const;
    std::vector<int> WidthsFor(double points, const std::vector<Card*>& shown) const;
    QSize SizeFor(double points) const;

    int columns_;
    double points_;
    int characters_;
    std::vector<Card*> cards_;
};

}  // namespace desktop
