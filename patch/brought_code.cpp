#include "patch/brought_code.h"

#include <algorithm>

#include "code/sweep.h"

namespace tarvelo {

BroughtCode::BroughtCode(const PatchedImage& image, const CodeUnits& units)
    : image_(image), units_(units), isStart_(static_cast<std::size_t>(std::ssize(image.Patched())) / 2 + 1) {
  using enum PatchedPiece::Kind;
  for (const PatchedPiece& piece : image_.Pieces())
    if (piece.kind != Erased) FollowReferences(piece.region);
  Walk();
  for (const PatchedPiece& piece : image_.Pieces()) {
    if (piece.kind != Erased) continue;
    if (In(piece).empty()) {
      assumed_.push_back(piece.region.offset);
      Open(piece.region.offset);
      Walk();
    }
    OpenUnreached(piece);
  }
}

// Code behind a jump or return that only a table leads to: it calls or jumps to what is known.
void BroughtCode::OpenUnreached(const PatchedPiece& piece) {
  for (bool isNew = true; isNew;) {
    isNew = false;
    for (const Region& run : In(piece))
      if (LeadsOn(run.End(), piece)) {
        open_.push_back(run.End());
        isNew = true;
      }
    Walk();
  }
}

bool BroughtCode::LeadsOn(Offset place, const PatchedPiece& piece) const {
  while (place < piece.region.End() && !IsStart(place)) {
    const Instruction instruction = Instruction::Decode(image_.Patched(), place);
    if (instruction.IsData()) return false;
    if (const auto target = instruction.Target(image_.Old().PhoneAddress(place))) {
      const Offset to = Offset{*target} - image_.Old().CorrBase();
      if (units_.UnitFrom(to) >= 0 || (image_.Old().BeginsWord(to) && piece.region.Holds(to) && IsStart(to)))
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
  if (image_.Old().BeginsWord(place) && image_.ErasedAt(place) && !IsStart(place)) open_.push_back(place);
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
  const PatchedPiece& piece = *image_.ErasedAt(place);
  std::vector<Region> found;
  Offset at = place;
  while (at < piece.region.End() && !IsStart(at)) {
    const Instruction instruction = Instruction::Decode(image_.Patched(), at);
    if (instruction.IsData() || at + instruction.Size() > piece.region.End()) return;
    found.push_back({at, instruction.Size()});
    at += instruction.Size();
    if (!instruction.FallsThrough()) break;
  }
  for (const Region& region : found) {
    isStart_[static_cast<std::size_t>(region.offset) / 2] = true;
    FollowReferences(region);
  }
}

bool BroughtCode::IsAssumed(const PatchedPiece& piece) const {
  return std::ranges::find(assumed_, piece.region.offset) != assumed_.end();
}

bool BroughtCode::IsStart(Offset place) const { return isStart_[static_cast<std::size_t>(place) / 2]; }

std::vector<Region> BroughtCode::In(const PatchedPiece& piece) const {
  std::vector<Region> runs;
  const Offset from = piece.region.offset;
  for (Offset at = image_.Old().BeginsWord(from) ? from : from + 1; at < piece.region.End(); at += 2) {
    if (!IsStart(at)) continue;
    const Offset size = Instruction::Decode(image_.Patched(), at).Size();
    if (!runs.empty() && runs.back().End() == at)
      runs.back().size += size;
    else
      runs.push_back({at, size});
    at += size - 2;
  }
  return runs;
}

}  // namespace tarvelo
