#include "code/nearby_code.h"

#include <algorithm>

#include "core/byte_text.h"

namespace tarvelo {
namespace {

// How many telling instructions in a row make code.
constexpr int fewInstructions = 8;      // in front, if the way ahead is clean
constexpr int manyInstructions = 40;    // in front, if it ends with a jump or in data
constexpr int enoughInstructions = 48;  // ahead, without a return
constexpr int certainlyInStep = 16;     // in front of a place in the middle of an instruction
constexpr Offset resync = 64;           // bytes after which any two walks are in step
constexpr int dull = 8;                 // this many in a row that are not telling make data

bool IsFixedReturn(const Instruction& instruction) {
  return instruction.GetFlow() == Flow::Stop ||
         (instruction.GetFlow() == Flow::Return && instruction.Row().rule != Rule::None);
}

// Whether an instruction speaks for code. Texts, tables, pictures and filling consist of others: of printable
// bytes, of many 00 and FF, of the same few again and again.
bool IsTelling(const Instruction& instruction) {
  const int size = instruction.Size();
  if (size == 2 && instruction.Row().rule == Rule::Zero) return true;  // RET, RETS, NOP
  int printable = 0, blank = 0;
  for (int i = 0; i < size; ++i) {
    printable += IsPrintable(instruction.Byte(i)) ? 1 : 0;
    blank += instruction.Byte(i) == 0 || instruction.Byte(i) == 0xFF ? 1 : 0;
  }
  return printable < size && 2 * blank < size;
}

bool IsSame(const Instruction& one, const Instruction& other) {
  return one.DataWord() == other.DataWord() && (one.Size() == 2 || one.Word() == other.Word());
}

// Whether special function registers in the range of an EXT* are those of the other half.
bool ExtendsRegisters(const Instruction& instruction) { return (instruction.Byte(1) & 0x80) != 0; }

// The DPP that an instruction changes, or none (-1).
int ChangedDpp(const Instruction& instruction, bool isExtended) {
  const Arg first = instruction.Row().args[0];
  if (first == Arg::Mem && (instruction.Word() & 0xFFF8) == 0xFE00) return (instruction.Word() & 7) / 2;
  if (isExtended || (first != Arg::WordReg && first != Arg::ByteReg) || instruction.Byte(1) > 3) return -1;
  switch (instruction.Op()) {
    case 0x42:  // CMP, CMPB
    case 0x43:
    case 0x46:
    case 0x47:
    case op::pushAndCall:
    case 0xEC:  // PUSH
      return -1;
    default: return instruction.Byte(1);
  }
}

DppValue NewPage(const Instruction& instruction) {
  const bool isConstant = instruction.Op() == op::moveConstant || instruction.Op() == op::switchContext;
  if (!isConstant) return {};
  return {static_cast<std::uint16_t>(instruction.Word() & 0x3FF)};
}

}  // namespace

NearbyCode::NearbyCode(const Fullflash& image, const FunctionList& functions)
    : image_(image), functions_(functions) {}

// --- decoding ---

void NearbyCode::Decode(Offset offset) {
  // Code lies at even phone addresses; with an odd base those are the odd offsets.
  const Offset parity = offset & 1;
  const Offset wanted = (offset / block) * block + parity;
  if (wanted == decoded_) return;
  decoded_ = wanted;
  start_ = std::max(parity, wanted - back);
  const auto size = static_cast<Offset>(image_.ff().size());
  const Offset end = std::min(size, wanted + block + further - parity);
  AddSteps(start_, end);
  LookBack(parity);
  LookAhead(end == size);
}

// Decodes in step with the functions: an instruction that would reach into one of theirs is none.
Instruction NearbyCode::InstructionAt(Offset at) const {
  const Instruction instruction = Instruction::Decode(image_.ff(), at);
  if (instruction.Size() != 4 || functions_.IsInstruction(at) || !functions_.IsInstruction(at + 2))
    return instruction;
  return Instruction::Decode(image_.ff().first(static_cast<std::size_t>(at + 2)), at);
}

void NearbyCode::AddSteps(Offset from, Offset end) {
  stepAt_.fill(none);
  count_ = 0;
  for (Offset at = from; at < end; at += steps_[static_cast<std::size_t>(count_++)].instruction.Size()) {
    stepAt_[static_cast<std::size_t>((at - start_) / 2)] = static_cast<std::int16_t>(count_);
    Step& step = steps_[static_cast<std::size_t>(count_)];
    step.at = at;
    step.instruction = InstructionAt(at);
    step.isTelling = IsTelling(step.instruction) && !IsRepeated(count_);
  }
}

// Whether one of the two steps in front is the same. Padding with NOP is not meant.
bool NearbyCode::IsRepeated(int step) const {
  const auto at = static_cast<std::size_t>(step);
  const Instruction& instruction = steps_[at].instruction;
  if (instruction.Row().rule == Rule::Zero) return false;
  return (step > 0 && IsSame(instruction, steps_[at - 1].instruction)) ||
         (step > 1 && IsSame(instruction, steps_[at - 2].instruction));
}

// Fills in what is in front of each step; `first` is where the image's code begins.
void NearbyCode::LookBack(Offset first) {
  std::uint16_t before = 0;
  bool isBehindEnd = start_ == first;
  int fillings = 0, dulls = 0;  // in a row
  for (int i = 0; i < count_; ++i) {
    Step& step = steps_[static_cast<std::size_t>(i)];
    const Instruction& instruction = step.instruction;
    step.before = before;
    step.isBehindEnd = isBehindEnd;
    fillings = instruction.IsFilling() ? fillings + 1 : 0;
    dulls = step.isTelling ? 0 : dulls + 1;
    if (instruction.IsData() || fillings > 1 || dulls >= dull) {
      before = 0;
      isBehindEnd = fillings > 1;
    } else {
      before = static_cast<std::uint16_t>(before + (dulls == 0 ? 1 : 0));
      isBehindEnd = isBehindEnd || IsFixedReturn(instruction);
    }
  }
}

void NearbyCode::LookAhead(bool isImageEnd) {
  Step end;
  end.ahead = isImageEnd ? Ahead::Filled : Ahead::Open;
  int fillings = 0, dulls = 0;  // in a row
  for (int i = count_ - 1; i >= 0; --i) {
    const auto at = static_cast<std::size_t>(i);
    Step& step = steps_[at];
    const Step& next = i + 1 < count_ ? steps_[at + 1] : end;
    fillings = step.instruction.IsFilling() ? fillings + 1 : 0;
    dulls = step.isTelling ? 0 : dulls + 1;
    step.ahead = fillings > 1 ? Ahead::Filled : dulls >= dull ? Ahead::Broken : WayAhead(step, next);
    step.behind = 0;
    if (step.ahead == Ahead::Broken || step.ahead == Ahead::Filled) continue;
    step.behind = static_cast<std::uint16_t>(next.behind + (dulls == 0 ? 1 : 0));
    if (step.behind >= enoughInstructions) step.ahead = Ahead::Clean;
  }
}

NearbyCode::Ahead NearbyCode::WayAhead(const Step& step, const Step& next) const {
  if (step.instruction.IsData()) return Ahead::Broken;
  if (IsFixedReturn(step.instruction)) return Ahead::Clean;
  const bool isOpen = next.ahead == Ahead::Clean || next.ahead == Ahead::Open;
  if (!step.instruction.FallsThrough()) return isOpen ? next.ahead : Ahead::Jump;
  // Code does not run into the next function.
  const bool runsInto = functions_.Entry(step.at + step.instruction.Size()) != nullptr;
  return runsInto && !functions_.IsInstruction(step.at) ? Ahead::Broken : next.ahead;
}

// --- the steps ---

int NearbyCode::StepAt(Offset offset) const {
  const auto word = static_cast<std::size_t>((offset - start_) / 2);
  return offset >= start_ && (offset - start_) % 2 == 0 && word < stepAt_.size() ? stepAt_[word] : none;
}

int NearbyCode::StepHolding(Offset offset) const {
  const int step = StepAt(offset);
  return step != none ? step : StepAt(offset - 2);
}

int NearbyCode::LineBefore(int step) const {
  if (step <= 0) return none;
  const Instruction& instruction = steps_[static_cast<std::size_t>(step - 1)].instruction;
  return instruction.IsData() || !instruction.FallsThrough() ? none : step - 1;
}

int NearbyCode::RangeOf(int step) const {
  int distance = 1;
  for (int i = LineBefore(step); i != none && distance <= 4; i = LineBefore(i), ++distance) {
    const Instruction& instruction = steps_[static_cast<std::size_t>(i)].instruction;
    if (instruction.BeginsRange()) return instruction.RangeLength() >= distance ? i : none;
  }
  return none;
}

// --- what they say ---

CodeSign NearbyCode::At(Offset offset) {
  if (functions_.IsInstruction(offset)) return CodeSign::Code;
  if (IsListedInside(offset)) return CodeSign::Inside;
  Decode(offset);
  const int step = StepAt(offset);
  return step == none ? SignAlone(offset) : SignOf(steps_[static_cast<std::size_t>(step)]);
}

bool NearbyCode::IsListed(Offset offset) const {
  return functions_.IsInstruction(offset) || IsListedInside(offset);
}

bool NearbyCode::IsInCode(Offset offset) {
  if (IsListed(offset)) return true;
  Decode(offset);
  const int step = StepHolding(offset);
  return step != none && SignOf(steps_[static_cast<std::size_t>(step)]) == CodeSign::Code;
}

bool NearbyCode::IsListedInside(Offset offset) const {
  return functions_.IsInstruction(offset - 2) && Instruction::Decode(image_.ff(), offset - 2).Size() == 4;
}

CodeSign NearbyCode::SignOf(const Step& step) const {
  const bool isBacked = step.isBehindEnd || step.before >= fewInstructions;
  switch (step.ahead) {
    case Ahead::Clean: return isBacked ? CodeSign::Code : CodeSign::Unsure;
    case Ahead::Jump:
      if (step.before >= manyInstructions) return CodeSign::Code;
      [[fallthrough]];
    case Ahead::Filled: return isBacked ? CodeSign::Unsure : CodeSign::Data;
    case Ahead::Broken: return step.before >= manyInstructions ? CodeSign::Unsure : CodeSign::Data;
    case Ahead::Open: return CodeSign::Data;
  }
  return CodeSign::Data;
}

// For a place at which no step begins: it is inside one, or the steps come out of data in front and are not
// yet in step with the code.
CodeSign NearbyCode::SignAlone(Offset offset) const {
  const int holding = StepHolding(offset);
  if (holding != none) {
    const Step& step = steps_[static_cast<std::size_t>(holding)];
    if (step.ahead != Ahead::Broken && (step.isBehindEnd || step.before >= certainlyInStep))
      return CodeSign::Inside;
  }
  const auto size = static_cast<Offset>(image_.ff().size());
  const Offset end = std::min(size, offset + resync);
  for (Offset at = offset; at < end;) {
    const Instruction instruction = InstructionAt(at);
    if (instruction.IsData()) return CodeSign::Data;
    if (IsFixedReturn(instruction)) return CodeSign::Unsure;
    at += instruction.Size();
    if (const int step = StepAt(at); step != none) {
      const Ahead ahead = steps_[static_cast<std::size_t>(step)].ahead;
      return ahead == Ahead::Broken || ahead == Ahead::Open ? CodeSign::Data : CodeSign::Unsure;
    }
  }
  return CodeSign::Data;
}

std::optional<DppValue> NearbyCode::DppBefore(Offset offset, int dpp) {
  Decode(offset);
  const int step = StepAt(offset);
  if (step == none) return {};
  for (int i = LineBefore(step); i != none; i = LineBefore(i)) {
    const Instruction& instruction = steps_[static_cast<std::size_t>(i)].instruction;
    const int range = RangeOf(i);
    if (ChangedDpp(instruction,
                   range != none && ExtendsRegisters(steps_[static_cast<std::size_t>(range)].instruction)) ==
        dpp)
      return NewPage(instruction);
  }
  return {};
}

StraightLine NearbyCode::LineAround(Offset offset) {
  StraightLine line = LineFrom(image_.ff(), offset);
  Decode(offset);
  const int step = StepAt(offset);
  const bool isInStep = step != none && SignOf(steps_[static_cast<std::size_t>(step)]) != CodeSign::Data;
  if (!isInStep) {
    for (Offset at = offset - 4; at >= 0 && line.first > 0; at -= 4) {
      const Instruction before = InstructionAt(at);
      if (!before.LoadsConstant()) break;
      line.code[--line.first] = before;
    }
    return line;
  }
  for (int i = LineBefore(step); i != none && line.first > 0; i = LineBefore(i))
    line.code[--line.first] = steps_[static_cast<std::size_t>(i)].instruction;
  return line;
}

std::optional<Offset> NearbyCode::RangeBefore(Offset offset) {
  Decode(offset);
  const int step = StepAt(offset);
  const int range = step == none ? none : RangeOf(step);
  if (range == none) return {};
  return steps_[static_cast<std::size_t>(range)].at;
}

}  // namespace tarvelo
