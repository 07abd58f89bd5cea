#include "shell/files/file_transfer.h"

#include <algorithm>
#include <array>
#include <limits>

#include "core/disk_names.h"
#include "core/file.h"
#include "files/file_export.h"
#include "files/file_text.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/platform/launcher.h"
#include "shell/platform/temporary_folder.h"
#include "shell/services/ids.h"
#include "shell/services/loaded_files.h"
#include "shell/services/save_each.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

// Files that the system shows or plays. Any other could be a program, which must not start from a dump.
bool IsHarmless(const std::filesystem::path& file) {
  constexpr std::array<std::string_view, 26> extensions{
      ".3GP", ".AAC", ".AMR", ".AVI",  ".BMP", ".GIF",  ".ICS", ".IMY", ".JPEG",
      ".JPG", ".LOG", ".MID", ".MIDI", ".MMF", ".MP3",  ".MP4", ".PDF", ".PNG",
      ".TIF", ".TXT", ".VCF", ".VCS",  ".WAV", ".WBMP", ".WMA", ".XMF"};
  return std::ranges::find(extensions, ToUpper(PathText(file.extension()))) != extensions.end();
}

Text TextOf(FileRefusal refusal) {
  switch (refusal) {
    case FileRefusal::Folder: return Text::FolderNotReplaced;
    case FileRefusal::Deleted: return Text::DeletedFileNotReplaced;
    case FileRefusal::Damaged: return Text::DamagedFileNotReplaced;
    default: return Text::SharedFileNotReplaced;
  }
}

}  // namespace

std::vector<PanelCommand> FileTransfer::Commands() {
  const auto chosen = [this] { return choice_.current().has_value(); };
  const auto any = [this] { return !choice_.list().entries.empty(); };
  return {{Id::SaveFiles, Text::SaveFiles, Text::HelpSaveFiles, "", [this] { SaveFiles_Click(); }, chosen},
          {Id::SaveFolder, Text::SaveFolder, Text::HelpSaveFolder, "", [this] { SaveFolder_Click(); }, any},
          {Id::SaveAllFiles, Text::SaveAllFiles, Text::HelpSaveAllFiles, "", [this] { SaveAllFiles_Click(); },
           any},
          {Id::ReplaceFile, Text::ReplaceFile, Text::HelpReplaceFile, "", [this] { ReplaceFile_Click(); },
           [this] { return CurrentFile() != nullptr; }}};
}

std::filesystem::path FileTransfer::Folder() const { return bench_.document.FileDir() / "FILES"; }

// The current entry unless it is a folder.
const FileEntry* FileTransfer::CurrentFile() const {
  const auto current = choice_.current();
  const FileEntry* entry = current ? &choice_.list().entries[*current] : nullptr;
  return entry && !entry->isFolder ? entry : nullptr;
}

// --- saving ---

// The files among the entries, and those in the folders among them.
std::vector<std::size_t> FileTransfer::WithContents(const std::vector<std::size_t>& entries) const {
  const FileList& list = choice_.list();
  std::vector<bool> isTaken(list.entries.size());
  for (const std::size_t entry : entries) isTaken[entry] = true;
  std::vector<std::size_t> files;
  const bool deletedToo = std::ranges::any_of(entries, [&](auto i) { return list.entries[i].isDeleted; });
  for (std::size_t i = 0; i < isTaken.size(); ++i) {
    const FileEntry& entry = list.entries[i];
    if (entry.parent != noIndex && isTaken[entry.parent] && (deletedToo || !entry.isDeleted))
      isTaken[i] = true;
    if (isTaken[i] && !entry.isFolder) files.push_back(i);
  }
  return files;
}

void FileTransfer::SaveFiles_Click() {
  if (choice_.current()) Save(WithContents(choice_.selected()));
}

void FileTransfer::SaveFolder_Click() { Save(choice_.folder()); }

void FileTransfer::SaveAllFiles_Click() { Save(choice_.all()); }

// Tells the user how many were saved, and how many not.
void FileTransfer::Save(const std::vector<std::size_t>& entries) {
  FileExport files(bench_.document.Image(), choice_.list(), Folder());
  std::size_t saved = 0, refused = 0;
  std::filesystem::path last;
  const auto save = [&](std::size_t i) {
    const Exported exported = files.Write(entries[i]);
    if (exported.file) last = *exported.file;
    saved += exported.file.has_value();
    refused += !exported.file && !exported.why.empty();
  };
  if (!SaveEach(bench_, entries.size(), save)) return;
  if (saved == 1 && refused == 0)
    return bench_.talk.Tell(Wx(bench_.texts.MsgS(Text::FileSaved, PathText(last.filename()))), last);
  wxString text = Wx(bench_.texts.Msg(Text::FilesSavedLabel)) << saved;
  if (refused > 0) text << "\n" << Wx(bench_.texts.Msg(Text::FilesNotSavedLabel)) << refused;
  if (saved == 0) return bench_.talk.Complain(text);
  bench_.talk.Tell(text, Folder());
}

// --- opening ---

FileTransfer::~FileTransfer() {
  std::error_code ignored;
  if (!temporary_.empty()) std::filesystem::remove_all(temporary_, ignored);
}

// A program may still hold the files of the last time.
std::vector<std::filesystem::path> FileTransfer::SaveToOpen(const std::vector<std::size_t>& entries) {
  constexpr Offset most = 0x2000000;  // bytes; a drag has to start at once
  const Fullflash& image = bench_.document.Image();
  if (temporary_.empty()) temporary_ = platform::MakeTemporaryFolder();
  FileExport files(image, choice_.list(), temporary_ / std::to_string(++opened_));
  std::vector<std::filesystem::path> paths;
  Offset size = 0;
  for (const std::size_t entry : entries) {
    size += SizeOf(image, choice_.list(), choice_.list().entries[entry]);
    if (size > most) break;
    if (const auto file = files.Write(entry).file) paths.push_back(*file);
  }
  return paths;
}

void FileTransfer::OpenFile_Click() {
  if (!CurrentFile()) return;
  const std::string name = DiskName(NameOf(bench_.document.Image(), choice_.list(), *CurrentFile()));
  if (!IsHarmless(PathOf(name)))
    return bench_.talk.Complain(Wx(bench_.texts.MsgS(Text::FileNotOpened, name)));
  const auto paths = SaveToOpen({*choice_.current()});
  if (paths.empty()) return bench_.talk.Complain(Text::DataOutsideImage);
  if (!bench_.programs.OpenWithSystem(paths.front()))
    bench_.talk.Complain(Wx(bench_.texts.Msg(Text::NoProgramForFile)) + "\n\n" + WxPath(paths.front()));
}

// --- replacing ---

void FileTransfer::ReplaceFile_Click() {
  const FileEntry* entry = CurrentFile();
  if (!entry) return;
  const Fullflash& image = bench_.document.Image();
  const FileList& list = choice_.list();
  if (const auto refusal = ReplaceContent(image, list, *entry, {}).refusal; refusal != FileRefusal::None)
    return bench_.talk.Complain(Why(*entry, refusal));
  const std::string name = DiskName(NameOf(image, list, *entry));
  const std::filesystem::path folder = DirExist(Folder()) ? Folder() : bench_.document.FileDir();
  const wxString filter = Wx(bench_.texts.Msg(Text::AllFiles)) + "|*.*";
  const auto file = bench_.talk.OpenFile(Text::ReplaceFile, filter, folder / PathOf(name));
  if (file) Replace(*entry, *file);
}

void FileTransfer::Replace(const FileEntry& entry, const std::filesystem::path& file) {
  const Fullflash& image = bench_.document.Image();
  const Messages& texts = bench_.texts;
  if (!FileExist(file)) return bench_.talk.Complain(Wx(texts.MsgS(Text::FileNotFound, PathText(file))));
  const Offset room = SizeOf(image, choice_.list(), entry);
  FileReader reader(file, std::numeric_limits<std::uint32_t>::max());
  if (static_cast<Offset>(reader.Size()) > room)
    return bench_.talk.Complain(
        WrongSizeText(texts, file, reader.Size(), room, Wx(NameOf(image, choice_.list(), entry))));
  std::vector<std::uint8_t> bytes(reader.Size());
  reader.Read(bytes);
  const FileReplacement replacement = ReplaceContent(image, choice_.list(), entry, bytes);
  if (replacement.refusal != FileRefusal::None) return bench_.talk.Complain(Why(entry, replacement.refusal));
  bench_.document.Write(replacement.changes);
  bench_.talk.Tell(Text::FileReplaced, file);
}

wxString FileTransfer::Why(const FileEntry& entry, FileRefusal refusal) const {
  return Wx(NameOf(bench_.document.Image(), choice_.list(), entry)) + ": " +
         Wx(bench_.texts.Msg(TextOf(refusal)));
}

}  // namespace tarvelo
