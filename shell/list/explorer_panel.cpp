#include "shell/list/explorer_panel.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/list/list_view.h"
#include "shell/services/ids.h"
#include "shell/services/search_progress.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

// The rows of a listing whose records meet a condition.
Listing Narrowed(Listing all, const std::function<bool(std::size_t)>& isShown) {
  std::vector<std::size_t> rows, records;
  for (std::size_t row = 0; row < all.rows.count; ++row)
    if (const std::size_t record = all.RecordOf(row); isShown(record)) {
      rows.push_back(row);
      records.push_back(record);
    }
  if (rows.size() == all.rows.count) return all;
  const std::size_t count = rows.size();
  auto make = [rows = std::move(rows), row = std::move(all.rows.row)](std::size_t i) { return row(rows[i]); };
  return {{std::move(all.rows.captions), count, std::move(make)}, std::move(records)};
}

}  // namespace

int PanelId(const Explorer& explorer) {
  const auto all = Explorers();
  return Id::FirstExplorer + static_cast<int>(std::ranges::find(all, &explorer) - all.begin());
}

ExplorerPanel::ExplorerPanel(Workbench& bench, const Explorer& explorer, wxWindow* window,
                             wxWindow* listParent)
    : ListPanel(bench, {.menuEntry = PanelId(explorer), .name = explorer.name}, explorer.letter, window,
                listParent),
      explorer_(explorer) {
  List().SetMarkedColumns(explorer.markedColumns);
  List().onSelect = [this](std::size_t row) { RecordChosen(listing_.RecordOf(row)); };
  watch_ = bench.document.OnChange([this] {
    isStale_ = true;
    if (IsSeen() && CanChange()) ExplorerPanel::Build();
  });
  nameWatch_ = bench.document.OnNames([this] {
    if (!found_) return;
    isSelecting_ = true;
    List().Reword(listing_.rows);
    isSelecting_ = false;
  });
}

void ExplorerPanel::Build() {
  const bool isEmpty = !found_ || explorer_.count(*found_) == 0;
  if (isEmpty || isStale_) Search();
}

void ExplorerPanel::Search() {
  const bool isEmpty = !found_ || explorer_.count(*found_) == 0;
  const auto chosen = ChosenRecord();
  found_.reset();
  bool isStopped = false;
  try {
    SearchProgress progress(bench_);
    found_ = bench_.document.Find(explorer_, progress);
    isStale_ = false;
  } catch (const Stopped&) {
    isStopped = true;
  } catch (const std::length_error& fault) {
    const wxString cause = explorer_.tooMany ? Wx(bench_.texts.Msg(*explorer_.tooMany)) : Wx(fault.what());
    bench_.talk.TellFault(Wx(bench_.texts.Msg(explorer_.name)), cause);
  }
  ShowList(isAnnounced_);
  if (isStopped) List().SetEmptyHint(Wx(bench_.texts.Msg(Text::SearchStopped)));
  const bool isNew = !isAnnounced_;
  ListChanged(isNew);
  if (found_) {
    if (isNew || isEmpty) bench_.frame.AddInformation(explorer_.lines(*found_, bench_.texts));
    isAnnounced_ = true;
  }
  SelectRecord(chosen.value_or(0), true);
  if (explorer_.statusPanel > 0)
    bench_.status.SetPanel(explorer_.statusPanel, found_ ? Wx(explorer_.status(*found_)) : wxString());
}

// `keepView` keeps filter and order.
void ExplorerPanel::ShowList(bool keepView) {
  if (found_)
    listing_ = ListOf(explorer_, bench_.document.Get(), *found_, showDeleted_, bench_.texts);
  else
    listing_ = {{explorer_.captions(bench_.texts), 0, {}}, {}};
  if (const auto isShown = Narrowing()) listing_ = Narrowed(std::move(listing_), isShown);
  if (keepView)
    List().ReplaceRows(listing_.rows);
  else
    List().SetRows(listing_.rows);
  const bool isEmpty = found_ && listing_.rows.count == 0;
  List().SetEmptyHint(isEmpty ? Wx(bench_.texts.Msg(Text::NothingFound)) : wxString());
}

void ExplorerPanel::Clear() {
  found_.reset();
  isStale_ = false;
  isAnnounced_ = false;
  ShowList(false);
  ListChanged(false);
}

void ExplorerPanel::Recaption(const Messages& messages) {
  ListPanel::Recaption(messages);
  listing_.rows.captions = explorer_.captions(messages);
  List().SetCaptions(listing_.rows.captions);
  if (!List().EmptyHint().empty())
    List().SetEmptyHint(Wx(messages.Msg(found_ ? Text::NothingFound : Text::SearchStopped)));
}

std::optional<std::size_t> ExplorerPanel::ChosenRecord() const {
  const auto row = List().Selected();
  if (!row || *row >= listing_.rows.count) return {};
  return listing_.RecordOf(*row);
}

std::vector<std::size_t> ExplorerPanel::ChosenRecords() const {
  std::vector<std::size_t> records;
  for (const std::size_t row : List().SelectedRows())
    if (row < listing_.rows.count) records.push_back(listing_.RecordOf(row));
  return records;
}

void ExplorerPanel::SelectRecord(std::size_t record, bool keepFilter) {
  if (listing_.rows.count == 0) return;
  std::size_t row = record;
  if (!listing_.records.empty())
    row = static_cast<std::size_t>(std::ranges::lower_bound(listing_.records, record) -
                                   listing_.records.begin());
  row = std::min(row, listing_.rows.count - 1);
  if (keepFilter && !List().IsListed(row)) return;
  isSelecting_ = true;
  List().Select(row);
  isSelecting_ = false;
}

void ExplorerPanel::ShowRecord(std::size_t record) {
  if (!found_ || record >= explorer_.count(*found_)) return;
  if (!showDeleted_ && explorer_.hasDeleted && explorer_.item(*found_, record).isDeleted) ShowDel_Click();
  SelectRecord(record);
}

std::optional<std::size_t> ExplorerPanel::Figure() const { return bench_.document.KnownCount(explorer_); }

std::optional<Item> ExplorerPanel::ChosenItem() const {
  const auto record = ChosenRecord();
  if (!record || !found_) return {};
  return explorer_.item(*found_, *record);
}

std::optional<Region> ExplorerPanel::ChosenRegion() const {
  if (const auto item = ChosenItem()) return item->data;
  return {};
}

// --- commands ---

PanelCommands ExplorerPanel::MakeCommands() {
  OwnCommands own = Own();
  const auto chosen = Chosen();
  std::vector<PanelCommand> commands = std::move(own.first);
  std::vector<PanelCommand> open = {
      {Id::OpenData, Text::OpenWith, Text::HelpOpenWith, "", [this] { OpenData_Click(); }, chosen},
      {Id::OpenEntry, Text::OpenDescriptionWith, Text::HelpOpenDescriptionWith, "",
       [this] { OpenEntry_Click(); }, chosen}};
  std::ranges::move(OpenCommands(), std::back_inserter(open));
  std::ranges::move(own.open, std::back_inserter(open));
  std::vector<PanelCommand> copy = std::move(own.copy);
  std::ranges::move(CopyCommands(), std::back_inserter(copy));
  Append(commands, std::move(open));
  Append(commands, std::move(copy));
  Append(commands, std::move(own.files));
  Append(commands, FindCommands(own.search));
  std::vector<PanelCommand> last;
  if (explorer_.hasDeleted)
    last.push_back({Id::ShowDel,
                    explorer_.showDeleted,
                    explorer_.showDeletedHelp,
                    "",
                    [this] { ShowDel_Click(); },
                    {},
                    [this] { return showDeleted_; }});
  std::ranges::move(own.last, std::back_inserter(last));
  Append(commands, std::move(last));
  return PanelCommands(std::move(commands), own.defaultId        ? own.defaultId
                                            : explorer_.isOfC166 ? Id::OpenCode
                                                                 : Id::OpenData);
}

void ExplorerPanel::OpenData_Click() {
  if (const auto region = ChosenRegion()) bench_.frame.ShowBl(region->offset, region->size);
}

void ExplorerPanel::OpenEntry_Click() {
  if (const auto item = ChosenItem()) bench_.frame.ShowBl(item->entry.offset, item->entry.size);
}

void ExplorerPanel::ShowDel_Click() {
  showDeleted_ = !showDeleted_;
  ListAgain();
}

void ExplorerPanel::ListAgain() {
  const auto chosen = ChosenRecord();
  ShowList(true);
  if (chosen) SelectRecord(*chosen, true);
}

}  // namespace tarvelo
