#pragma once

#include <QLineEdit>

#include "desktop/widgets/marks.h"
#include "desktop/widgets/shows.h"

namespace desktop {

// An edit line with the marks of an edited value, those of a cell where it is as narrow as one.
class FieldEdit : public QLineEdit, public Shows {
    Q_OBJECT
  public:
    explicit FieldEdit(QWidget* parent) : QLineEdit(parent) {}

    void Show(const pages::Control& control, const Look& look) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    // Beside its text there is room for a mark; a line in a cell of a table has none.
    bool HasRoom() const { return width() >= room_; }
    void PlaceMarks();
    void ShowText(const QString& shown);
    void SetRoom(int characters);
    void ShowLocked(bool locked);

    Marks marks_;
    const Theme* theme_ = nullptr;
    int room_ = 0;  // pixels for its text
};

}  // namespace desktop
