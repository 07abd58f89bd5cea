// Compares two dumps of arbitrary bytes: their patch must turn the first into the second. Also applies
// arbitrary text as a patch to arbitrary bytes.
#include "fuzz/target.h"
#include "patch/image_compare.h"
#include "patch/patch_apply.h"
#include "patch/patch_document.h"
#include "patch/patch_lines.h"

namespace {

using namespace tarvelo;
using namespace tarvelo::fuzz;

bool IsSame(const Fullflash& image, Bytes bytes) { return std::ranges::equal(image.ff(), bytes); }

void CheckComparison(const Comparison& comparison, Bytes one, Bytes other, Offset gap) {
  Offset end = -gap - 1;
  for (const Difference& difference : comparison.differences) {
    Check(difference.size > 0 && difference.offset > end + gap, "differences are apart");
    end = difference.offset + difference.size;
    const Change change = ChangeOf(one, other, difference);
    Check(change.oldBytes.front() != change.newBytes.front() &&
              change.oldBytes.back() != change.newBytes.back(),
          "a difference begins and ends with bytes that differ");
  }
}

void CompareAndBack(Bytes one, Bytes other, Offset gap) {
  const Comparison comparison = Compare(one, other, gap);
  CheckComparison(comparison, one, other, gap);
  if (!comparison.SameLength()) return;
  const std::string lines = PatchLines(one, other, comparison.differences);
  const ReadPatch patch = ReadPatchText(PatchFile(TextOf(one), PatchBlock(TextOf(other), lines)));
  Check(patch.invalid.empty(), "a patch that was made has no invalid line");
  std::vector<Change> changes;
  for (const PatchChange& each : patch.changes) changes.push_back(each.change);
  Check(PatchLines(changes) == lines, "its changes give its lines again");

  Fullflash image(one);
  ImageEdits edits;
  const PatchCheck check = CheckPatch(patch.changes, image);
  Check(check.Count(Fit::Fine) == patch.changes.size(), "all its lines fit");
  edits.Write(image, check.ToWrite(patch.changes));
  Check(IsSame(image, other), "it makes the second dump of the first");
  Check(CheckPatch(patch.changes, image).CarriesAll() != comparison.Same(), "it is seen to be applied");
  edits.Undo(image);
  Check(IsSame(image, one), "it can be taken back in one step");
}

void ApplyText(std::string_view text, Bytes bytes) {
  const ReadPatch patch = ReadPatchText(text);
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
  Check(IsSame(image, bytes), "a patch can be taken back in one step");
}

}  // namespace

// Byte 0: the gap; its lowest bit also says whether the dumps have the same length. Then the patch's text, a
// zero, and both dumps.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input({data, size});
  const Offset gap = input.Byte();
  const std::string text = input.Text();
  const Bytes dumps = input.Rest();
  const std::size_t half = gap % 2 == 0 ? dumps.size() / 2 : dumps.size() / 3;
  const Bytes one = dumps.first(half);
  const Bytes other = gap % 2 == 0 ? dumps.subspan(half, half) : dumps.subspan(half);
  CompareAndBack(one, other, gap / 2 % 32);
  ApplyText(text, dumps);
  return 0;
}
