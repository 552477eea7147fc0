#pragma once

#include <QDialog>

#include "desktop/binder.h"
#include "desktop/layout.h"

class QVBoxLayout;
class QHBoxLayout;

namespace desktop {

class PictureView;

// The window of a page. Its parts stand as the plan says: pictures and texts, the fields in rows, lists and tables,
// live figures beside them, the message strip, the buttons at the right. It closes when the page does, not by itself.
class Dialog : public QDialog {
    Q_OBJECT
  public:
    Dialog(pages::Page& page, Hands& hands, const Look& look, std::function<void(const QString&)> hint);

    PageView& View() { return view_; }
    // Shows the page above `parent`, in the middle of `area` (global), modal or not.
    void Present(QWidget& parent, const QRect& area);
    // Brings the window up to date with its page.
    void Sync();

    void reject() override {}

  protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Build();
    void BuildTexts(QHBoxLayout& line);
    QWidget* BuildRows();
    void BuildStrip(QVBoxLayout& column);
    void BuildButtons(QVBoxLayout& column);
    void ShowStripPicture();
    void Place();
    void FitHeight();

    pages::Page& page_;
    Hands& hands_;
    const Look& look_;
    std::function<void(const QString&)> hint_;
    PagePlan plan_;
    PageView view_;
    PictureView* stripPicture_ = nullptr;
    QRect area_;
};

}  // namespace desktop
