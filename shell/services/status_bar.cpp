#include "shell/services/status_bar.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/gauge.h>

#include <algorithm>

#include "document/explorers.h"
#include "resources/messages.h"
#include "resources/texts.h"
#include "shell/base/strings.h"

namespace tarvelo {
namespace {

constexpr int steps = 1000;  // of the progress bar
constexpr std::chrono::milliseconds betweenMoves{40};
constexpr int firstFigure = 3;
constexpr int lastFigure = 8;

// A panel has one line, whatever a dump's texts contain.
wxString OneLine(const wxString& text) {
  constexpr std::size_t longest = 500;
  wxString line = text.Left(longest);
  for (wxUniCharRef c : line)
    if (c < 0x20) c = ' ';
  return line;
}

}  // namespace

StatusBar::StatusBar(wxWindow* parent)
    : wxStatusBar(parent, wxID_ANY, wxSTB_SIZEGRIP | wxSTB_ELLIPSIZE_MIDDLE | wxFULL_REPAINT_ON_RESIZE),
      progressBar_(new wxGauge(this, wxID_ANY, steps, wxDefaultPosition, wxDefaultSize,
                               wxGA_HORIZONTAL | wxGA_SMOOTH)) {
  SetFieldsCount(panels);
  progressBar_->Hide();
  ShowTexts();
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    PlaceProgressBar();
    event.Skip();
  });
  Bind(wxEVT_MOTION, &StatusBar::ShowTooltip, this);
}

wxString StatusBar::Panel(int number) const { return texts_[static_cast<std::size_t>(number - 1)]; }

void StatusBar::SetPanel(int number, const wxString& text) {
  if (text == Panel(number)) return;
  texts_[static_cast<std::size_t>(number - 1)] = OneLine(text);
  hovered_ = 0;  // the tooltip has changed
  ShowTexts();
}

void StatusBar::ShowHelp(const wxString& help) {
  if (help == help_) return;
  help_ = help;
  ShowTexts();
}

// The second panel shows help, as it does hints; all other panels make room for it. Texts change only while
// their panels have room: GTK complains about a refresh of less than nothing.
void StatusBar::ShowTexts() {
  const bool isHelp = !help_.empty();
  if (!isHelp) FitPanels();
  std::array<int, panels> styles;
  styles.fill(isHelp ? wxSB_FLAT : wxSB_SUNKEN);
  SetStatusStyles(panels, styles.data());
  for (int number = 1; number <= panels; ++number)
    SetStatusText(isHelp ? wxString() : Panel(number), number - 1);
  if (!isHelp) return;
  SetStatusText(help_, 1);
  FitPanels();
}

void StatusBar::ClearFrom(int first) {
  for (int number = first; number <= panels; ++number) SetPanel(number, wxString());
}

void StatusBar::Recaption(const Messages& messages) {
  hovered_ = 0;
  labels_[0] = Wx(messages.Msg(Text::TipFullflashPath));
  labels_[1] = Wx(messages.Msg(Text::TipPhoneAndFirmware));
  for (const Explorer* explorer : Explorers())
    if (explorer->statusTip)
      labels_[static_cast<std::size_t>(explorer->statusPanel - 1)] = Wx(messages.Msg(*explorer->statusTip));
  labels_[lastFigure - 1] = Wx(messages.Msg(Text::HelpDump));
  labels_[patchPanel - 1] = Wx(messages.Msg(Text::TipPatchChanged));
  labels_[imagePanel - 1] = Wx(messages.Msg(Text::TipFullflashChanged));
}

// The bar may cut off the first two: their tooltips show the whole text.
wxString StatusBar::Tooltip(int number) const {
  const wxString& label = labels_[static_cast<std::size_t>(number - 1)];
  const wxString text = Panel(number);
  if (number > 2 || text.empty()) return label;
  return label + "\n" + text;
}

void StatusBar::Start(std::int64_t first, std::int64_t last) {
  first_ = first;
  span_ = std::max<std::int64_t>(1, last - first);
  nextMove_ = Clock::now() + betweenMoves;
  nextAsk_ = {};
  isStopAsked_ = false;
  progressBar_->SetValue(0);
  PlaceProgressBar();
  progressBar_->Show();
}

// Painting takes longer than most scans, so the bar moves only as often as the eye can see.
void StatusBar::At(std::int64_t position) {
  const Clock::time_point now = Clock::now();
  if (now < nextMove_) return;
  nextMove_ = now + betweenMoves;
  const auto value = std::clamp<std::int64_t>((position - first_) * steps / span_, 0, steps);
  progressBar_->SetValue(static_cast<int>(value));
  progressBar_->Update();
  if (wxEventLoopBase* loop = wxEventLoopBase::GetActive()) loop->YieldFor(wxEVT_CATEGORY_UI);
}

void StatusBar::Finish() { progressBar_->Hide(); }

// Asking the system for a key takes long, too.
bool StatusBar::StopAsked() {
  const Clock::time_point now = Clock::now();
  if (now >= nextAsk_) isStopAsked_ = wxTheApp->IsActive() && wxGetKeyState(WXK_ESCAPE);
  if (now >= nextAsk_) nextAsk_ = now + betweenMoves;
  return isStopAsked_;
}

void StatusBar::FitPanels() {
  int widths[panels] = {};
  widths[0] = help_.empty() ? -3 : 0;
  widths[1] = -2;
  for (int number = firstFigure; number <= panels && help_.empty(); ++number) {
    const int text = GetTextExtent(Panel(number)).x;
    widths[number - 1] = std::max(FromDIP(18), text + FromDIP(14));
  }
  widths[panels - 1] += FromDIP(16);  // the size grip covers part of the last one
  SetStatusWidths(panels, widths);
}

void StatusBar::PlaceProgressBar() {
  wxRect first, last;
  if (!GetFieldRect(firstFigure - 1, first) || !GetFieldRect(lastFigure - 1, last)) return;
  progressBar_->SetSize(first.Union(last).Deflate(FromDIP(1)));
}

void StatusBar::ShowTooltip(wxMouseEvent& event) {
  int number = 0;
  wxRect field;
  for (int i = 0; i < panels; ++i)
    if (GetFieldRect(i, field) && field.Contains(event.GetPosition())) number = i + 1;
  if (number != hovered_) {
    hovered_ = number;
    if (number == 0 || Tooltip(number).empty())
      UnsetToolTip();
    else
      SetToolTip(Tooltip(number));
  }
  event.Skip();
}

}  // namespace tarvelo
