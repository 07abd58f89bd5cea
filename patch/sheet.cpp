#include "patch/sheet.h"

#include <algorithm>

namespace tarvelo {

Sheet::Sheet(Bytes underneath) : underneath_(underneath) {}

Bytes Sheet::Piece(std::size_t offset, std::size_t most) const {
  const std::size_t within = offset % pageSize;
  const std::size_t size = std::min(most, pageSize - within);
  const auto page = pages_.find(offset / pageSize);
  return page == pages_.end() ? underneath_.subspan(offset, size) : Bytes(page->second).subspan(within, size);
}

void Sheet::Write(Offset offset, Bytes bytes) {
  for (auto at = static_cast<std::size_t>(offset); !bytes.empty();) {
    const std::size_t size = Piece(at, bytes.size()).size();
    const auto [page, isNew] = pages_.try_emplace(at / pageSize);
    if (isNew) {
      const std::size_t start = at / pageSize * pageSize;
      std::ranges::copy(underneath_.subspan(start, std::min(pageSize, underneath_.size() - start)),
                        page->second.begin());
    }
    std::ranges::copy(bytes.first(size), page->second.begin() + static_cast<std::ptrdiff_t>(at % pageSize));
    at += size;
    bytes = bytes.subspan(size);
  }
}

bool Sheet::Holds(Offset offset, Bytes bytes) const {
  for (auto at = static_cast<std::size_t>(offset); !bytes.empty();) {
    const Bytes piece = Piece(at, bytes.size());
    if (!std::ranges::equal(piece, bytes.first(piece.size()))) return false;
    at += piece.size();
    bytes = bytes.subspan(piece.size());
  }
  return true;
}

bool Sheet::Equals(const Sheet& other, Offset offset, Offset size) const {
  auto at = static_cast<std::size_t>(offset);
  for (auto left = static_cast<std::size_t>(size); left > 0;) {
    const Bytes piece = Piece(at, left);
    if (!std::ranges::equal(piece, other.Piece(at, left))) return false;
    at += piece.size();
    left -= piece.size();
  }
  return true;
}

bool Sheet::EqualsLater(const Sheet& later) const {
  return std::ranges::all_of(later.pages_, [&](const auto& page) {
    const auto start = static_cast<Offset>(page.first * pageSize);
    return Equals(later, start, std::min(Offset{pageSize}, Size() - start));
  });
}

std::vector<std::uint8_t> Sheet::Copy(Offset offset, Offset size) const {
  std::vector<std::uint8_t> copy;
  for (auto left = static_cast<std::size_t>(size); left > 0;) {
    const Bytes piece = Piece(static_cast<std::size_t>(offset) + copy.size(), left);
    copy.insert(copy.end(), piece.begin(), piece.end());
    left -= piece.size();
  }
  return copy;
}

}  // namespace tarvelo
