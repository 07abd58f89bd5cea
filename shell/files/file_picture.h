// Reads picture files of the phone.
#pragma once

#include <optional>
#include <string_view>

#include "pictures/bitmap.h"
#include "text/bytes.h"

namespace tarvelo {

struct FilePicture {
  Bitmap bitmap;  // transparent pixels are background
  std::string_view format;
};

// The picture in a BMP, GIF, JPEG or PNG file, of a GIF the first frame. Nothing for other files, damaged
// ones, and those whose decoding would take much time or memory, which no picture for a phone does: of more
// than 4 million pixels, of 64 MiB unpacked, or drawn in more than 100 scans. Never throws.
[[nodiscard]] std::optional<FilePicture> ReadPicture(Bytes file);

}  // namespace tarvelo
