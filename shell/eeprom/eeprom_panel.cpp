#include "shell/eeprom/eeprom_panel.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "eeprom/block_report.h"
#include "eeprom/block_table.h"
#include "shell/eeprom/block_view.h"
#include "shell/info/info_panel.h"
#include "shell/list/list_view.h"
#include "shell/frame/main.h"
#include "shell/base/strings.h"

namespace tarvelo {
namespace {

constexpr int countPanel = 4;            // of the status bar
constexpr unsigned colouredColumns = 2;  // of a deleted block's row
constexpr unsigned descriptionColumn = 1;
constexpr std::size_t offsetColumn = 4;
constexpr char usersDescriptions[] = "eeprom_blocks.tsv";
constexpr std::uint64_t longestDescriptions = 1 << 20;

struct Viewer {
  ViewerEntry entry;
  int message;
  const char* captionEnd = "";
};

constexpr Viewer viewers[] = {
    {ViewerEntry::x0067, Text::BlockAccuParameters},          {ViewerEntry::x0071, Text::Block71},
    {ViewerEntry::x0280, Text::Block280},          {ViewerEntry::x5076, Text::BlockGreetingText},
    {ViewerEntry::x5079, Text::Block5079},          {ViewerEntry::x509x, Text::Blocks5098To5107},
    {ViewerEntry::x5124, Text::Block5124},          {ViewerEntry::x5136, Text::Blocks5136And5237},
    {ViewerEntry::x5166, Text::Block5166},          {ViewerEntry::x5168, Text::Block5168},
    {ViewerEntry::x517x, Text::Blocks5170To5179},          {ViewerEntry::x5206, Text::Block5206},
    {ViewerEntry::x5209, Text::Block5209},          {ViewerEntry::x5262, Text::Block5262},
    {ViewerEntry::x5274, Text::Block5274},           {ViewerEntry::x5275, Text::Blocks5275To5278, ": 5275"},
    {ViewerEntry::x5276, Text::Blocks5275To5278, ": 5276"}, {ViewerEntry::x5277, Text::Blocks5275To5278, ": 5277"},
    {ViewerEntry::x5278, Text::Blocks5275To5278, ": 5278"},
};
static_assert(std::size(viewers) == viewerEntries);

// The lowest number of an entry.
int NumberOf(ViewerEntry entry) {
  int number = 0;
  while (ViewerOf(number) != entry) ++number;
  return number;
}

}  // namespace

EepromPanel::EepromPanel(Main& main)
    : Panel({.menuEntry = EEPROM, .name = Text::Eeprom}),
      main_(main),
      transfer_(main, store_,
                [this] {
                  const auto record = Chosen();
                  return record ? &store_.records[*record] : nullptr;
                }),
      search_(main, [this](const auto& text,
                           bool behind) { return ListE_->Find(text, behind, descriptionColumn); }),
      commands_(MakeCommands()),
      ListE_(new ListView(&main)) {
  ListE_->SetMarkedColumns(colouredColumns);
  ListE_->onActivate = [this](std::size_t) { main_.Run(OpenE); };
  ListE_->onContextMenu = [this] { main_.PopUpCommands(); };
  main_.AcceptDrops(ListE_->Control());
  ShowList();
}

wxWindow& EepromPanel::Window() { return *ListE_; }

wxWindow& EepromPanel::FirstFocus() { return ListE_->Control(); }

void EepromPanel::Build() {
  if (!scanned_) Scan();
}

void EepromPanel::Scan() {
  ReadDescriptions();
  try {
    store_ = GetEE(main_.Open().image, main_.Open().info.Model, main_.Status());
    scanned_ = true;
  } catch (const std::length_error&) {
    const Messages& texts = main_.Texts();
    main_.Complain(Wx(texts.MsgS(Text::CommandFailed, texts.Msg(Text::Eeprom))) + "\n\n" + Wx(texts.Msg(Text::TooManyBlocks)));
  }
  viewers_ = EnabledViewers(viewers_, store_.viewers);
  ShowList();
  if (!shown_.empty()) ListE_->Select(0);
  main_.InfoText().AppendText(Wx(BlockInformation(store_, main_.Texts())));
  main_.Status().SetPanel(countPanel, Wx(BlockStatus(store_)));
}

// The user's own, over the built-in ones, if there is a file of them that can be read.
void EepromPanel::ReadDescriptions() {
  std::string own;
  try {
    NoProgress progress;
    const FileBytes file =
        ReadFile(main_.Stored().Folder() / usersDescriptions, longestDescriptions, progress);
    own.assign(file.data.get(), file.data.get() + file.size);
  } catch (const FileError&) {
  }
  descriptions_ = GetDescriptions(own);
}

// The chosen block stays chosen; where it is no longer listed, the next one is.
void EepromPanel::ShowList() {
  const auto chosen = Chosen();
  ListE_->SetTable(ShowEE(
      store_, showDeleted_, [this](int number) { return Describe(descriptions_, number); }, main_.Texts()));
  shown_ = ShownRecords(store_, showDeleted_);
  if (!chosen || shown_.empty()) return;
  const auto row = std::ranges::lower_bound(shown_, *chosen) - shown_.begin();
  ListE_->Select(std::min(static_cast<std::size_t>(row), shown_.size() - 1));
}

void EepromPanel::Clear() {
  if (view_) view_->Clear();
  shown_.clear();
  store_ = BlockStore();
  scanned_ = false;
  ShowList();
}

// The list stands: it is the directory as it was scanned.
void EepromPanel::ImageChanged() {
  if (view_) view_->ImageChanged();
}

void EepromPanel::Save() { main_.SaveList(ListE_->GetTable(), 'E'); }

void EepromPanel::Recaption(const Messages& messages) {
  ListE_->Recaption(messages, Traits().name);
  ListE_->SetCaptions(BlockCaptions(messages));
  if (view_) view_->Recaption();
}

std::optional<std::size_t> EepromPanel::Chosen() const {
  const auto row = ListE_->Selected();
  if (!row || *row >= shown_.size()) return {};
  return shown_[*row];
}

// --- commands ---

PanelCommands EepromPanel::MakeCommands() {
  const auto chosen = [this] { return Chosen().has_value(); };
  const auto any = [this] { return !shown_.empty(); };
  std::vector<PanelCommand> commands = {
      {.id = OpenE, .message = Text::OpenWith, .help = Text::HelpOpenWith, .run = [this] { OpenE_Click(); }, .enabled = chosen},
      {.id = OpenDescE, .message = Text::OpenDescriptionWith, .help = Text::HelpOpenDescriptionWith, .run = [this] { OpenDescE_Click(); }, .enabled = chosen},
      {.id = InfoE,
       .message = Text::InfoAboutBlock,
       .help = Text::HelpInfoAboutBlock,
       .shortcut = "Ctrl+I",
       .run = [this] { InfoE_Click(); },
       .enabled = chosen},
      {.id = OffsetE, .message = Text::CopyOffset, .help = Text::HelpCopyNumber, .run = [this] { OffsetE_Click(); }, .enabled = chosen},
      {}};
  std::ranges::move(transfer_.Commands(), std::back_inserter(commands));
  commands.insert(commands.end(), {{},
                                   {.id = FindE,
                                    .message = Text::SearchBlock,
                                    .help = Text::HelpSearchText,
                                    .shortcut = "Ctrl+F",
                                    .run = [this] { search_.Find(); },
                                    .enabled = any},
                                   {.id = FindMoreE,
                                    .message = Text::SearchAgain,
                                    .help = Text::HelpSearchAgain,
                                    .shortcut = "Ctrl+G",
                                    .run = [this] { search_.FindMore(); },
                                    .enabled = any},
                                   {},
                                   {.id = ShowDel,
                                    .message = Text::ShowDeletedBlocks,
                                    .help = Text::HelpDeletedBlocks,
                                    .run = [this] { ShowDel_Click(); },
                                    .checked = [this] { return showDeleted_; }},
                                   {.message = Text::KnownBlocks, .help = Text::HelpKnownBlocks, .entries = KnownBlocks()}});
  return PanelCommands(std::move(commands), OpenE);
}

std::vector<PanelCommand> EepromPanel::KnownBlocks() {
  std::vector<PanelCommand> entries;
  for (const Viewer& viewer : viewers)
    entries.push_back(
        {.id = FirstViewer + static_cast<int>(viewer.entry),
         .message = viewer.message,
         .help = Text::HelpKnownBlocks,
         .run = [this, entry = viewer.entry] { Viewer_Click(entry); },
         .enabled = [this, entry = viewer.entry] { return viewers_[static_cast<std::size_t>(entry)]; },
         .captionEnd = viewer.captionEnd});
  return entries;
}

void EepromPanel::ShowDel_Click() {
  showDeleted_ = !showDeleted_;
  ShowList();
}

void EepromPanel::OpenE_Click() {
  const auto block = Chosen();
  if (block) main_.ShowBl(store_.records[*block].DataOffset, store_.records[*block].Size);
}

void EepromPanel::OpenDescE_Click() {
  if (const auto block = Chosen()) main_.ShowBl(store_.records[*block].HeaderPos, blockHeaderLength);
}

void EepromPanel::InfoE_Click() {
  if (const auto block = Chosen()) ShowBlock(*block);
}

void EepromPanel::ShowBlock(std::size_t record) {
  if (!view_) view_ = new BlockView(main_, store_, descriptions_);
  view_->ShowBlock(record);
}

void EepromPanel::Viewer_Click(ViewerEntry entry) {
  // Entries that stay enabled from an image to the next may have no block in this one.
  if (const auto block = LiveBlock(store_, entry))
    ShowBlock(*block);
  else
    main_.Complain(Wx(main_.Texts().MsgS(Text::BlockNotFound, std::to_string(NumberOf(entry)))));
}

void EepromPanel::OffsetE_Click() {
  if (Chosen()) main_.Copy(ListE_->GetTable().rows[*ListE_->Selected()].cells[offsetColumn]);
}

}  // namespace tarvelo
