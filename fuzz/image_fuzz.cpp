// Any bytes as a dump: identified, its summary written, its texts decoded, its pictures drawn. The
// bytes are laid where the firmware has its header, so that few of them reach far.
#include <algorithm>
#include <cstdint>
#include <vector>

#include "core/identification.h"
#include "core/summary.h"
#include "media/bitmap_file.h"
#include "media/picture_data.h"
#include "media/picture_search.h"
#include "media/picture_table.h"
#include "text/decoders.h"

namespace {

using namespace tarvelo;

void DecodeTexts(Bytes bytes) {
  using Decoder = std::u16string (*)(Bytes, Offset&);
  for (const Decoder decoder : {GetSiem, GetUni, GetUni2, GetPDU, GetUniFF, MessageHard}) try {
      for (Offset at = 0; at <= static_cast<Offset>(bytes.size());) {
        const Offset before = at;
        (void)decoder(bytes, at);
        at = std::max(at, before) + 1;
      }
    } catch (const std::out_of_range&) {
    }
  (void)GetStr(bytes, 0);
  try {
    (void)GetStrN(bytes, 0);
    (void)GetStrA(bytes, 0, 40);
  } catch (const std::out_of_range&) {
  }
}

void DrawPictures(const Fullflash& image) {
  NoProgress progress;
  const PictureList list = GetP(image, progress);
  (void)TabSeparated(PictureTable(list), "\n");
  PictureDecoder decoder(image.ff());
  const std::size_t count = std::min<std::size_t>(list.pictures.size(), 50);
  for (std::size_t i = 0; i < count; ++i) {
    const Bitmap bitmap = decoder.ShowP(list.pictures[i], list.colourSeen);
    (void)BmpFile(bitmap);
    (void)PngFile(bitmap);
  }
}

void Explore(Bytes bytes) {
  Fullflash image(bytes);
  if (!image.IsOpen()) return;
  const Identification info = Identify(image);
  (void)Summary("dump.bin", image, info, Messages());
  DrawPictures(image);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Bytes bytes(data, size);
  DecodeTexts(bytes);
  Explore(bytes);
  constexpr std::size_t header = 0x7FF00;
  std::vector<std::uint8_t> firmware(header, 0xFF);
  firmware.insert(firmware.end(), data, data + size);
  Explore(firmware);
  return 0;
}
