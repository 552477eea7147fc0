#pragma once

#include <QWidget>
#include <vector>

namespace desktop {

class CurveView;

// A curve of levels with a lamp below each of its points but the first, and below them a bar.
class GaugeView : public QWidget {
    Q_OBJECT
  public:
    explicit GaugeView(QWidget* parent) : QWidget(parent) {}

    // In their order from the top. Lamps are given from the lowest level to the highest.
    void SetParts(CurveView& curve, std::vector<QWidget*> lamps, std::vector<QWidget*> below);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    bool eventFilter(QObject* part, QEvent* event) override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

  private:
    void Arrange();
    std::vector<QWidget*> Shown(const std::vector<QWidget*>& all) const;

    CurveView* curve_ = nullptr;
    std::vector<QWidget*> lamps_;
    std::vector<QWidget*> below_;
};

}  // namespace desktop
