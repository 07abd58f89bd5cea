#include "patch/image_compare.h"

#include <algorithm>
#include <cstring>

#include "patch/patch_lines.h"

namespace tarvelo {
namespace {

constexpr std::size_t blockSize = 0x1000;

std::uint64_t LoadWord(const std::uint8_t* at) {
  std::uint64_t word;
  std::memcpy(&word, at, sizeof word);
  return word;
}

// The first index from `at` on at which a and b differ, or `end`.
std::size_t NextDifference(const std::uint8_t* a, const std::uint8_t* b, std::size_t at, std::size_t end) {
  while (end - at >= blockSize && std::memcmp(a + at, b + at, blockSize) == 0) at += blockSize;
  while (end - at >= sizeof(std::uint64_t) && LoadWord(a + at) == LoadWord(b + at))
    at += sizeof(std::uint64_t);
  while (at < end && a[at] == b[at]) ++at;
  return at;
}

// The index behind the last byte of the difference that begins at `at`.
std::size_t EndOfDifference(const std::uint8_t* a, const std::uint8_t* b, std::size_t at, std::size_t end,
                            std::size_t gap) {
  std::size_t behind = at + 1;
  for (std::size_t i = behind; i < end && i - behind <= gap; ++i)
    if (a[i] != b[i]) behind = i + 1;
  return behind;
}

void JoinAcross(std::vector<Difference>& differences, Offset gap) {
  std::size_t kept = 0;
  for (const Difference& next : differences) {
    Difference& last = differences[kept == 0 ? 0 : kept - 1];
    if (kept > 0 && next.offset - last.End() <= gap)
      last.size = next.End() - last.offset;
    else
      differences[kept++] = next;
  }
  differences.resize(kept);
}

}  // namespace

Bytes RegionOf(Bytes bytes, const Difference& difference, Offset shift) {
  const auto size = static_cast<Offset>(bytes.size());
  const Offset offset = difference.offset + shift;
  if (offset < 0 || difference.size < 0 || offset > size - difference.size)
    ThrowPastEnd(offset + difference.size);
  return bytes.subspan(static_cast<std::size_t>(offset), static_cast<std::size_t>(difference.size));
}

Offset AddressShift(const Fullflash& one, const Fullflash& other) {
  return one.PageMode() == other.PageMode() ? Offset{one.LoadBase()} - other.LoadBase() : 0;
}

Comparison Compare(Bytes oldBytes, Bytes newBytes, Offset gap, Offset shift) {
  Comparison comparison;
  comparison.shift = shift;
  comparison.start = std::clamp<Offset>(-shift, 0, std::ssize(oldBytes));
  const Offset startInNew = std::clamp<Offset>(shift, 0, std::ssize(newBytes));
  comparison.common = std::min(std::ssize(oldBytes) - comparison.start, std::ssize(newBytes) - startInNew);
  comparison.restOfOld = std::ssize(oldBytes) - comparison.common;
  comparison.restOfNew = std::ssize(newBytes) - comparison.common;
  const std::uint8_t* const a = oldBytes.data() + comparison.start;
  const std::uint8_t* const b = newBytes.data() + startInNew;
  const auto common = static_cast<std::size_t>(comparison.common);
  const auto most = static_cast<std::size_t>(std::max<Offset>(gap, 0));
  for (std::size_t at = 0; (at = NextDifference(a, b, at, common)) < common;) {
    const std::size_t behind = EndOfDifference(a, b, at, common, most);
    comparison.differences.push_back(
        {comparison.start + static_cast<Offset>(at), static_cast<Offset>(behind - at)});
    at = behind;
  }
  return comparison;
}

Offset DifferingBytes(Bytes oldBytes, Bytes newBytes, std::span<const Difference> differences, Offset shift) {
  Offset count = 0;
  for (const Difference& difference : differences) {
    const Bytes from = RegionOf(oldBytes, difference);
    const Bytes to = RegionOf(newBytes, difference, shift);
    for (std::size_t i = 0; i < from.size(); ++i) count += from[i] != to[i];
  }
  return count;
}

bool JoinDifferences(std::vector<Difference>& differences, std::size_t most) {
  if (differences.size() <= most) return false;
  for (Offset gap = 2 * usualGap; differences.size() > most; gap *= 2) JoinAcross(differences, gap);
  return true;
}

std::size_t NearestDifference(std::span<const Difference> differences, Offset offset) {
  const auto behind = std::ranges::upper_bound(differences, offset, {}, &Difference::offset);
  if (behind == differences.begin()) return 0;
  const auto before = behind - 1;
  const bool isBefore = behind == differences.end() || offset - before->End() < behind->offset - offset;
  return static_cast<std::size_t>((isBefore ? before : behind) - differences.begin());
}

Change ChangeOf(Bytes oldBytes, Bytes newBytes, const Difference& difference, Offset shift) {
  const Bytes from = RegionOf(oldBytes, difference);
  const Bytes to = RegionOf(newBytes, difference, shift);
  return {difference.offset, {from.begin(), from.end()}, {to.begin(), to.end()}};
}

std::string PatchLines(Bytes oldBytes, Bytes newBytes, std::span<const Difference> differences,
                       Offset shift) {
  std::string lines;
  for (const Difference& difference : differences)
    AppendPatchLines(lines, difference.offset, RegionOf(oldBytes, difference),
                     RegionOf(newBytes, difference, shift));
  if (!lines.empty()) lines.pop_back();
  return lines;
}

}  // namespace tarvelo
