#include "document/difference_table.h"

#include "core/notation.h"
#include "core/places.h"
#include "document/map_table.h"
#include "patch/patch_lines.h"
#include "resources/texts.h"

namespace tarvelo {

TableRows DifferenceRows(const Fullflash& image, Bytes other, std::span<const Difference> differences,
                         const DumpMap* map, const Messages& messages, Offset shift) {
  const std::size_t width = std::to_string(image.ff().size()).size();
  return {Captions(messages, {Text::ColumnOffset, Text::ColumnAddress, Text::ColumnLength, Text::ColumnOld,
                              Text::ColumnNew, Text::ColumnWhatLiesThere}),
          differences.size(), [=, &image](std::size_t row) -> Table::Row {
            const auto& [offset, size] = differences[row];
            return {{OffsetText(image, offset), AddressText(image, offset), WholeDecimal(size, width),
                     FirstBytes(image.Region(offset, size), differenceBytesShown),
                     FirstBytes(RegionOf(other, differences[row], shift), differenceBytesShown),
                     map ? LabelOf(*map, offset, size, messages) : std::string()}};
          }};
}

}  // namespace tarvelo
