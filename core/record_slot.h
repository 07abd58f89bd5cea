// A slot of a record directory. The emulated EEPROM and the file system both describe their records in this
// form, apart from the records' bytes.
//
// 12 bytes with little-endian fields:
//   0   state: 0xFC live, 0xF0 deleted, 0xFF not written yet
//   1   of the EEPROM: V
//   2   number of bytes, a word
//   4   phone address of the bytes, a double word
//   8   record number, a word
//   10  anything
//   11  the state again
#pragma once

#include <cstdint>

#include "text/bytes.h"

namespace tarvelo {

struct RecordSlot {
  static constexpr Offset length = 12;
  static constexpr std::uint8_t live = 0xFC;
  static constexpr std::uint8_t deleted = 0xF0;

  std::uint8_t state = 0;
  std::uint8_t version = 0;  // byte 1
  std::uint16_t size = 0;
  std::uint32_t address = 0;
  std::uint16_t number = 0;
  std::uint8_t stateAgain = 0;
};

// The slot at an offset. Throws std::out_of_range unless all of it is in the bytes.
[[nodiscard]] inline RecordSlot ReadSlot(Bytes bytes, Offset a) {
  return {.state = ByteAt(bytes, a),
          .version = ByteAt(bytes, a + 1),
          .size = WordAt(bytes, a + 2),
          .address = DWordAt(bytes, a + 4),
          .number = WordAt(bytes, a + 8),
          .stateAgain = ByteAt(bytes, a + 11)};
}

}  // namespace tarvelo
