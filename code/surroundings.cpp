#include "code/surroundings.h"

#include <algorithm>

#include "code/sweep.h"

namespace tarvelo {
namespace {

// A walk that begins inside an instruction falls into step within 21 instructions, mostly within 8. In random
// bytes, every eighth instruction is a reserved encoding.
constexpr Offset before = 80;
constexpr Offset after = 32;
constexpr Offset mustBeCode = 48;
constexpr Offset shortJump = 260;  // as far as one leads

constexpr std::uint16_t rets = 0x00DB;
constexpr std::uint16_t reti = 0x88FB;
constexpr std::uint16_t ret = 0x00CB;
constexpr std::uint16_t srst = 0x48B7;  // its first word
constexpr std::uint8_t retp = 0xEB;

bool Ends(const Instruction& instruction) {
  if (instruction.IsData()) return false;
  const Flow flow = instruction.GetFlow();
  return flow == Flow::Return || flow == Flow::Stop || instruction.Op() == op::jumpSegment;
}

bool IsEmpty(std::uint16_t word) { return word == 0 || word == 0xFFFF; }
bool IsReturn(std::uint16_t word) { return word == rets || word == reti || word == ret; }

// The end of the code in front of a place, as a walk through the bytes in front of it sees it.
struct Approach {
  bool isInStep = false;  // an instruction ends there
  bool isCode = true;     // no data near it
  bool isTarget = false;  // an instruction jumps there
  Instruction last;
};

// Begins `distance` in front of the place, if that is in the segment.
Approach ApproachOf(Offset place, Offset distance, const Fullflash& image) {
  Approach approach;
  const std::uint32_t address = image.PhoneAddress(place);
  const Offset from = std::max(place - std::min(distance, Offset{address & 0xFFFF}), Offset{0});
  Sweep(image.ff(), from, place, [&](Offset at, const Instruction& instruction, const ExtRange&) {
    if (instruction.IsData())
      approach.isCode &= at < place - mustBeCode;
    else if (instruction.GetFlow() == Flow::Branch || instruction.GetFlow() == Flow::Jump)
      approach.isTarget |= instruction.Target(image.PhoneAddress(at)) == address;
    approach.isInStep = at + instruction.Size() == place;
    approach.last = instruction;
    return false;
  });
  return approach;
}

}  // namespace

bool IsBehindEnd(Offset place, const Fullflash& image, const FlowWalk& walk) {
  const Offset room = std::min(place, Offset{image.PhoneAddress(place) & 0xFFFF});
  if (room < 2) return true;
  if (walk.IsCode(place - 2)) {
    const Offset last = walk.IsStart(place - 2) ? place - 2 : place - 4;
    return Ends(Instruction::Decode(image.ff(), last));
  }
  const std::uint16_t word = image.Word(place - 2);
  const std::uint16_t earlier = room < 4 ? 0 : image.Word(place - 4);
  if (IsEmpty(word)) return IsEmpty(earlier) || IsReturn(earlier);
  const bool isReturn = IsReturn(word);
  if (!isReturn && (word & 0xFF) != retp && (earlier & 0xFF) != op::jumpSegment && earlier != srst)
    return false;
  const Approach approach = ApproachOf(place, shortJump, image);
  if (approach.isTarget) return false;
  const bool isOperand = opcodes[earlier & 0xFF].size == 4;
  return (isReturn && !isOperand) || (approach.isInStep && Ends(approach.last));
}

bool IsBehindCode(Offset place, const Fullflash& image) {
  const Approach approach = ApproachOf(place, before, image);
  return approach.isTarget || (approach.isInStep && approach.isCode && !Ends(approach.last));
}

bool IsAmongCode(Offset place, const Fullflash& image) {
  const Approach approach = ApproachOf(place, before, image);
  if (!approach.isInStep || !approach.isCode) return false;
  bool isCode = true;
  Sweep(image.ff(), place, place + after, [&](Offset, const Instruction& instruction, const ExtRange&) {
    isCode = isCode && !instruction.IsData();
    return !isCode;
  });
  return isCode;
}

}  // namespace tarvelo
