#include "port/port_place.h"

#include <algorithm>
#include <numeric>

#include "port/patched_image.h"

namespace tarvelo {
namespace {

constexpr int fewestAround = 20;   // instructions that must agree
constexpr int fewestInside = 16;   // of them in the same unit, unless it is shorter
constexpr int proofByLength = 40;  // so many need no evidence from elsewhere
constexpr int mostContext = 60;
constexpr int near = 4;             // no contradiction so near
constexpr int far = 12;             // at most a quarter of the judged ones contradict within this
constexpr int rivalReach = 8;       // instructions on each side that a rival shares
constexpr Offset bytesOfData = 16;  // on each side of an address that nothing votes on
constexpr int repeated = 4;         // a stretch that agrees this far on both sides may be a repetition

int SizeOf(std::span<const UnitInstruction> code) { return static_cast<int>(code.size()); }
const UnitInstruction& At(std::span<const UnitInstruction> code, int i) {
  return code[static_cast<std::size_t>(i)];
}

}  // namespace

NewPlace PlaceFinder::Find(const Region& region) const {
  const int unit = pairing_.Old().UnitAt(region.offset);
  if (unit < 0) return InData(region);
  if (region.End() > pairing_.Old().units[static_cast<std::size_t>(unit)].code.End())
    return {PortRefusal::NoPlace};
  return InCode(region, unit);
}

NewPlace PlaceFinder::InCode(const Region& region, int unit) const {
  const CodeUnits& units = pairing_.Old();
  const auto first = static_cast<int>(units.units[static_cast<std::size_t>(unit)].first);
  const std::optional<Match> match = Matched(unit, units.InstructionAt(region.offset) - first,
                                             units.InstructionAt(region.End() - 1) - first);
  if (!match) return {PortRefusal::NoPlace};
  const int context = Context(*match);
  const bool isWhole = match->begin == 0 && match->end == SizeOf(pairing_.OldCode(unit));
  if (match->end - match->begin < fewestInside && !isWhole) return {PortRefusal::NoPlace};
  if (IsContradicted(*match)) return {PortRefusal::NoPlace};
  const int agreeing = Agreeing(*match, match->shift, mostContext);
  if (context < fewestAround && agreeing < 2) return {PortRefusal::NotUnique};
  if (context < proofByLength && !HasEvidence(*match)) return {PortRefusal::NotUnique};
  if (IsAmbiguous(*match) || HasRival(*match)) return {PortRefusal::SeveralPlaces};
  const UnitInstruction& from = At(pairing_.OldCode(unit), match->first);
  const UnitInstruction& to = At(pairing_.NewCode(match->newUnit), match->first + match->shift);
  return {{}, Offset{to.offset} + region.offset - Offset{from.offset}, std::min(context, mostContext)};
}

std::optional<PlaceFinder::Match> PlaceFinder::Matched(int unit, int first, int last) const {
  const int newUnit = pairing_.NewOf(unit);
  if (newUnit < 0) return {};
  std::vector<int> pairs;
  if (pairing_.IsSame(unit)) {
    pairs.resize(pairing_.OldCode(unit).size());
    std::iota(pairs.begin(), pairs.end(), 0);
  } else {
    pairs = pairing_.Aligned(unit, newUnit);
  }
  const auto pairOf = [&](int i) { return pairs[static_cast<std::size_t>(i)]; };
  if (pairOf(first) < 0) return {};
  const int shift = pairOf(first) - first;
  const auto agrees = [&](int i) { return pairOf(i) >= 0 && pairOf(i) - i == shift; };
  Match match{unit, newUnit, first, last, shift, first, first};
  while (match.begin > 0 && agrees(match.begin - 1)) --match.begin;
  while (match.end < static_cast<int>(pairs.size()) && agrees(match.end)) ++match.end;
  if (match.end <= last) return {};
  return match;
}

// The instructions that agree around a place, those of neighbours that are pairs, too, included.
int PlaceFinder::Context(const Match& match) const {
  int context = match.end - match.begin;
  const int newSize = SizeOf(pairing_.NewCode(match.newUnit));
  const auto neighbour = [&](int step) {
    const int old = match.oldUnit + step;
    const int now = match.newUnit + step;
    const bool exists = old >= 0 && now >= 0 && old < static_cast<int>(pairing_.Old().units.size());
    if (!exists || pairing_.NewOf(old) != now) return 0;
    const auto a = pairing_.OldCode(old);
    const auto b = pairing_.NewCode(now);
    int agreeing = 0;
    const int most = std::min(SizeOf(a), SizeOf(b));
    const auto at = [&](std::span<const UnitInstruction> code, int i) {
      return At(code, step > 0 ? i : SizeOf(code) - 1 - i).token;
    };
    while (agreeing < most && at(a, agreeing) == at(b, agreeing)) ++agreeing;
    return agreeing;
  };
  if (match.begin == 0 && match.shift == 0) context += neighbour(-1);
  if (match.end == SizeOf(pairing_.OldCode(match.oldUnit)) && match.end + match.shift == newSize)
    context += neighbour(+1);
  return context;
}

Verdict PlaceFinder::JudgeAt(const Match& match, int instruction, int shift) const {
  const auto old = pairing_.OldCode(match.oldUnit);
  const auto now = pairing_.NewCode(match.newUnit);
  const int to = instruction + shift;
  if (instruction < 0 || instruction >= SizeOf(old) || to < 0 || to >= SizeOf(now)) return Verdict::Unknown;
  if (At(old, instruction).token != At(now, to).token) return Verdict::Unknown;
  return pairing_.Judge(At(old, instruction), match.oldUnit, At(now, to));
}

int PlaceFinder::Agreeing(const Match& match, int shift, int reach) const {
  int agreeing = 0;
  for (int i = match.first - reach; i <= match.last + reach; ++i)
    if (JudgeAt(match, i, shift) == Verdict::Agrees) ++agreeing;
  return agreeing;
}

bool PlaceFinder::IsContradicted(const Match& match) const {
  int contradicting = 0;
  int judged = 0;
  for (int i = match.first - far; i <= match.last + far; ++i) {
    const Verdict verdict = JudgeAt(match, i, match.shift);
    if (verdict == Verdict::Unknown) continue;
    ++judged;
    if (verdict == Verdict::Agrees) continue;
    ++contradicting;
    if (i >= match.first - near && i <= match.last + near) return true;
  }
  return contradicting * 4 > judged;
}

// Whether anything but its own bytes speaks for the pair: what it refers to, who calls it, its neighbours.
bool PlaceFinder::HasEvidence(const Match& match) const {
  if (Agreeing(match, match.shift, mostContext) > 0) return true;
  const auto& old = pairing_.Old().units[static_cast<std::size_t>(match.oldUnit)].code;
  const auto& now = pairing_.New().units[static_cast<std::size_t>(match.newUnit)].code;
  const auto tally = pairing_.Votes().On({Movable::Kind::Code, old_.PhoneAddress(old.offset)},
                                         {Movable::Kind::Code, now_.PhoneAddress(now.offset)}, match.oldUnit);
  return tally.agreeing > 0 && tally.agreeing == tally.all;
}

// Whether the place could as well be another one in the new unit: lists of calls, unrolled loops.
bool PlaceFinder::IsAmbiguous(const Match& match) const {
  const auto old = pairing_.OldCode(match.oldUnit);
  const auto now = pairing_.NewCode(match.newUnit);
  const int from = std::max(match.first - repeated, 0);
  const int end = std::min(match.last + repeated + 1, SizeOf(old));
  const int own = Agreeing(match, match.shift, 2 * repeated);
  for (int shift = -from; shift + end <= SizeOf(now); ++shift) {
    if (shift == match.shift) continue;
    int i = from;
    while (i < end && At(old, i).token == At(now, i + shift).token) ++i;
    if (i < end) continue;
    bool isContradicted = false;
    for (int k = from; k < end; ++k) isContradicted |= JudgeAt(match, k, shift) == Verdict::Contradicts;
    if (!isContradicted && Agreeing(match, shift, 2 * repeated) >= own) return true;
  }
  return false;
}

// Whether code that has no pair could as well be that of the place, in either version: one of several twins
// that the other version has no more.
bool PlaceFinder::HasRival(const Match& match) const {
  const int from = std::max(match.begin, match.first - rivalReach);
  const int end = std::min(match.end, match.last + 1 + rivalReach);
  const auto part = [&](std::span<const UnitInstruction> code, int first) {
    return code.subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(end - from));
  };
  const auto old = part(pairing_.OldCode(match.oldUnit), from);
  const auto now = part(pairing_.NewCode(match.newUnit), from + match.shift);
  const int own = Agreeing(match, match.shift, rivalReach);
  return added_.Any(old, [&](int unit, int first) {
    return IsRival(old, match.oldUnit, part(pairing_.NewCode(unit), first), own);
  }) || gone_.Any(now, [&](int unit, int first) {
    return IsRival(part(pairing_.OldCode(unit), first), unit, now, own);
  });
}

bool PlaceFinder::IsRival(std::span<const UnitInstruction> old, int oldUnit,
                          std::span<const UnitInstruction> now, int own) const {
  int agreeing = 0;
  int contradicting = 0;
  for (std::size_t i = 0; i < old.size(); ++i) {
    const Verdict verdict = pairing_.Judge(old[i], oldUnit, now[i]);
    agreeing += verdict == Verdict::Agrees;
    contradicting += verdict == Verdict::Contradicts;
  }
  return agreeing >= contradicting && agreeing * 2 >= own;
}

NewPlace PlaceFinder::InData(const Region& region) const {
  const auto found = data_.Find(region);
  if (!found) return {PortRefusal::NoPlace};
  if (!found->isUniqueInOld) return {PortRefusal::NotUnique};
  if (!found->isUnique) return {PortRefusal::SeveralPlaces};
  return {{}, found->offset, static_cast<int>(found->agreeing)};
}

std::optional<std::uint32_t> PlaceFinder::CodeAddress(std::uint32_t address) const {
  const Offset offset = Offset{address} - old_.CorrBase();
  if (IsElsewhere(address)) return Outside({Movable::Kind::Code, address});
  const int unit = pairing_.OldUnitFrom(address);
  if (unit >= 0) {
    const int now = pairing_.NewOf(unit);
    if (now < 0 || !pairing_.IsSure(unit)) return {};
    return now_.PhoneAddress(pairing_.New().units[static_cast<std::size_t>(now)].code.offset);
  }
  if (const auto now = pairing_.Votes().Sure({Movable::Kind::Code, address})) return now;
  const int around = pairing_.Old().UnitAt(offset);
  if (around < 0 || !pairing_.IsSure(around)) return {};
  return CodeInside(address);
}

std::optional<std::uint32_t> PlaceFinder::CodeInside(std::uint32_t address) const {
  const NewPlace place = Find({Offset{address} - old_.CorrBase(), 2});
  if (place.refusal) return {};
  return now_.PhoneAddress(place.offset);
}

// Whether an address is that of other memory: outside the dump, or where nothing is in it.
bool PlaceFinder::IsElsewhere(std::uint32_t address) const {
  const Offset offset = Offset{address} - old_.CorrBase();
  if (offset < 0 || offset >= old_.ffEnd()) return true;
  return IsInErasedArea(old_, {offset, 2});
}

// Code and variables in other memory move, too; nothing but votes tells where.
std::optional<std::uint32_t> PlaceFinder::Outside(const Movable& old) const {
  if (const auto now = pairing_.Votes().Sure(old)) return now;
  if (pairing_.Votes().Stays(old)) return old.value;
  return {};
}

std::optional<std::uint32_t> PlaceFinder::DataAddress(std::uint32_t address) const {
  const Offset offset = Offset{address} - old_.CorrBase();
  if (IsElsewhere(address)) return Outside({Movable::Kind::Address, address});
  if (const auto now = pairing_.Votes().Sure({Movable::Kind::Address, address})) return now;
  if (pairing_.Old().UnitAt(offset) >= 0) return CodeInside(address);
  // What stands in front of it must agree, too: it may have grown at its beginning.
  const auto found = data_.Find({offset, std::min(bytesOfData, old_.ffEnd() + 1 - offset)});
  if (!found || !found->isUnique || !found->isUniqueInOld || found->before < bytesOfData) return {};
  return now_.PhoneAddress(found->offset);
}

}  // namespace tarvelo
