#include "code/flow_walk.h"

#include <algorithm>
#include <array>

namespace tarvelo {
namespace {

// Opcodes after which nothing but the next instruction follows, and which name no code.
const std::array<bool, 256> isPlain = [] {
  std::array<bool, 256> plain{};
  for (std::size_t i = 0; i < plain.size(); ++i)
    plain[i] = opcodes[i].flow == Flow::Next && i != op::moveConstant;
  return plain;
}();

constexpr Offset segmentSize = 0x10000;

}  // namespace

FlowWalk::FlowWalk(const Fullflash& image, SwitchTables& switches)
    : image_(image),
      bytes_(image.ff()),
      switches_(switches),
      starts_(static_cast<Offset>(bytes_.size())),
      code_(starts_),
      patience_(static_cast<std::int64_t>(bytes_.size())),
      bad_(starts_) {}

bool FlowWalk::Walk(Offset entry, Offset end) {
  const Offset segmentEnd = entry - (image_.PhoneAddress(entry) & 0xFFFF) + segmentSize;
  entry_ = entry;
  end_ = end;
  limit_ = std::min(segmentEnd, static_cast<Offset>(bytes_.size()));
  open_.assign(1, entry);
  reached_.clear();
  named_.near.clear();
  named_.far.clear();
  named_.other.clear();
  while (!open_.empty()) {
    const Offset at = open_.back();
    open_.pop_back();
    if (Run(at)) continue;
    Forget();
    return false;
  }
  return true;
}

// Follows the flow from one jump to the next.
bool FlowWalk::Run(Offset at) {
  for (bool isBehindCall = false;;) {
    if (at >= end_ || starts_.Has(at)) return true;
    if (at >= limit_ || code_.Has(at) || bad_.Has(at)) return false;
    const Instruction instruction = Instruction::Decode(bytes_, at);
    const Offset next = at + instruction.Size();
    const bool isLong = instruction.Size() == 4;
    if (instruction.IsData() || next > limit_ || (isLong && code_.Has(at + 2))) return false;
    if (IsFilling(at)) return isBehindCall;
    starts_.Add(at);
    code_.Add(at);
    if (isLong) code_.Add(at + 2);
    reached_.push_back(at);
    if (!isPlain[instruction.Op()]) {
      if (!Pass(at, instruction)) return false;
      if (!instruction.FallsThrough()) return true;
      isBehindCall = instruction.GetFlow() == Flow::Call;
    } else {
      isBehindCall = false;
    }
    at = next;
  }
}

// Notes where else an instruction leads. Returns whether that can be.
bool FlowWalk::Pass(Offset at, const Instruction& instruction) {
  switch (instruction.GetFlow()) {
    case Flow::Jump:
    case Flow::Branch: {
      const auto target = CodePlace(*instruction.Target(image_.PhoneAddress(at)));
      const bool isFar = instruction.Row().args[0] == Arg::Segment;
      if (target && isFar) named_.other.push_back(*target);
      if (target && !isFar) Open(*target);
      return target || isFar;
    }
    case Flow::Call: NoteCall(at, instruction); return true;
    case Flow::IndirectJump:
      for (const Offset target : switches_.Cases(at, entry_)) Open(target);
      return true;
    case Flow::Next: NotePair(at, instruction); return true;
    default: return true;
  }
}

// Jumps to places in front of the entry leave the function.
void FlowWalk::Open(Offset target) {
  if (target >= entry_ && target < end_ && !starts_.Has(target)) open_.push_back(target);
}

void FlowWalk::NoteCall(Offset at, const Instruction& instruction) {
  const auto target = CodePlace(*instruction.Target(image_.PhoneAddress(at)));
  const bool isFar = instruction.Row().args[0] == Arg::Segment;
  if (target) (isFar ? named_.far : named_.near).push_back(*target);
}

// MOV Rn, #offset; MOV Rn+1, #segment.
void FlowWalk::NotePair(Offset at, const Instruction& instruction) {
  if (instruction.Byte(1) < 0xF0 || instruction.Byte(1) == 0xFF || at + 8 > limit_) return;
  const Instruction second = Instruction::Decode(bytes_, at + 4);
  if (second.Op() != instruction.Op() || second.Byte(1) != instruction.Byte(1) + 1) return;
  if (second.Word() > 0xFF) return;
  if (const auto target = CodePlace(std::uint32_t{second.Word()} << 16 | instruction.Word()))
    named_.other.push_back(*target);
}

void FlowWalk::Forget() {
  for (const Offset at : reached_) {
    starts_.Remove(at);
    code_.Remove(at);
    if (Instruction::Decode(bytes_, at).Size() == 4) code_.Remove(at + 2);
  }
  patience_ -= static_cast<std::int64_t>(reached_.size());
  if (patience_ < 0)
    for (const Offset at : reached_) bad_.Add(at);
}

bool FlowWalk::IsFilling(Offset at) const {
  const auto isEmpty = [&](Offset word) {
    return WordAt(bytes_, word) == 0 || WordAt(bytes_, word) == 0xFFFF;
  };
  return isEmpty(at) && at + 4 <= limit_ && isEmpty(at + 2);
}

std::optional<Offset> FlowWalk::CodePlace(std::uint32_t address) const {
  const Offset offset = Offset{address} - image_.CorrBase();
  if (offset < 0 || offset >= static_cast<Offset>(bytes_.size()) || offset % 2 != 0) return {};
  return offset;
}

}  // namespace tarvelo
