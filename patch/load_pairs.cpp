#include "patch/load_pairs.h"

namespace tarvelo {
namespace {

constexpr std::size_t farthestPartner = 8;  // instructions between the two

// Whether an instruction loads a constant into a register as the one-byte `reg` of a MOV names it.
bool LoadsRegister(const Instruction& instruction, int reg) {
  if (instruction.LoadsConstant()) return instruction.Byte(1) == reg;
  return instruction.Op() == op::moveShort && ((instruction.Byte(1) & 0xF) | 0xF0) == reg;
}

}  // namespace

std::optional<std::size_t> PartnerOf(std::span<const DecodedCode> code, std::size_t load) {
  const int own = code[load].instruction.Byte(1);
  const auto fits = [&](std::size_t k) {
    return code[k].instruction.LoadsConstant() && code[k].instruction.Byte(1) == own + 1;
  };
  const auto passes = [&](std::size_t k) {
    const Instruction& instruction = code[k].instruction;
    return !instruction.IsData() && instruction.GetFlow() == Flow::Next && !LoadsRegister(instruction, own);
  };
  for (std::size_t k = load + 1; k < code.size() && k <= load + farthestPartner && passes(k); ++k) {
    if (!fits(k)) continue;
    for (std::size_t other = k + 1; other < code.size() && other - k < k - load; ++other)
      if (LoadsRegister(code[other].instruction, own)) return {};
    return k;
  }
  for (std::size_t k = load; k > 0 && k + farthestPartner > load && passes(k - 1); --k)
    if (fits(k - 1)) return k - 1;
  return {};
}

}  // namespace tarvelo
