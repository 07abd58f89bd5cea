// What one does to the text of whole patches. Every comment stays.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvelo {

// The patch that undoes this one: each line has its old and new bytes swapped. Lines that change the same
// bytes also swap their places, last one first; a comment behind a line goes with it.
[[nodiscard]] std::string ReversedText(std::string_view text);

struct MergedText {
  std::string text;
  std::size_t added = 0;  // lines
  std::size_t same = 0;   // lines that the document had already
};

// Adds another patch to a document, as a block with this name. A change that the document has in the same
// form is not added; its comment goes behind the one that is there.
[[nodiscard]] MergedText MergePatchTexts(std::string_view document, std::string_view name,
                                         std::string_view other);

struct PatchPart {
  std::string name;  // its first comment, without ";"; may be empty
  std::string text;  // with CR LF
};

// The parts between comments of asterisks. What has no changes goes with the next part, or with the last one.
[[nodiscard]] std::vector<PatchPart> SplitPatchText(std::string_view text);

}  // namespace tarvelo
