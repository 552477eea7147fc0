#pragma once

#include <QLineEdit>

#include "desktop/widgets/marks.h"
#include "desktop/widgets/shows.h"

namespace desktop {

// An edit line with the marks of an edited value.
class FieldEdit : public QLineEdit, public Shows {
    Q_OBJECT
  public:
    explicit FieldEdit(QWidget* parent) : QLineEdit(parent) {}

    void Show(const pages::Control& control, const Look& look) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    void ShowText(const QString& shown);
    void SetRoom(int characters);
    void ShowLocked(bool locked);

    Marks marks_;
    const Theme* theme_ = nullptr;
    int room_ = 0;  // pixels for its text
};

}  // namespace desktop
