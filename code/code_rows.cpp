#include "code/code_rows.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "code/instruction.h"

namespace tarvelo {
namespace {

constexpr Offset wordBits = 64;

void Set(std::vector<std::uint64_t>& bits, Offset even) {
  const auto bit = static_cast<std::uint64_t>(even) / 2;
  bits[bit / wordBits] |= std::uint64_t{1} << bit % wordBits;
}

bool Has(const std::vector<std::uint64_t>& bits, Offset even) {
  const auto bit = static_cast<std::uint64_t>(even) / 2;
  return bit / wordBits < bits.size() && (bits[bit / wordBits] >> bit % wordBits & 1) != 0;
}

Offset EvenEnd(const Region& region) { return region.End() + (region.End() & 1); }

}  // namespace

CodeRows::CodeRows(Bytes bytes, const FunctionList& functions, std::vector<Region> data,
                   std::span<const Offset> labels)
    : starts_(bytes.size() / (2 * wordBits) + 1),
      headings_(starts_.size()),
      data_(std::move(data)),
      size_(static_cast<Offset>(bytes.size())) {
  for (const Offset label : labels)
    if (label % 2 == 0 && label >= 0 && label < size_) Set(headings_, label);
  for (const Function& function : functions.All())
    if (function.code.offset % 2 == 0) Set(headings_, function.code.offset);
  Offset done = 0;
  for (const Region& region : data_) {
    const Offset start = std::clamp<Offset>(region.offset + (region.offset & 1), done, size_);
    const Offset end = std::clamp<Offset>(EvenEnd(region), start, size_);
    MarkCode(bytes, functions, done, start);
    MarkData({start, end - start});
    done = end;
  }
  MarkCode(bytes, functions, done, size_);
  for (std::size_t i = 0; i < headings_.size(); ++i) headings_[i] &= starts_[i];
  CountRows();
}

// Rows end at multiples of 8 bytes and in front of labelled places.
void CodeRows::MarkData(const Region& region) {
  for (Offset at = region.offset; at < region.End(); at += 2)
    if (at == region.offset || at % dataBytes == 0 || Has(headings_, at)) Set(starts_, at);
}

void CodeRows::MarkCode(Bytes bytes, const FunctionList& functions, Offset from, Offset end) {
  for (Offset at = from; at < end;) {
    Set(starts_, at);
    const int size = Instruction::Decode(bytes, at).Size();
    const bool isCut = size == 4 && !functions.IsInstruction(at) &&
                       (functions.IsInstruction(at + 2) || Has(headings_, at + 2));
    at += isCut ? 2 : size;
  }
}

void CodeRows::CountRows() {
  before_.reserve(starts_.size());
  for (std::size_t i = 0; i < starts_.size(); ++i) {
    before_.push_back(static_cast<std::uint32_t>(count_));
    count_ += std::popcount(starts_[i]) + std::popcount(headings_[i]);
  }
}

const Region* CodeRows::DataAt(Offset offset) const {
  const auto after = std::ranges::upper_bound(data_, offset, {}, &Region::offset);
  if (after == data_.begin()) return nullptr;
  const Region& region = *std::prev(after);
  return offset < EvenEnd(region) ? &region : nullptr;
}

Offset CodeRows::NextStart(Offset offset) const {
  do offset += 2;
  while (offset < size_ && !Has(starts_, offset));
  return std::min(offset, size_);
}

CodeRow CodeRows::At(Offset row) const {
  const auto block = std::ranges::upper_bound(before_, static_cast<std::uint32_t>(row)) - before_.begin() - 1;
  const auto i = static_cast<std::size_t>(block);
  Offset left = row - before_[i];
  std::uint64_t starts = starts_[i];
  for (;; starts &= starts - 1) {
    const int bit = std::countr_zero(starts);
    const Offset offset = (block * wordBits + bit) * 2;
    if ((headings_[i] >> bit & 1) != 0 && left-- == 0) return {CodeRow::Kind::Heading, offset, 0};
    if (left-- > 0) continue;
    const auto kind = DataAt(offset) ? CodeRow::Kind::Data : CodeRow::Kind::Code;
    return {kind, offset, static_cast<int>(NextStart(offset) - offset)};
  }
}

Offset CodeRows::RowOf(Offset offset) const {
  Offset start = offset & ~Offset{1};
  while (!Has(starts_, start)) start -= 2;
  const auto bit = static_cast<std::uint64_t>(start) / 2;
  const std::size_t i = bit / wordBits;
  const std::uint64_t below = (std::uint64_t{1} << bit % wordBits) - 1;
  const std::uint64_t upTo = below << 1 | 1;
  return Offset{before_[i]} + std::popcount(starts_[i] & below) + std::popcount(headings_[i] & upTo);
}

}  // namespace tarvelo
