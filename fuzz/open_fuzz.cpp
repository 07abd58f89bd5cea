// Opens arbitrary bytes as a dump: identifies it and writes its summary in every language.
#include "core/identification.h"
#include "core/summary.h"
#include "fuzz/target.h"
#include "resources/language.h"
#include "text/unicode.h"

namespace {

using namespace tarvelo;
using namespace tarvelo::fuzz;

void CheckT9(const T9Area& t9, const Fullflash& image) {
  Check(image.PageMode(), "large images have no T9 area");
  Check(t9.T9Base % 0x10000 == 0 && t9.T9Full % 0x10000 == 0, "a T9 area is in whole blocks");
  Check(std::int64_t{t9.T9Base} + t9.T9Full <= image.ffEnd() + 1, "a T9 area lies within the image");
  Check(t9.Empty() >= 0 && t9.Empty() <= t9.T9Full, "a T9 area's free bytes are within it");
}

// Reads at the edges of the image and wherever its first bytes point.
void ReadValues(const Fullflash& image) {
  for (const Offset at :
       {Offset{-1}, Offset{0}, Offset{image.ffEnd()} - 3, Offset{image.ffEnd()}, Offset{image.ffEnd()} + 1}) {
    try {
      (void)image.Byte(at);
      (void)image.ByteHex(at);
      (void)image.ByteDec(at);
      (void)image.Word(at);
      (void)image.Byte(image.GetAdr(at));
      (void)image.DWord(at);
    } catch (const std::out_of_range&) {
    } catch (const std::overflow_error&) {
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Fullflash image = ImageOf({data, size});
  ReadValues(image);
  if (!image.IsOpen()) return 0;
  const Identification info = Identify(image);
  Check(info.SigPos.has_value() || info.Model.empty(), "a model comes with a signature");
  if (info.SigPos) Check(*info.SigPos <= image.ffEnd(), "the header lies within the image");
  if (info.t9) CheckT9(*info.t9, image);
  (void)info.StatusText();
  for (const Language& language : Languages()) {
    const std::string summary = Summary("dump.bin", image, info, Messages(language));
    Check(ToUtf8(ToUtf16(summary)) == summary, "the summary is UTF-8");
    Check(summary.ends_with('\n'), "the summary is whole lines");
  }
  return 0;
}
