#include "port/brought_code.h"

#include <algorithm>
#include <iterator>

#include "code/sweep.h"
#include "core/byte_text.h"

namespace tarvelo {
namespace {

constexpr int mostRounds = 64;  // through a part; each may find what the one before led to

std::size_t Word(Offset place) { return static_cast<std::size_t>(place) / 2; }

}  // namespace

BroughtCode::BroughtCode(const PatchedImage& image, const CodeUnits& units)
    : image_(image),
      units_(units),
      isStart_(Word(std::ssize(image.Patched())) + 1),
      endsInData_(isStart_.size()) {
  using enum PatchedPiece::Kind;
  for (const PatchedPiece& piece : image_.Pieces())
    if (piece.kind == Erased) AddParts(piece);
  for (const PatchedPiece& piece : image_.Pieces())
    if (piece.kind != Erased) FollowReferences(piece.region);
  Walk();
  for (const Region& part : parts_) {
    Assume(part);
    OpenUnreached(part);
  }
}

void BroughtCode::AddParts(const PatchedPiece& piece) {
  for (const std::size_t i : piece.changes) {
    const Change& change = image_.Changes()[i].change;
    const Region region{change.offset, std::ssize(change.newBytes)};
    if (parts_.empty() || region.offset > parts_.back().End())
      parts_.push_back(region);
    else
      parts_.back().size = std::max(parts_.back().End(), region.End()) - parts_.back().offset;
  }
}

const Region* BroughtCode::PartAt(Offset offset) const {
  const auto after = std::ranges::upper_bound(parts_, offset, {}, &Region::offset);
  if (after == parts_.begin() || !std::prev(after)->Holds(offset)) return nullptr;
  return &*std::prev(after);
}

// Takes a part as code if nothing in it is data, nothing leads into it, and it is no text.
void BroughtCode::Assume(const Region& part) {
  const Bytes bytes =
      image_.Patched().subspan(static_cast<std::size_t>(part.offset), static_cast<std::size_t>(part.size));
  const bool isText =
      std::ranges::all_of(bytes, [](std::uint8_t byte) { return byte == 0 || IsPrintable(byte); });
  if (isText || !RunsIn(part).empty()) return;
  assumed_.push_back(part);
  Open(part.offset);
  Walk();
}

// Code behind a jump or return that only a table leads to: it calls or jumps to what is known.
void BroughtCode::OpenUnreached(const Region& part) {
  bool isNew = true;
  for (int round = 0; isNew && round < mostRounds; ++round) {
    isNew = false;
    for (const Region& run : RunsIn(part))
      for (Offset end = run.End(); LeadsOn(end, part); end = EndOfRun(end)) {
        Open(end);
        Walk();
        if (!IsStart(end)) break;  // it runs into data
        isNew = true;
      }
  }
}

Offset BroughtCode::EndOfRun(Offset place) const {
  while (IsStart(place)) {
    const Instruction instruction = Instruction::Decode(image_.Patched(), place);
    place += instruction.Size();
    if (!instruction.FallsThrough()) break;
  }
  return place;
}

bool BroughtCode::LeadsOn(Offset place, const Region& part) const {
  while (place < part.End() && !IsStart(place)) {
    const Instruction instruction = Instruction::Decode(image_.Patched(), place);
    if (instruction.IsData()) return false;
    if (const auto target = instruction.Target(image_.Old().PhoneAddress(place))) {
      const Offset to = Offset{*target} - image_.Old().CorrBase();
      if (units_.UnitFrom(to) >= 0 || (image_.Old().BeginsWord(to) && part.Holds(to) && IsStart(to)))
        return true;
    }
    place += instruction.Size();
    if (!instruction.FallsThrough()) return false;
  }
  return false;
}

// What a region calls, or points to by two words: both are found by looking at every word.
void BroughtCode::FollowReferences(const Region& region) {
  const Bytes bytes = image_.Patched();
  const Fullflash& old = image_.Old();
  const auto open = [&](std::uint32_t address) { Open(Offset{address} - old.CorrBase()); };
  for (Offset at = std::max(old.FirstWord(), old.WordStart(region.offset));
       at < region.End() && at + 4 <= std::ssize(bytes); at += 2) {
    const Instruction instruction = Instruction::Decode(bytes, at);
    if (!instruction.IsData())
      if (const auto target = instruction.Target(old.PhoneAddress(at))) open(*target);
    open(DWordAt(bytes, at));
    if (!instruction.LoadsConstant() || at + 8 > std::ssize(bytes)) continue;
    const Instruction next = Instruction::Decode(bytes, at + 4);
    if (next.LoadsConstant() && next.Byte(1) == instruction.Byte(1) + 1)
      open(std::uint32_t{next.Word()} << 16 | instruction.Word());
  }
}

void BroughtCode::Open(Offset place) {
  if (image_.Old().BeginsWord(place) && PartAt(place) && !IsStart(place)) open_.push_back(place);
}

void BroughtCode::Walk() {
  while (!open_.empty()) {
    const Offset place = open_.back();
    open_.pop_back();
    WalkFrom(place);
  }
}

// Takes what a place leads to, up to an end, if nothing on the way is data.
void BroughtCode::WalkFrom(Offset place) {
  const Region& part = *PartAt(place);
  std::vector<Region> found;
  Offset at = place;
  while (at < part.End() && !IsStart(at)) {
    const Instruction instruction = Instruction::Decode(image_.Patched(), at);
    found.push_back({at, instruction.Size()});
    if (instruction.IsData() || at + instruction.Size() > part.End() || endsInData_[Word(at)]) {
      for (const Region& region : found) endsInData_[Word(region.offset)] = true;
      return;
    }
    at += instruction.Size();
    if (!instruction.FallsThrough()) break;
  }
  for (const Region& region : found) {
    isStart_[Word(region.offset)] = true;
    FollowReferences(region);
  }
}

std::span<const Region> BroughtCode::AssumedIn(const PatchedPiece& piece) const {
  const auto first = std::ranges::lower_bound(assumed_, piece.region.offset, {}, &Region::offset);
  return {first, std::ranges::lower_bound(assumed_, piece.region.End(), {}, &Region::offset)};
}

bool BroughtCode::IsStart(Offset place) const { return isStart_[Word(place)]; }

std::vector<Region> BroughtCode::RunsIn(const Region& part) const {
  std::vector<Region> runs;
  bool isBehindEnd = true;
  const Offset first = image_.Old().BeginsWord(part.offset) ? part.offset : part.offset + 1;
  for (Offset at = first; at < part.End(); at += 2) {
    if (!IsStart(at)) continue;
    const Instruction instruction = Instruction::Decode(image_.Patched(), at);
    if (!isBehindEnd && runs.back().End() == at)
      runs.back().size += instruction.Size();
    else
      runs.push_back({at, instruction.Size()});
    isBehindEnd = !instruction.FallsThrough();
    at += instruction.Size() - 2;
  }
  return runs;
}

std::vector<BroughtBlock> BroughtCode::Blocks() const {
  std::vector<BroughtBlock> blocks;
  for (const Region& part : parts_) {
    Offset done = part.offset;
    const auto data = [&](Offset end) {
      if (end > done) blocks.push_back({{done, end - done}, false});
    };
    for (const Region& run : RunsIn(part)) {
      data(run.offset);
      blocks.push_back({run, true});
      done = run.End();
    }
    data(part.End());
  }
  return blocks;
}

}  // namespace tarvelo
