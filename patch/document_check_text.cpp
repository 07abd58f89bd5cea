#include "patch/document_check_text.h"

#include <algorithm>

#include "patch/patch_lines.h"
#include "resources/texts.h"

namespace tarvelo {
namespace {

constexpr std::string_view gap = "    ";
constexpr Text verdictNames[lineVerdicts] = {{},
                                             Text::LineFits,
                                             Text::LineApplied,
                                             Text::LineOverlaps,
                                             Text::LineDiffers,
                                             Text::LineContradicts,
                                             Text::LineOutside,
                                             Text::LineMalformed};

Text NameOf(LineVerdict verdict) { return verdictNames[static_cast<std::size_t>(verdict)]; }

}  // namespace

std::string TotalsText(const DocumentCheck& check, const Messages& messages) {
  std::string text;
  for (std::size_t i = lineVerdicts - 1; i > 0; --i) {
    const std::size_t count = check.Count(static_cast<LineVerdict>(i));
    if (count == 0) continue;
    if (!text.empty()) text += gap;
    text.append(messages.Msg(verdictNames[i])).append(" ") += std::to_string(count);
  }
  return text;
}

std::string LineText(const DocumentCheck& check, std::size_t line, const Messages& messages) {
  std::string text = messages.Label(Text::ColumnLine) + " " + std::to_string(line);
  const LineVerdict verdict = check.At(line);
  if (verdict == LineVerdict::Nothing) return text;
  text.append(gap).append(messages.Msg(NameOf(verdict)));
  const bool clashes = verdict == LineVerdict::Overlaps || verdict == LineVerdict::Contradicts;
  if (const auto other = check.OtherLine(line); other && clashes) text += ": " + std::to_string(*other);
  const std::vector<std::uint8_t> found = check.Found(line);
  if (IsProblem(verdict) && !found.empty())
    text.append(gap).append(messages.Label(Text::ColumnFound)).append(" ") +=
        FirstBytes(found, lineBytesShown);
  return text;
}

std::string ContradictionsText(const DocumentCheck& check, std::size_t most) {
  std::string text;
  for (const std::size_t line : check.Contradictions()) {
    if (most-- == 0) return text + "...\n";
    const Change& change = *check.ChangeAt(line);
    text.append(PatchAddress(change.offset)).append(gap).append(std::to_string(line)).append(": ");
    text.append(FirstBytes(change.oldBytes, lineBytesShown)).append(" ");
    text.append(FirstBytes(change.newBytes, lineBytesShown)).append("\n");
  }
  return text;
}

}  // namespace tarvelo
