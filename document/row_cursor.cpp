#include "document/row_cursor.h"

#include <algorithm>

namespace tarvelo {

Region RowCursor::Selection() const {
  if (!selecting_) return {at_, 0};
  return {std::min(at_, anchor_), std::max(at_, anchor_) - std::min(at_, anchor_) + 1};
}

void RowCursor::MoveTo(Offset offset, bool extend) {
  if (size_ == 0) return;
  at_ = std::clamp<Offset>(offset, 0, size_ - 1);
  if (!extend) anchor_ = at_;
  selecting_ = extend;
}

void RowCursor::Move(CursorStep step, Offset pageRows, bool extend) {
  MoveTo(Target(step, pageRows), extend);
}

Offset RowCursor::Target(CursorStep step, Offset pageRows) const {
  const Offset column = at_ % unitsInRow_;
  const Offset lastRow = std::max<Offset>(0, size_ - 1) / unitsInRow_;
  const auto inRow = [&](Offset row) { return std::clamp<Offset>(row, 0, lastRow) * unitsInRow_ + column; };
  const Offset row = at_ / unitsInRow_;
  switch (step) {
    case CursorStep::Left: return at_ - 1;
    case CursorStep::Right: return at_ + 1;
    case CursorStep::Up: return inRow(row - 1);
    case CursorStep::Down: return inRow(row + 1);
    case CursorStep::PageUp: return inRow(row - pageRows);
    case CursorStep::PageDown: return inRow(row + pageRows);
    case CursorStep::RowStart: return at_ - column;
    case CursorStep::RowEnd: return at_ - column + unitsInRow_ - 1;
    case CursorStep::ImageStart: return 0;
    case CursorStep::ImageEnd: return size_ - 1;
  }
  return at_;
}

void RowCursor::Select(const Region& range) {
  MoveTo(range.offset, false);
  if (range.size <= 0 || size_ == 0) return;
  anchor_ = std::min(size_ - 1, range.offset + range.size - 1);
  selecting_ = true;
}

}  // namespace tarvelo
