#include "code/register_pairs.h"

#include <algorithm>

namespace tarvelo {
namespace {

bool Loads(const Instruction& instruction, int reg) {
  const std::optional<Load> load = LoadOf(instruction);
  return load && load->reg == reg;
}

bool IsOf(const Operand& operand, int reg) {
  switch (operand.kind) {
    case Operand::Kind::WordRegister:
    case Operand::Kind::At:
    case Operand::Kind::After:
    case Operand::Kind::Before:
    case Operand::Kind::Indexed: return operand.number == reg;
    case Operand::Kind::ByteRegister: return operand.number / 2 == reg;
    case Operand::Kind::Bit:
    case Operand::Kind::BitWord: return operand.isRegister && operand.number == reg;
    default: return false;
  }
}

// Whether an instruction may use what is in a register. What it jumps to or calls may.
bool Uses(const Instruction& instruction, int reg) {
  return instruction.GetFlow() != Flow::Next ||
         std::ranges::any_of(instruction.GetOperands(0, false),
                             [&](const Operand& operand) { return IsOf(operand, reg); });
}

}  // namespace

std::optional<Load> LoadOf(const Instruction& instruction) {
  if (instruction.LoadsConstant()) return Load{instruction.Low(), instruction.Word()};
  if (!instruction.IsData() && instruction.Op() == op::moveShort)
    return Load{instruction.Low(), static_cast<std::uint16_t>(instruction.High())};
  return {};
}

bool Replaces(const Instruction& instruction, int reg) {
  if (instruction.IsData()) return false;
  const std::string_view name = instruction.Mnemonic();
  if (name != "MOV" && name != "MOVBZ" && name != "MOVBS" && name != "POP") return false;
  const Operands operands = instruction.GetOperands(0, false);
  return operands[0].kind == Operand::Kind::WordRegister && operands[0].number == reg &&
         !IsOf(operands[1], reg);
}

StraightLine LineFrom(Bytes bytes, Offset at) {
  StraightLine line;
  line.end = StraightLine::here;
  do {
    const Instruction instruction = Instruction::Decode(bytes, at);
    if (instruction.IsData()) break;
    line.code[line.end++] = instruction;
    if (!instruction.FallsThrough()) break;
    at += instruction.Size();
  } while (at < std::ssize(bytes) && line.end < line.code.size());
  return line;
}

std::optional<std::size_t> PartnerOf(std::span<const Instruction> line, std::size_t load) {
  const int own = LoadOf(line[load])->reg, next = own + 1;
  std::optional<std::size_t> behind;
  bool isUsed = false;
  for (std::size_t k = load + 1; k < line.size() && !behind && !Replaces(line[k], own); ++k) {
    if (Loads(line[k], next))
      behind = k;
    else
      isUsed = isUsed || Uses(line[k], own) || Uses(line[k], next);
  }
  if (behind && !isUsed) return behind;
  for (std::size_t k = load; k-- > 0 && (Loads(line[k], next) || !Replaces(line[k], next));)
    if (Loads(line[k], next)) return k;
  return behind;
}

std::optional<RegisterPair> PairFrom(Bytes bytes, Offset at) {
  const StraightLine line = LineFrom(bytes, at);
  const std::span<const Instruction> code = line.All();
  if (code.empty() || !LoadOf(code[0])) return {};
  if (const auto high = PartnerOf(code, 0))
    return RegisterPair{LoadOf(code[0])->value, LoadOf(code[*high])->value};
  for (std::size_t k = 1; k < code.size(); ++k)
    if (LoadOf(code[k]) && PartnerOf(code, k) == std::size_t{0})
      return RegisterPair{LoadOf(code[k])->value, LoadOf(code[0])->value};
  return {};
}

}  // namespace tarvelo
