#include "shell/patch/apply_patch.h"

#include <wx/utils.h>

#include "core/file.h"
#include "patch/patch_apply.h"
#include "shell/frame/main.h"
#include "shell/services/panel.h"
#include "shell/patch/patch_misfits.h"
#include "shell/base/strings.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

// Bytes of a patch file. In memory its lines become many times as much.
constexpr std::uint64_t patchFileLimit = 32 << 20;

// Nothing where it is too large; the user is told.
std::optional<ReadPatch> ReadPatchFile(Main& main, const std::filesystem::path& file) try {
  const FileBytes bytes = ReadFile(file, patchFileLimit, main.Status());
  return ReadPatchText({reinterpret_cast<const char*>(bytes.data.get()), bytes.size});
} catch (const FileError& error) {
  if (error.Reason() != FileError::Kind::TooLarge) throw;
  main.Complain(Wx(main.Texts().Msg(Text::PatchFileTooLarge)) + "\n\n" + WxPath(file));
  return {};
}

// Writes the changes as one step and says what became of the patch.
void WriteChanges(Main& main, const std::vector<Change>& changes, const PatchMisfits& misfits,
                  const std::filesystem::path& file) {
  main.WriteImage(changes);
  const Panel* visible = main.Visible();
  if (visible && visible->Traits().menuEntry == HexView)
    main.ShowHex(changes.front().offset, changes.front().Size());
  const Messages& texts = main.Texts();
  std::string told = std::string(texts.Msg(Text::PatchAppliedLabel)) + std::to_string(changes.size());
  const auto tellNumber = [&](int message, std::size_t number) {
    if (number > 0) told.append("\n").append(texts.Msg(message)).append(std::to_string(number));
  };
  tellNumber(Text::AppliedLinesLabel, misfits.Applied());
  tellNumber(Text::MisfitLinesLabel, misfits.Count());
  main.Tell(Wx(told), file);
}

void Apply(Main& main, const std::filesystem::path& file) {
  std::optional<wxBusyCursor> wait(std::in_place);
  const std::optional<ReadPatch> patch = ReadPatchFile(main, file);
  if (!patch) return;
  const Fullflash& image = main.Open().image;
  const PatchCheck check = CheckPatch(patch->changes, image);
  const PatchMisfits misfits(*patch, check, image, main.Texts());
  wait.reset();
  if (misfits.Count() == 0 && patch->changes.empty()) return main.Tell(Text::PatchWithoutChanges, file);
  if (misfits.Count() == 0 && check.CarriesAll()) return main.Tell(Text::PatchAlreadyApplied, file);
  if (misfits.Count() > 0 && !main.Boxes().ApplyOthers(misfits)) return;
  if (misfits.Fitting() > 0) WriteChanges(main, check.ToWrite(patch->changes), misfits, file);
}

}  // namespace

void ApplyPatch_Click(Main& main) {
  const Messages& texts = main.Texts();
  const std::string filter =
      std::string(texts.Msg(Text::Patch)) + " (*.qpt)|*.qpt|" + std::string(texts.Msg(Text::AllFiles)) + "|*.*";
  const std::filesystem::path own = main.Open().Beside(".qpt");
  const std::filesystem::path offered = FileExist(own) ? own : own.parent_path() / "";
  const auto file = main.Boxes().OpenFile(Wx(texts.Msg(Text::ApplyPatchFile)), Wx(filter), offered);
  if (file) Apply(main, *file);
}

void ApplyPatchFile(Main& main, const std::filesystem::path& file) {
  main.RunGuarded(Wx(main.Texts().Msg(Text::ApplyPatchFile)), [&] { Apply(main, file); });
}

bool IsPatchFile(const std::filesystem::path& file) { return ToUpper(PathText(file.extension())) == ".QPT"; }

}  // namespace tarvelo
