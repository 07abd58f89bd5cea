// Changes of an image as the lines of a patch (patch_document.h says what a line is).
#pragma once

#include <span>
#include <string>

#include "core/image_edits.h"

namespace tarvelo {

// The most bytes that a line changes.
constexpr Offset longestPatchLine = 16;

// The most bytes of each side that a list shows of a difference.
constexpr std::size_t differenceBytesShown = 8;

// An offset as patch lines have it: six hexadecimal digits, more where they do not suffice.
[[nodiscard]] std::string PatchAddress(Offset offset);

// Adds the lines that turn the old bytes at an offset into as many new ones, each ended by a line feed.
// A line begins and ends with a byte that changes: bytes that stay are written only between two that
// change, and there are no lines for bytes that are all the same.
void AppendPatchLines(std::string& lines, Offset offset, Bytes oldBytes, Bytes newBytes);

// The lines of changes, parted by line feeds: the body of a PatchBlock. Changes that follow one another
// without a byte between them share lines.
[[nodiscard]] std::string PatchLines(std::span<const Change> changes);

// The first bytes in hexadecimal, with "..." where there are more than `most`.
[[nodiscard]] std::string FirstBytes(Bytes bytes, std::size_t most);

}  // namespace tarvelo
