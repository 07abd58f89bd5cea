#include "shell/compare/comparison_rows.h"

#include <algorithm>

#include "core/notation.h"
#include "core/places.h"
#include "document/map_table.h"
#include "patch/patch_lines.h"
#include "resources/texts.h"

namespace tarvelo {
namespace {

constexpr std::size_t bytesShown = 8;  // of a difference, in the list
constexpr Offset stripCells = 1024;

}  // namespace

std::vector<std::string> DifferenceCaptions(const Messages& messages) {
  return Captions(messages, {Text::ColumnOffset, Text::ColumnAddress, Text::ColumnLength, Text::ColumnOld,
                             Text::ColumnNew, Text::ColumnWhatLiesThere});
}

Table::Row DifferenceRow(const Fullflash& image, Bytes other, const DumpMap& map,
                         const Difference& difference, const Messages& messages) {
  const std::size_t width = std::to_string(image.ff().size()).size();
  const auto& [offset, size] = difference;
  return {{OffsetText(image, offset), AddressText(image, offset), PadSpace(std::to_string(size), width),
           FirstBytes(image.Region(offset, size), bytesShown),
           FirstBytes(RegionOf(other, difference), bytesShown), LabelOf(map, offset, size, messages)}};
}

std::vector<StripPart> StripOf(std::span<const Difference> differences, Offset compared, Offset imageSize,
                               const wxColour& colour) {
  const Offset cell = imageSize / stripCells + 1;
  std::vector<StripPart> parts;
  for (const Difference& difference : differences) {
    const Offset begin = difference.offset / cell * cell;
    const Offset end = std::min((difference.End() + cell - 1) / cell * cell, compared);
    if (!parts.empty() && begin <= parts.back().offset + parts.back().size)
      parts.back().size = end - parts.back().offset;
    else
      parts.push_back({begin, end - begin, colour});
  }
  return parts;
}

}  // namespace tarvelo
