// The phone's EEPROM, emulated in the last sectors of the flash.
//
// A block is its data and a header of 12 bytes elsewhere:
//
//   +0   state: 0xFC live, 0xF0 deleted         +4   phone address of the data, a double word
//   +1   version of the block's layout          +8   number, a word
//   +2   size of the data, a word               +10  unused
//                                               +11  the state again
//
// Flash can only clear bits, so a block is never changed in place: the phone writes its new data and a new
// header, then turns the old header from live into deleted.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

#include "demo/demo_flash.h"

namespace tarvelo {

inline constexpr std::size_t blockHeaderSize = 12;

struct BlockHeader {
  std::uint8_t state;
  std::uint8_t v;
  std::size_t data;  // offset in the image
  std::size_t size;
  int number;
};

// The bytes of a header. Its address has 24 bits, enough for a small image. A large image begins at
// 0xA0000000, where no header can point, so only the low 24 bits of its addresses are kept, as if the phone
// had grown and its EEPROM had not.
[[nodiscard]] std::array<std::uint8_t, blockHeaderSize> HeaderBytes(const Flash& flash,
                                                                    const BlockHeader& header);

inline constexpr std::uint8_t liveBlock = 0xFC;
inline constexpr std::uint8_t deletedBlock = 0xF0;

class EepromStore {
 public:
  // Some flash blocks of the area become sectors; those between them stay erased.
  EepromStore(Flash& flash, Area area);

  // Writes a block and deletes the previous one of the same number.
  void Write(int number, std::uint8_t v, std::span<const std::uint8_t> data);
  // The same, with the data in `place`.
  void WriteTo(AreaWriter& place, int number, std::uint8_t v, std::span<const std::uint8_t> data);
  // The same, but the power fails before the old block is deleted.
  void WriteInterrupted(int number, std::uint8_t v, std::span<const std::uint8_t> data);
  void Delete(int number);
  // Writes 12 bytes, whether a header or not, at the position of the next header plus `shift` bytes.
  void PutRaw(std::span<const std::uint8_t> bytes, std::size_t shift = 0);

 private:
  struct Sector {
    AreaWriter data;
    AreaWriter headers;
    int count = 0;
  };

  Sector& Current();

  Flash& flash_;
  std::vector<Sector> sectors_;
  std::size_t current_ = 0;
  std::map<int, std::size_t> live_;  // offset of the newest live header of each number
};

}  // namespace tarvelo
