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

// Writes the fitting changes as one step, which must be undoable.
void Write(Fullflash& image, ImageEdits& edits, const ReadPatch& patch, const PatchCheck& check) {
  edits.Write(image, check.ToWrite(patch.changes));
}

void CheckComparison(const Comparison& comparison, Bytes one, Bytes other, Offset gap) {
  Offset end = -gap - 1;
  std::vector<std::uint8_t> made(one.begin(), one.end());
  for (const Difference& difference : comparison.differences) {
    Check(difference.size > 0 && difference.offset > end + gap, "differences are apart");
    end = difference.offset + difference.size;
    const Change change = ChangeOf(one, other, difference);
    Check(change.oldBytes.front() != change.newBytes.front() &&
              change.oldBytes.back() != change.newBytes.back(),
          "a difference begins and ends with bytes that differ");
    std::ranges::copy(change.newBytes, made.begin() + difference.offset);
  }
  Check(std::ranges::equal(Bytes(made).first(static_cast<std::size_t>(comparison.common)),
                           other.first(static_cast<std::size_t>(comparison.common))),
        "the differences are all");
}

void CompareAndBack(Bytes one, Bytes other, Offset gap) {
  const Comparison comparison = Compare(one, other, gap);
  CheckComparison(comparison, one, other, gap);
  if (!comparison.SameLength()) return;
  const std::string lines = PatchLines(one, other, comparison.differences);
  const ReadPatch patch = ReadPatchText(PatchFile(TextOf(one), PatchBlock(TextOf(other), lines)));
  Check(patch.invalid.empty(), "a patch that was made has no invalid line");
  std::vector<Change> changes;
  for (const PatchChange& each : patch.changes) {
    Check(each.change.Size() <= longestPatchLine, "a line is not too long");
    changes.push_back(each.change);
  }
  Check(PatchLines(changes) == lines, "its changes give its lines again");

  Fullflash image(one);
  ImageEdits edits;
  const PatchCheck check = CheckPatch(patch.changes, image);
  Check(check.Count(Fit::Fine) == patch.changes.size(), "all its lines fit");
  Write(image, edits, patch, check);
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
  Write(image, edits, patch, check);
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
