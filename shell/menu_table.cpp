#include "shell/menu_table.h"

namespace tarvelo {
namespace {

constexpr MenuEntry fullflash[] = {
    {OpenFF, 134, 330, "Ctrl+O"},
    {Save, 140, 331, "Ctrl+S", true},
    {SaveAs, 145, 332, "Ctrl+Shift+S", true},
    {MenuNone},
    {SaveText, 5, 333, "Ctrl+T", true},
    {View, 158, 334, "", true},
    {MenuNone},
    {File1, 0, 335},
    {MenuNone},
    {ExitM, 113, 336, "Ctrl+Q"},
};

constexpr MenuEntry panels[] = {
    {Info, 121, 337, "Ctrl+1", true, wxITEM_CHECK},
    {Menu, 131, 338, "Ctrl+2", true, wxITEM_CHECK},
    {EEPROM, 201, 339, "Ctrl+3", true, wxITEM_CHECK},
    {Langpack, 125, 338, "Ctrl+4", true, wxITEM_CHECK},
    {Pictures, 136, 340, "Ctrl+5", true, wxITEM_CHECK},
    {Ringtones, 139, 341, "Ctrl+6", true, wxITEM_CHECK},
    {Files, 89, 338, "Ctrl+7", true, wxITEM_CHECK},
    {Dump, 86, 342, "Ctrl+8", true, wxITEM_CHECK},
    {AddrBook, 182, 338, "Ctrl+9", false, wxITEM_CHECK},
    {MenuNone},
    {HexView, 228, 343, "Ctrl+H", true, wxITEM_CHECK},
    {Hits, 229, 344, "Ctrl+R", true, wxITEM_CHECK},
    {ComparePanelMenu, 286, 345, "Ctrl+K", true, wxITEM_CHECK},
    {PatchMenu, 135, 346, "Ctrl+0", true, wxITEM_CHECK},
};

constexpr MenuEntry tools[] = {
    {Search, 275, 347, "Ctrl+Shift+F", true},
    {CompareWith, 285, 348, "Ctrl+Shift+K", true},
    {ApplyPatch, 294, 349, "Ctrl+Shift+O", true},
    {StFun, 186, 338, "", true},
    {StPat, 187, 338, "", true},
    {MenuNone},
    {Calc166_Menu, 202, 350, "F6", false, wxITEM_CHECK},
    {Calculator, 108, 351},
    {Quillo, 203, 352, "", true},
};

constexpr MenuEntry languages[] = {{FirstLanguage, 0, 353}};

constexpr MenuEntry help[] = {
    {Help, 120, 354, "F1"},
    {About, 106, 355},
};

constexpr MenuGroup bar[] = {{111, fullflash}, {200, panels}, {156, tools}, {130, languages}, {120, help}};

}  // namespace

std::span<const MenuGroup> MenuBarTable() { return bar; }

std::span<const MenuEntry> PanelEntries() { return panels; }

}  // namespace tarvelo
