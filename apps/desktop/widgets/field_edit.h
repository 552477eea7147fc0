#pragma once

#include <QLineEdit>

#include "desktop/widgets/shows.h"

namespace desktop {

// An edit line. A changed value carries a dot at its left edge, a refused one a thick frame and an exclamation mark: a
// colour alone would not reach every eye.
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
    bool changed_ = false;
    bool refused_ = false;
    int digits_ = 0;  // room for this many characters
    QColor changedInk_;
    QColor refusedInk_;
};

}  // namespace desktop
