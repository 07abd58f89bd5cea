#include "shell/menu_table.h"

namespace tarvelo {
namespace {

constexpr MenuEntry fullflash[] = {
    {OpenFF, 134, "Ctrl+O"},
    {Save, 140, "Ctrl+S", true},
    {SaveAs, 145, "Ctrl+Shift+S", true},
    {MenuNone},
    {SaveText, 5, "Ctrl+T", true},
    {View, 158, "", true},
    {MenuNone},
    {File1},
    {MenuNone},
    {ExitM, 113, "Ctrl+Q"},
};

constexpr MenuEntry panels[] = {
    {Info, 121, "Ctrl+1", true, wxITEM_CHECK},
    {Menu, 131, "Ctrl+2", true, wxITEM_CHECK},
    {EEPROM, 201, "Ctrl+3", true, wxITEM_CHECK},
    {Langpack, 125, "Ctrl+4", true, wxITEM_CHECK},
    {Pictures, 136, "Ctrl+5", true, wxITEM_CHECK},
    {Ringtones, 139, "Ctrl+6", true, wxITEM_CHECK},
    {Files, 89, "Ctrl+7", true, wxITEM_CHECK},
    {Dump, 86, "Ctrl+8", true, wxITEM_CHECK},
    {AddrBook, 182, "Ctrl+9", false, wxITEM_CHECK},
    {MenuNone},
    {HexView, 228, "Ctrl+H", true, wxITEM_CHECK},
    {Hits, 229, "Ctrl+R", true, wxITEM_CHECK},
    {ComparePanelMenu, 286, "Ctrl+K", true, wxITEM_CHECK},
    {PatchMenu, 135, "Ctrl+0", true, wxITEM_CHECK},
};

constexpr MenuEntry tools[] = {
    {Search, 275, "Ctrl+Shift+F", true},
    {CompareWith, 285, "Ctrl+Shift+K", true},
    {ApplyPatch, 294, "Ctrl+Shift+O", true},
    {StFun, 186, "", true},
    {StPat, 187, "", true},
    {MenuNone},
    {Calc166_Menu, 202, "F6", false, wxITEM_CHECK},
    {Calculator, 108},
    {Quillo, 203, "", true},
};

constexpr MenuEntry languages[] = {{FirstLanguage}};

constexpr MenuEntry help[] = {
    {Help, 120, "F1"},
    {About, 106},
};

constexpr MenuGroup bar[] = {{111, fullflash}, {200, panels}, {156, tools}, {130, languages}, {120, help}};

}  // namespace

std::span<const MenuGroup> MenuBarTable() { return bar; }

}  // namespace tarvelo
