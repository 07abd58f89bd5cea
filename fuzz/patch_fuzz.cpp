// Applies arbitrary text as a patch to arbitrary bytes: text, a zero, bytes.
#include <algorithm>
#include <tuple>

#include "fuzz/target.h"
#include "patch/document_check.h"
#include "patch/patch_apply.h"
#include "patch/patch_lines.h"
#include "patch/patch_text.h"

namespace tarvelo::fuzz {
namespace {

std::vector<Change> SortedChanges(const ReadPatch& patch) {
  std::vector<Change> changes;
  for (const PatchChange& each : patch.changes) changes.push_back(each.change);
  std::ranges::sort(changes, {},
                    [](const Change& each) { return std::tie(each.offset, each.oldBytes, each.newBytes); });
  return changes;
}

// What is done to whole texts keeps every change.
void CheckTexts(const std::string& text, const ReadPatch& patch) {
  Check(SortedChanges(ReadPatchText(ReversedText(text))) == SortedChanges(Reversed(patch)),
        "the reversed text has the reversed changes");
  std::size_t inParts = 0;
  for (const PatchPart& part : SplitPatchText(text)) inParts += ReadPatchText(part.text).changes.size();
  Check(inParts == patch.changes.size(), "every change is in a part");
  const MergedText merged = MergePatchTexts(text, "name", text);
  Check(merged.added == patch.invalid.size() && merged.same == patch.changes.size(), "a patch holds itself");
}

// The check of lines agrees with that of changes.
void CheckLines(const std::string& text, const PatchCheck& changes, const Fullflash& image) {
  DocumentCheck lines(text, Sheet(image.ff()));
  while (lines.Step(3)) {
  }
  Check(lines.Count(LineVerdict::Outside) == changes.Count(Fit::Outside), "as many lines are outside");
  Check(lines.Count(LineVerdict::Differs) <= changes.Count(Fit::Mismatch), "what differs does not match");
  for (const std::size_t line : lines.Contradictions())
    Check(lines.OtherLine(line).has_value(), "a contradiction has two sides");
}

bool IsSame(const Fullflash& image, Bytes bytes) { return std::ranges::equal(image.ff(), bytes); }

}  // namespace

void Run(Bytes data) {
  Input input(data);
  const std::string text = input.Text();
  const ReadPatch patch = ReadPatchText(text);
  CheckTexts(text, patch);
  const Bytes bytes = input.Rest();
  for (const PatchChange& each : patch.changes) {
    const ReadPatch again = ReadPatchText(PatchLines({&each.change, 1}));
    Check(again.invalid.empty(), "the lines that are made of a change are lines of a patch");
  }

  Fullflash image(bytes);
  ImageEdits edits;
  const PatchCheck check = CheckPatch(patch.changes, image);
  edits.Write(image, check.ToWrite(patch.changes));
  if (check.Fits()) {
    Fullflash plain(bytes);
    for (const PatchChange& each : patch.changes) plain.Write(each.change.offset, each.change.newBytes);
    Check(IsSame(image, plain.ff()), "a patch that fits does what its lines do one by one");
    Check(CheckPatch(patch.changes, image).CarriesAll() == !patch.changes.empty(), "it is then applied");
  }
  edits.Undo(image);
  CheckLines(text, check, image);
  Check(IsSame(image, bytes), "a patch can be taken back in one step");
}

}  // namespace tarvelo::fuzz
