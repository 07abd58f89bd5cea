// The cursor of a view in rows, and its selection. It counts units: the bytes of the hex view, or the rows
// themselves of a view that selects whole rows.
#pragma once

#include <cstdint>

#include "core/region.h"  // here: a run of units

namespace tarvelo {

enum class CursorStep {
  Left,
  Right,
  Up,
  Down,
  PageUp,
  PageDown,
  RowStart,
  RowEnd,
  ImageStart,
  ImageEnd,
};

class RowCursor {
 public:
  RowCursor() = default;
  // Starts at the first of `size` units. 0 means no image; the cursor then cannot move.
  RowCursor(Offset size, Offset unitsInRow) : size_(size), unitsInRow_(unitsInRow) {}

  // Goes on with rows of another length. Cursor and selection stay.
  void SetUnitsInRow(Offset units) { unitsInRow_ = units; }

  [[nodiscard]] Offset Units() const { return size_; }
  [[nodiscard]] Offset At() const { return at_; }
  // The selected units. Without a selection, the size is 0 and the offset is that of the cursor.
  [[nodiscard]] Region Selection() const;

  // Moves the cursor to a unit, or to the nearest one. With `extend`,
  // selects everything from the start of the selection to this one, both included; otherwise clears the
  // selection.
  void MoveTo(Offset offset, bool extend);
  // Moves the cursor by a step. A page has `pageRows` rows.
  void Move(CursorStep step, Offset pageRows, bool extend);
  // Selects units, clipped to those there are, and moves the cursor to the first.
  void Select(const Region& range);

 private:
  [[nodiscard]] Offset Target(CursorStep step, Offset pageRows) const;

  Offset size_ = 0;
  Offset unitsInRow_ = 1;
  Offset at_ = 0;
  Offset anchor_ = 0;  // the other end of the selection
  bool selecting_ = false;
};

}  // namespace tarvelo
