// Pictures as files in a folder.
#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "pictures/picture_data.h"

namespace tarvelo {

enum class PictureFormat { Bmp, Png };

// Writes one picture into a folder, creating the folder if necessary, as STEM_NNNN.bmp or .png, with the
// picture's number as at least four decimal digits. An existing file of that name is replaced. Returns the
// file's path, or nothing if the format cannot hold the picture (a PNG without pixels). Throws FileError.
std::optional<std::filesystem::path> SavePicture(PictureDecoder& decoder, const Picture& picture,
                                                 bool colourSeen, const std::filesystem::path& folder,
                                                 std::string_view stem, PictureFormat format);

}  // namespace tarvelo
