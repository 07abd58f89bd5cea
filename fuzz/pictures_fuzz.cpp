// Arbitrary bytes as a dump with pictures: draws them and turns them into files.
#include "core/identification.h"
#include "fuzz/target.h"
#include "pictures/bitmap_file.h"
#include "pictures/picture_data.h"
#include "pictures/picture_search.h"

namespace {

using namespace tarvelo;
using namespace tarvelo::fuzz;

// Limits that keep an input fast: the pixels of all pictures together, and of one packed as PNG.
constexpr std::size_t mostPixels = 1 << 16;
constexpr std::size_t mostPacked = 1 << 10;

std::size_t Draw(PictureDecoder& decoder, const Picture& picture, bool colourSeen) {
  const Bitmap bitmap = decoder.ShowP(picture, colourSeen);
  Check(bitmap.width == picture.width && bitmap.height == picture.height, "a bitmap is the picture's size");
  const std::size_t pixels = bitmap.pixels.size();
  Check(BmpFile(bitmap).size() >= 54 + 3 * pixels, "a bitmap file holds every pixel");
  if (pixels <= mostPacked) Check(PngFile(bitmap).empty() == (pixels == 0), "a picture with pixels is a PNG");
  return pixels + 64;  // a picture without pixels takes time too
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Fullflash image = ImageOf({data, size});
  if (!image.IsOpen()) return 0;
  (void)Identify(image);
  NoProgress progress;
  const PictureList list = GetP(image, progress);
  Check(list.tables.size() <= 99, "there are at most 99 tables");

  PictureDecoder decoder(image.ff());
  std::size_t drawn = 0;
  for (const Picture& picture : list.pictures) {
    (void)picture.Caption();
    Check(picture.size == decoder.SizeP(picture.width, picture.height, picture.BitsPerPixel(), picture.data,
                                        picture.type),
          "a picture is as large as its data says again");
    drawn += Draw(decoder, picture, list.colourSeen);
    if (drawn > mostPixels) break;
  }
  return 0;
}
