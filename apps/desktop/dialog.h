#pragma once

#include <QDialog>
#include <array>
#include <functional>

#include "desktop/binder.h"
#include "desktop/dialog_parts.h"
#include "desktop/layout.h"

namespace desktop {

// Where a page may stand: places that hide less come first, the last one is all there is.
using PageAreas = std::array<QRect, 3>;

// The window of a page. It closes when the page does, not by itself.
class Dialog : public QDialog {
    Q_OBJECT
  public:
    // `hint` shows a sentence in the status bar of the main window.
    Dialog(pages::Page& page, Hands& hands, const Look& look, std::function<void(const QString&)> hint);

    PageView& View() { return view_; }
    // Shows the page above `parent`, modal or not, in the first of the areas (global) that has room for it, as near to
    // the middle of them all as it can stand there.
    void Present(QWidget& parent, const PageAreas& areas);
    // Brings the window up to date with its page.
    void Sync();

    void reject() override {}

  protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void ShowTitle();
    void ShowStripPicture();
    void ShowLimits();
    void ChooseArea();
    void Place();
    void PutInMiddle(QSize size);
    QSize Wanted(int wide) const;
    void Grow();

    pages::Page& page_;
    Hands& hands_;
    std::function<void(const QString&)> hint_;
    PagePlan plan_;
    PageView view_;
    DialogParts parts_;
    PageAreas areas_;
    QRect area_;    // the one that is used
    QRect placed_;  // where the page put the window last, in the middle
    QSize given_;   // the size that the program gave it last
    QSize byHand_;  // what the hand made of it
};

}  // namespace desktop
