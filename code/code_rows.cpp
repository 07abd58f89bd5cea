#include "code/code_rows.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "code/instruction.h"

namespace tarvelo {
namespace {

constexpr Offset wordBits = 64;

void Set(std::vector<std::uint64_t>& bits, Offset word) {
  const auto bit = static_cast<std::uint64_t>(word);
  bits[bit / wordBits] |= std::uint64_t{1} << bit % wordBits;
}

bool Has(const std::vector<std::uint64_t>& bits, Offset word) {
  const auto bit = static_cast<std::uint64_t>(word);
  return bit / wordBits < bits.size() && (bits[bit / wordBits] >> bit % wordBits & 1) != 0;
}

}  // namespace

CodeRows::CodeRows(Bytes bytes, const FunctionList& functions, std::vector<Region> data,
                   std::span<const Offset> labels, Offset firstWord)
    : starts_(bytes.size() / (2 * wordBits) + 1),
      headings_(starts_.size()),
      data_(std::move(data)),
      size_(static_cast<Offset>(bytes.size())),
      firstWord_(firstWord) {
  const auto addHeading = [this](Offset offset) {
    const bool isWord = offset >= firstWord_ && (offset - firstWord_) % 2 == 0;
    if (isWord && offset < size_) Set(headings_, WordAt(offset));
  };
  std::ranges::for_each(labels, addHeading);
  for (const Function& function : functions.All()) addHeading(function.code.offset);
  const Offset words = WordFrom(size_);
  Offset done = 0;
  for (const Region& region : data_) {
    const Offset start = std::clamp(WordFrom(region.offset), done, words);
    const Offset end = std::clamp(WordFrom(region.End()), start, words);
    MarkCode(bytes, functions, done, start);
    MarkData(start, end);
    done = end;
  }
  MarkCode(bytes, functions, done, words);
  for (std::size_t i = 0; i < headings_.size(); ++i) headings_[i] &= starts_[i];
  CountRows();
}

// Rows end at multiples of 8 bytes and in front of labelled places.
void CodeRows::MarkData(Offset from, Offset end) {
  for (Offset word = from; word < end; ++word)
    if (word == from || word * 2 % dataBytes == 0 || Has(headings_, word)) Set(starts_, word);
}

void CodeRows::MarkCode(Bytes bytes, const FunctionList& functions, Offset from, Offset end) {
  for (Offset word = from; word < end;) {
    Set(starts_, word);
    const Offset at = OffsetOf(word), behind = OffsetOf(word + 1);
    const bool isLong = behind - at == 2 && Instruction::Decode(bytes, at).Size() == 4;
    const bool isCut = isLong && !functions.IsInstruction(at) &&
                       (functions.IsInstruction(behind) || Has(headings_, word + 1));
    word += isLong && !isCut ? 2 : 1;
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
  return WordAt(offset) < WordFrom(region.End()) ? &region : nullptr;
}

Offset CodeRows::NextStart(Offset offset) const {
  Offset word = WordAt(offset) + 1;
  while (OffsetOf(word) < size_ && !Has(starts_, word)) ++word;
  return std::min(OffsetOf(word), size_);
}

CodeRow CodeRows::At(Offset row) const {
  const auto block = std::ranges::upper_bound(before_, static_cast<std::uint32_t>(row)) - before_.begin() - 1;
  const auto i = static_cast<std::size_t>(block);
  Offset left = row - before_[i];
  std::uint64_t starts = starts_[i];
  for (;; starts &= starts - 1) {
    const int bit = std::countr_zero(starts);
    const Offset offset = OffsetOf(block * wordBits + bit);
    if ((headings_[i] >> bit & 1) != 0 && left-- == 0) return {CodeRow::Kind::Heading, offset, 0};
    if (left-- > 0) continue;
    const auto kind = DataAt(offset) ? CodeRow::Kind::Data : CodeRow::Kind::Code;
    return {kind, offset, static_cast<int>(NextStart(offset) - offset)};
  }
}

Offset CodeRows::RowOf(Offset offset) const {
  Offset start = WordAt(offset);
  while (!Has(starts_, start)) --start;
  const auto bit = static_cast<std::uint64_t>(start);
  const std::size_t i = bit / wordBits;
  const std::uint64_t below = (std::uint64_t{1} << bit % wordBits) - 1;
  const std::uint64_t upTo = below << 1 | 1;
  return Offset{before_[i]} + std::popcount(starts_[i] & below) + std::popcount(headings_[i] & upTo);
}

}  // namespace tarvelo
