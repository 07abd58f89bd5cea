// The window itself: building it, its panels, its language. The commands are in main_commands.cpp.
#include "shell/frame/main.h"

#include <wx/app.h>
#include <wx/dnd.h>
#include <wx/sizer.h>

#include <utility>

#include "code/functions_explorer.h"
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
#include "shell/frame/wx_dialogs.h"
#include "shell/hex/hex_panel.h"
#include "shell/info/info_panel.h"
#include "shell/list/explorer_panel.h"
#include "shell/map/dump_panel.h"
#include "shell/patch/patch_panel.h"
#include "shell/platform/temporary_folder.h"
#include "shell/search/hits_panel.h"
#include "shell/services/ids.h"
#include "shell/settings/interface_language.h"

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
      menus_(*this),
      panels_(std::make_unique<PanelStack>(*this, menus_, messages_)) {
  SetIcons(ProgramIcons());
  SetMinSize(FromDIP(wxSize(520, 340)));
  SetStatusBar(status_);
  SetSizer(new wxBoxSizer(wxVERTICAL));
  document_.SetUsersFolder(settings_.Folder());

  AddPanels();
  dumps_ = std::make_unique<DumpCommands>(bench_, *panels_, menus_, *info_, [this] {
    history_.Clear();
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
  ApplyLang(StoredLanguage(settings_));
  dumps_->CloseFF();
  place_.emplace(*this, settings_);
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
  SetEvtHandlerEnabled(false);  // the members that handle its events go first
  DestroyChildren();            // destroys the windows before the panels that they call
}

void Main::AddPanels() {
  info_ = &panels_->Add(std::make_unique<InfoPanel>(bench_));
  for (const Explorer* explorer : Explorers()) panels_->Add(MakePanel(*explorer, bench_));
  panels_->Add(std::make_unique<DumpPanel>(bench_));
  hex_ = &panels_->Add(std::make_unique<HexPanel>(bench_));
  code_ = &panels_->Add(std::make_unique<CodePanel>(bench_));
  references_ = &panels_->Add(std::make_unique<ReferencesPanel>(bench_));
  hits_ = &panels_->Add(std::make_unique<HitsPanel>(bench_));
  compare_ = &panels_->Add(std::make_unique<ComparePanel>(bench_));
  patch_ = &panels_->Add(std::make_unique<PatchPanel>(bench_));
}

void Main::AcceptDrops(wxWindow& window) { window.SetDropTarget(new DumpDrop(*this)); }

void Main::ApplyLang(const Language& language) {
  messages_ = Messages(language);
  SetCharacterSet(*this, language);
  if (settings_.GetIni("General", "Language") != language.code)
    settings_.SetIni("General", "Language", language.code);
  panels_->Recaption();
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

// --- Frame: requests of panels ---

void Main::ShowBl(Offset start, Offset size) {
  if (!IsInside(start)) return;
  if (!tools_.ShowBl(document_.Path(), start, size)) ShowHex(start, size);
}

bool Main::IsInside(Offset offset) {
  const bool isInside = offset >= 0 && offset <= document_.Image().ffEnd();
  if (!isInside) talk_.Complain(Text::DataOutsideImage);
  return isInside;
}

void Main::ShowHex(Offset start, Offset size) {
  if (!IsInside(start)) return;
  Jump([&] {
    panels_->ShowPanel(*hex_);
    hex_->Go(start, size);
  });
}

void Main::ShowCode(Offset start, Offset size) {
  if (!IsInside(start)) return;
  if (!document_.Image().PageMode()) return talk_.Complain(Text::NoCodeInLargeImage);
  Jump([&] {
    panels_->ShowPanel(*code_);
    code_->Go(start, size);
  });
}

void Main::ShowReferences(Offset target) {
  if (!IsInside(target)) return;
  if (!document_.Image().PageMode()) return talk_.Complain(Text::NoCodeInLargeImage);
  Jump([&] {
    references_->Show(target);
    panels_->ShowPanel(*references_);
  });
}

void Main::ShowFunctions(Offset offset) {
  const auto functions = document_.Functions(*status_);
  const Function* function = functions->At(offset);
  Panel& list = *panels_->Of(PanelId(functionsExplorer));
  Jump([&] {
    panels_->ShowPanel(list);
    if (function) list.Return(function - functions->All().data());
  });
}

VisitedPlace Main::Here() const {
  const Panel* visible = panels_->Visible();
  return visible ? VisitedPlace{visible->Traits().menuEntry, visible->Here()} : VisitedPlace();
}

void Main::Jump(const Command& go) {
  const VisitedPlace from = Here();
  go();
  history_.Jump(from, Here());
}

void Main::Revisit(const std::optional<VisitedPlace>& place) {
  Panel* panel = place ? panels_->Of(place->panel) : nullptr;
  if (!panel) return;
  panels_->ShowPanel(*panel);
  panel->Return(place->at);
}

void Main::ShowInPatch(Offset offset) {
  const auto line = patch_->LineOf(offset);
  if (!line) return talk_.Complain(Text::NotInPatch);
  Jump([&] {
    panels_->ShowPanel(*patch_);
    patch_->Return(*line);
  });
}

void Main::ShowHits(const std::string& pattern) {
  Jump([&] { hits_->Search(pattern); });
}

void Main::FollowInHex(Offset start, Offset size) {
  if (panels_->Visible() == hex_) ShowHex(start, size);
}

OtherDump Main::Other() const { return compare_->Other(); }

void Main::AddInformation(const std::string& lines) { info_->AppendText(Wx(lines)); }

void Main::AddInformation(const std::string& name, const std::string& body) { info_->AddText(name, body); }

void Main::AddPatch(Text command, Offset changedBytes, std::size_t all,
                    const std::function<std::vector<Change>()>& makeChanges) {
  patch_->AskAndAddPatch(command, changedBytes, all, makeChanges);
}

void Main::OpenPatch(const std::filesystem::path& file) { patch_->OpenPatch(file); }

}  // namespace tarvelo
