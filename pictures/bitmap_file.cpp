#include "pictures/bitmap_file.h"

#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>

namespace tarvelo {
namespace {

constexpr Colour keyColour = 0x00FF00;
constexpr std::uint32_t headerSize = 14 + 40;

std::uint8_t Channel(Colour colour, int shift) { return static_cast<std::uint8_t>(colour >> shift); }

void Append(std::vector<std::uint8_t>& file, std::uint32_t value, int count) {
  for (int i = 0; i < count; ++i) file.push_back(static_cast<std::uint8_t>(value >> 8 * i));
}

void AppendBmpHeader(std::vector<std::uint8_t>& file, const Bitmap& bitmap, std::uint32_t dataSize) {
  file.push_back('B');
  file.push_back('M');
  Append(file, headerSize + dataSize, 4);
  Append(file, 0, 4);
  Append(file, headerSize, 4);
  Append(file, 40, 4);
  Append(file, static_cast<std::uint32_t>(bitmap.width), 4);
  Append(file, static_cast<std::uint32_t>(bitmap.height), 4);
  Append(file, 1, 2);   // planes
  Append(file, 24, 2);  // bits a pixel
  Append(file, 0, 4);   // not compressed
  Append(file, dataSize, 4);
  Append(file, 2835, 4);  // 72 pixels an inch, both ways
  Append(file, 2835, 4);
  Append(file, 0, 4);
  Append(file, 0, 4);
}

}  // namespace

std::vector<std::uint8_t> BmpFile(const Bitmap& bitmap) {
  const std::uint32_t stride = (static_cast<std::uint32_t>(bitmap.width) * 3 + 3) & ~std::uint32_t{3};
  const std::uint32_t dataSize = stride * static_cast<std::uint32_t>(bitmap.height);
  std::vector<std::uint8_t> file;
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

std::vector<std::uint8_t> PngFile(const Bitmap& bitmap) {
  std::vector<std::uint8_t> rgba;
  rgba.reserve(bitmap.pixels.size() * 4);
  for (const Colour pixel : bitmap.pixels) {
    const bool visible = pixel != backgroundColour;
    for (const int shift : {16, 8, 0}) rgba.push_back(visible ? Channel(pixel, shift) : std::uint8_t{0});
    rgba.push_back(visible ? 0xFF : 0x00);
  }
  std::vector<std::uint8_t> file;
  if (rgba.empty()) return file;
  const auto append = [](void* context, void* data, int size) {
    const auto* bytes = static_cast<const std::uint8_t*>(data);
    static_cast<std::vector<std::uint8_t>*>(context)->insert(
        static_cast<std::vector<std::uint8_t>*>(context)->end(), bytes, bytes + size);
  };
  stbi_write_png_to_func(append, &file, bitmap.width, bitmap.height, 4, rgba.data(), bitmap.width * 4);
  return file;
}

}  // namespace tarvelo
