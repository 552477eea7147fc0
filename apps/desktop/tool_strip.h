#pragma once

#include <QToolButton>
#include <QWidget>
#include <vector>

#include "desktop/menu_views.h"

namespace desktop {

// The toolbar: picture and word, grouped by what they work on. A button with a menu pops it up centred below itself.
class ToolStrip : public QWidget {
    Q_OBJECT
  public:
    ToolStrip(shell::Shell& shell, MenuViews& menus, Hands& hands, const Look& look);

    void Push();

  private:
    void Press(const shell::ToolRow& row, QToolButton& button);

    shell::Shell& shell_;
    MenuViews& menus_;
    Hands& hands_;
    const Look& look_;
    std::vector<QToolButton*> buttons_;
};

}  // namespace desktop
