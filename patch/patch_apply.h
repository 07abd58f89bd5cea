// Applies a patch to an image: reads its text, checks it against the image's bytes, and makes the changes to
// write.
//
//   const ReadPatch patch = ReadPatchText(text);
//   const PatchCheck check = CheckPatch(patch.changes, image);
//   if (patch.invalid.empty() && check.Fits()) edits.Write(image, check.ToWrite(patch.changes));
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/image_edits.h"
#include "core/progress.h"
#include "patch/sheet.h"

namespace tarvelo {

struct PatchChange {
  std::size_t line = 0;  // line number in the text, from 1
  Change change;
};

struct InvalidPatchLine {
  std::size_t line = 0;
  std::string text;  // its first 100 bytes
};

struct ReadPatch {
  // What the patch says about itself: the comments before its first other line, without line ends. At most
  // its first 50 lines, and of each the first 200 bytes.
  std::vector<std::string> header;
  std::vector<PatchChange> changes;  // both in line order, unless it is reversed
  std::vector<InvalidPatchLine> invalid;
};

// Reads the text of a whole patch file or document (EachPatchLine). Empty lines and comments are ignored.
[[nodiscard]] ReadPatch ReadPatchText(std::string_view text);

// Reads a patch file of at most `limit` bytes. Its lines need many times that in memory. Throws FileError.
[[nodiscard]] ReadPatch ReadPatchFile(const std::filesystem::path& file, std::uint64_t limit,
                                      Progress& progress);

// The patch that takes a patch out of a dump: last change first, new bytes for old ones.
[[nodiscard]] ReadPatch Reversed(ReadPatch patch);

// How a change fits an image.
enum class Fit : std::uint8_t {
  Fine,     // the image has the old bytes
  Applied,  // the image already has the new bytes
  Mismatch,
  Outside,  // not all of its bytes are in the image
};

struct CheckedChange {
  Fit fit = Fit::Fine;
  std::vector<std::uint8_t> found;  // for a mismatch: the bytes in the image
};

struct PatchCheck {
  std::vector<CheckedChange> changes;  // one for each change of the patch

  [[nodiscard]] std::size_t Count(Fit fit) const;
  // Whether every change can be made or was already made.
  [[nodiscard]] bool Fits() const { return Count(Fit::Fine) + Count(Fit::Applied) == changes.size(); }
  // Whether there are changes and the image already has all of them.
  [[nodiscard]] bool CarriesAll() const { return !changes.empty() && Count(Fit::Applied) == changes.size(); }
  // The fine changes, in order, for one step of ImageEdits::Write. Make all of them: one may depend on
  // another. `patch` must be the checked changes.
  [[nodiscard]] std::vector<Change> ToWrite(std::span<const PatchChange> patch) const;
};

// Judges changes in order, each against the image as the fine changes before it leave it. A change also
// counts as applied if the image has, in its place, the bytes that the whole patch would leave there;
// overlapping changes need this. But if all changes can be made one after the other and leave other bytes,
// all are fine: a later change may bring back bytes that an earlier one overwrites.
class PatchJudge {
 public:
  explicit PatchJudge(const Sheet& image) : now_(image), afterAll_(image) {}

  // Call this for all changes in order, then Judge in the same order.
  void Expect(const Change& change);
  [[nodiscard]] CheckedChange Judge(const Change& change);

 private:
  [[nodiscard]] bool LiesWithin(const Change& change) const;

  Sheet now_;
  Sheet afterAll_;
  bool fitsInOrder_ = true;
  std::optional<bool> makesAll_;  // known from the first change that is judged
};

// Checks all changes of a patch (PatchJudge).
[[nodiscard]] PatchCheck CheckPatch(std::span<const PatchChange> patch, const Fullflash& image);

}  // namespace tarvelo
