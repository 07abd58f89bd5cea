#include "pictures/picture_table.h"

#include "core/notation.h"
#include "pictures/picture.h"
#include "resources/texts.h"

namespace tarvelo {
namespace {

Table::Row RowOf(const Picture& picture) {
  return {{std::to_string(picture.table), HexColumn(picture.index, 3), DecimalColumn(picture.number, 4),
           DecimalColumn(picture.width, 3), DecimalColumn(picture.height, 3),
           DecimalColumn(picture.BitsPerPixel(), 2), HexColumn(picture.data, 6),
           DecimalColumn(picture.size, 5),
           picture.IsCompressed() ? DecimalColumn(picture.PlainSize(), 5) : "", HexColumn(picture.entry, 6)}};
}

}  // namespace

int BitsOfType(std::uint8_t type) {
  switch (type & 0x7F) {
    case 1: return 1;
    case 3: return 2;
    case 5: return 8;
    case 7: return 12;
    case 8: return 16;
    default: return 0;
  }
}

int Stride(int width, int bitsPerPixel) { return (width * (bitsPerPixel == 12 ? 16 : bitsPerPixel) + 7) / 8; }

int Picture::BitsPerPixel() const { return BitsOfType(type); }

int Picture::PlainSize() const { return Stride(width, BitsPerPixel()) * height; }

std::string Picture::Caption() const {
  return " " + std::to_string(number) + ".  " + std::to_string(width) + " * " + std::to_string(height) +
         " * " + std::to_string(BitsPerPixel()) + " " + (IsCompressed() ? "(comp) " : "");
}

std::vector<std::string> PictureCaptions(const Messages& messages) {
  return Captions(messages, {"P", "N/P", "N", "X", "Y", "B", Text::ColumnOffset, Text::ColumnSize,
                             Text::ColumnUncompressed, "PIT"});
}

TableRows PictureRows(const PictureList& list, const Messages& messages) {
  return {PictureCaptions(messages), list.pictures.size(),
          [&list](std::size_t row) { return RowOf(list.pictures[row]); }};
}

std::string PictureInformation(const PictureList& list, const Messages& messages) {
  std::string text;
  for (std::size_t i = 0; i < list.tables.size(); ++i)
    text.append(std::to_string(i + 1))
        .append(": ")
        .append(messages.Msg(Text::PitAddressLabel))
        .append(" ")
        .append(Hex(list.tables[i]))
        .append("\n");
  text.append(messages.Msg(Text::PictureCountLabel))
      .append(std::to_string(list.pictures.size()))
      .append("\n");
  text.append(messages.Msg(Text::PicturesOutsideLabel))
      .append(std::to_string(list.outsideCount))
      .append("\n");
  return text;
}

}  // namespace tarvelo
