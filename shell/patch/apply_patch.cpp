#include "shell/patch/apply_patch.h"

#include <wx/utils.h>

#include "core/file.h"
#include "patch/misfit_table.h"
#include "patch/patch_apply.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
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

// Writes the changes as one step and reports the result to the user.
void WriteChanges(Workbench& bench, const std::vector<Change>& changes, const MisfitTable& misfits,
                  const std::filesystem::path& file) {
  bench.document.Write(changes);
  bench.frame.FollowInHex(changes.front().offset, changes.front().Size());
  const Messages& texts = bench.texts;
  std::string told = std::string(texts.Msg(Text::PatchAppliedLabel)) + std::to_string(changes.size());
  const auto tellNumber = [&](Text message, std::size_t number) {
    if (number > 0) told.append("\n").append(texts.Msg(message)).append(std::to_string(number));
  };
  tellNumber(Text::AppliedLinesLabel, misfits.Applied());
  tellNumber(Text::MisfitLinesLabel, misfits.Count());
  bench.talk.Tell(Wx(told), file);
}

void Apply(Workbench& bench, const std::filesystem::path& file) {
  std::optional<wxBusyCursor> wait(std::in_place);
  const std::optional<ReadPatch> patch = ReadPatchFile(bench, file);
  if (!patch) return;
  const Fullflash& image = bench.document.Image();
  const PatchCheck check = CheckPatch(patch->changes, image);
  const MisfitTable misfits(*patch, check, image, bench.texts);
  wait.reset();
  if (misfits.Count() == 0 && patch->changes.empty()) return bench.talk.Tell(Text::PatchWithoutChanges, file);
  if (misfits.Count() == 0 && check.CarriesAll()) return bench.talk.Tell(Text::PatchAlreadyApplied, file);
  if (misfits.Count() > 0 && !bench.talk.ApplyOthers(misfits)) return;
  if (misfits.Fitting() > 0) WriteChanges(bench, check.ToWrite(patch->changes), misfits, file);
}

}  // namespace

void ApplyPatch_Click(Workbench& bench) {
  const Messages& texts = bench.texts;
  const std::string filter = std::string(texts.Msg(Text::Patch)) + " (*.qpt)|*.qpt|" +
                             std::string(texts.Msg(Text::AllFiles)) + "|*.*";
  const std::filesystem::path own = bench.document.Beside(".qpt");
  const std::filesystem::path offered = FileExist(own) ? own : own.parent_path() / "";
  const auto file = bench.talk.OpenFile(Text::ApplyPatchFile, Wx(filter), offered);
  if (file) Apply(bench, *file);
}

void ApplyPatchFile(Workbench& bench, const std::filesystem::path& file) {
  bench.talk.Guard(Wx(bench.texts.Msg(Text::ApplyPatchFile)), [&] { Apply(bench, file); });
}

bool IsPatchFile(const std::filesystem::path& file) { return ToUpper(PathText(file.extension())) == ".QPT"; }

}  // namespace tarvelo
