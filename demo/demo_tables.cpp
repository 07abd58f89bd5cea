#include "demo/demo_tables.h"

namespace tarvelo {
namespace {

constexpr std::size_t entrySize = 8;

void WriteEntry(Flash& flash, std::size_t entry, const EncodedPicture& picture, std::size_t data) {
  PutByte(flash.bytes, entry, picture.width);
  PutByte(flash.bytes, entry + 1, picture.height);
  PutByte(flash.bytes, entry + 2, picture.type);
  PutByte(flash.bytes, entry + 3, 0);
  flash.PutPointer(entry + 4, data);
}

void WriteEnd(Flash& flash, std::size_t entry, TableEnd end) {
  const std::uint8_t width = end == TableEnd::fullWidth ? 255 : 8;
  const std::uint8_t height = end == TableEnd::noHeight ? 0 : 8;
  const std::uint8_t reserved = end == TableEnd::reservedByte ? 1 : 0;
  PutDWord(flash.bytes, entry, width | height << 8 | 1u << 16 | std::uint32_t{reserved} << 24);
  PutDWord(flash.bytes, entry + 4, 0);
}

}  // namespace

void WritePictureTable(Flash& flash, Area table, const std::vector<EncodedPicture>& pictures, TableEnd end,
                       AreaWriter& data) {
  AreaWriter entries(flash, table);
  for (const EncodedPicture& picture : pictures) {
    data.Align(2);
    WriteEntry(flash, entries.Reserve(entrySize), picture, data.PutInPage(picture.data));
  }
  WriteEnd(flash, entries.Reserve(entrySize), end);
}

void WriteStandalonePictures(Flash& flash, Area area, const std::vector<EncodedPicture>& pictures) {
  AreaWriter writer(flash, area);
  for (const EncodedPicture& picture : pictures) {
    writer.Align(2);
    const std::size_t header = writer.Reserve(entrySize);
    WriteEntry(flash, header, picture, writer.PutInPage(picture.data));
  }
}

}  // namespace tarvelo
