// Writes numbers, texts and runs of bytes, either to the end of a growing buffer or over the bytes of an
// image. If a number is too large for its width, its low bits are written.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "text/bytes.h"

namespace tarvelo {

using ByteBuffer = std::vector<std::uint8_t>;

// Each Append adds to the end of `out`.
inline void AppendBytes(ByteBuffer& out, Bytes bytes) { out.insert(out.end(), bytes.begin(), bytes.end()); }
inline void AppendBytes(ByteBuffer& out, std::initializer_list<std::uint8_t> bytes) {
  out.insert(out.end(), bytes);
}
// The bytes of a text, without a zero behind it.
inline void AppendText(ByteBuffer& out, std::string_view text) {
  out.insert(out.end(), text.begin(), text.end());
}
// Words have 16 bits, double words 32. They are little-endian; the functions named Big write big-endian.
inline void AppendWord(ByteBuffer& out, std::size_t value) {
  AppendBytes(out, {static_cast<std::uint8_t>(value), static_cast<std::uint8_t>(value >> 8)});
}
inline void AppendDWord(ByteBuffer& out, std::size_t value) {
  AppendWord(out, value);
  AppendWord(out, value >> 16);
}
inline void AppendBigWord(ByteBuffer& out, std::size_t value) {
  AppendBytes(out, {static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)});
}
inline void AppendBigDWord(ByteBuffer& out, std::size_t value) {
  AppendBigWord(out, value >> 16);
  AppendBigWord(out, value);
}

// Each Put overwrites the bytes from `offset` on and returns the offset behind them. Throws
// std::out_of_range, and writes nothing, unless all of the bytes are in the image.
[[nodiscard]] inline std::span<std::uint8_t> PlaceFor(std::span<std::uint8_t> image, std::size_t offset,
                                                      std::size_t count) {
  if (offset > image.size() || count > image.size() - offset)
    throw std::out_of_range("written past the end of the image");
  return image.subspan(offset, count);
}
inline std::size_t PutBytes(std::span<std::uint8_t> image, std::size_t offset, Bytes bytes) {
  std::ranges::copy(bytes, PlaceFor(image, offset, bytes.size()).begin());
  return offset + bytes.size();
}
// The bytes of a text, without a zero behind it.
inline std::size_t PutText(std::span<std::uint8_t> image, std::size_t offset, std::string_view text) {
  std::ranges::copy(text, PlaceFor(image, offset, text.size()).begin());
  return offset + text.size();
}
inline std::size_t PutByte(std::span<std::uint8_t> image, std::size_t offset, std::uint8_t value) {
  return PutBytes(image, offset, {&value, 1});
}
// Little-endian, 16 and 32 bits.
inline std::size_t PutWord(std::span<std::uint8_t> image, std::size_t offset, std::size_t value) {
  const std::span<std::uint8_t> place = PlaceFor(image, offset, 2);
  for (std::size_t i = 0; i < place.size(); ++i) place[i] = static_cast<std::uint8_t>(value >> 8 * i);
  return offset + place.size();
}
inline std::size_t PutDWord(std::span<std::uint8_t> image, std::size_t offset, std::size_t value) {
  const std::span<std::uint8_t> place = PlaceFor(image, offset, 4);
  for (std::size_t i = 0; i < place.size(); ++i) place[i] = static_cast<std::uint8_t>(value >> 8 * i);
  return offset + place.size();
}
inline std::size_t PutFill(std::span<std::uint8_t> image, std::size_t offset, std::size_t count,
                           std::uint8_t value) {
  std::ranges::fill(PlaceFor(image, offset, count), value);
  return offset + count;
}

}  // namespace tarvelo
