// The code of an image cut into units, the functions and the pieces of code between them, for comparing it
// with the code of another firmware version.
#pragma once

#include <cstdint>
#include <vector>

#include "code/functions.h"
#include "code/movable.h"
#include "core/fullflash.h"

namespace tarvelo {

struct UnitInstruction {
  std::uint32_t offset = 0;
  std::uint32_t token = 0;  // of the bits that stay: equal ones agree
  Movable movable;
};

// The second bit of an instruction that has two, such as BMOV.
struct SecondBit {
  std::uint32_t instruction = 0;  // its index
  Movable bit;
};

struct CodeUnit {
  std::uint32_t first = 0;  // its instructions: first .. first + count - 1 of CodeUnits::instructions
  std::uint32_t count = 0;
  Region code;
  std::uint64_t hash = 0;   // of its tokens
  bool isFunction = false;  // false: code between functions, up to a return
};

struct CodeUnits {
  std::vector<UnitInstruction> instructions;  // by offset
  std::vector<CodeUnit> units;                // by offset
  std::vector<SecondBit> secondBits;          // by instruction

  // The unit with the byte at `offset`, and the unit that begins there; -1: none.
  [[nodiscard]] int UnitAt(Offset offset) const;
  [[nodiscard]] int UnitFrom(Offset offset) const;
  // The instruction with the byte at `offset`; -1: none.
  [[nodiscard]] int InstructionAt(Offset offset) const;
};

// Cuts the code of an image into units.
[[nodiscard]] CodeUnits GetCodeUnits(const Fullflash& image, const FunctionList& functions);

}  // namespace tarvelo
