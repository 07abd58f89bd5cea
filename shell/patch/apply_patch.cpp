#include "shell/patch/apply_patch.h"

#include <wx/utils.h>

#include <utility>

#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/patch/patch_files.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

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
  if (misfits.Count() > 0 && !bench.talk.Show(ReviewOf(misfits))) return;
  if (misfits.Fitting() > 0) WriteChanges(bench, check.ToWrite(patch.changes), misfits, words, file);
}

}  // namespace

Review ReviewOf(const MisfitTable& misfits) {
  return {.title = misfits.Words().title,
          .heading = Wx(misfits.Header()),
          .summary = Wx(misfits.Summary()),
          .rows = misfits.Rows(),
          .accept = misfits.Words().accept,
          .canAccept = misfits.Fitting() > 0,
          .cancel = misfits.Words().leave};
}

void ApplyPatch_Click(Workbench& bench) {
  const auto file = AskForPatch(bench, Text::ApplyPatchFile, bench.document.Beside(".qpt"));
  if (!file) return;
  const FileBytes bytes = ReadPatchBytes(bench, *file);
  Apply(bench, ReadPatchText({reinterpret_cast<const char*>(bytes.data.get()), bytes.size}), applying, *file);
}

void ApplyPatch(Workbench& bench, const ReadPatch& patch) { Apply(bench, patch, applying, {}); }

void TakeOutPatch(Workbench& bench, ReadPatch patch) {
  Apply(bench, Reversed(std::move(patch)), takingOut, {});
}

bool IsPatchFile(const std::filesystem::path& file) { return ToUpper(PathText(file.extension())) == ".QPT"; }

}  // namespace tarvelo
