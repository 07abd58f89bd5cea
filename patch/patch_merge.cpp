#include "patch/patch_merge.h"

#include <algorithm>
#include <set>

#include "patch/patch_document.h"
#include "patch/patch_lines.h"

namespace tarvelo {
namespace {

// The first change that ends behind an offset.
auto FirstBehind(std::span<const Change> changes, Offset offset) {
  return std::ranges::upper_bound(changes, offset, {},
                                  [](const Change& change) { return change.offset + change.Size(); });
}

std::string AllBytes(const std::vector<std::uint8_t>& bytes) { return FirstBytes(bytes, bytes.size()); }

std::string TextOf(const PatchLine& line, const std::string& before) {
  return PatchAddress(line.address) + ": " + AllBytes(line.oldBytes) + " " + AllBytes(line.newBytes) +
         CommentOf(before);
}

// Gives a line the bytes of a change where both overlap. True if that makes a difference.
bool Take(PatchLine& line, const Change& change) {
  const Offset from = std::max<Offset>(line.address, change.offset);
  const Offset end =
      std::min<Offset>(line.address + std::ssize(line.newBytes), change.offset + change.Size());
  bool differs = false;
  for (Offset at = from; at < end; ++at) {
    const auto own = static_cast<std::size_t>(at - line.address);
    const auto other = static_cast<std::size_t>(at - change.offset);
    differs |= line.oldBytes[own] != change.oldBytes[other] || line.newBytes[own] != change.newBytes[other];
    line.oldBytes[own] = change.oldBytes[other];
    line.newBytes[own] = change.newBytes[other];
  }
  return differs;
}

// The parts of a change between covered regions that change at least one byte.
std::vector<Change> Uncovered(const Change& change, const std::vector<Region>& covered) {
  std::vector<Change> parts;
  const auto add = [&](Offset from, Offset end) {
    const auto a = from - change.offset, b = end - change.offset;
    Change part{from,
                {change.oldBytes.begin() + a, change.oldBytes.begin() + b},
                {change.newBytes.begin() + a, change.newBytes.begin() + b}};
    if (part.oldBytes != part.newBytes) parts.push_back(std::move(part));
  };
  const Offset end = change.offset + change.Size();
  Offset from = change.offset;
  for (const Region& region : covered) {  // in order of their starts
    if (region.offset > from) add(from, std::min(region.offset, end));
    from = std::max(from, region.offset + region.size);
    if (from >= end) return parts;
  }
  add(from, end);
  return parts;
}

}  // namespace

MergedPatch MergeIntoPatch(std::span<const std::string> lines, std::span<const Change> changes) {
  MergedPatch merged;
  std::vector<std::vector<Region>> covered(changes.size());
  std::set<std::size_t> taken;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    PatchLine line = ReadPatchLine(lines[i]);
    if (line.kind != PatchLine::Kind::Change) continue;
    const Region region{line.address, std::ssize(line.newBytes)};
    bool differs = false;
    for (auto change = FirstBehind(changes, region.offset);
         change != changes.end() && change->offset < region.offset + region.size; ++change) {
      const auto index = static_cast<std::size_t>(change - changes.begin());
      covered[index].push_back(region);
      if (!Take(line, *change)) continue;
      differs = true;
      taken.insert(index);
    }
    if (differs) merged.replaced[i] = TextOf(line, lines[i]);
  }
  for (std::size_t i = 0; i < changes.size(); ++i) {
    std::ranges::sort(covered[i], {}, &Region::offset);
    for (Change& part : Uncovered(changes[i], covered[i])) {
      merged.added.push_back(std::move(part));
      taken.insert(i);
    }
  }
  merged.taken = taken.size();
  return merged;
}

}  // namespace tarvelo
