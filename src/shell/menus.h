#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "pages/reason.h"

namespace shell {

enum class MenuId {
    MainMenu,
    MenuDati,
    MenuEEPROM,
    MenuProg,
    MenuFlash,
    MenuPunto,
    MenuAutoA,
    MenuAutoA1,
    MenuImp,
    MenuStorico,
    MenuUtil,
    MenuSEE,
    MenuREE,
    MenuSD,
    MenuRD,
    MenuSM,
    MenuRM,
    MenuConf,
    Count
};

enum class Target { Separator, Submenu, Page, Command };

// What must hold beside the entry being enabled; where it does not, a message is shown and nothing opens.
enum class Guard { None, Image, NewProgram };

// A menu entry as the program knows it. `name` is the submenu, the page or the command; `argument` is handed to it.
struct EntryRow {
    MenuId menu;
    int index;
    Target target;
    std::string_view name = {};
    int argument = 0;
    bool idle = true;       // does nothing while a calibration step runs
    bool subtitle = false;  // the page serves several entries: its title names the parent too
    Guard guard = Guard::None;
};

struct MenuRow {
    MenuId id;
    std::string_view name;    // "MenuPunto"
    std::string_view prefix;  // of its caption keys in the section MARLOVENT, "MENUPUNTO"
};

struct ToolRow {
    std::string_view key;
    Target target;  // Submenu pops up the menu named
    std::string_view name;
    bool idle = true;
    Guard guard = Guard::None;
};

std::span<const MenuRow> Menus();
std::span<const EntryRow> Entries();
std::span<const ToolRow> Tools();
const MenuRow* FindMenu(std::string_view name);  // null when unknown

// What the main window shows of an entry and of a button.
struct MenuItem {
    const EntryRow* row = nullptr;
    std::string caption;
    pages::Reason why = pages::Reason::None;  // None: enabled
    bool visible = true;
};
struct ToolItem {
    const ToolRow* row = nullptr;
    std::string caption;
    std::string tooltip;
    pages::Reason why = pages::Reason::None;
};

}  // namespace shell
