#include "shell/files/file_picture.h"

#include <wx/image.h>
#include <wx/log.h>
#include <wx/mstream.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace tarvelo {
namespace {

constexpr std::int64_t mostPixels = 4 << 20;
constexpr std::size_t mostMemory = 64 << 20;  // at once
constexpr std::size_t mostScans = 100;

void* Allocate(std::size_t size) { return size > mostMemory ? nullptr : std::malloc(size); }
void* Reallocate(void* old, std::size_t size) {
  return size > mostMemory ? nullptr : std::realloc(old, size);
}

}  // namespace
}  // namespace tarvelo

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_GIF
#define STBI_ONLY_JPEG
#define STBI_ONLY_PNG
#define STBI_NO_STDIO
#define STBI_MALLOC(size) tarvelo::Allocate(size)
#define STBI_REALLOC(old, size) tarvelo::Reallocate(old, size)
#define STBI_FREE(old) std::free(old)
#include <stb/stb_image.h>

namespace tarvelo {
namespace {

bool Begins(Bytes file, std::string_view with) {
  return file.size() >= with.size() &&
         std::equal(with.begin(), with.end(), file.begin(),
                    [](char a, std::uint8_t b) { return static_cast<std::uint8_t>(a) == b; });
}

bool IsBearable(std::int64_t width, std::int64_t height) {
  return width > 0 && height > 0 && width <= mostPixels && height <= mostPixels / width;
}

Colour ColourOf(const std::uint8_t* rgb) {
  return static_cast<Colour>(rgb[0]) << 16 | static_cast<Colour>(rgb[1]) << 8 | rgb[2];
}

// wx reads bitmaps in all of their forms. A negative height means rows from the top.
std::optional<FilePicture> ReadBmp(Bytes file) {
  if (file.size() < 26) return {};
  const bool isOld = DWordAt(file, 14) == 12;  // a header with words
  const std::int64_t width = isOld ? WordAt(file, 18) : static_cast<std::int32_t>(DWordAt(file, 18));
  const std::int64_t height =
      isOld ? WordAt(file, 20) : std::abs(std::int64_t{static_cast<std::int32_t>(DWordAt(file, 22))});
  if (!IsBearable(width, height)) return {};
  const wxLogNull quiet;
  wxMemoryInputStream stream(file.data(), file.size());
  const wxImage image(stream, wxBITMAP_TYPE_BMP);
  if (!image.IsOk()) return {};
  FilePicture picture{Bitmap(image.GetWidth(), image.GetHeight()), "BMP"};
  const std::uint8_t* rgb = image.GetData();
  for (Colour& pixel : picture.bitmap.pixels) {
    pixel = ColourOf(rgb);
    rgb += 3;
  }
  return picture;
}

// Whether no table of codes behind a marker of a JPEG file has more codes than bytes can name, which the
// decoder takes for granted. A table is a byte, 16 counts of codes, and a byte for each code; the decoder
// also reads a table that only begins in the segment.
bool HasSoundTables(Bytes segment) {
  const auto byte = [&](std::size_t at) { return at < segment.size() ? segment[at] : 0u; };
  const std::size_t size = byte(0) << 8 | byte(1);
  for (std::size_t at = 2; at < size;) {
    std::size_t codes = 0;
    for (std::size_t i = 1; i <= 16; ++i) codes += byte(at + i);
    if (codes > 256) return false;
    at += 17 + codes;
  }
  return true;
}

// Markers stand where compressed data has none: FF is never followed by their second byte there. Every scan
// may pass over the whole picture.
bool IsSoundJpeg(Bytes file) {
  constexpr std::uint8_t tables = 0xC4, scan = 0xDA;
  std::size_t scans = 0, segments = 0;
  for (std::size_t i = 0; i + 1 < file.size(); ++i) {
    if (file[i] != 0xFF) continue;
    if (file[i + 1] == scan && ++scans > mostScans) return false;
    if (file[i + 1] != tables) continue;
    if (++segments > mostScans || !HasSoundTables(file.subspan(i + 2))) return false;
  }
  return true;
}

std::optional<FilePicture> ReadOther(Bytes file, std::string_view format) {
  const int size = static_cast<int>(std::min<std::size_t>(file.size(), mostMemory));
  int width = 0, height = 0, channels = 0;
  if (stbi_info_from_memory(file.data(), size, &width, &height, &channels) == 0) return {};
  if (!IsBearable(width, height)) return {};
  const std::unique_ptr<stbi_uc, decltype(&stbi_image_free)> pixels(
      stbi_load_from_memory(file.data(), size, &width, &height, &channels, STBI_rgb_alpha), stbi_image_free);
  if (!pixels) return {};
  FilePicture picture{Bitmap(width, height), format};
  const stbi_uc* rgba = pixels.get();
  for (Colour& pixel : picture.bitmap.pixels) {
    if (rgba[3] >= 0x80) pixel = ColourOf(rgba);
    rgba += 4;
  }
  return picture;
}

}  // namespace

std::optional<FilePicture> ReadPicture(Bytes file) {
  if (Begins(file, "BM")) return ReadBmp(file);
  if (Begins(file, "GIF8")) return ReadOther(file, "GIF");
  if (Begins(file, "\xFF\xD8\xFF") && IsSoundJpeg(file)) return ReadOther(file, "JPEG");
  if (Begins(file, "\x89PNG")) return ReadOther(file, "PNG");
  return {};
}

}  // namespace tarvelo
