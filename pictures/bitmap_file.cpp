#include "pictures/bitmap_file.h"

#include "core/byte_writer.h"

#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>

namespace tarvelo {
namespace {

constexpr Colour keyColour = 0x00FF00;
constexpr std::uint32_t headerSize = 14 + 40;

std::uint8_t Channel(Colour colour, int shift) { return static_cast<std::uint8_t>(colour >> shift); }

void AppendBmpHeader(ByteBuffer& file, const Bitmap& bitmap, std::uint32_t dataSize) {
  AppendText(file, "BM");
  AppendDWord(file, headerSize + dataSize);
  AppendDWord(file, 0);
  AppendDWord(file, headerSize);
  AppendDWord(file, 40);
  AppendDWord(file, static_cast<std::size_t>(bitmap.width));
  AppendDWord(file, static_cast<std::size_t>(bitmap.height));
  AppendWord(file, 1);   // planes
  AppendWord(file, 24);  // bits per pixel
  AppendDWord(file, 0);  // not compressed
  AppendDWord(file, dataSize);
  AppendDWord(file, 2835);  // 72 pixels an inch, both ways
  AppendDWord(file, 2835);
  AppendDWord(file, 0);
  AppendDWord(file, 0);
}

}  // namespace

ByteBuffer BmpFile(const Bitmap& bitmap) {
  const std::uint32_t stride = (static_cast<std::uint32_t>(bitmap.width) * 3 + 3) & ~std::uint32_t{3};
  const std::uint32_t dataSize = stride * static_cast<std::uint32_t>(bitmap.height);
  ByteBuffer file;
  file.reserve(headerSize + dataSize);
  AppendBmpHeader(file, bitmap, dataSize);
  for (int y = bitmap.height - 1; y >= 0; --y) {
    const std::size_t row = file.size();
    for (int x = 0; x < bitmap.width; ++x) {
      const Colour pixel = bitmap.At(x, y);
      const Colour colour = pixel == backgroundColour ? keyColour : pixel;
      for (const int shift : {0, 8, 16}) file.push_back(Channel(colour, shift));
    }
    file.resize(row + stride);
  }
  return file;
}

ByteBuffer PngFile(const Bitmap& bitmap) {
  ByteBuffer rgba;
  rgba.reserve(bitmap.pixels.size() * 4);
  for (const Colour pixel : bitmap.pixels) {
    const bool visible = pixel != backgroundColour;
    for (const int shift : {16, 8, 0}) rgba.push_back(visible ? Channel(pixel, shift) : std::uint8_t{0});
    rgba.push_back(visible ? 0xFF : 0x00);
  }
  ByteBuffer file;
  if (rgba.empty()) return file;
  const auto append = [](void* context, void* data, int size) {
    const auto* bytes = static_cast<const std::uint8_t*>(data);
    AppendBytes(*static_cast<ByteBuffer*>(context), Bytes(bytes, static_cast<std::size_t>(size)));
  };
  stbi_write_png_to_func(append, &file, bitmap.width, bitmap.height, 4, rgba.data(), bitmap.width * 4);
  return file;
}

}  // namespace tarvelo
