#include "shell/patch/apply_patch.h"

#include <wx/utils.h>

#include <utility>

#include "core/file.h"
#include "patch/misfit_table.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/patch/patch_files.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

// The largest patch file, in bytes. In memory its lines take many times as much.
constexpr std::uint64_t patchFileLimit = 32 << 20;

// Reads a patch file. If it is too large, tells the user and returns nothing.
std::optional<ReadPatch> ReadPatchFile(Workbench& bench, const std::filesystem::path& file) try {
  const FileBytes bytes = ReadFile(file, patchFileLimit, bench.status);
  return ReadPatchText({reinterpret_cast<const char*>(bytes.data.get()), bytes.size});
} catch (const FileError& error) {
  if (error.Reason() != FileError::Kind::TooLarge) throw;
  bench.talk.Complain(Wx(bench.texts.Msg(Text::PatchFileTooLarge)) + "\n\n" + WxPath(file));
  return {};
}

// What the program says when it writes a patch, and when there is nothing to write.
struct Words {
  Text done;
  Text allThere;
  MisfitWords misfits;
};

constexpr Words applying{Text::PatchAppliedLabel, Text::PatchAlreadyApplied, {}};
constexpr Words takingOut{
    Text::PatchTakenOutLabel,
    Text::PatchNotCarried,
    {Text::TakeOutPatch, Text::TakeOutFittingLines, Text::Cancel, Text::NotCarriedLinesLabel}};

// Tells about a patch with the name of its file, if it has one.
void TellAbout(Workbench& bench, const std::string& text, const std::filesystem::path& file) {
  if (file.empty())
    bench.talk.Tell(Wx(text));
  else
    bench.talk.Tell(Wx(text), file);
}

// Writes the changes as one step and reports the result to the user.
void WriteChanges(Workbench& bench, const std::vector<Change>& changes, const MisfitTable& misfits,
                  const Words& words, const std::filesystem::path& file) {
  bench.document.Write(changes);
  bench.frame.FollowInHex(changes.front().offset, changes.front().Size());
  const Messages& texts = bench.texts;
  std::string told = std::string(texts.Msg(words.done)) + std::to_string(changes.size());
  const auto tellNumber = [&](Text message, std::size_t number) {
    if (number > 0) told.append("\n").append(texts.Msg(message)).append(std::to_string(number));
  };
  tellNumber(words.misfits.applied, misfits.Applied());
  tellNumber(Text::MisfitLinesLabel, misfits.Count());
  TellAbout(bench, told, file);
}

void Apply(Workbench& bench, const ReadPatch& patch, const Words& words, const std::filesystem::path& file) {
  std::optional<wxBusyCursor> wait(std::in_place);
  const Fullflash& image = bench.document.Image();
  const PatchCheck check = CheckPatch(patch.changes, image);
  const MisfitTable misfits(patch, check, image, bench.texts, words.misfits);
  wait.reset();
  const auto tell = [&](Text text) { TellAbout(bench, std::string(bench.texts.Msg(text)), file); };
  if (misfits.Count() == 0 && patch.changes.empty()) return tell(Text::PatchWithoutChanges);
  if (misfits.Count() == 0 && check.CarriesAll()) return tell(words.allThere);
  if (misfits.Count() > 0 && !bench.talk.ApplyOthers(misfits)) return;
  if (misfits.Fitting() > 0) WriteChanges(bench, check.ToWrite(patch.changes), misfits, words, file);
}

}  // namespace

void ApplyPatch_Click(Workbench& bench) {
  const std::filesystem::path own = bench.document.Beside(".qpt");
  const std::filesystem::path offered = FileExist(own) ? own : own.parent_path() / "";
  const auto file = bench.talk.OpenFile(Text::ApplyPatchFile, PatchFilter(bench.texts), offered);
  if (!file) return;
  if (const auto patch = ReadPatchFile(bench, *file)) Apply(bench, *patch, applying, *file);
}

void ApplyPatch(Workbench& bench, const ReadPatch& patch) { Apply(bench, patch, applying, {}); }

void TakeOutPatch(Workbench& bench, ReadPatch patch) {
  Apply(bench, Reversed(std::move(patch)), takingOut, {});
}

bool IsPatchFile(const std::filesystem::path& file) { return ToUpper(PathText(file.extension())) == ".QPT"; }

}  // namespace tarvelo
