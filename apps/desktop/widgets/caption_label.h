#pragma once

#include <QLabel>

namespace desktop {

// A label that is folded when it must be. A caption of a row stands in one line as far as it may be wide.
class CaptionLabel : public QLabel {
    Q_OBJECT
  public:
    explicit CaptionLabel(QWidget* parent);

    // In average characters of its font: the width that it wants at most and, being folded, at least.
    void SetRoom(int most, int least);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  private:
    QSize Folded(int characters) const;

    int most_ = 0;  // 0: as any label
    int least_ = 0;
};

}  // namespace desktop
