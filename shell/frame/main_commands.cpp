// The main window's commands.
#include <wx/dataview.h>
#include <wx/menu.h>
#include <wx/stc/stc.h>
#include <wx/stdpaths.h>

#include <utility>

#include "code/functions_explorer.h"
#include "resources/texts.h"
#include "shell/base/product.h"
#include "shell/base/strings.h"
#include "shell/calculator/calc166.h"
#include "shell/carry/take_names.h"
#include "shell/compare/compare_panel.h"
#include "shell/frame/main.h"
#include "shell/frame/panel_bar.h"
#include "shell/list/explorer_panel.h"
#include "shell/patch/apply_patch.h"
#include "shell/patch/patch_panel.h"
#include "shell/search/hits_panel.h"
#include "shell/services/dump_files.h"
#include "shell/services/ids.h"
#include "shell/services/panel.h"
#include "shell/services/panel_commands.h"
#include "shell/settings/program_files.h"
#include "shell/view/place_line.h"

namespace tarvelo {

void Main::AddCommands() {
  commands_ = {
      {Id::OpenFF, [this] { dumps_->OpenFF_Click(); }},
      {Id::Save, [this] { dumps_->Save_Click(); }},
      {Id::SaveAs, [this] { dumps_->SaveAs_Click(); }},
      {Id::SaveText, [this] { SaveText_Click(); }},
      {Id::View, [this] { View_Click(); }},
      {Id::Quillo, [this] { Quillo_Click(); }},
      {Id::Search, [this] { hits_->Search_Click(); }},
      {Id::CompareWith, [this] { compare_->CompareWith_Click(); }},
      {Id::OpenPatch, [this] { patch_->OpenPatch_Click(); }},
      {Id::ApplyPatch, [this] { ApplyPatch_Click(bench_); }},
      {Id::TakeNamesFrom, [this] { TakeNamesFrom(bench_); }},
      {Id::FindNames, [this] { FindNames(bench_); }},
      {Id::GoBack, [this] { Revisit(history_.Back(Here())); }},
      {Id::GoForward, [this] { Revisit(history_.Forward(Here())); }},
      {Id::GoTo, [this] { GoTo_Click(); }},
      {Id::PanelBar, [this] { PanelBar_Click(); }},
      {Id::OpenInNewWindow, [this] { OpenInNewWindow_Click(); }},
      {Id::Continue, [this] { dumps_->Continue_Click(); }},
      {Id::CompareRecent, [] {}},  // a submenu
      {Id::Help, [this] { Help_Click(); }},
      {Id::Calculator, [this] { tools_.Calculator(); }},
      {Id::Calc166_Menu, [this] { Calc166_Menu_Click(); }},
      {Id::ExitM, [this] { ExitM_Click(); }},
      {Id::About, [this] { About_Click(); }},
      {Id::Demonstration, [this] { dumps_->OpenDemonstration(Documents(), DemoKind::First); }},
      {Id::SecondDemonstration, [this] { dumps_->OpenDemonstration(Documents(), DemoKind::Second); }},
  };
  for (int i = 0; i < static_cast<int>(RecentFiles::count); ++i)
    commands_[Id::File1 + i] = [this, i] { dumps_->OpenRecent(static_cast<std::size_t>(i)); };
  for (int i = 0; i < static_cast<int>(RecentFiles::count); ++i)
    commands_[Id::CompareRecent1 + i] = [this, i] {
      compare_->CompareWithFile(PathOf(dumps_->Recent()[static_cast<std::size_t>(i)]));
    };
  for (int i = 0; i <= Id::LastLanguage - Id::FirstLanguage; ++i)
    commands_[Id::FirstLanguage + i] = [this, i] { ApplyLang(Languages()[static_cast<std::size_t>(i)]); };
}

void Main::Run(int id) {
  Panel* visible = panels_->Visible();
  if (const PanelCommands* own = visible ? visible->Commands() : nullptr; own && own->Find(id)) {
    if (own->CanRun(id)) talk_.Guard(Wx(messages_.Msg(own->Find(id)->caption)), own->Find(id)->run);
    return;
  }
  const auto command = commands_.find(id);
  Panel* panel = panels_->Of(id);
  if (command == commands_.end() && !panel) return;
  const wxMenuItem* entry = GetMenuBar()->FindItem(id);
  const wxString name = entry ? entry->GetItemLabelText() : wxString();
  const auto show = [this, panel] {
    Jump([&] { panels_->ShowPanel(*panel); });
    panel->FirstFocus().SetFocus();
  };
  talk_.Guard(name, panel ? Command(show) : command->second);
  // Restores the tick, which the click itself has toggled.
  panels_->CheckMenu();
}

// The menu bar comes first: editors and GTK's lists have commands of their own for keys such as Ctrl+N, and
// GTK's input method takes Ctrl+Shift+U in every window.
void Main::PressKey(wxKeyEvent& event) {
  wxObject* const control = event.GetEventObject();
  const bool hasOwnKeys = dynamic_cast<wxStyledTextCtrl*>(control) || dynamic_cast<wxDataViewCtrl*>(control);
  const bool isOfInputMethod =
      event.GetModifiers() == (wxMOD_CONTROL | wxMOD_SHIFT) && event.GetKeyCode() == 'U';
  const bool isTaken = event.ControlDown() && (hasOwnKeys || isOfInputMethod);
  const wxMenuItem* entry = isTaken ? menus_.EntryOf(event) : nullptr;
  if (entry)
    ProcessCommand(entry->GetId());
  else
    event.Skip();
}

void Main::OpenWhenShown(const std::vector<std::string>& names) {
  openWhenIdle_ = names;
  Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
    event.Skip();
    for (const std::string& file : std::exchange(openWhenIdle_, {})) dumps_->OpenNamed(file);
  });
}

std::filesystem::path Main::Documents() const {
  return documents_.empty() ? PathFrom(wxStandardPaths::Get().GetDocumentsDir()) : documents_;
}

// --- the window ---

// The line of the panel, or one above it that leads to the hex view, or from panels of code to code.
void Main::GoTo_Click() {
  Panel* visible = panels_->Visible();
  if (visible && visible->StartGoTo()) return;
  const int id = visible ? visible->Traits().menuEntry : Id::None;
  const bool isOfCode =
      document_.Image().PageMode() && (id == Id::References || id == PanelId(functionsExplorer));
  goToLine_->SetForm(isOfCode ? ColonForm::Segment : ColonForm::Page);
  goToLine_->onGo = [this, isOfCode](Offset offset) {
    HideGoToLine();
    if (isOfCode)
      ShowCode(offset, 0);
    else
      ShowHex(offset, 0);
  };
  goToLine_->Show();
  sheet_->Layout();
  goToLine_->Start();
}

void Main::HideGoToLine() {
  if (!goToLine_->IsShown()) return;
  goToLine_->Hide();
  goToLine_->ClearFault();
  sheet_->Layout();
  if (panels_->Visible()) panels_->Visible()->FirstFocus().SetFocus();
}

void Main::PanelBar_Click() {
  bar_->Show(!bar_->IsShown());
  GetMenuBar()->Check(Id::PanelBar, bar_->IsShown());
  settings_.SetIni("Window", "PanelBar", bar_->IsShown() ? "1" : "0");
  sheet_->Layout();
}

void Main::OpenInNewWindow_Click() {
  const auto path = AskForDump(bench_, Text::OpenInNewWindow, document_.Path());
  if (path) OpenInNewWindow(*path, {});
}

// The new window belongs to a process of its own, which keeps a fault in one from the other. Paths are in
// quotes because they may contain apostrophes.
void Main::OpenInNewWindow(const std::filesystem::path& dump, const std::filesystem::path& patch) {
  std::string command;
  for (const std::filesystem::path& path : {ProgramFile(), dump, patch})
    if (!path.empty()) command += (command.empty() ? "\"" : " \"") + PathText(path) + "\"";
  place_->StoreForNext(settings_);
  launcher_->shel(command);
}

void Main::SaveText_Click() {
  if (panels_->Visible())
    panels_->Visible()->Save();
  else
    talk_.Complain(Text::NoDataToSave);
}

void Main::View_Click() {
  if (!tools_.View(document_.Path())) ShowHex(0, 0);
}

void Main::Quillo_Click() {
  if (!status_->Panel(StatusBar::patchPanel).empty() || patch_->IsFromElsewhere()) patch_->SavePatch();
  tools_.Quillo(document_.Beside(".qpt"));
}

// Shows the calculator, or closes it. The menu entry is ticked while it is open.
void Main::Calc166_Menu_Click() {
  if (calculator_) {
    calculator_->Close();
    return;
  }
  const auto show = [this](Offset offset) {
    if (document_.IsOpen())
      talk_.Guard(Wx(messages_.Msg(Text::HexView)), [this, offset] { ShowHex(offset, 1); });
  };
  const auto closed = [this] {
    calculator_ = nullptr;
    GetMenuBar()->Check(Id::Calc166_Menu, false);
  };
  calculator_ = new Calc166(
      this, messages_,
      {.corrBase = [this] { return document_.Image().CorrBase(); }, .show = show, .closed = closed});
  calculator_->CentreOnParent();
  calculator_->Show();
  GetMenuBar()->Check(Id::Calc166_Menu, true);
}

void Main::Help_Click() {
  const std::filesystem::path page = DataFolder() / PathOf(messages_.Msg(Text::ManualFile));
  if (!FileExist(page)) return talk_.Complain(Wx(messages_.MsgS(Text::FileNotFound, PathText(page))));
  if (!launcher_->OpenWithSystem(page))
    talk_.Complain(Wx(messages_.Msg(Text::NoProgramForFile)) + "\n\n" + WxPath(page));
}

void Main::About_Click() {
  talk_.Tell(wxString(productTitle) + "\n\n" + Wx(messages_.Msg(Text::AboutProgram)));
}

// --- leaving ---

void Main::ExitM_Click() {
  if (dumps_->WasChanged()) return;
  StoreSettings();
  Destroy();
}

void Main::StoreSettings() {
  tools_.Forget();
  dumps_->StoreHistory(settings_);
  patch_->Recent().Write(settings_);
  place_->Store(settings_);
}

void Main::Form_Unload(wxCloseEvent& event) {
  if (event.CanVeto() && dumps_->WasChanged()) {
    event.Veto();
    return;
  }
  status_->SetPanel(StatusBar::patchPanel, wxString());  // so that the question is not asked twice
  ExitM_Click();
}

void Main::QueryEndSession(wxCloseEvent& event) {
  if (event.CanVeto() && dumps_->WasChanged()) event.Veto();
}

void Main::EndSession(wxCloseEvent&) { StoreSettings(); }

}  // namespace tarvelo
