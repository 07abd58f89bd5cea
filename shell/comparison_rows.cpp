#include "shell/comparison_rows.h"

#include <algorithm>

#include "core/notation.h"
#include "map/map_table.h"
#include "patch/patch_lines.h"
#include "shell/hex_rows.h"

namespace tarvelo {
namespace {

constexpr std::size_t bytesShown = 8;  // of a difference, in the list
constexpr Offset stripCells = 1024;

Bytes BytesOf(Bytes image, const Difference& difference) {
  return image.subspan(static_cast<std::size_t>(difference.offset),
                       static_cast<std::size_t>(difference.size));
}

Offset EndOf(const Difference& difference) { return difference.offset + difference.size; }

void JoinAcross(std::vector<Difference>& differences, Offset gap) {
  std::size_t kept = 0;
  for (const Difference& next : differences) {
    Difference& last = differences[kept == 0 ? 0 : kept - 1];
    if (kept > 0 && next.offset - EndOf(last) <= gap)
      last.size = EndOf(next) - last.offset;
    else
      differences[kept++] = next;
  }
  differences.resize(kept);
}

}  // namespace

const std::vector<std::string>& DifferenceCaptions() {
  static const std::vector<std::string> captions{"Offset", "Address", "Length",
                                                 "Old",    "New",     "What lies there"};
  return captions;
}

Table::Row DifferenceRow(const Fullflash& image, Bytes other, const DumpMap& map,
                         const Difference& difference) {
  const std::size_t width = std::to_string(image.ff().size()).size();
  const auto& [offset, size] = difference;
  if (offset + size > std::ssize(other)) ThrowPastEnd(offset + size);
  return {{OffsetText(image, offset), AddressText(image, offset), PadSpace(std::to_string(size), width),
           FirstBytes(image.Region(offset, size), bytesShown),
           FirstBytes(BytesOf(other, difference), bytesShown), LabelOf(map, offset, size)}};
}

Offset DifferingBytes(Bytes oldBytes, Bytes newBytes, std::span<const Difference> differences) {
  Offset count = 0;
  for (const Difference& difference : differences) {
    const Bytes from = BytesOf(oldBytes, difference);
    const Bytes to = BytesOf(newBytes, difference);
    for (std::size_t i = 0; i < from.size(); ++i) count += from[i] != to[i];
  }
  return count;
}

bool JoinDifferences(std::vector<Difference>& differences, std::size_t most) {
  if (differences.size() <= most) return false;
  for (Offset gap = 2 * usualGap; differences.size() > most; gap *= 2) JoinAcross(differences, gap);
  return true;
}

std::vector<StripPart> StripOf(std::span<const Difference> differences, Offset compared, Offset imageSize,
                               const wxColour& colour) {
  const Offset cell = imageSize / stripCells + 1;
  std::vector<StripPart> parts;
  for (const Difference& difference : differences) {
    const Offset begin = difference.offset / cell * cell;
    const Offset end = std::min((EndOf(difference) + cell - 1) / cell * cell, compared);
    if (!parts.empty() && begin <= parts.back().offset + parts.back().size)
      parts.back().size = end - parts.back().offset;
    else
      parts.push_back({begin, end - begin, colour});
  }
  return parts;
}

std::size_t NearestDifference(std::span<const Difference> differences, Offset offset) {
  const auto behind = std::ranges::upper_bound(differences, offset, {}, &Difference::offset);
  if (behind == differences.begin()) return 0;
  const auto before = behind - 1;
  const bool isBefore = behind == differences.end() || offset - EndOf(*before) < behind->offset - offset;
  return static_cast<std::size_t>((isBefore ? before : behind) - differences.begin());
}

}  // namespace tarvelo
