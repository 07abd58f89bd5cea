#include "shell/frame/menu_table.h"

#include <algorithm>

#include "document/explorers.h"
#include "shell/list/explorer_panel.h"
#include "shell/services/ids.h"

namespace tarvelo {
namespace {

const std::vector<MenuEntry> fullflash = {
    {Id::OpenFF, Text::Open, Text::HelpOpenFullflash, "Ctrl+O"},
    {Id::OpenInNewWindow, Text::OpenInNewWindow, Text::HelpOpenInNewWindow, "Ctrl+Shift+W"},
    {Id::Save, Text::Save, Text::HelpSave, "Ctrl+S", true},
    {Id::SaveAs, Text::SaveAs, Text::HelpSaveAs, "Ctrl+Shift+S", true},
    {},
    {Id::SaveText, Text::SaveListAsText, Text::HelpSaveText, "Ctrl+T", true},
    {Id::View, Text::ViewFullflash, Text::HelpViewFullflash, "", true},
    {},
    {Id::File1, {}, Text::HelpRecentlyOpened},
    {},
    {Id::ExitM, Text::Exit, Text::HelpExit, "Ctrl+Q"},
};

// A panel of the dump with its place in the menu: 1 .. 9 gives the shortcut too; 0 places it after the
// others.
struct PlacedPanel {
  int place;
  int id;
  Text name;
  Text help;
  bool needsDocument = true;
};

// The panels that do not belong to an explorer (yet).
constexpr PlacedPanel otherPanels[] = {
    {1, Id::Info, Text::Info, Text::HelpInfo},
    {2, Id::Menu, Text::Menu, Text::HelpNotBuilt},
    {4, Id::Langpack, Text::Langpack, Text::HelpNotBuilt},
    {8, Id::Dump, Text::Dump, Text::HelpDump},
    {9, Id::AddrBook, Text::AddressBook, Text::HelpNotBuilt, false},
};

const std::vector<MenuEntry> lastPanels = {
    {},
    {Id::CodeView, Text::Code, Text::HelpCode, "Ctrl+D", true, wxITEM_CHECK},
    {Id::References, Text::References, Text::HelpReferences, "Ctrl+Shift+U", true, wxITEM_CHECK},
    {Id::PlaceNames, Text::PlaceNames, Text::HelpPlaceNames, "Ctrl+Shift+M", true, wxITEM_CHECK},
    {Id::HexView, Text::HexView, Text::HelpHexView, "Ctrl+H", true, wxITEM_CHECK},
    {Id::Hits, Text::SearchResults, Text::HelpSearchResults, "Ctrl+R", true, wxITEM_CHECK},
    {Id::ComparePanel, Text::Comparison, Text::HelpComparison, "Ctrl+K", true, wxITEM_CHECK},
    {Id::PatchMenu, Text::Patch, Text::HelpPatch, "Ctrl+0", true, wxITEM_CHECK},
    {},
    {Id::GoBack, Text::GoBack, Text::HelpGoBack, "Alt+Left", true},
    {Id::GoForward, Text::GoForward, Text::HelpGoForward, "Alt+Right", true},
    {Id::GoTo, Text::GoTo, Text::HelpGoTo, "Ctrl+L", true},
    {},
    {Id::PanelBar, Text::PanelBar, Text::HelpPanelBar, "Ctrl+Shift+B", false, wxITEM_CHECK},
};

MenuEntry EntryOf(const PlacedPanel& panel) {
  std::string shortcut;
  if (panel.place > 0) shortcut = "Ctrl+" + std::to_string(panel.place);
  return {panel.id, panel.name, panel.help, shortcut, panel.needsDocument, wxITEM_CHECK};
}

// An explorer replaces the panel with the same place that is not built yet.
std::vector<MenuEntry> MakePanelEntries() {
  std::vector<PlacedPanel> placed;
  for (const Explorer* explorer : Explorers())
    placed.push_back({explorer->place, PanelId(*explorer), explorer->name, explorer->help});
  for (const PlacedPanel& panel : otherPanels)
    if (std::ranges::find(placed, panel.place, &PlacedPanel::place) == placed.end()) placed.push_back(panel);
  std::ranges::stable_sort(placed, {},
                           [](const PlacedPanel& panel) { return panel.place == 0 ? 10 : panel.place; });
  std::vector<MenuEntry> entries;
  std::ranges::transform(placed, std::back_inserter(entries), EntryOf);
  entries.insert(entries.end(), lastPanels.begin(), lastPanels.end());
  return entries;
}

const std::vector<MenuEntry> tools = {
    {Id::Search, Text::SearchForBytes, Text::HelpSearchForBytes, "Ctrl+Shift+F", true},
    {Id::CompareWith, Text::CompareWithAnother, Text::HelpCompareWithAnother, "Ctrl+Shift+K", true},
    {Id::CompareRecent, Text::CompareWithRecent, Text::HelpCompareWithRecent, "", true},
    {Id::OpenPatch, Text::OpenPatch, Text::HelpOpenPatch, "Ctrl+Shift+P", true},
    {Id::ApplyPatch, Text::ApplyPatchFile, Text::HelpApplyPatchFile, "Ctrl+Shift+O", true},
    {Id::TakeNamesFrom, Text::TakeNamesFrom, Text::HelpTakeNamesFrom, "", true},
    {Id::FindNames, Text::FindNames, Text::HelpFindNames, "", true},
    {Id::StFun, Text::StandardFunctions, Text::HelpNotBuilt, "", true},
    {Id::StPat, Text::StandardPatches, Text::HelpNotBuilt, "", true},
    {},
    {Id::Calc166_Menu, Text::AddressCalculator, Text::HelpAddressCalculator, "F6", false, wxITEM_CHECK},
    {Id::Calculator, Text::Calculator, Text::HelpCalculator},
    {Id::Quillo, Text::OpenInQuillo, Text::HelpOpenInQuillo, "", true},
};

const std::vector<MenuEntry> languages = {{Id::FirstLanguage, {}, Text::HelpLanguage}};

const std::vector<MenuEntry> help = {
    {Id::Help, Text::Help, Text::HelpManual, "F1"},
    {},
    {Id::Demonstration, Text::TryDemonstration, Text::HelpDemonstration},
    {Id::SecondDemonstration, Text::TrySecondDemonstration, Text::HelpDemonstration},
    {},
    {Id::About, Text::Author, Text::HelpAuthor},
};

}  // namespace

std::span<const MenuGroup> MenuBarTable() {
  static const std::vector<MenuGroup> bar = {{Text::Fullflash, fullflash},
                                             {Text::Panels, MakePanelEntries()},
                                             {Text::Tools, tools},
                                             {Text::Language, languages},
                                             {Text::Help, help}};
  return bar;
}

std::span<const MenuEntry> PanelEntries() { return MenuBarTable()[1].entries; }

}  // namespace tarvelo
