#pragma once

#include <QComboBox>

#include "desktop/widgets/marks.h"

namespace desktop {

// A choice of one, with the marks of an edited value. The mark stands in the room of the arrow's opposite edge.
class ChoiceBox : public QComboBox {
    Q_OBJECT
  public:
    explicit ChoiceBox(QWidget* parent) : QComboBox(parent) { setSizeAdjustPolicy(AdjustToContents); }

    // An entry is never cut.
    QSize minimumSizeHint() const override { return sizeHint(); }
    void SetMarks(const Marks& marks, const Theme& theme);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Marks marks_;
    const Theme* theme_ = nullptr;
};

}  // namespace desktop
