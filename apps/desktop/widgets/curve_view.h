#pragma once

#include <QWidget>

#include "desktop/widgets/shows.h"

namespace desktop {

// A curve over a few named points, and where a live value stands on it: a row of the control's cells is a point (name,
// figure), its text the live value, the marked row the point reached.
class CurveView : public QWidget, public Shows {
    Q_OBJECT
  public:
    explicit CurveView(QWidget* parent);

    void Show(const pages::Control& control, const Look& look) override;
    // Where point `index` stands, from the left edge; lamps below the curve stand there too.
    int PlaceOf(int index) const;
    int Points() const { return static_cast<int>(points_.size()); }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    struct Point {
        QString name;
        QString figure;
        double value = 0;
        bool known = false;
    };
    double HeightOf(double value) const;

    std::vector<Point> points_;
    QString live_;
    double liveValue_ = 0;
    bool liveKnown_ = false;
    int reached_ = -1;
    double low_ = 0;
    double high_ = 1;
    const Theme* theme_ = nullptr;
};

}  // namespace desktop
