// The texts of the hex view: what stands in a row and where, what is said of a place, what is copied,
// and how a place to go to is written.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/fullflash.h"

namespace tarvelo {

inline constexpr int bytesInRow = 16;

// Where things stand in a row, in characters of a monospaced font:
//   01A2B4  284:2345  00 11 22 33 44 55 66 77  88 99 AA BB CC DD EE FF  text
class HexColumns {
 public:
  HexColumns() = default;
  explicit HexColumns(const Fullflash& image);

  [[nodiscard]] int Address() const { return offsetDigits_ + 2; }
  // The first of the two digits, resp. the character of a byte, 0 .. 15.
  [[nodiscard]] int Hex(int byte) const {
    return Address() + 10 + 3 * byte + (byte >= bytesInRow / 2 ? 1 : 0);
  }
  [[nodiscard]] int Text(int byte) const { return Hex(bytesInRow - 1) + 4 + byte; }
  [[nodiscard]] int End() const { return Text(bytesInRow); }

  // The byte that stands in or next to a column.
  [[nodiscard]] int ByteAt(int column) const;
  [[nodiscard]] bool IsInText(int column) const { return column >= Text(0) - 1; }

 private:
  int offsetDigits_ = 6;
};

// The digits of an image's offsets.
[[nodiscard]] int OffsetWidth(const Fullflash& image);

// An offset with leading zeros; its phone address, as page and offset in the page ("284:2345"), in
// large images as one number ("A001A2B4").
[[nodiscard]] std::string OffsetText(const Fullflash& image, Offset offset);
[[nodiscard]] std::string AddressText(const Fullflash& image, Offset offset);

// The Windows-1251 character of a byte, a dot where it has none that can be seen.
[[nodiscard]] char16_t ShownCharacter(std::uint8_t byte);

// The byte, the word and the double word at an offset of the image, as far as it has them, and where a
// pointer there leads, if it leads into the image: "34 / 1234 / 02841234  -> 011234". Erased and zero
// double words are no pointers.
[[nodiscard]] std::string Reading(const Fullflash& image, Offset offset);

// Bytes as "45 23 84 02", which the search for bytes takes.
[[nodiscard]] std::string AsHex(Bytes bytes);
// Bytes as Windows-1251 text in UTF-8. What cannot be seen is a dot, but for tabs and line breaks.
[[nodiscard]] std::string AsText(Bytes bytes);

// The bytes of a text of pairs of hexadecimal digits, with blanks, commas and line breaks between them or
// not. Nothing for any other text, an empty one too.
[[nodiscard]] std::optional<std::vector<std::uint8_t>> ReadHex(std::string_view text);

// The Windows-1251 byte of a character, if it has one.
[[nodiscard]] std::optional<std::uint8_t> ByteOf(char32_t character);
// The value of a hexadecimal digit, if it is one.
[[nodiscard]] std::optional<std::uint8_t> DigitOf(char32_t character);

// What a plain number means.
enum class PlaceKind { AsOffset, AsAddress };

// The offset of a place in the image: a hexadecimal number, with "0x" before it or not, or page:offset.
// A number that can be no offset of this image is taken as a phone address. Nothing where the place
// lies outside the image. Throws std::invalid_argument for what is no number, std::overflow_error for
// one of more than 32 bits.
[[nodiscard]] std::optional<Offset> ReadPlace(std::string_view text, PlaceKind kind, const Fullflash& image);

}  // namespace tarvelo
