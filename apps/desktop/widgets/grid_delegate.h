#pragma once

#include <QStyledItemDelegate>

namespace desktop {

class GridView;

// How the cells of a table are painted, with their marks, and edited.
class GridDelegate : public QStyledItemDelegate {
    Q_OBJECT
  public:
    explicit GridDelegate(GridView& grid);

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  protected:
    bool eventFilter(QObject* editor, QEvent* event) override;

  private:
    GridView& grid_;
};

}  // namespace desktop
