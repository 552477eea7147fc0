#pragma once

#include <QPixmap>
#include <QWidget>

#include "desktop/widgets/shows.h"

namespace desktop {

// A picture of the program: the cell of a control, or one by name.
class PictureView : public QWidget, public Shows {
    Q_OBJECT
  public:
    // `lines`: its side in heights of a line of text.
    PictureView(QWidget* parent, double lines, const QString& name = {});

    void Show(const pages::Control& control, const Look& look) override;
    void SetName(const QString& name);
    const QString& Name() const { return name_; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    double lines_;
    QString name_;
    QPixmap drawn_;
};

}  // namespace desktop
