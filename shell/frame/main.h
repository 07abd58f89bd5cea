// The main window: builds everything in it and runs the commands of its menus.
#pragma once

#include <wx/eventfilter.h>
#include <wx/frame.h>
#include <wx/panel.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>

#include "document/document.h"
#include "document/place_history.h"
#include "resources/messages.h"
#include "shell/frame/dump_commands.h"
#include "shell/frame/menus.h"
#include "shell/frame/panel_stack.h"
#include "shell/platform/beeper.h"
#include "shell/platform/launcher.h"
#include "shell/services/dialogs.h"
#include "shell/services/external_tools.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"
#include "shell/settings/settings.h"
#include "shell/settings/window_place.h"

namespace tarvelo {

class Calc166;
class CodePanel;
class ComparePanel;
class HexPanel;
class HitsPanel;
class InfoPanel;
class PanelBar;
class PatchPanel;
class PlaceLine;
class ReferencesPanel;
class WhatLiesWindow;

// What the window needs from outside. Tests pass substitutes.
struct Surroundings {
  Settings settings;
  std::unique_ptr<Beeper> beeper = SystemBeeper();
  std::unique_ptr<Launcher> launcher = SystemLauncher();
  std::unique_ptr<Dialogs> dialogs = nullptr;  // null: the real ones
  std::filesystem::path documents = {};        // empty: the user's own folder
};

class Main final : public wxFrame, private Frame {
 public:
  explicit Main(Surroundings surroundings);
  ~Main() override;

  [[nodiscard]] Workbench& Bench() { return bench_; }
  // The commands for dumps, and the panels.
  [[nodiscard]] DumpCommands& Dumps() { return *dumps_; }
  [[nodiscard]] PanelStack& Panels() { return *panels_; }
  [[nodiscard]] InfoPanel& InfoText() { return *info_; }
  [[nodiscard]] PanelBar& Bar() { return *bar_; }
  // The line for going to a place, which is shown above panels that have none of their own.
  [[nodiscard]] PlaceLine& GoToLine() { return *goToLine_; }
  [[nodiscard]] WhatLiesWindow* WhatLies() const { return whatLies_; }  // null until first shown
  // The address calculator's window; null while it is closed.
  [[nodiscard]] tarvelo::Calc166* AddressCalculator() const { return calculator_; }

  // Opens files named on the command line once the window is shown.
  void OpenWhenShown(const std::vector<std::string>& names);

  // Switches everything to a language: fonts, settings, captions, menu tick.
  void ApplyLang(const Language& language);

  // Runs the command of a menu entry.
  void Run(int id) override;

 private:
  using Command = std::function<void()>;

  // --- Frame ---
  wxWindow& Parent() override { return *sheet_; }
  void PopUpCommands(const wxPoint& place) override { Run(panels_->PopUp(place)); }
  void AcceptDrops(wxWindow& window) override;
  void ShowPanel(Panel& panel) override;
  void RenewMenu(Panel& panel) override { panels_->RenewMenu(panel); }
  [[nodiscard]] bool IsVisible(const Panel& panel) const override { return panels_->Visible() == &panel; }
  void ShowBl(Offset start, Offset size) override;
  void ShowHex(Offset start, Offset size) override;
  void ShowCode(Offset start, Offset size) override;
  void ShowReferences(Offset target) override;
  void ShowFunctions(Offset offset) override;
  void ShowInPatch(Offset offset) override;
  void ShowHits(const std::string& pattern) override;
  [[nodiscard]] OtherDump Other() const override;
  void ShowWhatLies(Offset offset) override;
  void FollowInHex(Offset start, Offset size) override;
  void OpenDump(const std::filesystem::path& path) override { dumps_->OpenChosen(path); }
  void OpenInNewWindow(const std::filesystem::path& dump, const std::filesystem::path& patch) override;
  void AddInformation(const std::string& lines) override;
  void AddInformation(const std::string& name, const std::string& body) override;
  void AddPatch(Text command, Offset changedBytes, std::size_t all,
                const std::function<std::vector<Change>()>& makeChanges) override;
  void OpenPatch(const std::filesystem::path& file) override;

  void DoGiveHelp(const wxString& help, bool show) override;
  void AddSheet();
  void AddPanels();
  void AddCommands();
  // Enables the menu entries that are usable now.
  void UpdateMenus();
  // Shows in the bar of panels and in the menu what has changed since the last event.
  void UpdateBar();
  [[nodiscard]] bool CanShow(int panel) const;

  // Whether an offset is in the image; otherwise tells the user.
  [[nodiscard]] bool IsInside(Offset offset);
  // Where the user is; `go` leads elsewhere, which the history remembers.
  [[nodiscard]] VisitedPlace Here() const;
  void Jump(const Command& go);
  void Revisit(const std::optional<VisitedPlace>& place);
  void ShowRecord(const Explorer& explorer, std::size_t record);

  void GoTo_Click();
  void HideGoToLine();
  void PanelBar_Click();
  void OpenInNewWindow_Click();
  void SaveText_Click();
  void View_Click();
  void Quillo_Click();
  void Calc166_Menu_Click();
  void Help_Click();
  void About_Click();
  void ExitM_Click();
  void PressKey(wxKeyEvent& event);
  void Form_Unload(wxCloseEvent& event);
  // The session is ending: the first asks about unsaved data, the second stores the settings.
  void QueryEndSession(wxCloseEvent& event);
  void EndSession(wxCloseEvent& event);
  void StoreSettings();
  [[nodiscard]] std::filesystem::path Documents() const;

  Settings settings_;
  Messages messages_;
  std::unique_ptr<Beeper> beeper_;
  std::unique_ptr<Launcher> launcher_;
  std::unique_ptr<Dialogs> dialogs_;
  ExternalTools tools_;
  std::filesystem::path documents_;
  Document document_;
  PlaceHistory history_;
  Talk talk_;
  StatusBar* status_;
  Workbench bench_;
  Menus menus_;
  std::unique_ptr<PanelStack> panels_;
  std::unique_ptr<DumpCommands> dumps_;
  std::map<int, Command> commands_;
  InfoPanel* info_ = nullptr;
  HexPanel* hex_ = nullptr;
  CodePanel* code_ = nullptr;
  ReferencesPanel* references_ = nullptr;
  HitsPanel* hits_ = nullptr;
  ComparePanel* compare_ = nullptr;
  PatchPanel* patch_ = nullptr;
  Calc166* calculator_ = nullptr;  // null while it is closed
  wxPanel* sheet_ = nullptr;       // the whole window between menu and status bar
  wxSizer* part_ = nullptr;        // of it, which the panels share
  PanelBar* bar_ = nullptr;
  PlaceLine* goToLine_ = nullptr;
  WhatLiesWindow* whatLies_ = nullptr;
  std::unique_ptr<wxEventFilter> mouseButtons_;
  Document::Watch watch_;
  std::vector<std::string> openWhenIdle_;
  std::optional<WindowPlace> place_;
};

}  // namespace tarvelo
