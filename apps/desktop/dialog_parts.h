#pragma once

#include <QDialog>
#include <QLabel>
#include <utility>
#include <vector>

#include "desktop/binder.h"
#include "desktop/layout.h"
#include "desktop/widgets/picture_view.h"

class QGridLayout;
class QHBoxLayout;
class QVBoxLayout;

namespace desktop {

class CardGrid;

// What a dialog goes on changing after it has been built.
struct DialogParts {
    PictureView* stripPicture = nullptr;
    std::vector<std::pair<const pages::Control*, QLabel*>> limits;  // beside each field: why its value was refused
};

// Fills the window of a page as its plan says.
class DialogBuilder {
  public:
    DialogBuilder(QDialog& dialog, PageView& view, const PagePlan& plan, const Look& look);

    DialogParts Build();

  private:
    void MakeSpecials();
    void AddTexts(QVBoxLayout& column);
    void AddLive(QVBoxLayout& column);
    void AddMiddle(QVBoxLayout& column);
    QWidget* MakeFields();
    void AddRow(QGridLayout& grid, int row, const FieldRow& fields);
    int AddWide(QGridLayout& grid, int row);
    int AddAxes(QGridLayout& grid, int row);
    void AddStrip(QVBoxLayout& column);
    void AddButtons(QVBoxLayout& column);
    QWidget& WidgetOf(const pages::Control& control) const { return *view_.WidgetOf(control); }

    QDialog& dialog_;
    PageView& view_;
    const PagePlan& plan_;
    const Look& look_;
    DialogParts parts_;
    CardGrid* live_ = nullptr;
};

}  // namespace desktop
