#include "media/picture_table.h"

#include "core/notation.h"
#include "media/picture.h"

namespace tarvelo {
namespace {

std::string HexColumn(Offset value, std::size_t width) {
  return PadZero(Hex(static_cast<std::uint32_t>(value)), width);
}

std::string Column(int value, std::size_t width) { return PadSpace(std::to_string(value), width); }

Table::Row RowOf(const Picture& picture) {
  return {{std::to_string(picture.table), HexColumn(picture.index, 3), Column(picture.number, 4),
           Column(picture.width, 3), Column(picture.height, 3), Column(picture.BitsPerPixel(), 2),
           HexColumn(picture.data, 6), Column(picture.size, 5),
           picture.IsCompressed() ? Column(picture.PlainSize(), 5) : "", HexColumn(picture.entry, 6)}};
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
  return Captions(messages, {"P", "N/P", "N", "X", "Y", "B", 262, 261, 472, "PIT"});
}

TableRows PictureRows(const PictureList& list, const Messages& messages) {
  return {PictureCaptions(messages), list.pictures.size(),
          [&list](std::size_t row) { return RowOf(list.pictures[row]); }};
}

Table PictureTable(const PictureList& list) { return PictureRows(list).All(); }

std::string PictureInformation(const PictureList& list, const Messages& messages) {
  std::string text;
  for (std::size_t i = 0; i < list.tables.size(); ++i)
    text.append(std::to_string(i + 1))
        .append(": ")
        .append(messages.Msg(27))
        .append(" ")
        .append(Hex(static_cast<std::uint32_t>(list.tables[i])))
        .append("\n");
  text.append(messages.Msg(25)).append(std::to_string(list.pictures.size())).append("\n");
  text.append(messages.Msg(26)).append(std::to_string(list.outsideCount)).append("\n");
  return text;
}

}  // namespace tarvelo
