#include "shell/compare/compare_panel.h"

#include <wx/button.h>
#include <wx/panel.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "document/map_table.h"
#include "shell/compare/comparison_rows.h"
#include "shell/hex/hex_rows.h"
#include "shell/list/list_view.h"
#include "shell/frame/main.h"
#include "shell/patch/patch_panel.h"
#include "shell/base/strings.h"

namespace tarvelo {
namespace {

constexpr std::size_t mostRows = 1000000;  // more would be too slow to filter and to sort

const wxColour differenceColour(0xD0, 0x20, 0x20);

// A text of the panel, broken into lines of at most this width.
void ShowWrapped(wxStaticText& control, const wxString& text, int width) {
  control.SetLabelText(text);
  if (width > 0) control.Wrap(width);
}

wxString WithNumber(wxString text, Offset number) {
  text.Replace("%s", std::to_string(number));
  return text;
}

}  // namespace

ComparePanel::ComparePanel(Main& main)
    : Panel({.menuEntry = ComparePanelMenu, .name = Text::Comparison}),
      main_(main),
      commands_(MakeCommands()),
      window_(new wxPanel(&main)),
      none_(new wxPanel(window_)),
      invitation_(new wxStaticText(none_, wxID_ANY, wxString())),
      choose_(new wxButton(none_, wxID_ANY)),
      compared_(new wxPanel(window_)),
      head_(new wxStaticText(compared_, wxID_ANY, wxString(), wxDefaultPosition, wxDefaultSize,
                             wxST_ELLIPSIZE_MIDDLE | wxST_NO_AUTORESIZE)),
      chooseAnother_(new wxButton(compared_, wxID_ANY)),
      figures_(new wxStaticText(compared_, wxID_ANY, wxString())),
      strip_(new ImageStrip(compared_)),
      ListC_(new ListView(compared_)) {
  Layout();
  Bind();
  ShowDifferences();
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
  column->Add(figures_, 0, wxLEFT | wxRIGHT | wxBOTTOM, gap);
  column->Add(strip_, 0, wxEXPAND | wxLEFT | wxRIGHT | wxBOTTOM, gap);
  column->Add(ListC_, 1, wxEXPAND);
  strip_->SetMinSize(window_->FromDIP(wxSize(-1, 24)));
  compared_->SetSizer(column);

  auto* all = new wxBoxSizer(wxVERTICAL);
  all->Add(none_, 1, wxEXPAND);
  all->Add(compared_, 1, wxEXPAND);
  window_->SetSizer(all);
}

void ComparePanel::Bind() {
  for (wxButton* button : {choose_, chooseAnother_})
    button->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { main_.Run(CompareWith); });
  ListC_->onSelect = [this](std::size_t row) {
    if (row >= comparison_.differences.size()) return;
    strip_->Mark(comparison_.differences[row].offset, comparison_.differences[row].size);
  };
  ListC_->onActivate = [this](std::size_t) { main_.Run(OpenDifference); };
  ListC_->onContextMenu = [this] { main_.PopUpCommands(); };
  strip_->onClick = [this](Offset offset) {
    if (!comparison_.differences.empty()) ListC_->Select(NearestDifference(comparison_.differences, offset));
  };
  strip_->describe = [this](Offset offset, Offset size) { return Describe(offset, size); };
  window_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    LayOutTexts();
    event.Skip();
  });
  main_.AcceptDrops(*none_);
  main_.AcceptDrops(ListC_->Control());
}

wxWindow& ComparePanel::Window() { return *window_; }

wxWindow& ComparePanel::FirstFocus() {
  if (HasSecond()) return ListC_->Control();
  return *choose_;
}

// --- comparing ---

void ComparePanel::CompareWith_Click() {
  if (!main_.Open().IsOpen()) return;
  const auto path = main_.AskForDump(Text::CompareWithAnother, path_.empty() ? main_.Open().path : path_);
  if (!path) return;
  auto second = main_.ReadDump(*path);
  if (!second) return;
  path_ = *path;
  comparison_ = Comparison();
  ListC_->SetRows({});  // the old rows are of the other dump
  second_ = std::move(*second);
  CompareAgain();
  main_.ShowPanel(*this);
  FirstFocus().SetFocus();
}

void ComparePanel::Build() {
  if (stale_) CompareAgain();
}

// Every key that is typed into the hex view comes here: only what is seen is compared at once.
void ComparePanel::ImageChanged() {
  stale_ = HasSecond();
  if (stale_ && main_.Visible() == this) CompareAgain();
}

void ComparePanel::CompareAgain() {
  const Bytes image = main_.Open().image.ff();
  Comparison comparison = Compare(image, second_.ff());
  joined_ = JoinDifferences(comparison.differences, mostRows);
  if (!map_ && !comparison.differences.empty()) MakeMap();
  const Difference* chosen = Chosen();
  const Offset place = chosen ? chosen->offset : 0;
  comparison_ = std::move(comparison);
  differingBytes_ = DifferingBytes(image, second_.ff(), comparison_.differences);
  stale_ = false;
  ShowDifferences();
  if (!comparison_.differences.empty()) ListC_->Select(NearestDifference(comparison_.differences, place));
}

// An image of too many blocks is compared all the same; it only has no labels.
void ComparePanel::MakeMap() {
  map_.emplace();
  try {
    *map_ = MapDump(main_.Open().image, main_.Open().info, main_.Status());
  } catch (const std::length_error&) {
    main_.Complain(Wx(main_.Texts().Msg(Text::TooManyBlocks)));
  }
}

void ComparePanel::Clear() {
  second_ = Fullflash();
  comparison_ = Comparison();
  differingBytes_ = 0;
  stale_ = false;
  map_.reset();
  ShowDifferences();
}

// --- what is shown ---

void ComparePanel::ShowDifferences() {
  ListC_->SetRows(Rows());
  ShowStrip();
  none_->Show(!HasSecond());
  compared_->Show(HasSecond());
  LayOutTexts();
  window_->Layout();
}

// What the open image alone has is grey.
void ComparePanel::ShowStrip() {
  const auto size = static_cast<Offset>(main_.Open().image.ff().size());
  std::vector<StripPart> parts = StripOf(comparison_.differences, comparison_.common, size, differenceColour);
  if (comparison_.restOfOld > 0)
    parts.push_back(
        {comparison_.common, comparison_.restOfOld, wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT)});
  strip_->Show(size, std::move(parts));
  strip_->Mark(0, 0);
}

wxString ComparePanel::Head() const { return Wx(main_.Texts().Msg(Text::ComparedWithLabel)) + WxPath(path_); }

wxString ComparePanel::Figures() const {
  const auto message = [this](int n) { return Wx(main_.Texts().Msg(n)); };
  if (comparison_.Same()) return message(Text::FullflashesSame);
  wxString figures = message(Text::DifferenceCountLabel) + std::to_string(comparison_.differences.size()) + "    " + message(Text::DifferingByteCountLabel) +
                     std::to_string(differingBytes_);
  if (joined_) figures += "\n" + message(Text::DifferencesJoined);
  if (!comparison_.SameLength()) figures += "\n" + RestText();
  return figures;
}

wxString ComparePanel::RestText() const {
  const auto message = [this](int n, Offset number) { return WithNumber(Wx(main_.Texts().Msg(n)), number); };
  return message(Text::FullflashLengthsDiffer, comparison_.common) + " " +
         (comparison_.restOfOld > 0 ? message(Text::OpenFullflashLonger, comparison_.restOfOld)
                                    : message(Text::OtherFullflashLonger, comparison_.restOfNew));
}

void ComparePanel::LayOutTexts() {
  const int width = window_->GetClientSize().x - 2 * window_->FromDIP(6);
  ShowWrapped(*invitation_, Wx(main_.Texts().Msg(Text::ChooseSecondFullflash)), width);
  none_->Layout();
  if (!HasSecond()) return;
  head_->SetLabelText(Head());
  head_->SetToolTip(WxPath(path_));
  ShowWrapped(*figures_, Figures(), width);
  compared_->Layout();
}

void ComparePanel::Recaption(const Messages& messages) {
  ListC_->Recaption(messages, Traits().name);
  ListC_->Reword(Rows());
  choose_->SetLabel(Wx(messages.Msg(Text::CompareWithAnother)));
  chooseAnother_->SetLabel(Wx(messages.Msg(Text::ChooseAnotherFullflash)));
  LayOutTexts();
}

wxString ComparePanel::Describe(Offset offset, Offset size) const {
  const std::string label = map_ ? LabelOf(*map_, offset, size, main_.Texts()) : std::string();
  return Wx(OffsetText(main_.Open().image, offset) + (label.empty() ? "" : ": " + label));
}

const Difference* ComparePanel::Chosen() const {
  const auto row = ListC_->Selected();
  return row && *row < comparison_.differences.size() ? &comparison_.differences[*row] : nullptr;
}

void ComparePanel::Save() { main_.SaveList(Rows(), 'C'); }

TableRows ComparePanel::Rows() const {
  return {DifferenceCaptions(main_.Texts()), comparison_.differences.size(), [this](std::size_t i) {
            return DifferenceRow(main_.Open().image, second_.ff(), *map_, comparison_.differences[i],
                                 main_.Texts());
          }};
}

// --- commands ---

PanelCommands ComparePanel::MakeCommands() {
  const auto chosen = [this] { return Chosen() != nullptr; };
  const auto any = [this] { return !comparison_.differences.empty(); };
  return PanelCommands({{.id = OpenDifference,
                         .message = Text::OpenInHexView,
                         .help = Text::HelpHexView,
                         .run = [this] { OpenDifference_Click(); },
                         .enabled = chosen},
                        {.id = OffsetDifference,
                         .message = Text::CopyOffset,
                         .help = Text::HelpCopyNumber,
                         .run = [this] { OffsetDifference_Click(); },
                         .enabled = chosen},
                        {.id = AddressDifference,
                         .message = Text::CopyAddress,
                         .help = Text::HelpCopyNumber,
                         .run = [this] { AddressDifference_Click(); },
                         .enabled = chosen},
                        {},
                        {.id = NextDifference,
                         .message = Text::NextDifference,
                         .help = Text::HelpNext,
                         .shortcut = "F3",
                         .run = [this] { ListC_->Step(1); },
                         .enabled = any},
                        {.id = PreviousDifference,
                         .message = Text::PreviousDifference,
                         .help = Text::HelpPrevious,
                         .shortcut = "Shift+F3",
                         .run = [this] { ListC_->Step(-1); },
                         .enabled = any},
                        {},
                        {.id = DifferencesToPatch,
                         .message = Text::DifferencesToPatch,
                         .help = Text::HelpAddToPatch,
                         .run = [this] { DifferencesToPatch_Click(); },
                         .enabled = chosen}},
                       OpenDifference);
}

void ComparePanel::OpenDifference_Click() {
  if (const Difference* difference = Chosen()) main_.ShowHex(difference->offset, difference->size);
}

void ComparePanel::OffsetDifference_Click() {
  if (const Difference* difference = Chosen()) main_.Copy(OffsetText(main_.Open().image, difference->offset));
}

void ComparePanel::AddressDifference_Click() {
  if (const Difference* difference = Chosen())
    main_.Copy(AddressText(main_.Open().image, difference->offset));
}

void ComparePanel::DifferencesToPatch_Click() {
  std::vector<std::size_t> rows = ListC_->SelectedRows();
  std::ranges::sort(rows);
  std::vector<Difference> selected;
  Offset size = 0;
  for (const std::size_t row : rows) {
    selected.push_back(comparison_.differences[row]);
    size += selected.back().size;
  }
  main_.Patch().AskAndAddPatch(Text::DifferencesToPatch, size,
                               [&] { return PatchLines(main_.Open().image.ff(), second_.ff(), selected); });
}

}  // namespace tarvelo
