// Checked reads from a run of bytes. Every other read relies on this one bounds check.
#pragma once

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>

namespace tarvelo {

using Bytes = std::span<const std::uint8_t>;

// An index into an image or a buffer. It is wider than any image needs, so that offset arithmetic cannot
// wrap. It may be negative or past the end; reading there is a fault.
using Offset = std::int64_t;

[[noreturn]] inline void ThrowPastEnd(Offset a) {
  throw std::out_of_range("read outside the image at offset " + std::to_string(a));
}

// The byte at offset a. Throws std::out_of_range if it is outside the bytes.
[[nodiscard]] inline std::uint8_t ByteAt(Bytes bytes, Offset a) {
  if (static_cast<std::uint64_t>(a) >= bytes.size()) ThrowPastEnd(a);
  return bytes[static_cast<std::size_t>(a)];
}

// The little-endian 16-bit word at offsets a and a + 1. Throws std::out_of_range if either is outside the
// bytes.
[[nodiscard]] inline std::uint16_t WordAt(Bytes bytes, Offset a) {
  return static_cast<std::uint16_t>(ByteAt(bytes, a) | ByteAt(bytes, a + 1) << 8);
}

// The little-endian 32-bit double word at offsets a .. a + 3, likewise.
[[nodiscard]] inline std::uint32_t DWordAt(Bytes bytes, Offset a) {
  return WordAt(bytes, a) | static_cast<std::uint32_t>(WordAt(bytes, a + 2)) << 16;
}

}  // namespace tarvelo
