#include "pictures/picture_files.h"

#include "core/file.h"
#include "core/notation.h"
#include "pictures/bitmap_file.h"

namespace tarvelo {

std::optional<std::filesystem::path> SavePicture(PictureDecoder& decoder, const Picture& picture,
                                                 bool colourSeen, const std::filesystem::path& folder,
                                                 std::string_view stem, PictureFormat format) {
  const Bitmap bitmap = decoder.ShowP(picture, colourSeen);
  const bool isBmp = format == PictureFormat::Bmp;
  const std::vector<std::uint8_t> bytes = isBmp ? BmpFile(bitmap) : PngFile(bitmap);
  if (bytes.empty()) return {};
  MakeFolder(folder);
  const std::string number = std::to_string(picture.number);
  const std::string name = std::string(stem) + "_" +
                           PadZero(number, std::max<std::size_t>(4, number.size())) +
                           (isBmp ? ".bmp" : ".png");
  const std::filesystem::path file = folder / PathOf(name);
  ReplaceFile(file, bytes);
  return file;
}

}  // namespace tarvelo
