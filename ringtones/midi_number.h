// Numbers of variable length in MIDI files.
#pragma once

#include <cstdint>

#include "core/byte_writer.h"

namespace tarvelo {

// Appends a number up to 0x0FFFFFFF: seven bits per byte, the highest first. All bytes but the last have bit
// 7 set.
inline void AppendMidiNumber(ByteBuffer& out, std::uint32_t value) {
  for (int shift = 21; shift > 0; shift -= 7)
    if (value >> shift != 0) out.push_back(static_cast<std::uint8_t>(0x80 | (value >> shift & 0x7F)));
  out.push_back(static_cast<std::uint8_t>(value & 0x7F));
}

}  // namespace tarvelo
