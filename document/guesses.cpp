#include "document/guesses.h"

#include <algorithm>

#include "document/map_kinds.h"
#include "document/settle_claims.h"

namespace tarvelo {
namespace {

constexpr Offset shortestText = 512;
constexpr Offset longestFilling = 3;
constexpr int mostZeros = 3;
constexpr Offset pageSize = 0x1000;
constexpr int fewestReturns = 8;

std::uint8_t At(Bytes image, Offset p) { return image[static_cast<std::size_t>(p)]; }

bool IsLetterOrBlank(std::uint8_t b) { return b == ' ' || (b >= 'A' && b <= 'Z') || (b >= 'a' && b <= 'z'); }

bool IsOfText(std::uint8_t b) { return (b >= 0x20 && b <= 0x7E) || b == '\t' || b == '\n' || b == '\r'; }

// A run of the bytes that texts consist of, with the zero that ends it.
struct TextRun {
  Offset end = 0;
  bool isText = false;
};

// The run that begins at an offset and ends at or before `end`; empty if none begins there.
TextRun TextRunAt(Bytes image, Offset begin, Offset end) {
  TextRun run{begin};
  Offset letters = 0;
  int zeros = 0;
  for (Offset p = begin; p < end; ++p) {
    const std::uint8_t b = At(image, p);
    if (b == 0 && p > begin && ++zeros <= mostZeros) {
      if (zeros == 1) run.end = p + 1;
      continue;
    }
    if (!IsOfText(b)) break;
    zeros = 0;
    run.end = p + 1;
    letters += IsLetterOrBlank(b);
  }
  const Offset size = run.end - begin;
  run.isText = size >= shortestText && letters * 2 >= size;
  return run;
}

class Guesser {
 public:
  explicit Guesser(const Fullflash& image)
      : image_(image.ff()), mayHoldCode_(image.PageMode()), firstWord_(image.FirstWord()) {}

  std::vector<Claim> Run(std::span<const Claim> regions) {
    for (const Claim& region : regions)
      if (IsFilling(region))
        Append(regions_, {region.offset, region.size, &map::filling, Sureness::Guessed});
      else if (region.kind == &map::unknown)
        PartTexts(region.offset, region.End());
      else
        Append(regions_, region);
    return std::move(regions_);
  }

 private:
  [[nodiscard]] bool IsFilling(const Claim& region) const {
    if (region.kind != &map::unknown || region.size > longestFilling || (region.End() - firstWord_) % 2 != 0)
      return false;
    const std::uint8_t value = At(image_, region.offset);
    if (value != 0 && value != 0xFF) return false;
    for (Offset p = region.offset; p < region.End(); ++p)
      if (At(image_, p) != value) return false;
    return true;
  }

  void PartTexts(Offset begin, Offset end) {
    Offset rest = begin;  // start of the bytes before the next text
    for (Offset p = begin; p < end;) {
      // A text contains one of these offsets, so most bytes need no check.
      const Offset sample = std::min(p + shortestText / 2, end) - 1;
      if (!IsOfText(At(image_, sample)) && At(image_, sample) != 0) {
        p = sample + 1;
        continue;
      }
      const TextRun run = TextRunAt(image_, p, end);
      if (run.isText) {
        PartCode(rest, p);
        Append(regions_, {p, run.end - p, &map::text, Sureness::Guessed});
        rest = run.end;
      }
      p = std::max(p + 1, run.end);
    }
    PartCode(rest, end);
  }

  void PartCode(Offset begin, Offset end) {
    for (Offset p = begin; p < end;) {
      const Offset pageEnd = std::min(end, (p / pageSize + 1) * pageSize);
      if (mayHoldCode_ && IsCode(p / pageSize))
        Append(regions_, {p, pageEnd - p, &map::code, Sureness::Guessed});
      else
        Append(regions_, {p, pageEnd - p, &map::unknown});
      p = pageEnd;
    }
  }

  // Caches the answer, because a page may have many unknown parts.
  bool IsCode(Offset page) {
    if (page == page_) return isCode_;
    int returns = 0;
    const Offset last = std::min((page + 1) * pageSize, static_cast<Offset>(image_.size())) - 2;
    for (Offset p = page * pageSize + firstWord_; p <= last; p += 2)
      returns += At(image_, p) == 0xDB && At(image_, p + 1) == 0;
    page_ = page;
    isCode_ = returns >= fewestReturns;
    return isCode_;
  }

  Bytes image_;
  bool mayHoldCode_;
  Offset firstWord_;
  Offset page_ = -1;
  bool isCode_ = false;
  std::vector<Claim> regions_;
};

}  // namespace

std::vector<Claim> Guess(const Fullflash& image, std::span<const Claim> regions) {
  return Guesser(image).Run(regions);
}

}  // namespace tarvelo
