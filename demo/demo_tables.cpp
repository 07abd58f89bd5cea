#include "demo/demo_tables.h"

namespace tarvelo {
namespace {

constexpr std::size_t entrySize = 8;

void WriteEntry(ImageBuilder& image, std::size_t entry, const EncodedPicture& picture, std::size_t data) {
  image.Byte(entry, picture.width);
  image.Byte(entry + 1, picture.height);
  image.Byte(entry + 2, picture.type);
  image.Byte(entry + 3, 0);
  image.Pointer(entry + 4, data);
}

void WriteEnd(ImageBuilder& image, std::size_t entry, TableEnd end) {
  const std::uint8_t width = end == TableEnd::fullWidth ? 255 : 8;
  const std::uint8_t height = end == TableEnd::noHeight ? 0 : 8;
  const std::uint8_t reserved = end == TableEnd::reservedByte ? 1 : 0;
  image.DWord(entry, width | height << 8 | 1u << 16 | std::uint32_t{reserved} << 24);
  image.DWord(entry + 4, 0);
}

}  // namespace

void WritePictureTable(ImageBuilder& image, Region table, const std::vector<EncodedPicture>& pictures,
                       TableEnd end, RegionWriter& data) {
  RegionWriter entries(image, table);
  for (const EncodedPicture& picture : pictures) {
    data.Align(2);
    WriteEntry(image, entries.Reserve(entrySize), picture, data.PutInPage(picture.data));
  }
  WriteEnd(image, entries.Reserve(entrySize), end);
}

void WriteStandalonePictures(ImageBuilder& image, Region region,
                             const std::vector<EncodedPicture>& pictures) {
  RegionWriter writer(image, region);
  for (const EncodedPicture& picture : pictures) {
    writer.Align(2);
    const std::size_t header = writer.Reserve(entrySize);
    WriteEntry(image, header, picture, writer.PutInPage(picture.data));
  }
}

}  // namespace tarvelo
