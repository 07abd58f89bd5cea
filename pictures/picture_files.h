// Pictures as files in a folder.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "pictures/picture_data.h"

namespace tarvelo {

enum class PictureFormat { Bmp, Png };

// Writes one picture into a folder, which is made when it is missing, as STEM_NNNN.bmp or .png: the
// picture's number in decimal with at least four digits. A file of that name is replaced. Returns the file's
// path, or nothing where the format cannot hold the picture (a PNG without pixels). Throws FileError.
std::optional<std::filesystem::path> SavePicture(PictureDecoder& decoder, const Picture& picture,
                                                 bool colourSeen, const std::filesystem::path& folder,
                                                 std::string_view stem, PictureFormat format);

}  // namespace tarvelo
