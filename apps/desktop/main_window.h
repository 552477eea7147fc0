#pragma once

#include <QMainWindow>
#include <memory>

#include "desktop/dialog.h"
#include "desktop/grafici_view.h"
#include "desktop/menu_views.h"
#include "desktop/status_strip.h"
#include "desktop/tool_strip.h"

namespace desktop {

// The main window: menus, toolbar, the instrument page, the status bar.
class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    MainWindow(eculink::Link& link, Hands& hands, const Look& look);

    StatusStrip& Status() { return *status_; }
    GraficiView& Instruments() { return *grafici_; }
    PageView& View() { return view_; }
    MenuViews& Menus() { return *menus_; }
    // Where a page may stand, in coordinates of the screen: beside the switch and the lamps; above the row of lamps;
    // over everything but menus and status bar.
    PageAreas Areas() const;
    void Sync();

  protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    eculink::Link& link_;
    Hands& hands_;
    const Look& look_;
    std::unique_ptr<MenuViews> menus_;
    ToolStrip* tools_;
    GraficiView* grafici_;
    StatusStrip* status_;
    PageView view_;
    std::int64_t seenMenus_ = 0;
};

}  // namespace desktop
