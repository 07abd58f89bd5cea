#include "shell/info/welcome.h"

#include <wx/button.h>
#include <wx/dcclient.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "core/file.h"
#include "demo/demo_image.h"
#include "resources/messages.h"
#include "shell/frame/main.h"
#include "shell/base/product.h"
#include "shell/base/strings.h"

namespace tarvelo {
namespace {

constexpr int mostDemonstrations = 99;  // files of its name that are something else by now

// Whether a file holds just these bytes.
bool Holds(const std::filesystem::path& path, Bytes bytes) try {
  NoProgress progress;
  const FileBytes file = ReadFile(path, bytes.size(), progress);
  return file.size == bytes.size() && std::memcmp(file.data.get(), bytes.data(), bytes.size()) == 0;
} catch (const FileError&) {
  return false;
}

std::filesystem::path WriteInto(const std::filesystem::path& folder, Bytes image) {
  std::error_code error;
  for (int i = 1; i <= mostDemonstrations; ++i) {
    const std::string number = i == 1 ? std::string() : " " + std::to_string(i);
    std::filesystem::path path = folder / ("Tarvelo demo" + number + ".bin");
    if (Holds(path, image)) return path;
    if (std::filesystem::exists(path, error)) continue;
    NoProgress progress;
    WriteFile(path, image, progress);
    return path;
  }
  throw FileError(FileError::Kind::CantWrite, folder, "too many demonstrations", FileError::Purpose::Write);
}

// The system's, where it can be told from the ground.
wxColour LinkColour() {
  const wxColour link = wxSystemSettings::GetColour(wxSYS_COLOUR_HOTLIGHT);
  const wxColour ground = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW);
  const bool isLegible = std::abs(link.GetLuminance() - ground.GetLuminance()) > 0.25;
  return isLegible ? link : wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
}

}  // namespace

Welcome::Welcome(wxWindow* parent, Main& main)
    : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL | wxTAB_TRAVERSAL),
      main_(main) {
  SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
  SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
  auto* title = new wxStaticText(this, wxID_ANY, productName);
  title->SetFont(GetFont().Bold().Scaled(2));
  hint_ = new wxStaticText(this, wxID_ANY, wxString());
  // The order of making them is that of the Tab key.
  open_ = AddButton(OpenFF);
  recentTitle_ = new wxStaticText(this, wxID_ANY, wxString());
  for (std::size_t i = 0; i < recent_.size(); ++i) {
    recent_[i] = AddButton(File1 + static_cast<int>(i), wxBORDER_NONE);
    recent_[i]->SetForegroundColour(LinkColour());
  }
  demonstration_ = AddButton(MenuNone);
  demonstration_->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
    main_.RunGuarded(demonstration_->GetLabelText(), [this] { OpenDemonstration(main_); });
  });
  help_ = AddButton(Help);
  Arrange(*title);
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    event.Skip();
    ShowHint();
  });
}

// In as many lines as the width needs.
void Welcome::ShowHint() {
  const int width = GetClientSize().x - FromDIP(16);
  if (hint_->GetLabelText() != hintText_) hint_->SetLabelText(hintText_);
  if (width > 0) hint_->Wrap(width);
}

wxButton* Welcome::AddButton(int command, long style) {
  auto* button = new wxButton(this, wxID_ANY, "-", wxDefaultPosition, wxDefaultSize, style);
  if (command != MenuNone)
    button->Bind(wxEVT_BUTTON, [this, command](wxCommandEvent&) { main_.Run(command); });
  return button;
}

void Welcome::Arrange(wxWindow& title) {
  const int gap = FromDIP(8);
  auto* column = new wxBoxSizer(wxVERTICAL);
  const auto add = [&](wxWindow* part, int above) {
    column->Add(part, 0, wxALIGN_CENTRE_HORIZONTAL | wxTOP, above);
  };
  column->AddStretchSpacer(1);
  add(&title, gap);
  add(hint_, gap);
  add(open_, 2 * gap);
  add(recentTitle_, 2 * gap);
  for (wxButton* file : recent_) add(file, 0);
  add(demonstration_, 2 * gap);
  add(help_, gap);
  column->AddSpacer(gap);
  column->AddStretchSpacer(1);
  SetSizer(column);
  SetScrollRate(0, FromDIP(16));
}

void Welcome::Recaption(const Messages& messages) {
  const auto text = [&messages](int n) { return Wx(messages.Msg(n)); };
  hintText_ = text(Text::OpenOrDropFullflash);
  ShowHint();
  recentTitle_->SetLabelText(text(Text::RecentlyOpened));
  open_->SetLabelText(text(Text::Open));
  demonstration_->SetLabelText(text(Text::TryDemonstration));
  help_->SetLabelText(text(Text::Help));
  FitInside();
}

void Welcome::ShowRecent(const RecentFiles& files) {
  const wxClientDC dc(this);
  const int widest = 40 * GetCharWidth();
  for (std::size_t i = 0; i < recent_.size(); ++i) {
    const wxString path = Wx(files[i]);
    recent_[i]->SetLabelText(
        wxControl::Ellipsize(path, dc, wxELLIPSIZE_START, widest, wxELLIPSIZE_FLAGS_NONE));
    recent_[i]->SetToolTip(path);
    recent_[i]->Show(!path.empty());
  }
  recentTitle_->Show(!files[0].empty());
  FitInside();
  Layout();
}

std::filesystem::path WriteDemonstration(const std::filesystem::path& folder) {
  const std::vector<std::uint8_t> image = DemoImage();
  try {
    return WriteInto(folder, image);
  } catch (const FileError&) {
    std::error_code error;
    const std::filesystem::path temporary = std::filesystem::temp_directory_path(error);
    if (error) throw;
    return WriteInto(temporary, image);
  }
}

void OpenDemonstration(Main& main) {
  const std::filesystem::path path = WriteDemonstration(main.Documents());
  main.OpenChosen(path);
  if (main.Open().IsOpen()) main.Tell(Text::DemonstrationSaved, path);
}

}  // namespace tarvelo
