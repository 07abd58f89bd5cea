#include "shell/patch/patch_work.h"

#include <string>
#include <vector>

#include "core/disk_names.h"
#include "core/file.h"
#include "patch/document_check_text.h"
#include "patch/patch_text.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/patch/patch_editor.h"
#include "shell/patch/patch_files.h"
#include "shell/services/save_each.h"
#include "shell/services/talk.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

constexpr std::size_t mostContradictions = 1000;  // in a message

// What was added, and the contradictions in the whole document.
void TellMerged(Workbench& bench, const MergedText& merged) {
  DocumentCheck check(merged.text, OriginalOf(bench.document.Image(), bench.document.Edits()));
  while (check.Step(merged.text.size())) {
  }
  const Messages& texts = bench.texts;
  std::string told = std::string(texts.Msg(Text::LinesAddedLabel)) + std::to_string(merged.added);
  told.append("\n").append(texts.Msg(Text::SameLinesLabel)) += std::to_string(merged.same);
  const std::size_t contradictions = check.Count(LineVerdict::Contradicts);
  if (contradictions == 0) return bench.talk.Tell(Wx(told));
  told.append("\n").append(texts.Msg(Text::ContradictionsLabel)) += std::to_string(contradictions);
  told.append("\n\n") += ContradictionsText(check, mostContradictions);
  bench.talk.Announce(Wx(texts.Msg(Text::AddPatchFile)), Wx(told));
}

}  // namespace

void AddPatchFile_Click(Workbench& bench, PatchFiles& files, PatchEditor& editor) {
  const auto file = files.Ask(Text::AddPatchFile);
  if (!file) return;
  const auto other = files.Read(*file);
  if (!other) return;
  const std::string document = editor.Document();
  const MergedText merged = MergePatchTexts(document, PathText(file->stem()), other->document);
  if (merged.added == 0 && merged.same == 0)
    return bench.talk.Tell(Wx(bench.texts.Msg(Text::PatchWithoutChanges)));
  if (merged.text != document) editor.ReplaceAll(merged.text);
  TellMerged(bench, merged);
}

void SplitPatch_Click(Workbench& bench, PatchFiles& files, const PatchEditor& editor) {
  const std::vector<PatchPart> parts = SplitPatchText(editor.Document());
  if (parts.size() < 2) return bench.talk.Complain(Text::NothingToSplit);
  UniqueNames names;
  std::size_t saved = 0;
  (void)SaveEach(bench, parts.size(), [&](std::size_t i) {
    const std::string name = parts[i].name.empty() ? std::to_string(i + 1) : parts[i].name;
    files.WritePart(bench.document.Beside("_" + names.Take(DiskName(name + ".qpt"))), parts[i].text);
    ++saved;
  });
  const std::string told = std::string(bench.texts.Msg(Text::PatchFilesSavedLabel)) + std::to_string(saved);
  bench.talk.Tell(Wx(told), bench.document.Beside("_*.qpt"));
}

}  // namespace tarvelo
