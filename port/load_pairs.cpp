#include "port/load_pairs.h"

#include <vector>

#include "code/register_pairs.h"

namespace tarvelo {

std::optional<std::size_t> PartnerOf(std::span<const DecodedCode> code, std::size_t load) {
  constexpr std::size_t farthest = StraightLine::here;  // instructions between the two
  const auto passes = [&](std::size_t k) {
    const Instruction& instruction = code[k].instruction;
    return !instruction.IsData() && instruction.GetFlow() == Flow::Next;
  };
  std::size_t first = load, end = load + 1;
  while (first > 0 && load - first < farthest && passes(first - 1)) --first;
  while (end < code.size() && end - load <= farthest && passes(end)) ++end;
  std::vector<Instruction> line;
  for (std::size_t k = first; k < end; ++k) line.push_back(code[k].instruction);
  const auto partner = PartnerOf(line, load - first);
  if (!partner || !line[*partner].LoadsConstant()) return {};
  const std::size_t found = first + *partner;
  const auto distance = [&](std::size_t k) { return k < found ? found - k : k - found; };
  const int own = LoadOf(code[load].instruction)->reg;
  for (std::size_t k = first; k < code.size() && k < found + distance(load); ++k)
    if (distance(k) < distance(load) && Replaces(code[k].instruction, own)) return {};
  return found;
}

}  // namespace tarvelo
