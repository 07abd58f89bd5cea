// Judges every line of a patch document against the bytes of an image, a few lines at a time if it is long.
//
//   DocumentCheck check(text, OriginalOf(image, edits));
//   while (check.Step(1000)) ...
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "patch/patch_apply.h"
#include "patch/patch_document.h"
#include "patch/sheet.h"

namespace tarvelo {

// What a line of a document is. If several apply, the last of them counts.
enum class LineVerdict : std::uint8_t {
  Nothing,      // it is empty or a comment
  Fits,         // the image has the old bytes
  Applied,      // the image has the new bytes
  Overlaps,     // it repeats an earlier line's change of a byte, or changes that byte further
  Differs,      // the image has other bytes
  Contradicts,  // it and another line change the same byte in ways that do not go together
  Outside,      // not all of its bytes are in the image
  Malformed,
};
constexpr std::size_t lineVerdicts = 8;

// Whether the line needs the user's attention.
[[nodiscard]] constexpr bool IsProblem(LineVerdict verdict) { return verdict >= LineVerdict::Overlaps; }

// The image as it was opened. The image must outlive the result, and its bytes must not change.
[[nodiscard]] Sheet OriginalOf(const Fullflash& image, const ImageEdits& edits);

// Lines are numbered from 1.
class DocumentCheck {
 public:
  DocumentCheck(std::string text, Sheet original);
  DocumentCheck(const DocumentCheck&) = delete;
  DocumentCheck& operator=(const DocumentCheck&) = delete;

  // Does the work for this many lines: every line is read, and every change then judged. False once all is
  // done; only then do the others answer.
  bool Step(std::size_t lines);
  [[nodiscard]] bool IsDone() const { return isRead_ && judged_ == changes_.size(); }

  [[nodiscard]] LineVerdict At(std::size_t line) const;
  [[nodiscard]] std::size_t Count(LineVerdict verdict) const {
    return counts_[static_cast<std::size_t>(verdict)];
  }
  // The change of a line; null if it has none.
  [[nodiscard]] const Change* ChangeAt(std::size_t line) const;
  // The line that this one overlaps or contradicts, if it does.
  [[nodiscard]] std::optional<std::size_t> OtherLine(std::size_t line) const;
  // The bytes that the image has where the line changes some; empty if these are not all in the image.
  [[nodiscard]] std::vector<std::uint8_t> Found(std::size_t line) const;

  // The next line with a problem behind a line or before it, from the other end if there is none; nothing if
  // no line has one.
  [[nodiscard]] std::optional<std::size_t> NextProblem(std::size_t line, bool backwards) const;
  // The lines that contradict others, in the order of their places.
  [[nodiscard]] std::vector<std::size_t> Contradictions() const;
  // The last line that changes the byte at an offset.
  [[nodiscard]] std::optional<std::size_t> LineOf(Offset offset) const;

 private:
  enum class Clash : std::uint8_t { None, Overlap, Contradiction };
  struct Judged {
    Clash clash = Clash::None;
    std::uint32_t other = 0;  // index of a change
  };
  static constexpr Offset ownersPage = 32;
  using Owners = std::array<std::uint32_t, ownersPage>;  // of bytes: the index of the last change, plus 1

  bool ReadNext();
  bool JudgeNext();
  void FindClashes(std::uint32_t index);
  void Mark(std::uint32_t index, Clash clash, std::uint32_t other);
  [[nodiscard]] LineVerdict VerdictOf(std::size_t index, Fit fit) const;
  [[nodiscard]] std::optional<std::size_t> IndexOf(std::size_t line) const;

  std::string text_;
  PatchLineReader reader_;
  Sheet original_;
  PatchJudge judge_;
  bool isRead_ = false;
  std::size_t judged_ = 0;  // changes
  std::vector<LineVerdict> verdicts_;
  std::vector<PatchChange> changes_;
  std::vector<Judged> clashes_;  // one for each change
  std::unordered_map<Offset, Owners> owners_;
  std::array<std::size_t, lineVerdicts> counts_{};
};

}  // namespace tarvelo
