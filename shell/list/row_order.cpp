#include "shell/list/row_order.h"

#include <algorithm>
#include <utility>

#include "text/unicode.h"

namespace tarvelo {
namespace {

constexpr std::size_t rowsAtOnce = 1000;     // between looks at the clock
constexpr std::size_t longestSorted = 2000;  // bytes of a cell; a melody may have millions

}  // namespace

bool RowHolds(const Table::Row& row, const std::string& upperText, std::optional<unsigned> column) {
  const auto holds = [&](const std::string& cell) {
    return cell.size() >= upperText.size() && ToUpper(cell).find(upperText) != std::string::npos;
  };
  return column ? holds(row.cells[*column]) : std::ranges::any_of(row.cells, holds);
}

RowOrder::RowOrder(const TableRows& rows, Wanted wanted) : rows_(rows), wanted_(std::move(wanted)) {
  if (wanted_.filter.empty()) listed_.reserve(rows.count);
}

bool RowOrder::Work(Clock::time_point until) {
  if (!Filter(until)) return false;
  return !wanted_.column || Sort(until);
}

bool RowOrder::Filter(Clock::time_point until) {
  if (next_ == rows_.count) return true;
  while (next_ < rows_.count) {
    const std::size_t end = std::min(rows_.count, next_ + rowsAtOnce);
    for (; next_ < end; ++next_)
      if (wanted_.filter.empty() || RowHolds(rows_.row(next_), wanted_.filter))
        listed_.push_back(static_cast<std::uint32_t>(next_));
    if (next_ < rows_.count && Clock::now() >= until) return false;
  }
  if (!wanted_.column) return true;
  keys_.reserve(listed_.size());
  for (const std::uint32_t row : listed_) keys_.push_back({{}, row});
  groups_.push_back({0, keys_.size(), 0});
  return true;
}

// Sorts by the first piece of all texts, then each group of equal ones by the next piece, and so on.
bool RowOrder::Sort(Clock::time_point until) {
  while (!groups_.empty()) {
    const Group group = groups_.back();
    if (!ReadPieces(group, until)) return false;
    groups_.pop_back();
    read_ = 0;
    SortGroup(group);
  }
  std::ranges::transform(keys_, listed_.begin(), &Key::row);
  return true;
}

bool RowOrder::ReadPieces(const Group& group, Clock::time_point until) {
  if (read_ == 0) isLonger_ = false;
  for (std::size_t i = group.begin + read_; i < group.end; ++i, ++read_) {
    if (read_ % rowsAtOnce == rowsAtOnce - 1 && Clock::now() >= until) return false;
    keys_[i] = KeyOf(keys_[i].row, group.pieces);
  }
  return true;
}

void RowOrder::SortGroup(const Group& group) {
  const auto at = [this](std::size_t i) { return keys_.begin() + static_cast<std::ptrdiff_t>(i); };
  std::sort(at(group.begin), at(group.end), [this](const Key& a, const Key& b) {
    if (a.piece == b.piece) return a.row < b.row;
    return wanted_.descending ? b.piece < a.piece : a.piece < b.piece;
  });
  if (!isLonger_) return;
  for (std::size_t begin = group.begin; begin < group.end;) {
    const auto isOther = [piece = keys_[begin].piece](const Key& key) { return key.piece != piece; };
    const auto next = std::find_if(at(begin), at(group.end), isOther);
    const auto end = static_cast<std::size_t>(next - keys_.begin());
    const bool goesOn = (keys_[begin].piece.back() & 0xFF) != 0;
    if (goesOn && end - begin > 1) groups_.push_back({begin, end, group.pieces + 1});
    begin = end;
  }
}

RowOrder::Key RowOrder::KeyOf(std::uint32_t row, std::size_t pieces) {
  Key key{{}, row};
  const Table::Row made = rows_.row(row);
  const std::string_view cell = std::string_view(made.cells[*wanted_.column]).substr(0, longestSorted);
  const std::size_t from = std::min(cell.size(), pieces * keyBytes);
  const std::string_view piece = cell.substr(from, keyBytes);
  for (std::size_t i = 0; i < piece.size(); ++i)
    key.piece[i / 8] |= std::uint64_t{static_cast<unsigned char>(piece[i])} << (56 - i % 8 * 8);
  if (cell.size() > from + keyBytes) isLonger_ = true;
  return key;
}

}  // namespace tarvelo
