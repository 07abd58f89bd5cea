#include "core/places.h"

#include <algorithm>

#include "core/calculator.h"
#include "core/notation.h"
#include "core/trimmed.h"

namespace tarvelo {
namespace {

constexpr std::uint32_t addressPage = 0x4000;
constexpr std::uint32_t segmentSize = 0x10000;

std::optional<Offset> Within(const Fullflash& image, Offset offset) {
  if (!image.IsOpen() || offset < 0 || offset > image.ffEnd()) return {};
  return offset;
}

std::uint32_t HexNumber(std::string_view text) {
  text = Trimmed(text);
  if (text.starts_with("0x") || text.starts_with("0X")) text.remove_prefix(2);
  if (text.empty()) throw std::invalid_argument("no number");
  return HexVal(text);
}

// Reads "number:number"; `unit` is the size of what the first one counts.
std::optional<Offset> ReadPair(std::string_view text, std::uint32_t unit, const Fullflash& image) {
  const auto colon = text.find(':');
  const std::uint64_t first = HexNumber(text.substr(0, colon));
  const std::uint64_t address = first * unit + HexNumber(text.substr(colon + 1));
  if (address > 0xFFFFFFFF) return {};
  return OffsetOf(image, static_cast<std::uint32_t>(address));
}

}  // namespace

std::optional<Offset> OffsetOf(const Fullflash& image, std::uint32_t address) {
  // For large images the base is negative, so the subtraction is done on unsigned numbers.
  return Within(image, static_cast<std::uint32_t>(address - static_cast<std::uint32_t>(image.CorrBase())));
}

int OffsetWidth(const Fullflash& image) {
  return std::max(image.OffDigits(), static_cast<int>(Hex(image.ffEnd()).size()));
}

std::string OffsetText(const Fullflash& image, Offset offset) {
  return WholeHex(static_cast<std::uint32_t>(offset), OffsetWidth(image));
}

std::string AddressText(const Fullflash& image, Offset offset) {
  const std::uint32_t address = image.PhoneAddress(offset);
  if (!image.PageMode()) return WholeHex(address, 8);
  return WholeHex(address / addressPage, 3) + ":" + WholeHex(address % addressPage, 4);
}

std::string Reading(const Fullflash& image, Offset offset) {
  std::string text = image.ByteHex(offset);
  if (offset + 1 > image.ffEnd()) return text;
  const std::uint32_t word = image.Word(offset);
  text += " / " + WholeHex(word, 4);
  if (offset + 3 > image.ffEnd()) return text;
  const std::uint32_t dword = word | std::uint32_t{image.Word(offset + 2)} << 16;
  text += " / " + WholeHex(dword, 8);
  if (dword == 0 || dword == 0xFFFFFFFF) return text;
  const auto target = Within(image, Offset{image.GetAdr(offset)} - image.CorrBase());
  return target ? text + "  -> " + OffsetText(image, *target) : text;
}

std::optional<Offset> ReadPlace(std::string_view text, PlaceKind kind, const Fullflash& image) {
  if (text.find(':') != text.npos) return ReadPair(text, addressPage, image);
  const std::uint32_t number = HexNumber(text);
  if (kind == PlaceKind::AsOffset)
    if (const auto offset = Within(image, number)) return offset;
  return OffsetOf(image, number);
}

std::optional<Offset> FindPlace(std::string_view text, PlaceKind kind, ColonForm form, const Dump& dump,
                                Offset from) {
  text = Trimmed(text);
  if (const auto address = dump.names.Find(text)) return OffsetOf(dump.image, *address);
  if (text.ends_with('h') || text.ends_with('H')) text.remove_suffix(1);
  if (text.starts_with('+')) return Within(dump.image, from + HexNumber(text.substr(1)));
  if (text.starts_with('-')) return Within(dump.image, from - HexNumber(text.substr(1)));
  if (text.find(':') == text.npos) return ReadPlace(text, kind, dump.image);
  const bool isPage = form == ColonForm::Page;
  if (const auto offset = ReadPair(text, isPage ? addressPage : segmentSize, dump.image)) return offset;
  return ReadPair(text, isPage ? segmentSize : addressPage, dump.image);
}

std::optional<Region> ReadRegion(std::string_view text, const Dump& dump) {
  const auto sign = text.find_first_of("-+");
  const auto place = [&](std::string_view part) {
    return FindPlace(part, PlaceKind::AsOffset, ColonForm::Page, dump);
  };
  if (sign == text.npos) throw std::invalid_argument("no region");
  const auto first = place(text.substr(0, sign));
  const std::string_view rest = text.substr(sign + 1);
  const auto last = text[sign] == '-' ? place(rest)
                    : first           ? Within(dump.image, *first + HexNumber(rest) - 1)
                                      : first;
  if (!first || !last || *last < *first) return {};
  return Region{*first, *last - *first + 1};
}

std::string RegionText(const Fullflash& image, const Region& region) {
  return OffsetText(image, region.offset) + "-" + OffsetText(image, region.End() - 1);
}

std::string PlaceText(const Fullflash& image, Offset offset) {
  std::string text = OffsetText(image, offset) + " = " + AddressText(image, offset);
  return image.PageMode() ? text + " = " + SegmentText(image, offset) : text;
}

std::string SegmentText(const Fullflash& image, Offset offset) {
  const std::uint32_t address = image.PhoneAddress(offset);
  return WholeHex(address / segmentSize, 2) + ":" + WholeHex(address % segmentSize, 4);
}

}  // namespace tarvelo
