// The window itself: building it, its panels, its language. The commands are in main_commands.cpp,
// the requests of panels in main_requests.cpp.
#include "shell/frame/main.h"

#include <wx/app.h>
#include <wx/dnd.h>
#include <wx/sizer.h>
#include <wx/textctrl.h>

#include <algorithm>
#include <utility>

#include "document/explorers.h"
#include "resources/texts.h"
#include "shell/base/product.h"
#include "shell/base/program_picture.h"
#include "shell/base/strings.h"
#include "shell/calculator/calc166.h"
#include "shell/code/code_panel.h"
#include "shell/code/references_panel.h"
#include "shell/compare/compare_panel.h"
#include "shell/frame/explorer_panels.h"
#include "shell/frame/panel_bar.h"
#include "shell/frame/what_lies_window.h"
#include "shell/frame/wx_dialogs.h"
#include "shell/hex/hex_panel.h"
#include "shell/info/info_panel.h"
#include "shell/list/explorer_panel.h"
#include "shell/map/dump_panel.h"
#include "shell/names/names_panel.h"
#include "shell/patch/patch_panel.h"
#include "shell/platform/temporary_folder.h"
#include "shell/search/hits_panel.h"
#include "shell/services/ids.h"
#include "shell/settings/interface_language.h"
#include "shell/view/place_line.h"

namespace tarvelo {
namespace {

// Opens a dropped dump or patch when the drop is over: until then the source program waits.
class DumpDrop final : public wxFileDropTarget {
 public:
  explicit DumpDrop(Main& main) : main_(main) {}

  bool OnDropFiles(wxCoord, wxCoord, const wxArrayString& files) override {
    // Files that were dragged from this window stay where they are.
    if (files.empty() || platform::IsInTemporaryFolder(PathFrom(files[0]))) return false;
    main_.CallAfter([&main = main_, path = PathFrom(files[0])] { main.Dumps().OpenChosen(path); });
    return true;
  }

 private:
  Main& main_;
};

// The mouse's own buttons for going back and forth, in whichever window of the main window they are pressed.
class MouseButtons final : public wxEventFilter {
 public:
  explicit MouseButtons(Main& main) : main_(main) { wxEvtHandler::AddFilter(this); }
  ~MouseButtons() override { wxEvtHandler::RemoveFilter(this); }

  int FilterEvent(wxEvent& event) override {
    const wxEventType type = event.GetEventType();
    if (type != wxEVT_AUX1_DOWN && type != wxEVT_AUX2_DOWN) return Event_Skip;
    const auto* window = dynamic_cast<wxWindow*>(event.GetEventObject());
    if (!window || wxGetTopLevelParent(const_cast<wxWindow*>(window)) != &main_) return Event_Skip;
    main_.ProcessCommand(type == wxEVT_AUX1_DOWN ? Id::GoBack : Id::GoForward);
    return Event_Processed;
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
      dialogs_(surroundings.dialogs ? std::move(surroundings.dialogs)
                                    : std::make_unique<WxDialogs>(this, messages_)),
      tools_(settings_, *launcher_),
      documents_(std::move(surroundings.documents)),
      talk_(*dialogs_, messages_),
      status_(new StatusBar(this)),
      bench_{document_, messages_, settings_, talk_, *status_, *beeper_, *launcher_, *this},
      menus_(*this) {
  SetIcons(ProgramIcons());
  SetMinSize(FromDIP(wxSize(520, 340)));
  SetStatusBar(status_);
  document_.SetUsersFolder(settings_.Folder());

  AddSheet();
  AddPanels();
  dumps_ = std::make_unique<DumpCommands>(bench_, *panels_, menus_, *info_, [this] {
    history_.Clear();
    HideGoToLine();
    if (whatLies_) whatLies_->Hide();
    UpdateMenus();
    if (calculator_) calculator_->BaseChanged();
  });
  AddCommands();
  AcceptDrops(*this);
  // A write that changes no byte is not a change.
  watch_ = document_.OnChange([this] {
    if (document_.Edits().CanUndo()) status_->SetPanel(StatusBar::imagePanel, "F");
  });

  menus_.ShowRecent(dumps_->Recent());
  bar_->Show(settings_.GetIni("Window", "PanelBar") != "0");
  GetMenuBar()->Check(Id::PanelBar, bar_->IsShown());
  ApplyLang(StoredLanguage(settings_));
  dumps_->CloseFF();
  place_.emplace(*this, settings_);
  Bind(wxEVT_DPI_CHANGED, [this](wxDPIChangedEvent& event) {
    status_->FitPanels();
    event.Skip();
  });
  Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
    event.Skip();
    UpdateBar();
  });
  Bind(wxEVT_CHAR_HOOK, &Main::PressKey, this);
  Bind(wxEVT_MENU, [this](wxCommandEvent& event) { Run(event.GetId()); });
  Bind(wxEVT_CLOSE_WINDOW, &Main::Form_Unload, this);
  wxTheApp->Bind(wxEVT_QUERY_END_SESSION, &Main::QueryEndSession, this);
  wxTheApp->Bind(wxEVT_END_SESSION, &Main::EndSession, this);
}

Main::~Main() {
  wxTheApp->Unbind(wxEVT_QUERY_END_SESSION, &Main::QueryEndSession, this);
  wxTheApp->Unbind(wxEVT_END_SESSION, &Main::EndSession, this);
  mouseButtons_.reset();
  SetEvtHandlerEnabled(false);  // the members that handle its events go first
  DestroyChildren();            // destroys the windows before the panels that they call
}

// The bar at the left, and beside it the line for going to a place above the panels.
void Main::AddSheet() {
  sheet_ = new wxPanel(this);
  std::vector<int> panels;
  for (const MenuEntry& entry : PanelEntries())
    if (entry.kind == wxITEM_CHECK && entry.help != Text::HelpNotBuilt && entry.id != Id::PanelBar)
      panels.push_back(entry.id);
  bar_ = new PanelBar(sheet_, panels);
  bar_->onRun = [this](int id) { ProcessCommand(id); };
  bar_->onLeave = [this] {
    if (panels_->Visible()) panels_->Visible()->FirstFocus().SetFocus();
  };
  goToLine_ = new PlaceLine(sheet_, bench_, ColonForm::Page);
  goToLine_->Hide();
  goToLine_->from = [this] { return hex_->Here(); };
  goToLine_->Field().Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_ESCAPE)
      HideGoToLine();
    else
      event.Skip();
  });
  part_ = new wxBoxSizer(wxVERTICAL);
  part_->Add(goToLine_, 0, wxEXPAND | wxALL, FromDIP(6));
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(bar_, 0, wxEXPAND);
  row->Add(part_, 1, wxEXPAND);
  sheet_->SetSizer(row);
  sheet_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    bar_->FitWindow(event.GetSize());
    event.Skip();
  });
  mouseButtons_ = std::make_unique<MouseButtons>(*this);
}

void Main::AddPanels() {
  panels_ = std::make_unique<PanelStack>(*this, *part_, menus_, messages_);
  info_ = &panels_->Add(std::make_unique<InfoPanel>(bench_));
  for (const Explorer* explorer : Explorers()) panels_->Add(MakePanel(*explorer, bench_));
  panels_->Add(std::make_unique<DumpPanel>(bench_));
  hex_ = &panels_->Add(std::make_unique<HexPanel>(bench_));
  code_ = &panels_->Add(std::make_unique<CodePanel>(bench_));
  references_ = &panels_->Add(std::make_unique<ReferencesPanel>(bench_));
  panels_->Add(std::make_unique<NamesPanel>(bench_));
  hits_ = &panels_->Add(std::make_unique<HitsPanel>(bench_));
  compare_ = &panels_->Add(std::make_unique<ComparePanel>(bench_));
  patch_ = &panels_->Add(std::make_unique<PatchPanel>(bench_));
}

bool Main::CanShow(int panel) const {
  const auto entry = std::ranges::find(PanelEntries(), panel, &MenuEntry::id);
  return entry != PanelEntries().end() && (document_.IsOpen() || !entry->needsDocument);
}

void Main::UpdateBar() {
  const Panel* visible = panels_->Visible();
  const PanelBar::State state{.visible = visible ? visible->Traits().menuEntry : Id::None,
                              .canGoBack = document_.IsOpen() && history_.CanGoBack(Here()),
                              .canGoForward = document_.IsOpen() && history_.CanGoForward(),
                              .isEnabled = [this](int id) { return id == Id::Info || CanShow(id); },
                              .figure = [this](int id) { return panels_->Of(id)->Figure(); }};
  bar_->Update(state);
  menus_.EnablePlaces(state.canGoBack, state.canGoForward);
}

void Main::AcceptDrops(wxWindow& window) { window.SetDropTarget(new DumpDrop(*this)); }

void Main::ApplyLang(const Language& language) {
  messages_ = Messages(language);
  SetCharacterSet(*this, language);
  if (settings_.GetIni("General", "Language") != language.code)
    settings_.SetIni("General", "Language", language.code);
  panels_->Recaption();
  bar_->Recaption(messages_);
  goToLine_->Recaption(messages_);
  sheet_->Layout();
  if (whatLies_) whatLies_->Renew();
  status_->Recaption(messages_);
  if (calculator_) calculator_->Recaption(messages_);
}

void Main::DoGiveHelp(const wxString& help, bool show) { status_->ShowHelp(show ? help : wxString()); }

void Main::UpdateMenus() {
  menus_.Enable(document_.IsOpen(), [this](int id) {
    if (id == Id::Quillo) return tools_.HasQuillo();
    if (id == Id::Calculator) return tools_.HasCalculator();
    return commands_.contains(id) || panels_->Of(id);
  });
}

}  // namespace tarvelo
