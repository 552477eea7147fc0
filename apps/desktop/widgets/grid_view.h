#pragma once

#include <QTableWidget>

#include "desktop/widgets/marks.h"
#include "desktop/widgets/shows.h"

namespace desktop {

// A table of figures, moved about with the arrow keys. One header row and one header column become the headers of the
// table. A cell is edited by a click or by typing into it; what is typed goes to `onEdit`, and the model's answer is
// shown. A refused cell holds the hand.
class GridView : public QTableWidget, public Shows {
    Q_OBJECT
  public:
    explicit GridView(QWidget* parent);

    void Show(const pages::Control& control, const Look& look) override;
    // Edit lines in place of the headers: the axes of the table can be edited. The first row and column of the model's
    // cells are then cells of the table, covered by the lines.
    void SetAxes(std::vector<QWidget*> columns, std::vector<QWidget*> rows);
    // Colours the cells by their figures, the lowest to the highest; the figures stay readable.
    void SetSurface(bool surface) { surface_ = surface; }
    // Never scrolls by itself: what it stands in does.
    void SetWhole() { whole_ = true; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool HoldsHand() const override;

    // For what paints and edits the cells, with indexes of the table.
    bool TakesDigitsAlone() const { return digits_; }
    std::size_t MaxLength() const { return maxLength_; }
    const Theme& Colours() const { return theme_; }
    CellMarks MarksAt(const QModelIndex& cell) const;
    void Edit(const QModelIndex& cell, const QString& text);

    // Row and column as the model counts them, headers included.
    std::function<void(int row, int column, const QString& text)> onEdit;
    // The hand has moved to a cell that can be edited.
    std::function<void(int row, int column)> onPoint;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

  private:
    void PlaceAxes();
    bool IsEditable(int row, int column) const;
    void Point(int row, int column);
    void OpenEdit(int row, int column);
    void FollowFocusCell(const pages::Control& control);
    pages::CellPlace PlaceOf(const QModelIndex& cell) const;
    void Fill(const pages::Control& control, const Look& look);
    void AddItem(const pages::Control& control, int row, int column, const Look& look);
    void FitColumns();
    void Shade(const pages::Control& control, const Look& look);

    std::vector<QWidget*> columnAxis_;
    std::vector<QWidget*> rowAxis_;
    bool surface_ = false;
    bool whole_ = false;
    bool locked_ = false;
    bool pending_ = false;  // a refused figure waits to be put right
    bool digits_ = false;
    std::size_t maxLength_ = 0;
    int headerRows_ = 0;  // of the model that are headers of the table
    int headerColumns_ = 0;
    // Of the model, as last shown.
    pages::CellPlace markedCell_;
    pages::CellPlace focusCell_;
    std::vector<pages::CellPlace> changedCells_;
    std::vector<pages::CellPlace> refusedCells_;
    Theme theme_;
};

}  // namespace desktop
