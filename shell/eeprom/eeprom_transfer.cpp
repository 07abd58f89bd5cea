#include "shell/eeprom/eeprom_transfer.h"

#include <wx/datetime.h>

#include "core/file.h"
#include "eeprom/block_files.h"
#include "eeprom/block_report.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/services/ids.h"
#include "shell/services/loaded_files.h"
#include "shell/services/save_each.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

wxString Numbers(const std::vector<int>& numbers) {
  constexpr std::size_t most = 20;
  wxString text;
  for (std::size_t i = 0; i < numbers.size() && i < most; ++i) text << (i > 0 ? ", " : "") << numbers[i];
  return numbers.size() > most ? text + " ..." : text;
}

}  // namespace

std::vector<PanelCommand> EepromTransfer::Commands() {
  const auto chosen = [this] { return chosen_() != nullptr; };
  const auto any = [this] { return !blocks_().records.empty(); };
  return {
      {Id::SaveBlock, Text::SaveBlock, Text::HelpSaveBlock, "", [this] { SaveBlock_Click(); }, chosen},
      {Id::SaveAllBlock, Text::SaveAllBlocks, Text::HelpSaveAllBlocks, "", [this] { SaveAllBlock_Click(); },
       any},
      {Id::DeletedBlocks,
       Text::DeletedBlocksToo,
       Text::HelpDeletedBlocks,
       "",
       [this] { deletedToo_ = !deletedToo_; },
       {},
       [this] { return deletedToo_; }},
      {Id::LoadBlock, Text::LoadBlock, Text::HelpLoadOne, "", [this] { LoadBlock_Click(); }, chosen},
      {Id::LoadAllBlock, Text::LoadAllBlocks, Text::HelpLoadAll, "", [this] { LoadAllBlock_Click(); }, any},
      {Id::eeBackup, Text::Backup, Text::HelpBackup, "", [this] { eeBackup_Click(); }, any}};
}

std::filesystem::path EepromTransfer::Folder() const { return bench_.document.FileDir() / "EEPROM"; }

std::string EepromTransfer::Stem() const { return PathText(bench_.document.FileStem().filename()); }

// --- saving ---

void EepromTransfer::SaveBlock_Click() {
  const std::vector<const EepromBlockRecord*> blocks = selected_();
  if (blocks.size() > 1) {
    const Saved saved = SaveEach(Folder(), blocks);
    if (!saved.stopped) TellSelectedSaved(saved);
    return;
  }
  const EepromBlockRecord* block = chosen_();
  if (!block) return;
  const auto file = SaveBlock(bench_.document.Image(), blocks_(), *block, Folder(), Stem());
  if (!file) return bench_.talk.Complain(Text::BlockWithoutData);
  bench_.talk.Tell(Wx(bench_.texts.MsgS(Text::BlockSaved, std::to_string(block->Number))), *file);
}

void EepromTransfer::SaveAllBlock_Click() {
  const Saved saved = SaveEach(Folder(), BlocksToSave(blocks_(), deletedToo_));
  if (!saved.stopped) TellSaved(saved, Folder() / "NNNN.bin");
}

// A backup is complete or does not exist: if saving fails or is stopped, its folder is removed.
void EepromTransfer::eeBackup_Click() {
  if (blocks_().records.empty()) return;
  const std::string name = "EEPROM backup " + Utf8(wxDateTime::Now().Format("%Y-%m-%d %H%M"));
  const std::filesystem::path folder = MakeNewFolder(bench_.document.FileDir(), name);
  const auto discard = [&folder] {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  };
  Saved saved;
  try {
    saved = SaveEach(folder, BlocksToSave(blocks_(), false));
  } catch (const FileError&) {
    discard();
    throw;
  }
  if (saved.stopped || saved.files == 0) discard();
  if (!saved.stopped) TellSaved(saved, folder);
}

EepromTransfer::Saved EepromTransfer::SaveEach(const std::filesystem::path& folder,
                                               const std::vector<const EepromBlockRecord*>& blocks) {
  const std::string stem = Stem();
  Saved saved;
  const auto save = [&](std::size_t i) {
    if (SaveBlock(bench_.document.Image(), blocks_(), *blocks[i], folder, stem))
      ++saved.files;
    else
      saved.without.push_back(blocks[i]->Number);
  };
  saved.stopped = !tarvelo::SaveEach(bench_, blocks.size(), save);
  return saved;
}

void EepromTransfer::TellSelectedSaved(const Saved& saved) {
  const Messages& texts = bench_.texts;
  wxString text = Wx(texts.Msg(Text::BlocksSavedLabel)) << saved.files;
  if (!saved.without.empty())
    text << "\n" << Wx(texts.Msg(Text::BlocksWithoutDataLabel)) << Numbers(saved.without);
  if (saved.files == 0) return bench_.talk.Complain(text);
  bench_.talk.Tell(text, Folder());
}

void EepromTransfer::TellSaved(const Saved& saved, const std::filesystem::path& path) {
  const Messages& texts = bench_.texts;
  const wxString without = Wx(texts.Msg(Text::BlocksWithoutDataLabel)) + Numbers(saved.without);
  if (saved.files == 0) return bench_.talk.Complain(Wx(texts.Msg(Text::NoDataToSave)) + "\n\n" + without);
  wxString text = Wx(texts.Msg(Text::AllBlocksSaved)) + "\n\n" + WxPath(path);
  if (!saved.without.empty()) text << "\n\n" << without;
  bench_.talk.Tell(text);
}

// --- loading ---

bool EepromTransfer::HasPlace(int number) const {
  const auto live = LiveBlock(blocks_(), number);
  return live && HasData(bench_.document.Image(), blocks_().records[*live]);
}

wxString EepromTransfer::WhyNoPlace(int number) const {
  const Messages& texts = bench_.texts;
  return LiveBlock(blocks_(), number) ? Wx(texts.Msg(Text::BlockWithoutData))
                                      : Wx(texts.MsgS(Text::BlockNotFound, std::to_string(number)));
}

wxString EepromTransfer::Whose(int number) const {
  return Wx(bench_.texts.Msg(Text::OfBlock)) << " " << number;
}

void EepromTransfer::LoadBlock_Click() {
  const EepromBlockRecord* block = chosen_();
  if (!block) return;
  const int number = block->Number;
  if (!HasPlace(number)) return bench_.talk.Complain(WhyNoPlace(number));
  const Messages& texts = bench_.texts;
  const wxString filter =
      Wx(texts.Msg(Text::Eeprom)) + " (*.bin)|*.bin|" + Wx(texts.Msg(Text::AllFiles)) + "|*.*";
  const std::filesystem::path folder = DirExist(Folder()) ? Folder() : bench_.document.FileDir();
  const auto file =
      bench_.talk.OpenFile(Text::LoadBlock, filter, folder / PathOf(BlockFileName(Stem(), number)));
  if (file) LoadFile(number, *file);
}

void EepromTransfer::LoadFile(int number, const std::filesystem::path& file) try {
  const Messages& texts = bench_.texts;
  if (!FileExist(file)) return bench_.talk.Complain(Wx(texts.MsgS(Text::FileNotFound, PathText(file))));
  const auto change = LoadBlock(bench_.document.Image(), blocks_(), number, file);
  if (!change) return bench_.talk.Complain(WhyNoPlace(number));
  bench_.document.Write({&*change, 1});
  bench_.talk.Tell(Wx(texts.MsgS(Text::BlockLoaded, std::to_string(number))), file);
} catch (const WrongBlockSize& wrong) {
  bench_.talk.Complain(WrongSizeText(bench_.texts, file, wrong.fileSize, wrong.blockSize, Whose(number)));
}

// Loads the files that SaveAllBlock writes, all that fit in one step.
void EepromTransfer::LoadAllBlock_Click() {
  constexpr int end = 6000;  // one past the highest block number
  const std::filesystem::path folder = Folder();
  const std::string stem = Stem();
  LoadedFiles loaded(bench_);
  {
    const StatusHint hint(bench_.status, Wx(bench_.texts.Msg(Text::EscapeStops)));
    ProgressRun run(bench_.status, 0, end);
    for (int number = 1; number < end; ++number) {
      if (!IsBlockNumber(number)) continue;
      run.At(number);
      if (run.StopAsked()) return;
      const std::filesystem::path file = folder / PathOf(BlockFileName(stem, number));
      if (FileExist(file)) LoadNumber(number, file, loaded);
    }
  }
  loaded.Finish(Text::LoadAllBlocks, Text::BlocksLoaded, folder / PathOf(stem + "_NNNN.bin"));
}

void EepromTransfer::LoadNumber(int number, const std::filesystem::path& file, LoadedFiles& loaded) try {
  const auto change = LoadBlock(bench_.document.Image(), blocks_(), number, file);
  if (change)
    loaded.Add(file, *change);
  else
    loaded.Refuse(file, WhyNoPlace(number));
} catch (const WrongBlockSize& wrong) {
  loaded.Refuse(WrongSizeText(bench_.texts, file, wrong.fileSize, wrong.blockSize, Whose(number)));
} catch (const FileError&) {
  loaded.Refuse(file, Wx(bench_.texts.Msg(Text::CantOpenFile)));
}

}  // namespace tarvelo
