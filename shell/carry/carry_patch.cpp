#include "shell/carry/carry_patch.h"

#include <optional>
#include <utility>

#include "document/used_areas.h"
#include "patch/patch_document.h"
#include "port/carried_lines.h"
#include "port/port_text.h"
#include "shell/base/strings.h"
#include "shell/services/dump_files.h"
#include "shell/services/kept_file.h"
#include "shell/services/review.h"
#include "shell/services/search_progress.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

// The open image as it is in its file, for which its patch is.
Fullflash AsOpened(const Document& document) {
  const Fullflash& image = document.Image();
  Fullflash opened(image.ff());
  opened.SetCorrBase(image.CorrBase());
  for (const Change& edit : document.Edits().Changes(image)) opened.Write(edit.offset, edit.oldBytes);
  return opened;
}

ReviewDetails DetailsOf(const CarriedLines& lines, std::size_t row) {
  CodeAround around = lines.Around(row);
  return {Wx(lines.Similar(row)), std::move(around.rows), around.middle};
}

bool IsAccepted(Workbench& bench, const CarriedLines& lines) {
  return bench.talk
      .Show({.title = Text::CarryPatch,
             .summary = Wx(lines.Summary()),
             .rows = lines.Rows(),
             .accept = Text::SavePatch,
             .canAccept = lines.Carried() > 0,
             .details = [&lines](std::size_t row) { return DetailsOf(lines, row); }})
      .has_value();
}

void Save(Workbench& bench, const std::string& text, const Dump& other, const std::filesystem::path& dump) {
  std::filesystem::path suggested = dump;
  suggested.replace_extension(".qpt");
  const wxString filter = Wx(bench.texts.Msg(Text::Patch)) + " (*.qpt)|*.qpt";
  auto file = bench.talk.SaveFile(Text::SavePatch, filter, suggested);
  if (!file) return;
  if (!file->has_extension()) *file += ".qpt";
  wxString told = Wx(bench.texts.Msg(Text::PatchSaved)) + "\n\n" + WxPath(*file);
  if (KeepOld(*file, bench.status))
    told += "\n\n" + Wx(bench.texts.MsgS(Text::FileKeptAs, PathText(BackupOf(*file).filename())));
  ReplaceFile(*file, PatchFile(other.info.StatusText(), text));
  bench.talk.Tell(told);
  if (bench.talk.Offer(Wx(bench.texts.Msg(Text::AskOpenOther)) + "\n\n" + WxPath(dump)))
    bench.frame.OpenInNewWindow(dump, *file);
}

// Asks whether what finds its area used in the other dump may go into empty ones. Returns them, or nothing.
std::vector<AreaMove> AskMoves(Workbench& bench, const ReadPatch& patch, std::span<const PortedChange> ported,
                               const CodeVersions& versions, const Dump& other, Progress& progress) {
  if (!FindsAreasUsed(ported)) return {};
  std::vector<AreaMove> moves = OfferAreas(patch.changes, versions.Old(), versions.New(), versions.Pairing(),
                                           progress, UsedAreas(other, progress));
  if (moves.empty()) return {};
  wxString question = Wx(bench.texts.Msg(Text::AskMoveAreas)) + "\n";
  for (const AreaMove& move : moves)
    question += "\n" + Wx(TextOf(move.from)) + " -> " + Wx(TextOf({move.to, move.from.size}));
  return bench.talk.Offer(question) ? moves : std::vector<AreaMove>();
}

}  // namespace

void CarryPatch(Workbench& bench, const std::string& document) {
  const ReadPatch patch = ReadPatchText(document);
  if (patch.changes.empty()) return bench.talk.Tell(Wx(bench.texts.Msg(Text::PatchWithoutChanges)));
  std::filesystem::path path;
  const std::optional<Dump> other = AskForOtherVersion(bench, Text::CarryPatch, path);
  if (!other) return;
  const Fullflash opened = AsOpened(bench.document);
  SearchProgress progress(bench);
  const CodeVersions versions(opened, other->image, progress);
  std::vector<PortedChange> ported =
      PortChanges(patch.changes, opened, other->image, versions.Pairing(), progress);
  const std::vector<AreaMove> moves = AskMoves(bench, patch, ported, versions, *other, progress);
  if (!moves.empty())
    ported = PortChanges(patch.changes, opened, other->image, versions.Pairing(), progress, moves);
  const CarriedLines lines(patch, ported, versions, bench.texts);
  if (IsAccepted(bench, lines)) Save(bench, PortedText(document, patch.changes, ported), *other, path);
}

}  // namespace tarvelo
