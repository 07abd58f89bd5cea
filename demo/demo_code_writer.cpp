#include "demo/demo_code_writer.h"

#include "demo/demo_flash.h"

namespace tarvelo {
namespace {

constexpr std::uint8_t nop = 0xCC;

using CodeBytes = std::span<const std::uint8_t>;

// The rules of an EEPROM block header.
bool IsBlockHeader(CodeBytes b) {
  const bool address = b[6] == 0xBF || (b[6] >= 0x7C && b[6] <= 0x7F) || b[6] >= 0xF6;
  return (b[0] == 0xFC || b[0] == 0xF0) && b[11] == b[0] && b[1] <= 0x21 && b[3] <= 0x14 && b[7] == 0 &&
         b[9] <= 0x18 && address;
}

// The first four bytes of a picture table of either kind of image, or of a stand-alone picture.
bool IsPictureHeader(CodeBytes b) {
  if (b[3] != 0) return false;
  if (b[0] == 4 && b[1] == 4) return b[2] == 0x01 || b[2] == 0x81;
  if (b[0] == 0x34 && b[1] == 0x34) return b[2] == 0x88 || b[2] == 0x81;
  return b[2] == 0x81 && b[0] >= 1 && b[0] <= 101 && b[1] >= 1 && b[1] <= 80;
}

// The first two entries of a ringtone table, numbered 0 and 1. A real table begins with six.
bool IsRingtonePair(CodeBytes b) {
  return b[0] == 0 && b[1] == 0 && b[2] < 16 && b[3] == 0 && b[8] == 1 && b[9] == 0 && b[10] < 16 &&
         b[11] == 0;
}

}  // namespace

void CodeWriter::Instruction(std::uint8_t opcode, unsigned operand) {
  const std::size_t before = code_.size();
  AppendBytes(code_, {opcode, static_cast<std::uint8_t>(operand)});
  DropLookalike(before);
}

void CodeWriter::Instruction(std::uint8_t opcode, unsigned operand, unsigned word) {
  const std::size_t before = code_.size();
  AppendBytes(code_, {opcode, static_cast<std::uint8_t>(operand)});
  AppendWord(code_, word);
  DropLookalike(before);
}

void CodeWriter::Pointer(std::uint32_t address) {
  const std::size_t before = code_.size();
  AppendDWord(code_, address);
  DropLookalike(before);
}

std::size_t CodeWriter::Text(std::string_view text) {
  const std::size_t offset = Offset();
  AppendText(code_, text);
  do code_.push_back(0);
  while (code_.size() % 2 != 0);
  return offset;
}

// A NOP (CC 00) completes no look-alike: a header of either kind would need other bytes in the positions of
// its CC or its zero.
void CodeWriter::DropLookalike(std::size_t before) {
  for (std::size_t end = before + 2; end <= code_.size(); end += 2) {
    if (!EndsLookalike(end)) continue;
    code_.resize(before);
    AppendBytes(code_, {nop, 0});
    return;
  }
}

bool CodeWriter::EndsLookalike(std::size_t end) const {
  const CodeBytes code = code_;
  const bool onHeaderGrid = (start_ + end) % 4 == 0;
  if (end >= 12 && onHeaderGrid && IsBlockHeader(code.subspan(end - 12, 12))) return true;
  if (end >= 12 && IsRingtonePair(code.subspan(end - 12, 12))) return true;
  if (end >= 4 && IsPictureHeader(code.subspan(end - 4, 4))) return true;
  return (start_ + end - 2) % flashBlock == 0 && code[end - 2] == 'T' && code[end - 1] == '9';
}

}  // namespace tarvelo
