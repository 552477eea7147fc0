#pragma once

#include <QFrame>
#include <vector>

#include "desktop/widgets/figure_view.h"

class QLabel;

namespace desktop {

// One instrument: its name above, its figure as large as the card allows, its unit small behind. A bar at the left edge
// is full while the figure is live.
class Card : public QFrame {
    Q_OBJECT
  public:
    // The names of the three labels that the page gives it.
    Card(QWidget* parent, const QString& name, const QString& figure, const QString& unit);

    FigureView& Figure() const { return *figure_; }
    // Where figure and unit stand; `unitWidth` is the same in all cards.
    void Arrange(int unitWidth);
    // The largest figure, in pixels, that fits a card of this size.
    int LargestFigure(QSize size, int unitWidth) const;
    int UnitWidth() const;
    QSize LeastSize(int unitWidth) const;
    void SetLive(bool live, const Look& look);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    QLabel* name_;
    FigureView* figure_;
    QLabel* unit_;
    QColor ground_;
    QColor line_;
    QColor bar_;
};

// The instruments in two columns, all cards of one size, all figures of one size.
class CardGrid : public QWidget {
    Q_OBJECT
  public:
    explicit CardGrid(QWidget* parent) : QWidget(parent) {}

    Card& Add(const QString& name, const QString& figure, const QString& unit);
    // Cards whose figure is hidden give their place to the next one.
    void Arrange();
    void SetLive(bool live, const Look& look);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    std::vector<Card*> Shown() const;
    int UnitWidth() const;

    std::vector<Card*> cards_;
};

}  // namespace desktop
