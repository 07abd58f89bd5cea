// Collects the machine code of an invented firmware. The code never looks like anything that is recognized by
// its bytes alone: an EEPROM block header, the start of a picture or ringtone table, a stand-alone picture
// header, a T9 area.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace tarvelo {

class CodeWriter {
 public:
  // `offset` is the start of the code in the image, a multiple of 4.
  explicit CodeWriter(std::size_t offset) : start_(offset) {}

  // The offset of the next instruction.
  [[nodiscard]] std::size_t Offset() const { return start_ + code_.size(); }
  [[nodiscard]] std::span<const std::uint8_t> Code() const { return code_; }

  // Appends an instruction of 2 or 4 bytes: the opcode, a byte of operands, a word of operands. An
  // instruction that would complete a look-alike becomes a NOP.
  void Instruction(std::uint8_t opcode, unsigned operand);
  void Instruction(std::uint8_t opcode, unsigned operand, unsigned word);
  // Appends the pointer to a function: its offset in the segment and the segment.
  void Pointer(std::uint32_t address);
  // Leaves bytes erased up to an offset.
  void SkipTo(std::size_t offset) { code_.resize(offset - start_, 0xFF); }
  // Appends a text and its zero, padded to an even length. Returns the text's offset.
  std::size_t Text(std::string_view text);

 private:
  void DropLookalike(std::size_t before);
  [[nodiscard]] bool EndsLookalike(std::size_t end) const;

  std::size_t start_;
  std::vector<std::uint8_t> code_;
};

}  // namespace tarvelo
