// What moves in an instruction from one version of a firmware to the next: addresses of code and data, bit
// variables, members. The rest of its bits stays while nobody edits it.
#pragma once

#include <cstdint>
#include <optional>

#include "code/ext_range.h"
#include "code/instruction.h"

namespace tarvelo {

// Whether a special function register is at a phone address: F000h .. F1FFh and FE00h .. FFFFh.
[[nodiscard]] constexpr bool IsSpecialRegister(std::uint32_t address) {
  return (address >= 0xF000 && address < 0xF200) || (address >= 0xFE00 && address < 0x10000);
}

// The bits that a linker or a moved variable leaves alone, as a mask over the bytes; byte 0 is the lowest.
// `range` is what holds for the instruction. Special function registers never move: memory operands that name
// one, and bits from bitoff 80h up.
[[nodiscard]] std::uint32_t FixedBits(const Instruction& instruction, const ExtRange& range);

// The part of an instruction that can move.
struct Movable {
  enum class Kind : std::uint8_t {
    None,
    Code,      // value: phone address of a jump or call
    Near,      // value: 16 bits of a data address that goes through a DPP
    Address,   // value: phone address of data
    Bit,       // value: bitoff * 16 + bit
    Member,    // value: displacement
    Constant,  // value: #data16, which may be half of an address
  };

  Kind kind = Kind::None;
  std::uint32_t value = 0;

  [[nodiscard]] bool operator==(const Movable&) const = default;
};

// What can move in an instruction at phone address `address`, in an EXT range. Of two bits, the first one.
[[nodiscard]] Movable MovableOf(const Instruction& instruction, std::uint32_t address, const ExtRange& range);
// The second bit of BMOV and its like.
[[nodiscard]] Movable SecondBitOf(const Instruction& instruction);

// BFLDL and BFLDH: what they write to the byte of the word that they are for.
struct BitField {
  std::uint8_t mask = 0;
  std::uint8_t data = 0;
  bool isHigh = false;

  [[nodiscard]] int LowestBit() const;  // of the word, 0 .. 15
};
// Nothing: another instruction.
[[nodiscard]] std::optional<BitField> BitFieldOf(const Instruction& instruction);

}  // namespace tarvelo
