// Writes instructions as text: "MOV R4, [R5+#1234h]".
//
// Numbers are hexadecimal in upper case with "h" behind and "0" in front of a letter. The destination comes
// first. Data is written as "DW 8C00h", a single last byte as "DB 0FFh".
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "code/instruction.h"

namespace tarvelo {

// A short text without allocation.
class CodeText {
 public:
  [[nodiscard]] std::string_view View() const { return {chars_.data(), size_}; }

  void Add(char c) { chars_[size_++] = c; }
  void Add(std::string_view text) {
    for (const char c : text) Add(c);
  }
  // A number as operands have it: "2Ah", "0FFh".
  void AddNumber(std::uint32_t value);

 private:
  std::array<char, 64> chars_;
  std::size_t size_ = 0;
};

// The name of a special function register of the core, by its address; empty if it has none here.
[[nodiscard]] std::string_view SpecialName(std::uint16_t address);

// One operand.
void AddOperand(CodeText& text, const Operand& operand);

// The whole instruction or data at phone address `address`; `isExtended` as in Instruction::GetOperands.
[[nodiscard]] CodeText TextOf(const Instruction& instruction, std::uint32_t address, bool isExtended);

}  // namespace tarvelo
