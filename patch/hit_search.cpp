#include "patch/hit_search.h"

#include <algorithm>

namespace tarvelo {

void HitSearch::Take(Bytes piece, Offset at, std::vector<Offset>& hits) {
  const std::size_t before = hits.size();
  const Offset pieceEnd = at + static_cast<Offset>(piece.size());
  // FindPat finds a hit that ends with the image's last byte only in its first search.
  const Offset endOfImage = imageSize_ - pattern_.PatCount();
  const Offset last = std::min(pieceEnd - std::max(1, pattern_.PatCount()), endOfImage - 1);
  pattern_.AddMatches(piece, next_ - at, last - at, at, hits);
  anyHit_ = anyHit_ || hits.size() > before;
  if (!anyHit_ && !pattern_.HasWildcard() && pieceEnd == imageSize_ && endOfImage >= next_)
    pattern_.AddMatches(piece, endOfImage - at, endOfImage - at, at, hits);
  const bool hitAtZero = next_ == 0 && hits.size() > before && hits[before] == 0;
  if (hitAtZero) hits.resize(before);
  isOver_ = hitAtZero || pieceEnd == imageSize_;
  next_ = std::max(next_, last + 1);
}

void FindInFile(FileReader& file, const Pattern& pattern, Progress& progress,
                const std::function<void(std::span<const Offset>, Bytes, Offset)>& take) {
  constexpr std::size_t readAtOnce = 0x40000;  // fits the processor's cache
  const auto size = static_cast<Offset>(file.Size());
  std::vector<std::uint8_t> buffer(readAtOnce + static_cast<std::size_t>(pattern.PatCount()));
  std::vector<Offset> hits;
  HitSearch search(pattern, size);
  Offset at = 0;         // offset of the buffer in the file
  std::size_t kept = 0;  // bytes at the buffer's start in which a further hit may begin
  while (!search.IsOver()) {
    progress.At(at);
    const std::size_t part = std::min(readAtOnce, file.Size() - static_cast<std::size_t>(at) - kept);
    file.Read(std::span(buffer).subspan(kept, part));
    const Bytes piece = Bytes(buffer).first(kept + part);
    hits.clear();
    search.Take(piece, at, hits);
    if (!hits.empty()) take(hits, piece, at);
    const Bytes rest = piece.subspan(static_cast<std::size_t>(search.Next() - at));
    std::ranges::copy(rest, buffer.begin());
    kept = rest.size();
    at = search.Next();
  }
}

}  // namespace tarvelo
