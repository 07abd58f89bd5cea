// Applies arbitrary text as a patch to arbitrary bytes: text, a zero, bytes.
#include "fuzz/target.h"
#include "patch/patch_apply.h"
#include "patch/patch_lines.h"

namespace {

using namespace tarvelo;
using namespace tarvelo::fuzz;

bool IsSame(const Fullflash& image, Bytes bytes) { return std::ranges::equal(image.ff(), bytes); }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input({data, size});
  const ReadPatch patch = ReadPatchText(input.Text());
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
  Check(IsSame(image, bytes), "a patch can be taken back in one step");
  return 0;
}
