#include "shell/patch/patch_files.h"

#include <algorithm>
#include <utility>

#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/services/kept_file.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

constexpr std::uint64_t fileLimit = 32 << 20;  // bytes; in memory the lines take many times as much
constexpr std::size_t lineLimit = 1 << 18;     // bytes; the editor lays out whole lines

bool AreSame(const std::filesystem::path& one, const std::filesystem::path& other) {
  std::error_code error;
  return std::filesystem::equivalent(one, other, error) && !error;
}

}  // namespace

wxString PatchFilter(const Messages& texts) {
  return Wx(texts.Msg(Text::Patch)) + " (*.qpt)|*.qpt|" + Wx(texts.Msg(Text::AllFiles)) + "|*.*";
}

std::optional<std::filesystem::path> AskForPatch(Workbench& bench, Text title,
                                                 const std::filesystem::path& own) {
  return bench.talk.OpenFile(title, PatchFilter(bench.texts), FileExist(own) ? own : own.parent_path() / "");
}

FileBytes ReadPatchBytes(Workbench& bench, const std::filesystem::path& file) {
  return ReadFile(file, fileLimit, bench.status);
}

PatchFiles::PatchFiles(Workbench& bench) : bench_(bench) { recent_.Read(bench.settings); }

std::string PatchFiles::Phone() const { return bench_.document.Info().StatusText(); }

std::filesystem::path PatchFiles::OwnFile() const { return bench_.document.Beside(".qpt"); }

// --- reading ---

std::optional<std::filesystem::path> PatchFiles::Ask(Text title) {
  return AskForPatch(bench_, title, path_.empty() ? OwnFile() : path_);
}

std::optional<PatchFileText> PatchFiles::Read(const std::filesystem::path& file) {
  const FileBytes bytes = ReadPatchBytes(bench_, file);
  PatchFileText text =
      ReadPatchFileText({reinterpret_cast<const char*>(bytes.data.get()), bytes.size}, Phone());
  if (LongestLine(text.document) <= lineLimit) return text;
  bench_.talk.Complain(Wx(bench_.texts.Msg(Text::PatchLineTooLong)) + "\n\n" + WxPath(file));
  return {};
}

void PatchFiles::Opened(const std::filesystem::path& file, const PatchFileText& text) {
  path_ = file;
  form_ = {{}, text.encoding, text.hadHeader};
  recent_.Add(PathText(file));
}

void PatchFiles::Forget() {
  path_.clear();
  form_ = {};
}

// --- writing ---

void PatchFiles::Save(std::string document) { Save(OwnFile(), {std::move(document), form_.encoding, true}); }

void PatchFiles::SaveTo(const std::filesystem::path& file, std::string document) {
  Save(file, {std::move(document), form_.encoding, form_.hadHeader});
  recent_.Add(PathText(file));
}

void PatchFiles::WritePart(const std::filesystem::path& file, std::string document) {
  Write(file, {std::move(document), form_.encoding, form_.hadHeader});
}

void PatchFiles::Save(const std::filesystem::path& file, const PatchFileText& text) {
  const bool kept = Write(file, text);
  path_ = file;
  form_.hadHeader = text.hadHeader;
  wxString told = Wx(bench_.texts.Msg(Text::PatchSaved)) + "\n\n" + WxPath(file);
  if (kept) told += "\n\n" + Wx(bench_.texts.MsgS(Text::FileKeptAs, PathText(BackupOf(file).filename())));
  bench_.talk.Tell(told);
  bench_.status.SetPanel(StatusBar::patchPanel, wxString());
}

bool PatchFiles::Write(const std::filesystem::path& file, const PatchFileText& text) {
  const auto isThis = [&](const std::filesystem::path& other) { return AreSame(file, other); };
  const bool isNew = std::ranges::none_of(written_, isThis);
  const bool kept = isNew && KeepOld(file, bench_.status);
  ReplaceFile(file, PatchFileBytes(text, Phone()));
  if (isNew && std::ranges::none_of(written_, isThis)) written_.push_back(file);
  return kept;
}

}  // namespace tarvelo
