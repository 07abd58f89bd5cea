#include "shell/eeprom/eeprom_transfer.h"

#include <wx/datetime.h>

#include "core/file.h"
#include "eeprom/block_files.h"
#include "eeprom/block_report.h"
#include "shell/services/loaded_files.h"
#include "shell/frame/main.h"
#include "shell/base/strings.h"

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
  const auto any = [this] { return !store_.records.empty(); };
  return {{.id = SaveBlockE,
           .message = Text::SaveBlock,
           .help = Text::HelpSaveBlock,
           .run = [this] { SaveBlock_Click(); },
           .enabled = chosen},
          {.id = SaveAllBlockE,
           .message = Text::SaveAllBlocks,
           .help = Text::HelpSaveAllBlocks,
           .run = [this] { SaveAllBlock_Click(); },
           .enabled = any},
          {.id = DeletedBlocksE,
           .message = Text::DeletedBlocksToo,
           .help = Text::HelpDeletedBlocks,
           .run = [this] { deletedToo_ = !deletedToo_; },
           .checked = [this] { return deletedToo_; }},
          {.id = LoadBlockE,
           .message = Text::LoadBlock,
           .help = Text::HelpLoadOne,
           .run = [this] { LoadBlock_Click(); },
           .enabled = chosen},
          {.id = LoadAllBlockE,
           .message = Text::LoadAllBlocks,
           .help = Text::HelpLoadAll,
           .run = [this] { LoadAllBlock_Click(); },
           .enabled = any},
          {.id = BackupE, .message = Text::Backup, .help = Text::HelpBackup, .run = [this] { eeBackup_Click(); }, .enabled = any}};
}

std::filesystem::path EepromTransfer::Folder() const { return main_.Open().FileDir / "EEPROM"; }

std::string EepromTransfer::Stem() const { return PathText(main_.Open().FileStem.filename()); }

// --- saving ---

void EepromTransfer::SaveBlock_Click() {
  const EepromBlockRecord* block = chosen_();
  if (!block) return;
  const auto file = SaveBlock(main_.Open().image, store_, *block, Folder(), Stem());
  if (!file) return main_.Complain(Wx(main_.Texts().Msg(Text::BlockWithoutData)));
  main_.Tell(Wx(main_.Texts().MsgS(Text::BlockSaved, std::to_string(block->Number))), *file);
}

void EepromTransfer::SaveAllBlock_Click() {
  const Saved saved = SaveEach(Folder(), deletedToo_);
  if (!saved.stopped) TellSaved(saved, Folder() / "NNNN.bin");
}

// A backup holds all blocks or does not exist.
void EepromTransfer::eeBackup_Click() {
  if (store_.records.empty()) return;
  const std::string name = "EEPROM backup " + Utf8(wxDateTime::Now().Format("%Y-%m-%d %H%M"));
  const std::filesystem::path folder = MakeNewFolder(main_.Open().FileDir, name);
  const auto discard = [&folder] {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  };
  Saved saved;
  try {
    saved = SaveEach(folder, false);
  } catch (const FileError&) {
    discard();
    throw;
  }
  if (saved.stopped || saved.files == 0) discard();
  if (!saved.stopped) TellSaved(saved, folder);
}

// Escape stops it.
EepromTransfer::Saved EepromTransfer::SaveEach(const std::filesystem::path& folder, bool allGenerations) {
  const auto blocks = BlocksToSave(store_, allGenerations);
  const StatusHint hint(main_.Status(), Wx(main_.Texts().Msg(Text::EscapeStops)));
  ProgressRun run(main_.Status(), 0, std::ssize(blocks));
  const std::string stem = Stem();
  Saved saved;
  std::int64_t done = 0;
  for (const EepromBlockRecord* block : blocks) {
    run.At(done++);
    saved.stopped = run.StopAsked();
    if (saved.stopped) break;
    if (SaveBlock(main_.Open().image, store_, *block, folder, stem))
      ++saved.files;
    else
      saved.without.push_back(block->Number);
  }
  return saved;
}

void EepromTransfer::TellSaved(const Saved& saved, const std::filesystem::path& path) {
  const Messages& texts = main_.Texts();
  const wxString without = Wx(texts.Msg(Text::BlocksWithoutDataLabel)) + Numbers(saved.without);
  if (saved.files == 0) return main_.Complain(Wx(texts.Msg(Text::NoDataToSave)) + "\n\n" + without);
  wxString text = Wx(texts.Msg(Text::AllBlocksSaved)) + "\n\n" + WxPath(path);
  if (!saved.without.empty()) text << "\n\n" << without;
  main_.Tell(text);
}

// --- loading ---

bool EepromTransfer::HasPlace(int number) const {
  const auto live = LiveBlock(store_, number);
  return live && HasData(main_.Open().image, store_.records[*live]);
}

wxString EepromTransfer::WhyNoPlace(int number) const {
  const Messages& texts = main_.Texts();
  return LiveBlock(store_, number) ? Wx(texts.Msg(Text::BlockWithoutData)) : Wx(texts.MsgS(Text::BlockNotFound, std::to_string(number)));
}

wxString EepromTransfer::Whose(int number) const { return Wx(main_.Texts().Msg(Text::OfBlock)) << " " << number; }

void EepromTransfer::LoadBlock_Click() {
  const EepromBlockRecord* block = chosen_();
  if (!block) return;
  const int number = block->Number;
  if (!HasPlace(number)) return main_.Complain(WhyNoPlace(number));
  const Messages& texts = main_.Texts();
  const wxString filter = Wx(texts.Msg(Text::Eeprom)) + " (*.bin)|*.bin|" + Wx(texts.Msg(Text::AllFiles)) + "|*.*";
  const std::filesystem::path folder = DirExist(Folder()) ? Folder() : main_.Open().FileDir;
  const auto file =
      main_.Boxes().OpenFile(Wx(texts.Msg(Text::LoadBlock)), filter, folder / PathOf(BlockFileName(Stem(), number)));
  if (file) LoadFile(number, *file);
}

void EepromTransfer::LoadFile(int number, const std::filesystem::path& file) try {
  const Messages& texts = main_.Texts();
  if (!FileExist(file)) return main_.Complain(Wx(texts.MsgS(Text::FileNotFound, PathText(file))));
  const auto change = LoadBlock(main_.Open().image, store_, number, file);
  if (!change) return main_.Complain(WhyNoPlace(number));
  main_.WriteImage({&*change, 1});
  main_.Tell(Wx(texts.MsgS(Text::BlockLoaded, std::to_string(number))), file);
} catch (const WrongBlockSize& wrong) {
  main_.Complain(WrongSizeText(main_.Texts(), file, wrong.fileSize, wrong.blockSize, Whose(number)));
}

// Takes the files that SaveAllBlock writes, and loads all that fit at once.
void EepromTransfer::LoadAllBlock_Click() {
  constexpr int end = 6000;  // of the numbers
  const std::filesystem::path folder = Folder();
  const std::string stem = Stem();
  LoadedFiles loaded(main_);
  {
    const StatusHint hint(main_.Status(), Wx(main_.Texts().Msg(Text::EscapeStops)));
    ProgressRun run(main_.Status(), 0, end);
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
  const auto change = LoadBlock(main_.Open().image, store_, number, file);
  if (change)
    loaded.Add(file, *change);
  else
    loaded.Refuse(file, WhyNoPlace(number));
} catch (const WrongBlockSize& wrong) {
  loaded.Refuse(WrongSizeText(main_.Texts(), file, wrong.fileSize, wrong.blockSize, Whose(number)));
} catch (const FileError&) {
  loaded.Refuse(file, Wx(main_.Texts().Msg(Text::CantOpenFile)));
}

}  // namespace tarvelo
