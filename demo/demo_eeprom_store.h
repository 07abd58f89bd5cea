// The phone's EEPROM, which is emulated in the last sectors of the flash.
//
// A block is its data and a header of 12 bytes somewhere else:
//
//   +0   state: 0xFC live, 0xF0 deleted         +4   phone address of the data, a double word
//   +1   version of the block's layout          +8   number, a word
//   +2   size of the data, a word               +10  unused
//                                               +11  the state again
//
// Flash can only clear bits, so a block is never changed in place: its new data and a new header
// are written, then the old header is turned from live into deleted.
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

// The header's bytes. The address has 24 bits, all of a small image's. A large image lies at
// 0xA0000000, where no header can point: of its addresses the low 24 bits are kept, as if the phone
// had grown and its EEPROM had not.
[[nodiscard]] std::array<std::uint8_t, blockHeaderSize> HeaderBytes(const Flash& flash,
                                                                    const BlockHeader& header);

inline constexpr std::uint8_t liveBlock = 0xFC;
inline constexpr std::uint8_t deletedBlock = 0xF0;

class EepromStore {
 public:
  // Some blocks of the area become sectors; the ones between them stay erased.
  EepromStore(Flash& flash, Area area);

  // Writes a block and deletes the one of the same number before it.
  void Write(int number, std::uint8_t v, std::span<const std::uint8_t> data);
  // Likewise, with the data in another place.
  void WriteTo(AreaWriter& place, int number, std::uint8_t v, std::span<const std::uint8_t> data);
  // The power fails before the old block is deleted.
  void WriteInterrupted(int number, std::uint8_t v, std::span<const std::uint8_t> data);
  void Delete(int number);
  // Writes 12 bytes, header or not, where the next header would go, `shift` bytes further on.
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
  std::map<int, std::size_t> live_;  // offset of each number's newest live header
};

}  // namespace tarvelo
