#include "code/function_jumps.h"

#include <algorithm>
#include <cstdlib>

#include "code/instruction.h"

namespace tarvelo {
namespace {

constexpr std::size_t mostJumps = 2000;  // of a function; the rest would be a wall of lines

bool Overlap(const FunctionJump& a, const FunctionJump& b) {
  return std::min(a.from, a.to) <= std::max(b.from, b.to) && std::min(b.from, b.to) <= std::max(a.from, a.to);
}

Offset Length(const FunctionJump& jump) { return std::abs(jump.to - jump.from); }

}  // namespace

std::vector<FunctionJump> JumpsWithin(const Fullflash& image, const FunctionList& functions,
                                      const Function& function, int mostLanes) {
  std::vector<FunctionJump> jumps;
  const Region& code = function.code;
  for (Offset at = code.offset; at < code.End() && jumps.size() < mostJumps; at += 2) {
    if (!functions.IsInstruction(at)) continue;
    const Instruction instruction = Instruction::Decode(image.ff(), at);
    const Flow flow = instruction.IsData() ? Flow::Stop : instruction.GetFlow();
    if (flow != Flow::Jump && flow != Flow::Branch) continue;
    const auto target = instruction.Target(image.PhoneAddress(at));
    const Offset to = target ? Offset{*target} - image.CorrBase() : -1;
    if (code.Holds(to)) jumps.push_back({at, to, 0});
  }
  std::ranges::stable_sort(jumps, {}, Length);
  for (auto jump = jumps.begin(); jump != jumps.end(); ++jump) {
    const auto isTaken = [&](int lane) {
      return std::any_of(jumps.begin(), jump, [&](const FunctionJump& other) {
        return other.lane == lane && other.to != jump->to && Overlap(other, *jump);
      });
    };
    while (jump->lane < mostLanes - 1 && isTaken(jump->lane)) ++jump->lane;
  }
  return jumps;
}

}  // namespace tarvelo
