// The window itself: building it, its panels, its language. The commands are in main_commands.cpp.
#include "shell/frame/main.h"

#include <wx/app.h>
#include <wx/dnd.h>
#include <wx/sizer.h>

#include "shell/patch/apply_patch.h"
#include "shell/calculator/calc166.h"
#include "shell/compare/compare_panel.h"
#include "shell/map/dump_panel.h"
#include "shell/eeprom/eeprom_panel.h"
#include "shell/hex/hex_panel.h"
#include "shell/search/hits_panel.h"
#include "shell/info/info_panel.h"
#include "shell/base/interface_language.h"
#include "shell/services/panel_commands.h"
#include "shell/patch/patch_panel.h"
#include "shell/info/picture.h"
#include "shell/pictures/pictures_panel.h"
#include "shell/platform/accessible_name.h"
#include "shell/base/product.h"
#include "shell/ringtones/ringtones_panel.h"
#include "shell/base/strings.h"
#include "shell/base/window_place.h"

namespace tarvelo {
namespace {

// A file that is dropped is opened when the drop is over: the program it came from waits until then. A
// patch is applied to the open dump.
class DumpDrop final : public wxFileDropTarget {
 public:
  explicit DumpDrop(Main& main) : main_(main) {}

  bool OnDropFiles(wxCoord, wxCoord, const wxArrayString& files) override {
    if (files.empty()) return false;
    main_.CallAfter([&main = main_, path = PathFrom(files[0])] {
      if (main.Open().IsOpen() && IsPatchFile(path))
        ApplyPatchFile(main, path);
      else
        main.OpenChosen(path);
    });
    return true;
  }

 private:
  Main& main_;
};

}  // namespace

Main::Main(Surroundings surroundings)
    : wxFrame(nullptr, wxID_ANY, productName),
      settings_(std::move(surroundings.settings)),
      beeper_(std::move(surroundings.beeper)),
      launcher_(std::move(surroundings.launcher)),
      dialogs_(std::move(surroundings.dialogs)),
      tools_(settings_, *launcher_),
      documents_(std::move(surroundings.documents)) {
  if (!dialogs_) dialogs_ = std::make_unique<WxDialogs>(this, messages_);
  SetIcons(ProgramIcons());
  SetMinSize(FromDIP(wxSize(520, 340)));
  status_ = new StatusBar(this);
  SetStatusBar(status_);
  menus_ = std::make_unique<Menus>(*this);
  SetSizer(new wxBoxSizer(wxVERTICAL));

  AddCommands();
  AddPanels();
  AcceptDrops(*this);

  recent_.Read(settings_);
  menus_->ShowRecent(recent_);
  ApplyLang(StoredLanguage(settings_));
  CloseFF();
  RestorePlace(*this, settings_);
  Bind(wxEVT_DPI_CHANGED, [this](wxDPIChangedEvent& event) {
    status_->FitPanels();
    event.Skip();
  });
  Bind(wxEVT_MENU, [this](wxCommandEvent& event) { Run(event.GetId()); });
  Bind(wxEVT_CLOSE_WINDOW, &Main::Form_Unload, this);
  wxTheApp->Bind(wxEVT_QUERY_END_SESSION, &Main::QueryEndSession, this);
  wxTheApp->Bind(wxEVT_END_SESSION, &Main::EndSession, this);
}

Main::~Main() {
  wxTheApp->Unbind(wxEVT_QUERY_END_SESSION, &Main::QueryEndSession, this);
  wxTheApp->Unbind(wxEVT_END_SESSION, &Main::EndSession, this);
  DestroyChildren();  // the windows go before the panels that they call
}

void Main::AddPanels() {
  const auto add = [this]<typename P>(P*& place) {
    auto panel = std::make_unique<P>(*this);
    place = panel.get();
    AddPanel(std::move(panel));
  };
  add(info_);
  AddPanel(std::make_unique<EepromPanel>(*this));
  AddPanel(std::make_unique<PicturesPanel>(*this));
  AddPanel(std::make_unique<RingtonesPanel>(*this));
  AddPanel(std::make_unique<DumpPanel>(*this));
  add(hex_);
  add(hits_);
  add(compare_);
  add(patch_);
}

wxString Main::Msg(int n) const { return Wx(messages_.Msg(n)); }

void Main::AcceptDrops(wxWindow& window) { window.SetDropTarget(new DumpDrop(*this)); }

void Main::AddPanel(std::unique_ptr<Panel> panel) {
  Panel& added = *panel;
  GetSizer()->Add(&added.Window(), 1, wxEXPAND);
  added.Window().Hide();
  commands_[added.Traits().menuEntry] = [this, &added] { ShowPanel(added); };
  panels_.push_back(std::move(panel));
}

void Main::ShowPanel(Panel& panel) {
  if (visible_ == &panel) return;
  panel.Build();
  UnVis();
  panel.Window().Show();
  panel.FirstFocus().SetFocus();
  visible_ = &panel;
  SetTitle(wxString(productName) + " - " + Msg(panel.Traits().name));
  menus_->ShowPanelMenu(panel.Commands(), panel.Traits().name, messages_);
  menus_->CheckPanel(panel.Traits().menuEntry);
  menus_->CaptionSaveText(messages_, panel.Traits().saveTextCaption);
  GetSizer()->Layout();
}

void Main::UnVis() {
  for (const auto& panel : panels_) panel->Window().Hide();
  visible_ = nullptr;
  menus_->ShowPanelMenu(nullptr, 0, messages_);
  menus_->CaptionSaveText(messages_, 5);
}

void Main::ApplyLang(const Language& language) {
  messages_ = Messages(language);
  SetCharacterSet(*this, language);
  if (settings_.GetIni("General", "Language") != language.code)
    settings_.SetIni("General", "Language", language.code);
  menus_->Recaption(messages_, visible_ ? visible_->Traits().saveTextCaption : 5);
  status_->Recaption(messages_);
  for (const auto& panel : panels_) {
    panel->Recaption(messages_);
    platform::SetAccessibleName(panel->Window(), Msg(panel->Traits().name));
  }
  if (calculator_) calculator_->Recaption(messages_);
  if (visible_) SetTitle(wxString(productName) + " - " + Msg(visible_->Traits().name));
}

void Main::DoGiveHelp(const wxString& help, bool show) { status_->ShowHelp(show ? help : wxString()); }

void Main::UpdateMenus() {
  menus_->Enable(document_.IsOpen(), [this](int id) {
    if (id == Quillo) return tools_.HasQuillo();
    if (id == Calculator) return tools_.HasCalculator();
    return commands_.contains(id);
  });
}

}  // namespace tarvelo
