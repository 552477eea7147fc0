#pragma once

#include <QTableWidget>

#include "desktop/widgets/shows.h"

namespace desktop {

// A table of figures, moved about with the arrow keys. One header row and one header column become the headers of the
// table. A cell is edited by typing into it; what is typed goes to `onEdit`, and the model's answer is shown.
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

    // Row and column as the model counts them, headers included.
    std::function<void(int row, int column, const QString& text)> onEdit;
    // The hand has moved to a cell that can be edited.
    std::function<void(int row, int column)> onPoint;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

  private:
    friend class GridDelegate;
    void PlaceAxes();
    void Point(int row, int column);
    void FollowFocusCell(const pages::Control& control);
    bool Refuses(int row, int column) const;
    void Fill(const pages::Control& control, const Look& look);
    void FitColumns();
    void Shade(const pages::Control& control, const Look& look);

    std::vector<QWidget*> columnAxis_;
    std::vector<QWidget*> rowAxis_;
    bool surface_ = false;
    bool whole_ = false;
    bool locked_ = false;
    bool digits_ = false;
    std::size_t maxLength_ = 0;
    int headerRows_ = 0;  // of the model that are headers of the table
    int headerColumns_ = 0;
    int markedRow_ = -1;  // of the table
    int markedColumn_ = -1;
    pages::CellPlace focusCell_;                  // of the model, as last shown
    std::vector<pages::CellPlace> refusedCells_;  // of the model
    Theme theme_;
};

}  // namespace desktop
