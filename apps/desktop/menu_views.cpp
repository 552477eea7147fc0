#include "desktop/menu_views.h"

#include <QAction>

#include "desktop/words.h"

namespace desktop {

namespace {

using shell::MenuId;
using shell::MenuItem;
using shell::Target;

std::size_t Index(MenuId id) {
    return static_cast<std::size_t>(id);
}

}  // namespace

MenuViews::MenuViews(shell::Shell& shell, QMenuBar& bar, Hands& hands, const Look& look)
    : shell_(shell), hands_(hands), look_(look) {
    for (const shell::MenuRow& row : shell::Menus()) {
        if (row.id == MenuId::MainMenu) continue;
        auto* menu = new QMenu(&bar);
        menu->setObjectName(QString::fromUtf8(row.name.data(), static_cast<qsizetype>(row.name.size())));
        menu->setToolTipsVisible(true);
        menus_[Index(row.id)] = menu;
    }
    for (const shell::MenuRow& row : shell::Menus()) {
        if (row.id == MenuId::MainMenu) {
            Build(row.id, bar);
        } else {
            Build(row.id, Of(row.id));
        }
    }
}

void MenuViews::Build(MenuId id, QWidget& into) {
    for (const MenuItem& item : shell_.main.Menu(id)) actions_[Index(id)].push_back(AddEntry(item, into));
}

QAction* MenuViews::AddEntry(const MenuItem& item, QWidget& into) {
    QAction* action = nullptr;
    if (item.row->target == Target::Submenu) {
        action = Of(shell::FindMenu(item.row->name)->id).menuAction();
    } else {
        action = new QAction(&into);
        action->setSeparator(item.row->target == Target::Separator);
        QObject::connect(action, &QAction::triggered, action,
                         [this, row = item.row] { hands_.Done(shell::ChooseMenu(shell_, row->menu, row->index)); });
    }
    into.addAction(action);
    return action;
}

void MenuViews::PushEntry(const MenuItem& item, QAction& action) {
    if (item.row->target == Target::Separator) return;
    const QString why = look_.Why(item.why);
    action.setText(Words(item.caption));
    action.setEnabled(item.why == pages::Reason::None);
    action.setVisible(item.visible);
    action.setToolTip(why);
    action.setStatusTip(why);
}

void MenuViews::Push() {
    for (const shell::MenuRow& row : shell::Menus()) {
        const std::vector<MenuItem>& items = shell_.main.Menu(row.id);
        for (std::size_t i = 0; i < items.size(); ++i) PushEntry(items[i], *actions_[Index(row.id)][i]);
    }
}

}  // namespace desktop
