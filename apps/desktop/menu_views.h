#pragma once

#include <QMenu>
#include <QMenuBar>
#include <array>
#include <functional>

#include "desktop/hands.h"
#include "desktop/look.h"
#include "shell/shell.h"

namespace desktop {

// The menus of the program as its tables stand. A menu exists once and is popped up by the bar, by its parent and by
// the toolbar alike.
class MenuViews {
  public:
    MenuViews(shell::Shell& shell, QMenuBar& bar, Hands& hands, const Look& look);

    QMenu& Of(shell::MenuId id) { return *menus_[static_cast<std::size_t>(id)]; }
    // Captions, what is on, what shows.
    void Push();

  private:
    void Build(shell::MenuId id, QWidget& into);
    QAction* AddEntry(const shell::MenuItem& item, QWidget& into);
    void PushEntry(const shell::MenuItem& item, QAction& action);

    static constexpr std::size_t Count = static_cast<std::size_t>(shell::MenuId::Count);

    shell::Shell& shell_;
    Hands& hands_;
    const Look& look_;
    std::array<QMenu*, Count> menus_{};
    std::array<std::vector<QAction*>, Count> actions_;
};

}  // namespace desktop
