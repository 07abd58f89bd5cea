#include "shell/compare/compare_panel.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/panel.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "core/identification.h"
#include "core/places.h"
#include "document/difference_table.h"
#include "document/map_table.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/compare/difference_strip.h"
#include "shell/list/list_view.h"
#include "shell/platform/accessible_name.h"
#include "shell/services/dump_files.h"
#include "shell/services/ids.h"
#include "shell/services/search_progress.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"
#include "shell/view/change_view.h"

namespace tarvelo {
namespace {

constexpr std::size_t mostRows = 1000000;  // more would make filtering and sorting too slow

const wxColour differenceColour(0xD0, 0x20, 0x20);

// Shows a text broken into lines of at most this width.
void ShowWrapped(wxStaticText& control, const wxString& text, int width) {
  control.SetLabelText(text);
  if (width > 0) control.Wrap(width);
}

}  // namespace

ComparePanel::ComparePanel(Workbench& bench) : ComparePanel(bench, new wxPanel(&bench.frame.Parent())) {}

ComparePanel::ComparePanel(Workbench& bench, wxPanel* window)
    : ComparePanel(bench, window, new wxPanel(window), new wxPanel(window)) {}

ComparePanel::ComparePanel(Workbench& bench, wxPanel* window, wxPanel* none, wxPanel* compared)
    : ListPanel(bench, {.menuEntry = Id::ComparePanel, .name = Text::Comparison}, 'C', window, compared),
      window_(window),
      none_(none),
      invitation_(new wxStaticText(none_, wxID_ANY, wxString())),
      choose_(new wxButton(none_, wxID_ANY)),
      compared_(compared),
      head_(new wxStaticText(compared_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                             wxST_ELLIPSIZE_MIDDLE | wxST_NO_AUTORESIZE)),
      chooseAnother_(new wxButton(compared_, wxID_ANY)),
      fromStart_(new wxCheckBox(compared_, wxID_ANY, wxString())),
      asFunctions_(new wxCheckBox(compared_, wxID_ANY, wxString())),
      figures_(new wxStaticText(compared_, wxID_ANY, wxString())),
      strip_(new ImageStrip(compared_)),
      sides_(new ListView(compared_)),
      change_(new ChangeView(compared_, bench)),
      functions_(bench) {
  chooseAnother_->MoveBeforeInTabOrder(&List());
  fromStart_->MoveBeforeInTabOrder(&List());
  asFunctions_->MoveBeforeInTabOrder(&List());
  sides_->HideFilter();
  Layout();
  Bind();
  ShowDifferences(false);
  watch_ = bench.document.OnChange([this] { ImageChanged(); });
  names_ = bench.document.OnNames([this] {
    if (ShowsFunctions()) List().Reword(Rows());
  });
}

void ComparePanel::Layout() {
  const int gap = window_->FromDIP(6);
  auto* invitation = new wxBoxSizer(wxVERTICAL);
  invitation->Add(invitation_, 0, wxALL, gap);
  invitation->Add(choose_, 0, wxLEFT | wxRIGHT | wxBOTTOM, gap);
  none_->SetSizer(invitation);

  auto* line = new wxBoxSizer(wxHORIZONTAL);
  line->Add(head_, 1, wxALIGN_CENTRE_VERTICAL | wxRIGHT, gap);
  line->Add(chooseAnother_, 0);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(line, 0, wxEXPAND | wxALL, gap);
  column->Add(fromStart_, 0, wxLEFT | wxRIGHT | wxBOTTOM, gap);
  column->Add(asFunctions_, 0, wxLEFT | wxRIGHT | wxBOTTOM, gap);
  column->Add(figures_, 0, wxLEFT | wxRIGHT | wxBOTTOM, gap);
  column->Add(strip_, 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, gap);
  column->Add(&List(), 3, wxEXPAND);
  column->Add(sides_, 2, wxEXPAND | wxTOP, gap);
  column->Add(change_, 1, wxEXPAND | wxTOP, gap);
  strip_->SetMinSize(window_->FromDIP(wxSize(-1, 24)));
  compared_->SetSizer(column);

  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(none_, 1, wxEXPAND);
  all->Add(compared_, 1, wxEXPAND);
  window_->SetSizer(all);
}

void ComparePanel::Bind() {
  for (wxButton* button : {choose_, chooseAnother_})
    button->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { bench_.frame.Run(Id::CompareWith); });
  fromStart_->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { CompareAgain(); });
  asFunctions_->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { ShowFunctions(asFunctions_->GetValue()); });
  List().onSelect = [this](std::size_t row) { ShowRow(row); };
  List().onActivate = [this](std::size_t) {
    bench_.frame.Run(ShowsFunctions() ? static_cast<int>(Id::OpenCode) : Commands()->DefaultId());
  };
  strip_->onClick = [this](Offset offset) {
    if (!comparison_.differences.empty()) List().Select(NearestDifference(comparison_.differences, offset));
  };
  strip_->describe = [this](Offset offset, Offset size) { return Describe(offset, size); };
  window_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    ShowSides();
    LayOutTexts();
    event.Skip();
  });
  bench_.frame.AcceptDrops(*none_);
}

wxWindow& ComparePanel::FirstFocus() {
  if (HasSecond()) return List().Control();
  return *choose_;
}

// --- comparing ---

void ComparePanel::CompareWith_Click() {
  if (!bench_.document.IsOpen()) return;
  const auto path =
      AskForDump(bench_, Text::CompareWithAnother, path_.empty() ? bench_.document.Path() : path_);
  if (path) CompareWithFile(*path);
}

void ComparePanel::CompareWithFile(const std::filesystem::path& path) {
  if (!bench_.document.IsOpen()) return;
  auto second = ReadDump(bench_, path);
  if (!second) return;
  path_ = path;
  (void)Identify(*second);  // sets its base
  ForgetRows();             // they belong to the previous second dump
  second_ = std::make_shared<const Fullflash>(*std::move(second));
  fromStart_->SetValue(false);
  CompareAgain();
  bench_.frame.ShowPanel(*this);
  FirstFocus().SetFocus();
}

void ComparePanel::SetFromStart(bool fromStart) {
  fromStart_->SetValue(fromStart);
  if (HasSecond()) CompareAgain();
}

void ComparePanel::Build() {
  if (stale_) CompareAgain();
}

// Every key typed into the hex view ends up here: compare at once only if the panel is visible.
void ComparePanel::ImageChanged() {
  stale_ = HasSecond();
  if (stale_ && bench_.frame.IsVisible(*this)) CompareAgain();
}

void ComparePanel::CompareAgain() {
  if (ShowsFunctions()) return CompareFunctionsAgain();
  const Bytes image = bench_.document.Image().ff();
  Comparison comparison =
      Compare(image, second_->ff(), usualGap, fromStart_->GetValue() ? 0 : AddressShift());
  joined_ = JoinDifferences(comparison.differences, mostRows);
  if (!comparison.differences.empty()) MakeMap();
  std::vector<Difference> chosen;
  for (const std::size_t row : List().Selection()) chosen.push_back(comparison_.differences[row]);
  comparison_ = std::move(comparison);
  differingBytes_ = DifferingBytes(image, second_->ff(), comparison_.differences, comparison_.shift);
  stale_ = false;
  ShowDifferences(true);
  List().SelectRows(RowsOf(chosen));
}

// The rows of these former differences, as far as both dumps still differ there; if they differ at none of
// these places, the row nearest to the first one.
std::vector<std::size_t> ComparePanel::RowsOf(const std::vector<Difference>& chosen) const {
  const std::vector<Difference>& all = comparison_.differences;
  if (all.empty()) return {};
  std::vector<std::size_t> rows;
  for (const Difference& former : chosen) {
    const std::size_t row = NearestDifference(all, former.offset);
    if (all[row].offset < former.End() && former.offset < all[row].End()) rows.push_back(row);
  }
  if (rows.empty()) rows.push_back(NearestDifference(all, chosen.empty() ? 0 : chosen.front().offset));
  return rows;
}

OtherDump ComparePanel::Other() const {
  if (!HasSecond()) return {};
  return {second_, comparison_.shift, path_};
}

Offset ComparePanel::AddressShift() const { return tarvelo::AddressShift(bench_.document.Image(), *second_); }

// If a search of the image fails or is stopped, it is still compared, but without labels.
void ComparePanel::MakeMap() {
  try {
    SearchProgress progress(bench_);
    map_ = bench_.document.Map(progress);
  } catch (const Stopped&) {
    map_ = std::make_shared<const DumpMap>();
  } catch (const std::length_error&) {
    map_ = std::make_shared<const DumpMap>();
    if (!std::exchange(mapFailed_, true)) bench_.talk.Complain(Text::TooManyBlocks);
  }
}

void ComparePanel::Clear() {
  asFunctions_->SetValue(false);
  ForgetRows();
  second_ = std::make_shared<const Fullflash>();
  differingBytes_ = 0;
  stale_ = false;
  map_ = std::make_shared<const DumpMap>();
  mapFailed_ = false;
  ShowDifferences(false);
}

// --- display ---

// `keepView` keeps filter and order.
void ComparePanel::ShowDifferences(bool keepView) {
  if (keepView)
    List().ReplaceRows(Rows());
  else
    List().SetRows(Rows());
  ShowStrip();
  compared_->GetSizer()->Show(strip_, !ShowsFunctions());
  ShowSides();
  asFunctions_->Show(HasSecond() && second_->PageMode() && bench_.document.Image().PageMode());
  none_->Show(!HasSecond());
  compared_->Show(HasSecond());
  fromStart_->Show(HasSecond() && AddressShift() != 0 && !ShowsFunctions());
  LayOutTexts();
  window_->Layout();
}

// Bytes that only the open image has are grey.
void ComparePanel::ShowStrip() {
  const auto size = static_cast<Offset>(bench_.document.Image().ff().size());
  std::vector<StripPart> parts = StripOf(comparison_, size, differenceColour);
  const wxColour grey = wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT);
  const Offset end = comparison_.start + comparison_.common;
  if (comparison_.start > 0) parts.insert(parts.begin(), {0, comparison_.start, grey});
  if (HasSecond() && end < size) parts.push_back({end, size - end, grey});
  strip_->Show(size, std::move(parts));
  strip_->Mark(0, 0);
}

wxString ComparePanel::Head() const { return Wx(bench_.texts.Msg(Text::ComparedWithLabel)) + WxPath(path_); }

wxString ComparePanel::Figures() const {
  const auto message = [this](Text n) { return Wx(bench_.texts.Msg(n)); };
  if (ShowsFunctions()) return Wx(functions_.Figures());
  if (comparison_.Same()) return message(Text::FullflashesSame);
  wxString figures = message(Text::DifferenceCountLabel) + std::to_string(comparison_.differences.size()) +
                     "    " + message(Text::DifferingByteCountLabel) + std::to_string(differingBytes_);
  if (joined_) figures += "\n" + message(Text::DifferencesJoined);
  if (!comparison_.SameLength()) figures += "\n" + RestText();
  return figures;
}

wxString ComparePanel::RestText() const {
  const auto message = [this](Text n, Offset number) { return WithNumber(Wx(bench_.texts.Msg(n)), number); };
  return message(Text::FullflashLengthsDiffer, comparison_.common) + " " +
         (comparison_.restOfOld > 0 ? message(Text::OpenFullflashLonger, comparison_.restOfOld)
                                    : message(Text::OtherFullflashLonger, comparison_.restOfNew));
}

void ComparePanel::LayOutTexts() {
  const int width = window_->GetClientSize().x - 2 * window_->FromDIP(6);
  ShowWrapped(*invitation_, Wx(bench_.texts.Msg(Text::ChooseSecondFullflash)), width);
  none_->Layout();
  if (!HasSecond()) return;
  head_->SetLabelText(Head());
  head_->SetToolTip(WxPath(path_));
  ShowWrapped(*figures_, Figures(), width);
  compared_->Layout();
}

void ComparePanel::Recaption(const Messages& messages) {
  ListPanel::Recaption(messages);
  List().Reword(Rows());
  choose_->SetLabel(Wx(messages.Msg(Text::CompareWithAnother)));
  fromStart_->SetLabel(Wx(messages.Msg(Text::CompareFromStart)));
  fromStart_->SetToolTip(Wx(messages.Msg(Text::HelpCompareFromStart)));
  asFunctions_->SetLabel(Wx(messages.Msg(Text::CompareFunctions)));
  asFunctions_->SetToolTip(Wx(messages.Msg(Text::HelpCompareFunctions)));
  sides_->Recaption(messages, Text::Code);
  platform::SetAccessibleName(*strip_, Wx(messages.Msg(Traits().name)));
  platform::SetAccessibleName(*change_, Wx(messages.Msg(Text::ChangeAsCode)));
  if (const auto row = List().Selected()) ShowRow(*row);
  chooseAnother_->SetLabel(Wx(messages.Msg(Text::ChooseAnotherFullflash)));
  LayOutTexts();
}

wxString ComparePanel::Describe(Offset offset, Offset size) const {
  const std::string label = LabelOf(*map_, offset, size, bench_.texts);
  return Wx(OffsetText(bench_.document.Image(), offset) + (label.empty() ? "" : ": " + label));
}

const Difference* ComparePanel::Chosen() const {
  const auto row = ShowsFunctions() ? std::nullopt : List().Selected();
  return row && *row < comparison_.differences.size() ? &comparison_.differences[*row] : nullptr;
}

TableRows ComparePanel::Rows() const {
  if (ShowsFunctions()) return functions_.Rows();
  return DifferenceRows(bench_.document.Image(), second_->ff(), comparison_.differences, map_.get(),
                        bench_.texts, comparison_.shift);
}

}  // namespace tarvelo
