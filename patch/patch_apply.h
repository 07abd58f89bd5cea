// A patch on its way into an image: read from its text, checked against the bytes that stand there,
// turned into the changes to write.
//
//   const ReadPatch patch = ReadPatchText(text);
//   const PatchCheck check = CheckPatch(patch.changes, image);
//   if (patch.invalid.empty() && check.Fits()) edits.Write(image, check.ToWrite(patch.changes));
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/image_edits.h"
#include "core/progress.h"

namespace tarvelo {

struct PatchChange {
  std::size_t line = 0;  // its number in the text, from 1
  Change change;
};

struct InvalidPatchLine {
  std::size_t line = 0;
  std::string text;  // as it stands, but not more than its first 100 bytes
};

struct ReadPatch {
  std::vector<PatchChange> changes;  // both in the order of the lines
  std::vector<InvalidPatchLine> invalid;
};

// Reads the text of a whole patch file or document: lines that end with CR LF, LF or CR, with or without a
// byte order mark of UTF-8 in front. Empty lines and comments are left out.
[[nodiscard]] ReadPatch ReadPatchText(std::string_view text);

// Reads a patch file of at most `limit` bytes. In memory its lines take many times as much. Throws FileError.
[[nodiscard]] ReadPatch ReadPatchFile(const std::filesystem::path& file, std::uint64_t limit,
                                      Progress& progress);

// How a change fits an image.
enum class Fit : std::uint8_t {
  Fine,     // the old bytes stand there
  Applied,  // the new bytes stand there already
  Mismatch,
  Outside,  // not all of its bytes lie within the image
};

struct CheckedChange {
  Fit fit = Fit::Fine;
  std::vector<std::uint8_t> found;  // of a mismatch: the bytes that stand there
};

struct PatchCheck {
  std::vector<CheckedChange> changes;  // one for each of the patch

  [[nodiscard]] std::size_t Count(Fit fit) const;
  // Whether every change can be made or was made already.
  [[nodiscard]] bool Fits() const { return Count(Fit::Fine) + Count(Fit::Applied) == changes.size(); }
  // Whether there are changes, and the image carries them all.
  [[nodiscard]] bool CarriesAll() const { return !changes.empty() && Count(Fit::Applied) == changes.size(); }
  // The changes that are fine, in their order, for one step of ImageEdits::Write. They are to be made all:
  // one may rest on another. `patch` are the changes that were checked.
  [[nodiscard]] std::vector<Change> ToWrite(std::span<const PatchChange> patch) const;
};

// Checks the changes in their order, each against the image as those that are fine before it leave it.
// Where changes overlap, one counts as applied already also where the bytes stand that the whole patch
// would leave in its place.
[[nodiscard]] PatchCheck CheckPatch(std::span<const PatchChange> patch, const Fullflash& image);

}  // namespace tarvelo
