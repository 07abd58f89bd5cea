// The ranges of EXTP, EXTS, EXTR, EXTPR and EXTSR: for the next 1 to 4 instructions they replace the page or
// segment of data addresses, or select the other half of the special function registers.
#pragma once

#include <cstdint>
#include <optional>

#include "code/instruction.h"

namespace tarvelo {

class ExtRange {
 public:
  // Whether special function registers are those of the other half.
  [[nodiscard]] bool IsExtended() const { return left_ > 0 && isExtended_; }
  // Whether data addresses go through a page or segment, known or in a register, instead of a DPP.
  [[nodiscard]] bool ReplacesDpp() const { return left_ > 0 && space_ != Space::Dpp; }
  // The phone address that 16 bits of a data address name; nothing if they go through a DPP, or the page or
  // segment is in a register.
  [[nodiscard]] std::optional<std::uint32_t> Address(std::uint16_t bits) const;

  // Moves past an instruction. One that begins a range ends the range before it; so does data, which is never
  // run.
  void Pass(const Instruction& instruction);

 private:
  enum class Space : std::uint8_t { Dpp, Page, Segment, Register };

  void Begin(const Instruction& instruction);

  int left_ = 0;  // instructions
  Space space_ = Space::Dpp;
  bool isExtended_ = false;
  std::uint16_t number_ = 0;  // of the page or segment
};

// --- the inner loop of every sweep ---

inline void ExtRange::Begin(const Instruction& instruction) {
  left_ = instruction.RangeLength();
  isExtended_ = (instruction.Byte(1) & 0x80) != 0;
  number_ = instruction.Word();
  if (instruction.Op() == op::atomicOrExtend)
    space_ = Space::Dpp;
  else if (instruction.Op() == op::extendByRegister)
    space_ = Space::Register;
  else
    space_ = (instruction.Byte(1) & 0x40) != 0 ? Space::Page : Space::Segment;
}

inline void ExtRange::Pass(const Instruction& instruction) {
  if (instruction.BeginsRange())
    Begin(instruction);
  else if (left_ > 0)
    left_ = instruction.IsData() ? 0 : left_ - 1;
}

}  // namespace tarvelo
