#pragma once

#include <QPixmap>
#include <QWidget>
#include <map>

#include "desktop/widgets/shows.h"

namespace desktop {

// A round lamp. Beside its colour it carries a mark, since not every eye tells red from green: a cross for red, a ring
// for green, an exclamation mark for yellow; a dark lamp (white) is hollow.
class LampView : public QWidget, public Shows {
    Q_OBJECT
  public:
    // `lines`: its diameter in heights of a line of text.
    LampView(QWidget* parent, double lines);

    void Show(const pages::Control& control, const Look& look) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QPixmap Draw(int side) const;

    double lines_;
    std::string colour_ = "white";
    QColor frame_;
    QColor hollow_;
    // Lamps flash all day: each of their looks is drawn once.
    std::map<std::string, QPixmap> drawn_;
};

}  // namespace desktop
