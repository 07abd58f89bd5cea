#include "code/instruction_text.h"

namespace tarvelo {
namespace {

constexpr std::string_view wordRegisters[] = {"R0", "R1", "R2",  "R3",  "R4",  "R5",  "R6",  "R7",
                                              "R8", "R9", "R10", "R11", "R12", "R13", "R14", "R15"};
constexpr std::string_view byteRegisters[] = {"RL0", "RH0", "RL1", "RH1", "RL2", "RH2", "RL3", "RH3",
                                              "RL4", "RH4", "RL5", "RH5", "RL6", "RH6", "RL7", "RH7"};
constexpr std::string_view conditions[] = {"cc_UC",  "cc_NET", "cc_Z",   "cc_NZ", "cc_V",   "cc_NV",
                                           "cc_N",   "cc_NN",  "cc_C",   "cc_NC", "cc_SGT", "cc_SLE",
                                           "cc_SLT", "cc_SGE", "cc_UGT", "cc_ULE"};

void AddSpecial(CodeText& text, std::uint16_t address) {
  if (const std::string_view name = SpecialName(address); !name.empty())
    text.Add(name);
  else
    text.AddNumber(address);
}

void AddBitWord(CodeText& text, const Operand& operand) {
  if (operand.isRegister)
    text.Add(wordRegisters[operand.number]);
  else
    AddSpecial(text, operand.value);
}

// 0 .. 15
void AddDecimal(CodeText& text, int value) {
  if (value >= 10) text.Add('1');
  text.Add(static_cast<char>('0' + value % 10));
}

void AddPointer(CodeText& text, std::string_view before, const Operand& operand, std::string_view after) {
  text.Add(before);
  text.Add(wordRegisters[operand.number]);
  text.Add(after);
}

CodeText DataText(const Instruction& data) {
  CodeText text;
  text.Add(data.Size() == 1 ? "DB " : "DW ");
  text.AddNumber(data.Size() == 1 ? data.Byte(0) : data.DataWord());
  return text;
}

}  // namespace

void CodeText::AddNumber(std::uint32_t value) {
  int shift = 28;
  while (shift > 0 && (value >> shift) == 0) shift -= 4;
  if ((value >> shift) >= 10) Add('0');
  for (; shift >= 0; shift -= 4) Add("0123456789ABCDEF"[(value >> shift) & 0xF]);
  Add('h');
}

std::string_view SpecialName(std::uint16_t address) {
  switch (address) {
    case 0xFE00: return "DPP0";
    case 0xFE02: return "DPP1";
    case 0xFE04: return "DPP2";
    case 0xFE06: return "DPP3";
    case 0xFE08: return "CSP";
    case 0xFE0C: return "MDH";
    case 0xFE0E: return "MDL";
    case 0xFE10: return "CP";
    case 0xFE12: return "SP";
    case 0xFE14: return "STKOV";
    case 0xFE16: return "STKUN";
    case 0xFF0E: return "MDC";
    case 0xFF10: return "PSW";
    case 0xFF12: return "SYSCON";
    case 0xFF1C: return "ZEROS";
    case 0xFF1E: return "ONES";
    case 0xFFAC: return "TFR";
    default: return {};
  }
}

void AddOperand(CodeText& text, const Operand& operand) {
  using enum Operand::Kind;
  switch (operand.kind) {
    case None: return;
    case WordRegister: return text.Add(wordRegisters[operand.number]);
    case ByteRegister: return text.Add(byteRegisters[operand.number]);
    case At: return AddPointer(text, "[", operand, "]");
    case After: return AddPointer(text, "[", operand, "+]");
    case Before: return AddPointer(text, "[-", operand, "]");
    case Indexed:
      AddPointer(text, "[", operand, "+#");
      text.AddNumber(operand.value);
      return text.Add(']');
    case Immediate: text.Add('#'); return text.AddNumber(operand.value);
    case Count: text.Add('#'); return AddDecimal(text, operand.value);
    case Memory:
    case Segment:
    case Target: return text.AddNumber(operand.value);
    case Special: return AddSpecial(text, operand.value);
    case BitWord: return AddBitWord(text, operand);
    case Bit:
      AddBitWord(text, operand);
      text.Add('.');
      return AddDecimal(text, operand.bit);
    case Condition: return text.Add(conditions[operand.number]);
  }
}

CodeText TextOf(const Instruction& instruction, std::uint32_t address, bool isExtended) {
  if (instruction.IsData()) return DataText(instruction);
  CodeText text;
  text.Add(instruction.Mnemonic());
  std::string_view before = " ";
  for (const Operand& operand : instruction.GetOperands(address, isExtended)) {
    if (operand.kind == Operand::Kind::None) break;
    text.Add(before);
    AddOperand(text, operand);
    before = ", ";
  }
  return text;
}

}  // namespace tarvelo
