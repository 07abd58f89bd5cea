#include "shell/map/dump_panel.h"

#include <wx/panel.h>
#include <wx/sizer.h>

#include <stdexcept>
#include <utility>

#include "core/notation.h"
#include "core/places.h"
#include "document/map_table.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/list/list_view.h"
#include "shell/map/image_strip.h"
#include "shell/map/map_legend.h"
#include "shell/platform/accessible_name.h"
#include "shell/services/ids.h"
#include "shell/services/search_progress.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

constexpr int countPanel = 8;  // a panel of the status bar
constexpr int lowPanel = 320;  // in device-independent pixels; the list needs the legend's room

}  // namespace

DumpPanel::DumpPanel(Workbench& bench) : DumpPanel(bench, new wxPanel(&bench.frame.Parent())) {}

// Creates the list first, so that Tab goes from it to the legend.
DumpPanel::DumpPanel(Workbench& bench, wxPanel* window)
    : ListPanel(bench, {.menuEntry = Id::Dump, .name = Text::Dump}, 'D', window, window),
      window_(window),
      strip_(new ImageStrip(window)),
      legend_(new MapLegend(window)) {
  Layout();
  Bind();
  ShowMap(false);
  watch_ = bench.document.OnChange([this] { ImageChanged(); });
  nameWatch_ = bench.document.OnNames([this] { List().Reword(Rows()); });
}

void DumpPanel::Layout() {
  const int gap = window_->FromDIP(4);
  auto* column = new wxBoxSizer(wxVERTICAL);
  column->Add(strip_, 0, wxEXPAND | wxTOP, gap);
  column->Add(legend_, 0, wxEXPAND | wxALL, gap);
  column->Add(&List(), 1, wxEXPAND);
  window_->SetSizer(column);
}

void DumpPanel::Bind() {
  window_->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    legend_->Show(event.GetSize().y >= window_->FromDIP(lowPanel));
    event.Skip();
  });
  List().onSelect = [this](std::size_t row) {
    if (row < Regions().size()) strip_->Mark(Regions()[row].offset, Regions()[row].size);
  };
  strip_->onClick = [this](Offset offset) {
    if (const auto row = RowAt(offset)) List().Select(*row);
  };
  strip_->describe = [this](Offset offset, Offset size) {
    return Wx(OffsetText(bench_.document.Image(), offset) + ": " +
              LabelOf(*map_, offset, size, bench_.texts));
  };
  legend_->onClick = [this](const ClaimGroup& group) {
    Step(1, [&group](const Claim& region) { return region.kind->group == &group; });
  };
}

void DumpPanel::Build() {
  if (isStale_) MakeMap();
}

// Rebuilds the map and keeps the chosen places.
void DumpPanel::MakeMap() {
  std::vector<Offset> chosen;
  for (const std::size_t row : List().Selection()) chosen.push_back(Regions()[row].offset);
  auto map = std::make_shared<const DumpMap>();
  bool isStopped = false;
  try {
    SearchProgress progress(bench_);
    map = bench_.document.Map(progress);
    isStale_ = false;
  } catch (const Stopped&) {
    isStopped = true;
  } catch (const std::length_error&) {
    bench_.talk.TellFault(Wx(bench_.texts.Msg(Traits().name)), Wx(bench_.texts.Msg(Text::TooManyBlocks)));
  }
  map_ = std::move(map);
  ShowMap(true);
  List().SetEmptyHint(isStopped ? Wx(bench_.texts.Msg(Text::SearchStopped)) : wxString());
  if (chosen.empty()) chosen.push_back(0);
  std::vector<std::size_t> rows;
  for (const Offset offset : chosen)
    if (const auto row = RowAt(offset)) rows.push_back(*row);
  List().SelectRows(rows);
  bench_.status.SetPanel(
      countPanel, wxString::Format("%zu / %zu", Regions().size(), bench_.document.Image().ff().size()));
}

// `keepView` keeps filter and order.
void DumpPanel::ShowMap(bool keepView) {
  std::vector<StripPart> parts;
  for (const Claim& region : Regions())
    parts.push_back({region.offset, region.size, ColourOf(*region.kind->group)});
  strip_->Show(Regions().empty() ? 0 : Regions().back().End(), std::move(parts));
  legend_->ShowSums(*map_);
  if (keepView)
    List().ReplaceRows(Rows());
  else
    List().SetRows(Rows());
  window_->Layout();
}

std::optional<std::size_t> DumpPanel::RowAt(Offset offset) const {
  const auto regions = map_->Within(offset, 1);
  if (regions.empty()) return {};
  return static_cast<std::size_t>(&regions.front() - Regions().data());
}

// With the names of the places where regions begin.
TableRows DumpPanel::Rows() const {
  constexpr std::size_t whatColumn = 3;
  TableRows rows = MapRows(*map_, bench_.document.Image(), bench_.texts);
  rows.row = [this, make = std::move(rows.row)](std::size_t i) {
    Table::Row row = make(i);
    const std::uint32_t address = bench_.document.Image().PhoneAddress(Regions()[i].offset);
    if (const auto name = bench_.document.PlaceNames().NameAt(address); !name.empty())
      row.cells[whatColumn].append("  ").append(name);
    return row;
  };
  return rows;
}

void DumpPanel::Clear() {
  map_ = std::make_shared<const DumpMap>();
  isStale_ = true;
  ShowMap(false);
}

// Rebuilds the map soon if the panel is visible, otherwise when it is next shown.
void DumpPanel::ImageChanged() {
  isStale_ = true;
  if (!window_->IsShown()) return;
  window_->CallAfter([this] {
    if (window_->IsShown() && bench_.document.IsOpen()) Build();
  });
}

void DumpPanel::Recaption(const Messages& messages) {
  ListPanel::Recaption(messages);
  List().Reword(Rows());
  platform::SetAccessibleName(*strip_, Wx(messages.Msg(Traits().name)));
  legend_->Recaption(messages);
  window_->Layout();
}

const Claim* DumpPanel::Chosen() const {
  const auto row = List().Selected();
  return row && *row < Regions().size() ? &Regions()[*row] : nullptr;
}

std::optional<Region> DumpPanel::ChosenRegion() const {
  if (const Claim* region = Chosen()) return Region{region->offset, region->size};
  return {};
}

std::string DumpPanel::AddressOf(Offset offset) const {
  return WholeHex(bench_.document.Image().PhoneAddress(offset));
}

// --- commands ---

PanelCommands DumpPanel::MakeCommands() {
  const auto chosen = ListPanel::Chosen();
  std::vector<PanelCommand> commands = OpenCommands();
  Append(commands, CopyCommands());
  Append(commands, {{Id::Next, Text::NextRegion, Text::HelpNext, "F3", [this] { StepInKind(1); }, chosen},
                    {Id::Previous, Text::PreviousRegion, Text::HelpPrevious, "Shift+F3",
                     [this] { StepInKind(-1); }, chosen}});
  return PanelCommands(std::move(commands), Id::OpenHex);
}

void DumpPanel::StepInKind(int direction) {
  if (const Claim* region = Chosen())
    Step(direction, [kind = region->kind](const Claim& other) { return other.kind == kind; });
}

// Searches from the chosen region on, wrapping around.
void DumpPanel::Step(int direction, const std::function<bool(const Claim&)>& isWanted) {
  const std::size_t count = Regions().size();
  std::size_t row = List().Selected().value_or(count - 1);
  for (std::size_t i = 0; i < count; ++i) {
    row = (row + (direction > 0 ? 1 : count - 1)) % count;
    if (isWanted(Regions()[row])) return List().Select(row);
  }
}

}  // namespace tarvelo
