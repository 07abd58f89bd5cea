#include "shell/frame/menu_table.h"

namespace tarvelo {
namespace {

constexpr MenuEntry fullflash[] = {
    {OpenFF, Text::Open, Text::HelpOpenFullflash, "Ctrl+O"},
    {Save, Text::Save, Text::HelpSave, "Ctrl+S", true},
    {SaveAs, Text::SaveAs, Text::HelpSaveAs, "Ctrl+Shift+S", true},
    {MenuNone},
    {SaveText, Text::SaveListAsText, Text::HelpSaveText, "Ctrl+T", true},
    {View, Text::ViewFullflash, Text::HelpViewFullflash, "", true},
    {MenuNone},
    {File1, {}, Text::HelpRecentlyOpened},
    {MenuNone},
    {ExitM, Text::Exit, Text::HelpExit, "Ctrl+Q"},
};

constexpr MenuEntry panels[] = {
    {Info, Text::Info, Text::HelpInfo, "Ctrl+1", true, wxITEM_CHECK},
    {Menu, Text::Menu, Text::HelpNotBuilt, "Ctrl+2", true, wxITEM_CHECK},
    {EEPROM, Text::Eeprom, Text::HelpEeprom, "Ctrl+3", true, wxITEM_CHECK},
    {Langpack, Text::Langpack, Text::HelpNotBuilt, "Ctrl+4", true, wxITEM_CHECK},
    {Pictures, Text::Pictures, Text::HelpPictures, "Ctrl+5", true, wxITEM_CHECK},
    {Ringtones, Text::Ringtones, Text::HelpRingtones, "Ctrl+6", true, wxITEM_CHECK},
    {Files, Text::Files, Text::HelpNotBuilt, "Ctrl+7", true, wxITEM_CHECK},
    {Dump, Text::Dump, Text::HelpDump, "Ctrl+8", true, wxITEM_CHECK},
    {AddrBook, Text::AddressBook, Text::HelpNotBuilt, "Ctrl+9", false, wxITEM_CHECK},
    {MenuNone},
    {HexView, Text::HexView, Text::HelpHexView, "Ctrl+H", true, wxITEM_CHECK},
    {Hits, Text::SearchResults, Text::HelpSearchResults, "Ctrl+R", true, wxITEM_CHECK},
    {ComparePanelMenu, Text::Comparison, Text::HelpComparison, "Ctrl+K", true, wxITEM_CHECK},
    {PatchMenu, Text::Patch, Text::HelpPatch, "Ctrl+0", true, wxITEM_CHECK},
};

constexpr MenuEntry tools[] = {
    {Search, Text::SearchForBytes, Text::HelpSearchForBytes, "Ctrl+Shift+F", true},
    {CompareWith, Text::CompareWithAnother, Text::HelpCompareWithAnother, "Ctrl+Shift+K", true},
    {ApplyPatch, Text::ApplyPatchFile, Text::HelpApplyPatchFile, "Ctrl+Shift+O", true},
    {StFun, Text::StandardFunctions, Text::HelpNotBuilt, "", true},
    {StPat, Text::StandardPatches, Text::HelpNotBuilt, "", true},
    {MenuNone},
    {Calc166_Menu, Text::AddressCalculator, Text::HelpAddressCalculator, "F6", false, wxITEM_CHECK},
    {Calculator, Text::Calculator, Text::HelpCalculator},
    {Quillo, Text::OpenInQuillo, Text::HelpOpenInQuillo, "", true},
};

constexpr MenuEntry languages[] = {{FirstLanguage, {}, Text::HelpLanguage}};

constexpr MenuEntry help[] = {
    {Help, Text::Help, Text::HelpManual, "F1"},
    {About, Text::Author, Text::HelpAuthor},
};

constexpr MenuGroup bar[] = {{Text::Fullflash, fullflash}, {Text::Panels, panels}, {Text::Tools, tools}, {Text::Language, languages}, {Text::Help, help}};

}  // namespace

std::span<const MenuGroup> MenuBarTable() { return bar; }

std::span<const MenuEntry> PanelEntries() { return panels; }

}  // namespace tarvelo
