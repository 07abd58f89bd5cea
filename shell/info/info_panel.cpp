#include "shell/info/info_panel.h"

#include <wx/button.h>
#include <wx/panel.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/statbox.h>
#include <wx/textctrl.h>
#include <wx/wrapsizer.h>

#include <algorithm>

#include "core/summary.h"
#include "document/explorers.h"
#include "patch/patch_document.h"
#include "resources/messages.h"
#include "resources/texts.h"
#include "shell/base/product.h"
#include "shell/base/program_picture.h"
#include "shell/base/strings.h"
#include "shell/info/welcome.h"
#include "shell/list/explorer_panel.h"
#include "shell/platform/accessible_name.h"
#include "shell/services/dump_files.h"
#include "shell/services/edit_commands.h"
#include "shell/services/ids.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"

namespace tarvelo {
namespace {

constexpr std::size_t bytesAtOnce = 1 << 18;  // appended at a time; the progress bar moves in between

struct Explanation {
  Text label;  // of a line
  Text meaning;
};

constexpr Explanation explanations[] = {
    {Text::LoadingBaseLabel, Text::TipLoadingBase},
    {Text::CorrectedBaseLabel, Text::TipCorrectedBase},
    {Text::MobileLabel, Text::TipMobileAndFirmware},
    {Text::FirmwareLabel, Text::TipMobileAndFirmware},
    {Text::AssemblingDateLabel, Text::TipAssemblingDate},
    {Text::EmptyBlocksLabel, Text::TipEmptyBlocks},
    {Text::T9BaseLabel, Text::TipT9},
    {Text::T9ExactSizeLabel, Text::TipT9},
    {Text::T9FullSizeLabel, Text::TipT9},
    {Text::T9EmptyAreaLabel, Text::TipT9},
};

}  // namespace

InfoPanel::InfoPanel(Workbench& bench)
    : Panel({.menuEntry = Id::Info, .name = Text::Info, .saveTextCaption = Text::SaveInfoFile}),
      bench_(bench),
      commands_(EditCommands(bench)),
      window_(new wxPanel(&bench.frame.Parent())) {
  sheet_ = new wxPanel(window_, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_THEME);
  text_ = new wxTextCtrl(sheet_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                         wxTE_MULTILINE | wxTE_READONLY | wxTE_RICH2 | wxBORDER_NONE);
  ChooseColours();
  box_ = new wxStaticBox(window_, wxID_ANY, productTitle);
  picture_ = new wxStaticBitmap(box_, wxID_ANY, AboutPicture());
  welcome_ = new Welcome(sheet_, bench);
  bench.frame.AcceptDrops(*text_);
  text_->Bind(wxEVT_MOTION, [this](wxMouseEvent& event) {
    event.Skip();
    Explain(event.GetPosition());
  });
  window_->Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    ChooseColours();
    event.Skip();
  });
  watch_ = bench.document.OnModel([this] { UpdateSummary(); });
  Layout();
}

void InfoPanel::ChooseColours() {
  for (wxWindow* part : {sheet_, static_cast<wxWindow*>(text_)})
    part->SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
}

void InfoPanel::Layout() {
  const int gap = window_->FromDIP(8);
  auto* box = new wxStaticBoxSizer(box_, wxVERTICAL);
  box->AddStretchSpacer(1);
  box->Add(picture_, 0, wxALIGN_CENTRE_HORIZONTAL | wxLEFT | wxRIGHT, window_->FromDIP(24));
  box->AddStretchSpacer(2);
  auto* margin = new wxBoxSizer(wxVERTICAL);  // the control's own margins work only on Windows
  margin->Add(text_, 1, wxEXPAND | wxALL, gap);
  found_ = new wxWrapSizer(wxHORIZONTAL, wxREMOVE_LEADING_SPACES);
  AddButtons(*found_);
  margin->Add(found_, 0, wxEXPAND | wxALL, gap / 2);
  margin->Add(welcome_, 1, wxEXPAND);
  sheet_->SetSizer(margin);
  auto* row = new wxBoxSizer(wxHORIZONTAL);
  row->Add(sheet_, 1, wxEXPAND | wxALL, gap);
  row->Add(box, 0, wxEXPAND | wxTOP | wxRIGHT | wxBOTTOM, gap);
  window_->SetSizer(row);
}

void InfoPanel::AddButtons(wxSizer& line) {
  for (const Explorer* explorer : Explorers()) {
    auto* button = new wxButton(sheet_, wxID_ANY, "-", wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT);
    button->Bind(wxEVT_BUTTON, [this, id = PanelId(*explorer)](wxCommandEvent&) { bench_.frame.Run(id); });
    line.Add(button, 0, wxALL, window_->FromDIP(2));
    buttons_.push_back(button);
  }
}

void InfoPanel::ShowFigures() {
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    const Explorer& explorer = *Explorers()[i];
    wxString label = Wx(bench_.texts.Msg(explorer.name));
    if (const auto count = bench_.document.KnownCount(explorer)) label << wxString::Format(": %zu", *count);
    if (buttons_[i]->GetLabelText() == label) continue;
    buttons_[i]->SetLabelText(label);
    buttons_[i]->SetToolTip(Wx(bench_.texts.Msg(Text::LooksFor)));
  }
  sheet_->Layout();
}

void InfoPanel::Explain(const wxPoint& mouse) {
  long column = 0, line = 0;
  if (text_->HitTest(mouse, &column, &line) == wxTE_HT_UNKNOWN) line = -1;
  if (line == explained_) return;
  explained_ = line;
  const std::string text = line < 0 ? std::string() : Utf8(text_->GetLineText(line));
  const auto found = std::ranges::find_if(explanations, [&](const Explanation& each) {
    return !text.empty() && text.starts_with(bench_.texts.Msg(each.label));
  });
  if (found == std::end(explanations))
    text_->UnsetToolTip();
  else
    text_->SetToolTip(Wx(bench_.texts.Msg(found->meaning)));
}

wxWindow& InfoPanel::Window() { return *window_; }

wxWindow& InfoPanel::FirstFocus() {
  if (welcome_->IsShown()) return welcome_->FirstButton();
  return *text_;
}

void InfoPanel::Save() {
  const std::filesystem::path file = bench_.document.Beside(".info");
  wxString text = GetText();
  text.Replace("\n", CrLf);
  ReplaceFile(file, Utf8(text));
  bench_.talk.Tell(Text::InformationSaved, file);
}

void InfoPanel::Clear() {
  summary_.clear();
  SetText(wxString());
}

void InfoPanel::Recaption(const Messages& messages) {
  welcome_->Recaption(messages);
  UpdateSummary();
  ShowFigures();
  platform::SetAccessibleName(*text_, Wx(messages.Msg(Traits().name)));
  window_->Layout();
}

void InfoPanel::SetSummary(const std::filesystem::path& file) {
  file_ = PathText(file);
  summary_ = SummaryText();
  SetText(summary_);
}

void InfoPanel::UpdateSummary() {
  const wxString text = GetText();
  if (summary_.empty() || !text.StartsWith(summary_)) return;
  const wxString added = text.Mid(summary_.length());
  summary_ = SummaryText();
  text_->ChangeValue(summary_ + added);
}

wxString InfoPanel::SummaryText() const {
  return Wx(Summary(file_, bench_.document.Image(), bench_.document.Info(), bench_.texts));
}

void InfoPanel::SetText(const wxString& text) {
  text_->ChangeValue(text);
  const bool hadFocus = window_->IsDescendant(wxWindow::FindFocus());
  welcome_->Show(text.empty());
  text_->Show(!text.empty());
  found_->ShowItems(!text.empty());
  ShowFigures();
  sheet_->Layout();
  window_->Layout();
  if (hadFocus) FirstFocus().SetFocus();
}

void InfoPanel::ShowRecent(const RecentFiles& files) { welcome_->ShowRecent(files); }

void InfoPanel::AppendText(const wxString& text) {
  text_->AppendText(text);
  ShowFigures();
}

void InfoPanel::AddText(const std::string& name, const std::string& body) {
  if (body.empty()) return bench_.talk.Tell(Wx(bench_.texts.MsgS(Text::InformationAbsent, name)));
  AppendLong(InformationBlock(name, body));
  bench_.talk.Announce(Wx(bench_.texts.MsgS(Text::InformationAdded, name)), Wx(name + "\n\n" + body));
}

void InfoPanel::AppendLong(std::string_view text) {
  ProgressRun run(bench_.status, 0, static_cast<std::int64_t>(text.size()));
  for (std::size_t done = 0; done < text.size();) {
    // Up to the end of a line, so that no character is split.
    const std::size_t end = std::min(text.find('\n', done + bytesAtOnce), text.size() - 1) + 1;
    AppendText(Wx(text.substr(done, end - done)));
    done = end;
    run.At(static_cast<std::int64_t>(done));
  }
}

wxString InfoPanel::GetText() const { return text_->GetValue(); }

}  // namespace tarvelo
