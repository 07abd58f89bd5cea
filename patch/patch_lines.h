// Changes of an image as patch lines (patch_document.h defines a line).
#pragma once

#include <span>
#include <string>

#include "core/image_edits.h"

namespace tarvelo {

// The most bytes that one line changes.
constexpr Offset longestPatchLine = 16;

// The most bytes of each side that a list shows for a patch line, and for a difference.
constexpr auto lineBytesShown = static_cast<std::size_t>(longestPatchLine);
constexpr std::size_t differenceBytesShown = 8;

// An offset as in patch lines: at least six hexadecimal digits.
[[nodiscard]] std::string PatchAddress(Offset offset);

// Adds the lines that turn the old bytes at an offset into as many new ones, each ending in a line feed. A
// line begins and ends with a byte that changes; unchanged bytes appear only between two that change. If all
// bytes are equal, nothing is added.
void AppendPatchLines(std::string& lines, Offset offset, Bytes oldBytes, Bytes newBytes);

// The lines of changes, separated by line feeds: the body of a PatchBlock. Adjacent changes share lines.
[[nodiscard]] std::string PatchLines(std::span<const Change> changes);

// At most `most` bytes in hexadecimal, followed by "..." if there are more.
[[nodiscard]] std::string FirstBytes(Bytes bytes, std::size_t most);

}  // namespace tarvelo
