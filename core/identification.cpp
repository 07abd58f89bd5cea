#include "core/identification.h"

#include <algorithm>

#include "core/header_date.h"
#include "core/notation.h"
#include "core/scan/vector_scan.h"
#include "text/decoders.h"
#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr Offset blockSize = 0x10000;

// The position behind the last byte that is not 0xFF, searched downwards from the end of the full size, but
// not below the end of the exact size. The byte is read before the bound is checked: an area that reaches
// past the end of the image is a fault.
std::int64_t FreeStart(const Fullflash& image, const T9Area& t9) {
  std::int64_t p = std::int64_t{t9.T9Base} + t9.T9Full - 1;
  while (image.Byte(p) == 0xFF && p >= std::int64_t{t9.T9Base} + t9.T9Size) --p;
  return p + 1;
}

T9Area ReadT9(const Fullflash& image, Offset base) {
  T9Area t9;
  t9.T9Base = static_cast<std::int32_t>(base);
  t9.T9Size = image.DWord(base + 4);
  t9.T9Full = (t9.T9Size & 0x1F0000) + 0x10000;
  t9.T9Free = FreeStart(image, t9);
  t9.languages = image.Byte(base + 8);
  return t9;
}

std::optional<T9Area> FindT9(const Fullflash& image) {
  if (!image.PageMode()) return {};
  for (Offset p = 0; p < image.ffEnd(); p += blockSize) {
    if (image.Byte(p) != 'T' || image.Byte(p + 1) != '9') continue;
    try {
      return ReadT9(image, p);
    } catch (const std::exception&) {
      return {};  // cut off or malformed: the area counts as absent
    }
  }
  return {};
}

std::string ListEmptyBlocks(const Fullflash& image) {
  const auto count = static_cast<std::uint32_t>(image.ff().size() / blockSize);
  const auto number = [&](std::uint32_t block) {
    return PadZero(Hex(block), static_cast<std::size_t>(image.BlkDigits()));
  };
  const auto erased = [&](std::uint32_t block) {
    return block < count && IsErased(image.ff().subspan(std::size_t{block} * blockSize, blockSize));
  };
  std::string list;
  for (std::uint32_t first = 0; first < count; ++first) {
    if (!erased(first)) continue;
    std::uint32_t last = first;
    while (erased(last + 1)) ++last;
    list.append(", ").append(number(first));
    if (last > first) list.append(" - ").append(number(last));
    first = last;
  }
  return list;
}

// A string of the header, looked for in the 64 KiB from an offset on. Firmware strings are short; an
// image without stop bytes must not make texts of many megabytes.
std::u16string HeaderString(const Fullflash& image, Offset offset) {
  constexpr std::size_t longest = 0x10000;
  const Bytes rest = image.ff().subspan(static_cast<std::size_t>(offset));
  return GetStr(rest.first(std::min(longest, rest.size())), 0);
}

std::optional<std::int32_t> FindSignature(const Fullflash& image) {
  constexpr Offset step = 0x200000;
  for (Offset p = image.PageMode() ? 0x7FF80 : 0x8FC80; p <= image.ffEnd(); p += step)
    if (HeaderString(image, p) == u"SIEMENS") return static_cast<std::int32_t>(p & 0xFFFF00);
  return {};
}

std::int32_t CorrectedBase(const Fullflash& image, const Identification& info) {
  const bool shifted = (info.Family == 3 && image.LoadBase() == 0xA00000) || info.Model == "A52";
  return shifted ? 0x800000 : image.LoadBase();
}

}  // namespace

int FamilyOf(std::string_view model) {
  struct Row {
    std::string_view model;
    int family;
  };
  static constexpr Row rows[] = {
      {"C35", 0},  {"M35", 0},  {"S35", 0},  {"A35", 1},  {"A36", 1}, {"A40", 1},  {"C45", 2},
      {"2118", 2}, {"MT50", 2}, {"M50", 2},  {"3118", 2}, {"S45", 3}, {"S45i", 3}, {"ME45", 3},
      {"SL42", 4}, {"SL45", 4}, {"6688", 4}, {"C30", 5},  {"S40", 6},
  };
  const auto found = std::ranges::find(rows, model, &Row::model);
  return found == std::end(rows) ? 7 : found->family;
}

std::string Identification::StatusText() const {
  std::string text;
  if (SigPos)
    text = WithDots(Model + " v" + version + " " + headerText);
  else
    text = WithDots(Model);
  if (t9) text += " T9lg" + std::to_string(t9->languages);
  return text;
}

Identification Identify(Fullflash& image) {
  Identification info;
  info.t9 = FindT9(image);
  info.EmptyBlocks = ListEmptyBlocks(image);
  info.SigPos = FindSignature(image);
  if (info.SigPos) {
    const Offset header = *info.SigPos;
    info.Model = ToUtf8(HeaderString(image, header + 0x70));
    info.version = image.ByteHex(header + 0x50);
    info.headerText = ToUtf8(HeaderString(image, header + 0x60));
    info.buildDate = HeaderDate(image.ff(), header);
  }
  info.Family = FamilyOf(info.Model);
  image.SetCorrBase(CorrectedBase(image, info));
  return info;
}

}  // namespace tarvelo
