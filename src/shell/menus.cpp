#include "shell/menus.h"

#include <algorithm>
#include <array>

namespace shell {

namespace {

constexpr std::array<MenuRow, 18> AllMenus{{
    {MenuId::MainMenu, "MainMenu", "MAIN"},
    {MenuId::MenuDati, "MenuDati", "MENUDATI"},
    {MenuId::MenuEEPROM, "MenuEEPROM", "MENUEEPROM"},
    {MenuId::MenuProg, "MenuProg", "MENUPROG"},
    {MenuId::MenuFlash, "MenuFlash", "MENUFLASH"},
    {MenuId::MenuPunto, "MenuPunto", "MENUPUNTO"},
    {MenuId::MenuAutoA, "MenuAutoA", "MENUAUTOA"},
    {MenuId::MenuAutoA1, "MenuAutoA1", "MENUAUTOA1"},
    {MenuId::MenuImp, "MenuImp", "MENUIMP"},
    {MenuId::MenuStorico, "MenuStorico", "MENUSTORICO"},
    {MenuId::MenuUtil, "MenuUtil", "MENUUTIL"},
    {MenuId::MenuSEE, "MenuSEE", "MENUSEE"},
    {MenuId::MenuREE, "MenuREE", "MENUREE"},
    {MenuId::MenuSD, "MenuSD", "MENUSD"},
    {MenuId::MenuRD, "MenuRD", "MENURD"},
    {MenuId::MenuSM, "MenuSM", "MENUSM"},
    {MenuId::MenuRM, "MenuRM", "MENURM"},
    {MenuId::MenuConf, "MenuConf", "MENUCONF"},
}};

// The kind of archive that a total or partial export works on.
constexpr int ImageArchive = 1;
constexpr int DataArchive = 2;
constexpr int BothArchives = 3;

constexpr EntryRow Separator(MenuId menu, int index) {
    return {menu, index, Target::Separator};
}
constexpr EntryRow Submenu(MenuId menu, int index, std::string_view name) {
    return {menu, index, Target::Submenu, name, 0, false};
}
constexpr EntryRow Single(MenuId menu, int index, std::string_view name, Guard guard = Guard::None) {
    return {menu, index, Target::Page, name, 0, true, false, guard};
}
// A page that several entries open, each with its own argument.
constexpr EntryRow Shared(MenuId menu, int index, std::string_view name, int argument, Guard guard = Guard::None) {
    return {menu, index, Target::Page, name, argument, true, true, guard};
}
constexpr EntryRow Command(MenuId menu, int index, std::string_view name, bool idle) {
    return {menu, index, Target::Command, name, 0, idle};
}

using M = MenuId;

constexpr auto AllEntries = std::to_array<EntryRow>({
    Submenu(M::MainMenu, 0, "MenuDati"),
    Submenu(M::MainMenu, 1, "MenuEEPROM"),
    Submenu(M::MainMenu, 2, "MenuFlash"),
    Submenu(M::MainMenu, 3, "MenuPunto"),
    Submenu(M::MainMenu, 4, "MenuImp"),
    Single(M::MainMenu, 5, "Anomalie"),
    Submenu(M::MainMenu, 6, "MenuStorico"),
    Submenu(M::MainMenu, 7, "MenuUtil"),
    Submenu(M::MainMenu, 8, "MenuConf"),
    Command(M::MainMenu, 9, "Esci", false),

    Single(M::MenuDati, 0, "Memorf"),
    Command(M::MenuDati, 1, "ChiudiFile", true),
    Separator(M::MenuDati, 2),
    Single(M::MenuDati, 3, "CancFileD"),

    Single(M::MenuEEPROM, 0, "Infile", Guard::NewProgram),
    Submenu(M::MenuEEPROM, 1, "MenuProg"),
    Separator(M::MenuEEPROM, 2),
    Single(M::MenuEEPROM, 3, "VisOff"),
    Single(M::MenuEEPROM, 4, "CancFile"),
    Single(M::MenuEEPROM, 5, "InEEPROM", Guard::Image),

    Single(M::MenuProg, 0, "Programma"),
    Single(M::MenuProg, 1, "InEEPROM", Guard::Image),

    Single(M::MenuFlash, 0, "ProgFlash"),
    Separator(M::MenuFlash, 1),
    Single(M::MenuFlash, 2, "RipriF"),
    Single(M::MenuFlash, 3, "SalvatF"),
    Single(M::MenuFlash, 4, "CancFileS"),

    Shared(M::MenuPunto, 0, "MessaP", 0),
    Shared(M::MenuPunto, 1, "MessaP", 1),
    Shared(M::MenuPunto, 2, "MessaP", 2),
    Shared(M::MenuPunto, 3, "MessaP", 3),
    Shared(M::MenuPunto, 4, "MessaP", 6),
    Separator(M::MenuPunto, 5),
    Shared(M::MenuPunto, 6, "MessaP", 4),
    Shared(M::MenuPunto, 7, "MessaP", 5),
    Separator(M::MenuPunto, 8),
    Shared(M::MenuPunto, 9, "MessaP", 7),
    Shared(M::MenuPunto, 10, "MessaP", 8),
    Submenu(M::MenuPunto, 11, "MenuAutoA"),
    Submenu(M::MenuPunto, 12, "MenuAutoA1"),
    Separator(M::MenuPunto, 13),
    Single(M::MenuPunto, 14, "MessaL1"),

    Shared(M::MenuAutoA, 0, "MessaP", 9),
    Shared(M::MenuAutoA, 1, "MessaP", 10),
    Shared(M::MenuAutoA, 2, "MessaP", 11),
    Shared(M::MenuAutoA1, 0, "MessaP", 9),
    Shared(M::MenuAutoA1, 1, "MessaP", 11),

    Shared(M::MenuImp, 0, "AutoTar", 0, Guard::Image),
    Shared(M::MenuImp, 1, "AutoTar", 1, Guard::Image),
    Shared(M::MenuImp, 2, "AutoTar", 2, Guard::Image),
    Shared(M::MenuImp, 3, "AutoTar", 3, Guard::Image),
    Single(M::MenuImp, 4, "ModMappa"),
    Separator(M::MenuImp, 5),
    Shared(M::MenuImp, 6, "Imposta", 0),
    Shared(M::MenuImp, 7, "Imposta", 1),
    Shared(M::MenuImp, 8, "Imposta", 2),
    Separator(M::MenuImp, 9),
    Shared(M::MenuImp, 10, "Imposta", 5),
    Shared(M::MenuImp, 11, "Imposta", 3),
    Shared(M::MenuImp, 12, "Imposta", 6),
    Separator(M::MenuImp, 13),
    Shared(M::MenuImp, 14, "Imposta", 4),
    Separator(M::MenuImp, 15),
    Single(M::MenuImp, 16, "Ident"),
    Single(M::MenuImp, 17, "AutoTarOff", Guard::Image),

    Single(M::MenuStorico, 0, "StoricoA"),

    Submenu(M::MenuUtil, 0, "MenuSEE"),
    Submenu(M::MenuUtil, 1, "MenuREE"),
    Submenu(M::MenuUtil, 2, "MenuSD"),
    Submenu(M::MenuUtil, 3, "MenuRD"),
    Shared(M::MenuUtil, 4, "Salvat", BothArchives),
    Shared(M::MenuUtil, 5, "Ripri", BothArchives),
    Separator(M::MenuUtil, 6),
    Submenu(M::MenuUtil, 7, "MenuSM"),
    Submenu(M::MenuUtil, 8, "MenuRM"),
    Single(M::MenuUtil, 9, "CancFileB"),

    Shared(M::MenuSEE, 0, "Salvat", ImageArchive),
    Shared(M::MenuSEE, 1, "SalvatP", ImageArchive),
    Shared(M::MenuREE, 0, "Ripri", ImageArchive),
    Shared(M::MenuREE, 1, "RipriP", ImageArchive),
    Shared(M::MenuSD, 0, "Salvat", DataArchive),
    Shared(M::MenuSD, 1, "SalvatP", DataArchive),
    Shared(M::MenuRD, 0, "Ripri", DataArchive),
    Shared(M::MenuRD, 1, "RipriP", DataArchive),
    Shared(M::MenuSM, 0, "SalvatM", 0),
    Shared(M::MenuSM, 1, "SalvatPM", 0),
    Shared(M::MenuRM, 0, "RipriM", 0),
    Shared(M::MenuRM, 1, "RipriPM", 0),

    Single(M::MenuConf, 0, "SceltaLingua"),
    Single(M::MenuConf, 1, "ConfSer"),
    Single(M::MenuConf, 2, "TipoComp"),
    Separator(M::MenuConf, 3),
    Single(M::MenuConf, 4, "Risoluz"),
    Separator(M::MenuConf, 5),
    Single(M::MenuConf, 6, "Infor"),
});

constexpr std::array<ToolRow, 14> AllTools{{
    {"APRI_FILE", Target::Page, "Memorf"},
    {"CHIUDI_FILE", Target::Command, "ChiudiFile"},
    {"EEPROM_FILE", Target::Page, "Infile", true, Guard::NewProgram},
    {"EEPROM_PROG", Target::Submenu, "MenuProg", false},
    {"OFFLINE", Target::Page, "VisOff"},
    {"EEPROM_SETUP", Target::Page, "InEEPROM", true, Guard::Image},
    {"PROGRAMMA", Target::Submenu, "MenuFlash"},
    {"MESSA_PUNTO", Target::Submenu, "MenuPunto"},
    {"IMPOSTAZIONI", Target::Submenu, "MenuImp"},
    {"ANOMALIE", Target::Page, "Anomalie"},
    {"STORICO", Target::Submenu, "MenuStorico"},
    {"UTILITA", Target::Submenu, "MenuUtil"},
    {"CONFIGURAZIONE", Target::Submenu, "MenuConf"},
    {"ESCI", Target::Command, "Esci", false},
}};

}  // namespace

std::span<const MenuRow> Menus() {
    return AllMenus;
}
std::span<const EntryRow> Entries() {
    return AllEntries;
}
std::span<const ToolRow> Tools() {
    return AllTools;
}

const MenuRow* FindMenu(std::string_view name) {
    const auto found =
        std::find_if(AllMenus.begin(), AllMenus.end(), [name](const MenuRow& row) { return row.name == name; });
    return found == AllMenus.end() ? nullptr : &*found;
}

}  // namespace shell
