#pragma once

#include <QWidget>

#include "desktop/widgets/shows.h"

namespace desktop {

// The place of a strip chart: a framed sheet with its name.
class ChartView : public QWidget, public Shows {
    Q_OBJECT
  public:
    explicit ChartView(QWidget* parent);

    void Show(const pages::Control& control, const Look& look) override;
    QSize sizeHint() const override { return {480, 320}; }
    QSize minimumSizeHint() const override { return {160, 120}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString name_;
    QColor ground_;
    QColor line_;
    QColor ink_;
};

}  // namespace desktop
