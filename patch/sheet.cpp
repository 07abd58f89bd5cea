#include "patch/sheet.h"

#include <algorithm>

namespace tarvelo {
namespace {

constexpr std::size_t pageSize = 0x1000;

}  // namespace

Sheet::Sheet(Bytes underneath)
    : underneath_(underneath), pages_((underneath.size() + pageSize - 1) / pageSize) {}

Bytes Sheet::Piece(std::size_t offset, std::size_t most) const {
  const std::size_t within = offset % pageSize;
  const std::size_t size = std::min(most, pageSize - within);
  const auto& page = pages_[offset / pageSize];
  return page.empty() ? underneath_.subspan(offset, size) : Bytes(page).subspan(within, size);
}

void Sheet::Write(Offset offset, Bytes bytes) {
  for (auto at = static_cast<std::size_t>(offset); !bytes.empty();) {
    const std::size_t size = Piece(at, bytes.size()).size();
    auto& page = pages_[at / pageSize];
    if (page.empty()) {
      const Bytes whole = Piece(at / pageSize * pageSize, underneath_.size() - at / pageSize * pageSize);
      page.assign(whole.begin(), whole.end());
    }
    std::ranges::copy(bytes.first(size), page.begin() + static_cast<std::ptrdiff_t>(at % pageSize));
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
