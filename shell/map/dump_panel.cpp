#include "shell/map/dump_panel.h"

#include <wx/panel.h>
#include <wx/sizer.h>

#include <stdexcept>
#include <utility>

#include "document/map_table.h"
#include "shell/hex/hex_rows.h"
#include "shell/map/image_strip.h"
#include "shell/list/list_view.h"
#include "shell/frame/main.h"
#include "shell/map/map_legend.h"
#include "shell/base/strings.h"

namespace tarvelo {
namespace {

constexpr int countPanel = 8;  // of the status bar
constexpr std::size_t offsetColumn = 0;
constexpr std::size_t addressColumn = 1;

}  // namespace

// The list is made first: the keyboard goes from it to the legend.
DumpPanel::DumpPanel(Main& main)
    : Panel({.menuEntry = Dump, .name = Text::Dump}),
      main_(main),
      window_(new wxPanel(&main)),
      ListD_(new ListView(window_)),
      strip_(new ImageStrip(window_)),
      legend_(new MapLegend(window_)),
      commands_(MakeCommands()) {
  Layout();
  Bind();
  ShowMap();
}

void DumpPanel::Layout() {
  const int gap = window_->FromDIP(4);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(strip_, 0, wxEXPAND | wxTOP, gap);
  column->Add(legend_, 0, wxEXPAND | wxALL, gap);
  column->Add(ListD_, 1, wxEXPAND);
  window_->SetSizer(column);
}

void DumpPanel::Bind() {
  ListD_->onSelect = [this](std::size_t row) {
    if (row < map_.regions.size()) strip_->Mark(map_.regions[row].offset, map_.regions[row].size);
  };
  ListD_->onActivate = [this](std::size_t) { main_.Run(OpenD); };
  ListD_->onContextMenu = [this] { main_.PopUpCommands(); };
  strip_->onClick = [this](Offset offset) { SelectAt(offset); };
  strip_->describe = [this](Offset offset, Offset size) {
    return Wx(OffsetText(main_.Open().image, offset) + ": " + LabelOf(map_, offset, size, main_.Texts()));
  };
  legend_->onClick = [this](std::size_t group) {
    Step(1, [group](const MapRegion& region) { return GroupOf(region.kind) == group; });
  };
  main_.AcceptDrops(ListD_->Control());
}

wxWindow& DumpPanel::Window() { return *window_; }

wxWindow& DumpPanel::FirstFocus() { return ListD_->Control(); }

void DumpPanel::Build() {
  if (stale_) MakeMap();
}

// The chosen place stays chosen.
void DumpPanel::MakeMap() {
  const Document& open = main_.Open();
  DumpMap map;
  try {
    map = MapDump(open.image, open.info, main_.Status());
    stale_ = false;
  } catch (const std::length_error&) {
    const Messages& texts = main_.Texts();
    main_.Complain(Wx(texts.MsgS(Text::CommandFailed, texts.Msg(Text::Dump))) + "\n\n" + Wx(texts.Msg(Text::TooManyBlocks)));
  }
  const MapRegion* chosen = Chosen();
  const Offset place = chosen ? chosen->offset : 0;
  map_ = std::move(map);
  ShowMap();
  SelectAt(place);
  main_.Status().SetPanel(countPanel,
                          wxString::Format("%zu / %zu", map_.regions.size(), open.image.ff().size()));
}

void DumpPanel::ShowMap() {
  std::vector<StripPart> parts;
  for (const MapRegion& region : map_.regions)
    parts.push_back({region.offset, region.size, GroupAt(GroupOf(region.kind)).colour});
  strip_->Show(map_.regions.empty() ? 0 : map_.regions.back().End(), std::move(parts));
  legend_->ShowSums(map_);
  ListD_->SetRows(Rows());
  window_->Layout();
}

void DumpPanel::SelectAt(Offset offset) {
  const auto regions = map_.Within(offset, 1);
  if (!regions.empty()) ListD_->Select(static_cast<std::size_t>(&regions.front() - map_.regions.data()));
}

TableRows DumpPanel::Rows() const { return MapRows(map_, main_.Open().image, main_.Texts()); }

void DumpPanel::Save() { main_.SaveList(Rows(), 'D'); }

void DumpPanel::Clear() {
  map_ = DumpMap();
  stale_ = true;
  ShowMap();
}

void DumpPanel::ImageChanged() {
  stale_ = true;
  if (!window_->IsShown()) return;
  window_->CallAfter([this] {
    if (window_->IsShown() && main_.Open().IsOpen()) Build();
  });
}

void DumpPanel::Recaption(const Messages& messages) {
  ListD_->Recaption(messages, Traits().name);
  ListD_->Reword(Rows());
  strip_->SetName(Wx(messages.Msg(Text::Dump)));
  legend_->Recaption(messages);
  window_->Layout();
}

const MapRegion* DumpPanel::Chosen() const {
  const auto row = ListD_->Selected();
  return row && *row < map_.regions.size() ? &map_.regions[*row] : nullptr;
}

// --- commands ---

PanelCommands DumpPanel::MakeCommands() {
  const auto chosen = [this] { return Chosen() != nullptr; };
  return PanelCommands(
      {{.id = OpenD, .message = Text::OpenInHexView, .help = Text::HelpHexView, .run = [this] { OpenD_Click(); }, .enabled = chosen},
       {.id = OffsetD, .message = Text::CopyOffset, .help = Text::HelpCopyNumber, .run = [this] { OffsetD_Click(); }, .enabled = chosen},
       {.id = AddressD, .message = Text::CopyAddress, .help = Text::HelpCopyNumber, .run = [this] { AddressD_Click(); }, .enabled = chosen},
       {},
       {.id = NextD,
        .message = Text::NextRegion,
        .help = Text::HelpNext,
        .shortcut = "F3",
        .run = [this] { NextD_Click(); },
        .enabled = chosen},
       {.id = PreviousD,
        .message = Text::PreviousRegion,
        .help = Text::HelpPrevious,
        .shortcut = "Shift+F3",
        .run = [this] { PreviousD_Click(); },
        .enabled = chosen}},
      OpenD);
}

void DumpPanel::OpenD_Click() {
  if (const MapRegion* region = Chosen()) main_.ShowHex(region->offset, region->size);
}

void DumpPanel::OffsetD_Click() {
  if (const auto row = ListD_->Selected()) main_.Copy(ListD_->Row(*row).cells[offsetColumn]);
}

void DumpPanel::AddressD_Click() {
  if (const auto row = ListD_->Selected()) main_.Copy(ListD_->Row(*row).cells[addressColumn]);
}

void DumpPanel::NextD_Click() { StepInKind(1); }

void DumpPanel::PreviousD_Click() { StepInKind(-1); }

void DumpPanel::StepInKind(int direction) {
  if (const MapRegion* region = Chosen())
    Step(direction, [kind = region->kind](const MapRegion& other) { return other.kind == kind; });
}

// From the chosen region on, beginning anew at the end.
void DumpPanel::Step(int direction, const std::function<bool(const MapRegion&)>& isSought) {
  const std::size_t count = map_.regions.size();
  std::size_t row = ListD_->Selected().value_or(count - 1);
  for (std::size_t i = 0; i < count; ++i) {
    row = (row + (direction > 0 ? 1 : count - 1)) % count;
    if (isSought(map_.regions[row])) return ListD_->Select(row);
  }
}

}  // namespace tarvelo
