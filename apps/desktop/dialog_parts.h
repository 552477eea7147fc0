#pragma once

#include <QDialog>

#include "desktop/binder.h"
#include "desktop/dialog_fields.h"
#include "desktop/layout.h"
#include "desktop/widgets/picture_view.h"

class QHBoxLayout;
class QVBoxLayout;

namespace desktop {

class CardGrid;
class GaugeView;

// What a dialog goes on changing after it has been built.
struct DialogParts {
    PictureView* stripPicture = nullptr;
    LimitLabels limits;
};

// Fills the window of a page as its plan says.
class DialogBuilder {
  public:
    DialogBuilder(QDialog& dialog, PageView& view, const PagePlan& plan, const Look& look);

    DialogParts Build();

  private:
    void MakeSpecials();
    void MakeLive();
    void MakeGauge();
    void AddHeading(QVBoxLayout& column);
    void AddTexts(QVBoxLayout& column);
    void AddTools(QVBoxLayout& column);
    void AddFields(QVBoxLayout& column);
    void AddSide(QHBoxLayout& line);
    void FillGauge();
    void AddStrip(QVBoxLayout& column);
    void AddButtons(QVBoxLayout& column);
    QWidget& WidgetOf(const pages::Control& control) const { return *view_.WidgetOf(control); }

    QDialog& dialog_;
    PageView& view_;
    const PagePlan& plan_;
    const Look& look_;
    DialogParts parts_;
    CardGrid* live_ = nullptr;
    GaugeView* gauge_ = nullptr;
};

}  // namespace desktop
