// The cursor of the hex view: the byte under it, and the selected bytes.
#pragma once

#include <cstdint>

#include "core/region.h"

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

class HexCursor {
 public:
  HexCursor() = default;
  // Starts at the first byte of an image of `size` bytes. 0 means no image; the cursor then cannot move.
  explicit HexCursor(Offset size) : size_(size) {}

  [[nodiscard]] Offset At() const { return at_; }
  // The selected bytes. Without a selection, the size is 0 and the offset is that of the cursor.
  [[nodiscard]] Region Selection() const;

  // Moves the cursor to a byte, or to the nearest one if the offset is outside the image. With `extend`,
  // selects everything from the start of the selection to this byte, both included; otherwise clears the
  // selection.
  void MoveTo(Offset offset, bool extend);
  // Moves the cursor by a step. A page has `pageRows` rows.
  void Move(CursorStep step, Offset pageRows, bool extend);
  // Selects bytes, clipped to the image, and moves the cursor to the first.
  void Select(const Region& range);

 private:
  [[nodiscard]] Offset Target(CursorStep step, Offset pageRows) const;

  Offset size_ = 0;
  Offset at_ = 0;
  Offset anchor_ = 0;  // the other end of the selection
  bool selecting_ = false;
};

}  // namespace tarvelo
