#include "versions/alignment.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tarvelo {
namespace {

constexpr std::size_t mostCells = 4'000'000;

// A table of the best alignments of all beginnings, with gaps that cost more to open than to lengthen.
class BestAlignment {
 public:
  BestAlignment(std::span<const UnitInstruction> old, std::span<const UnitInstruction> now,
                const CanPair& canPair)
      : old_(old), now_(now), width_(now.size() + 1), steps_((old.size() + 1) * width_) {
    Fill(canPair);
  }

  // Adds the pairs, with indices from `first` up in the old unit and `firstNow` in the new one.
  void Read(std::vector<int>& pairs, std::size_t first, std::size_t firstNow) const {
    std::size_t i = old_.size();
    std::size_t j = now_.size();
    bool isMatch = steps_[i * width_ + j].endsInMatch;
    while (i > 0 && j > 0) {
      const Step& step = steps_[i * width_ + j];
      if (isMatch) {
        pairs[first + i - 1] = static_cast<int>(firstNow + j - 1);
        isMatch = step.matchFromMatch;
        --i, --j;
      } else {
        isMatch = step.gapFromMatch;
        step.gapInOld ? --j : --i;
      }
    }
  }

 private:
  struct Step {
    bool endsInMatch : 1 = false;
    bool matchFromMatch : 1 = false;
    bool gapFromMatch : 1 = false;
    bool gapInOld : 1 = false;
  };
  struct Score {
    int match = never;
    int gap = 0;
  };
  static constexpr int never = -1'000'000;
  static constexpr int pairScore = 4;
  static constexpr int opened = 5;
  static constexpr int longer = 1;

  void Fill(const CanPair& canPair) {
    std::vector<Score> row(width_);
    for (std::size_t j = 1; j < width_; ++j) {
      row[j].gap = -static_cast<int>(j) * longer;
      steps_[j].gapInOld = true;
    }
    for (std::size_t i = 1; i <= old_.size(); ++i) {
      Score corner = row[0];
      row[0].gap = -static_cast<int>(i) * longer;
      for (std::size_t j = 1; j < width_; ++j) {
        const Score above = row[j];
        row[j] = Next(i, j, corner, above, row[j - 1], canPair);
        corner = above;
      }
    }
  }

  Score Next(std::size_t i, std::size_t j, const Score& corner, const Score& above, const Score& left,
             const CanPair& canPair) {
    Score score;
    Step& step = steps_[i * width_ + j];
    const UnitInstruction& old = old_[i - 1];
    const UnitInstruction& now = now_[j - 1];
    if (old.token == now.token && canPair(old, now)) {
      step.matchFromMatch = corner.match >= corner.gap;
      score.match = std::max(corner.match, corner.gap) + pairScore;
    }
    const std::array options{above.match - opened, above.gap - longer, left.match - opened,
                             left.gap - longer};
    const auto best = std::ranges::max_element(options) - options.begin();
    score.gap = options[static_cast<std::size_t>(best)];
    step.gapFromMatch = best % 2 == 0;
    step.gapInOld = best >= 2;
    step.endsInMatch = score.match >= score.gap;
    return score;
  }

  std::span<const UnitInstruction> old_;
  std::span<const UnitInstruction> now_;
  std::size_t width_;
  std::vector<Step> steps_;
};

}  // namespace

std::vector<int> Align(std::span<const UnitInstruction> old, std::span<const UnitInstruction> now,
                       const CanPair& canPair) {
  std::vector<int> pairs(old.size(), -1);
  const auto pairAt = [&](std::size_t i, std::size_t j) {
    return old[i].token == now[j].token && canPair(old[i], now[j]);
  };
  std::size_t front = 0;
  while (front < old.size() && front < now.size() && pairAt(front, front)) {
    pairs[front] = static_cast<int>(front);
    ++front;
  }
  std::size_t back = 0;
  while (front + back < old.size() && front + back < now.size() &&
         pairAt(old.size() - 1 - back, now.size() - 1 - back)) {
    pairs[old.size() - 1 - back] = static_cast<int>(now.size() - 1 - back);
    ++back;
  }
  const auto oldRest = old.subspan(front, old.size() - front - back);
  const auto nowRest = now.subspan(front, now.size() - front - back);
  if (!oldRest.empty() && !nowRest.empty() && (oldRest.size() + 1) * (nowRest.size() + 1) <= mostCells)
    BestAlignment(oldRest, nowRest, canPair).Read(pairs, front, front);
  return pairs;
}

}  // namespace tarvelo
