#include "patch/document_check.h"

#include <algorithm>
#include <utility>

namespace tarvelo {
namespace {

// How a later change of a byte goes together with an earlier one.
bool GoTogether(const Change& earlier, const Change& later, Offset place) {
  const auto a = static_cast<std::size_t>(place - earlier.offset);
  const auto b = static_cast<std::size_t>(place - later.offset);
  const bool repeats = earlier.oldBytes[a] == later.oldBytes[b] && earlier.newBytes[a] == later.newBytes[b];
  return repeats || earlier.newBytes[a] == later.oldBytes[b];
}

}  // namespace

Sheet OriginalOf(const Fullflash& image, const ImageEdits& edits) {
  Sheet original(image.ff());
  for (const Change& change : edits.Changes(image)) original.Write(change.offset, change.oldBytes);
  return original;
}

DocumentCheck::DocumentCheck(std::string text, Sheet original)
    : text_(std::move(text)), reader_(text_), original_(std::move(original)), judge_(original_) {}

bool DocumentCheck::Step(std::size_t lines) {
  for (; lines > 0 && ReadNext(); --lines) {
  }
  for (; lines > 0 && JudgeNext(); --lines) {
  }
  return !IsDone();
}

bool DocumentCheck::ReadNext() {
  if (isRead_) return false;
  const auto line = reader_.Next();
  if (!line) {
    isRead_ = true;
    return false;
  }
  PatchLine read = ReadPatchLine(*line);
  const bool isMalformed = read.kind == PatchLine::Kind::Invalid;
  verdicts_.push_back(isMalformed ? LineVerdict::Malformed : LineVerdict::Nothing);
  if (read.kind == PatchLine::Kind::Change) {
    changes_.push_back(
        {verdicts_.size(), {Offset{read.address}, std::move(read.oldBytes), std::move(read.newBytes)}});
    clashes_.emplace_back();
    judge_.Expect(changes_.back().change);
    FindClashes(static_cast<std::uint32_t>(changes_.size() - 1));
  } else {
    ++counts_[static_cast<std::size_t>(verdicts_.back())];
  }
  return true;
}

// Looks which earlier lines change the bytes of a change, and takes the bytes over from them.
void DocumentCheck::FindClashes(std::uint32_t index) {
  const Change& change = changes_[index].change;
  const Offset end = std::min(change.offset + change.Size(), original_.Size());
  Owners* page = nullptr;
  for (Offset at = change.offset; at < end; ++at) {
    const Offset within = at % ownersPage;
    if (!page || within == 0) page = &owners_[at / ownersPage];
    std::uint32_t& owner = (*page)[static_cast<std::size_t>(within)];
    if (owner > 0) {
      const std::uint32_t earlier = owner - 1;
      const bool fine = GoTogether(changes_[earlier].change, change, at);
      Mark(index, fine ? Clash::Overlap : Clash::Contradiction, earlier);
      if (!fine) Mark(earlier, Clash::Contradiction, index);
    }
    owner = index + 1;
  }
}

void DocumentCheck::Mark(std::uint32_t index, Clash clash, std::uint32_t other) {
  if (clash > clashes_[index].clash) clashes_[index] = {clash, other};
}

bool DocumentCheck::JudgeNext() {
  if (judged_ == changes_.size()) return false;
  const auto& [line, change] = changes_[judged_];
  const LineVerdict verdict = VerdictOf(judged_, judge_.Judge(change).fit);
  verdicts_[line - 1] = verdict;
  ++counts_[static_cast<std::size_t>(verdict)];
  ++judged_;
  return true;
}

LineVerdict DocumentCheck::VerdictOf(std::size_t index, Fit fit) const {
  if (fit == Fit::Outside) return LineVerdict::Outside;
  const Clash clash = clashes_[index].clash;
  if (clash == Clash::Contradiction) return LineVerdict::Contradicts;
  if (fit == Fit::Mismatch) return LineVerdict::Differs;
  if (clash == Clash::Overlap) return LineVerdict::Overlaps;
  return fit == Fit::Applied ? LineVerdict::Applied : LineVerdict::Fits;
}

LineVerdict DocumentCheck::At(std::size_t line) const {
  return line >= 1 && line <= verdicts_.size() ? verdicts_[line - 1] : LineVerdict::Nothing;
}

std::optional<std::size_t> DocumentCheck::IndexOf(std::size_t line) const {
  const auto found = std::ranges::lower_bound(changes_, line, {}, &PatchChange::line);
  if (found == changes_.end() || found->line != line) return {};
  return static_cast<std::size_t>(found - changes_.begin());
}

const Change* DocumentCheck::ChangeAt(std::size_t line) const {
  const auto index = IndexOf(line);
  return index ? &changes_[*index].change : nullptr;
}

std::optional<std::size_t> DocumentCheck::OtherLine(std::size_t line) const {
  const auto index = IndexOf(line);
  if (!index || clashes_[*index].clash == Clash::None) return {};
  return changes_[clashes_[*index].other].line;
}

std::vector<std::uint8_t> DocumentCheck::Found(std::size_t line) const {
  const Change* change = ChangeAt(line);
  if (!change || change->offset > original_.Size() - change->Size()) return {};
  return original_.Copy(change->offset, change->Size());
}

std::optional<std::size_t> DocumentCheck::NextProblem(std::size_t line, bool backwards) const {
  const std::size_t count = verdicts_.size();
  if (count == 0) return {};
  std::size_t at = std::min(line, count + 1);
  for (std::size_t i = 0; i < count; ++i) {
    if (backwards)
      at = at <= 1 ? count : at - 1;
    else
      at = at >= count ? 1 : at + 1;
    if (IsProblem(At(at))) return at;
  }
  return {};
}

std::vector<std::size_t> DocumentCheck::Contradictions() const {
  std::vector<const PatchChange*> found;
  for (const PatchChange& each : changes_)
    if (At(each.line) == LineVerdict::Contradicts) found.push_back(&each);
  std::ranges::stable_sort(found, {}, [](const PatchChange* each) { return each->change.offset; });
  std::vector<std::size_t> lines;
  std::ranges::transform(found, std::back_inserter(lines), &PatchChange::line);
  return lines;
}

std::optional<std::size_t> DocumentCheck::LineOf(Offset offset) const {
  const auto page = owners_.find(offset / ownersPage);
  if (offset < 0 || page == owners_.end()) return {};
  const std::uint32_t owner = page->second[static_cast<std::size_t>(offset % ownersPage)];
  if (owner == 0) return {};
  return changes_[owner - 1].line;
}

}  // namespace tarvelo
