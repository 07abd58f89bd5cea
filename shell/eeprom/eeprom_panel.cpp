#include "shell/eeprom/eeprom_panel.h"

#include <iterator>

#include "eeprom/block_report.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/eeprom/block_view.h"
#include "shell/services/ids.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

struct Viewer {
  ViewerEntry entry;
  Text caption;
  const char* captionEnd = "";
};

constexpr Viewer viewers[] = {
    {ViewerEntry::x0067, Text::BlockAccuParameters},
    {ViewerEntry::x0071, Text::Block71},
    {ViewerEntry::x0280, Text::Block280},
    {ViewerEntry::x5076, Text::BlockGreetingText},
    {ViewerEntry::x5079, Text::Block5079},
    {ViewerEntry::x509x, Text::Blocks5098To5107},
    {ViewerEntry::x5124, Text::Block5124},
    {ViewerEntry::x5136, Text::Blocks5136And5237},
    {ViewerEntry::x5166, Text::Block5166},
    {ViewerEntry::x5168, Text::Block5168},
    {ViewerEntry::x517x, Text::Blocks5170To5179},
    {ViewerEntry::x5206, Text::Block5206},
    {ViewerEntry::x5209, Text::Block5209},
    {ViewerEntry::x5262, Text::Block5262},
    {ViewerEntry::x5274, Text::Block5274},
    {ViewerEntry::x5275, Text::Blocks5275To5278, ": 5275"},
    {ViewerEntry::x5276, Text::Blocks5275To5278, ": 5276"},
    {ViewerEntry::x5277, Text::Blocks5275To5278, ": 5277"},
    {ViewerEntry::x5278, Text::Blocks5275To5278, ": 5278"},
};
static_assert(std::size(viewers) == viewerEntries);

// The lowest block number of an entry.
int NumberOf(ViewerEntry entry) {
  int number = 0;
  while (ViewerOf(number) != entry) ++number;
  return number;
}

}  // namespace

EepromPanel::EepromPanel(Workbench& bench)
    : ExplorerPanel(bench, eepromExplorer),
      transfer_(
          bench, [this]() -> const BlockStore& { return Blocks(); },
          [this]() -> const EepromBlockRecord* {
            const auto record = ChosenRecord();
            return record ? &Blocks().records[*record] : nullptr;
          },
          [this] {
            std::vector<const EepromBlockRecord*> all;
            for (const std::size_t record : ChosenRecords()) all.push_back(&Blocks().records[record]);
            return all;
          }) {}

const EepromFindings& EepromPanel::Records() const {
  static const EepromFindings none;
  return Found() ? Found()->As<EepromFindings>() : none;
}

const BlockStore& EepromPanel::Blocks() const { return Records().store; }

// The block's window stays open beside other panels.
bool EepromPanel::IsSeen() const { return ExplorerPanel::IsSeen() || (view_ && view_->IsShown()); }

void EepromPanel::ListChanged(bool) {
  if (!Found()) {
    if (view_) view_->Clear();
    return;
  }
  viewers_ = EnabledViewers(viewers_, Blocks().viewers);
  if (view_) view_->BlocksChanged();
}

void EepromPanel::Recaption(const Messages& messages) {
  ExplorerPanel::Recaption(messages);
  if (view_) view_->Recaption();
}

// --- commands ---

ExplorerPanel::OwnCommands EepromPanel::Own() {
  const auto chosen = Chosen();
  return {.open = {{Id::InfoE, Text::InfoAboutBlock, Text::HelpInfoAboutBlock, "Ctrl+I",
                    [this] { InfoE_Click(); }, [this] { return IsKnownChosen(); }},
                   {Id::ShowBlock, Text::ShowBlock, Text::HelpShowBlock, "Ctrl+Shift+I",
                    [this] { ShowBlock_Click(); }, chosen}},
          .files = transfer_.Commands(),
          .last = {{.caption = Text::KnownBlocks, .help = Text::HelpKnownBlocks, .entries = KnownBlocks()}},
          .search = Text::SearchBlock};
}

std::vector<PanelCommand> EepromPanel::KnownBlocks() {
  std::vector<PanelCommand> entries;
  for (const auto& [entry, caption, captionEnd] : viewers)
    entries.push_back({.id = Id::FirstViewer + static_cast<int>(entry),
                       .caption = caption,
                       .help = Text::HelpKnownBlocks,
                       .run = [this, entry = entry] { Viewer_Click(entry); },
                       .enabled = [this, entry = entry] { return viewers_[static_cast<std::size_t>(entry)]; },
                       .captionEnd = captionEnd});
  return entries;
}

// Whether the list shows "*" for the chosen block.
bool EepromPanel::IsKnownChosen() const {
  const auto record = ChosenRecord();
  return record && Blocks().records[*record].HasViewer;
}

void EepromPanel::InfoE_Click() {
  if (IsKnownChosen()) ShowBlock_Click();
}

void EepromPanel::ShowBlock_Click() {
  if (const auto record = ChosenRecord()) ShowBlock(*record);
}

void EepromPanel::ShowBlock(std::size_t record) {
  if (!view_) view_ = new BlockView(bench_, [this]() -> const EepromFindings& { return Records(); });
  view_->ShowBlock(record);
}

void EepromPanel::Viewer_Click(ViewerEntry entry) {
  // An entry that stayed enabled from an earlier image may have no block in this one.
  if (const auto block = LiveBlock(Blocks(), entry))
    ShowBlock(*block);
  else
    bench_.talk.Complain(Wx(bench_.texts.MsgS(Text::BlockNotFound, std::to_string(NumberOf(entry)))));
}

}  // namespace tarvelo
