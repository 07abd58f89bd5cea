// The cursor of the hex view: the byte it stands on, and the bytes that are selected.
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
  // At the start of an image of `size` bytes; 0: no image, where the cursor cannot move.
  explicit HexCursor(Offset size) : size_(size) {}

  [[nodiscard]] Offset At() const { return at_; }
  // The selected bytes. Without any the size is 0, and the start that of the cursor.
  [[nodiscard]] Region Selection() const;

  // Puts the cursor on a byte, the next one of the image if it is outside. With `extend` everything
  // from where the selection began to this byte is selected, both included; otherwise nothing is.
  void MoveTo(Offset offset, bool extend);
  // Moves it. A page has this many rows.
  void Move(CursorStep step, Offset pageRows, bool extend);
  // Selects bytes, as far as the image has them, and puts the cursor on the first.
  void Select(const Region& range);

 private:
  [[nodiscard]] Offset Target(CursorStep step, Offset pageRows) const;

  Offset size_ = 0;
  Offset at_ = 0;
  Offset anchor_ = 0;  // the other end of the selection
  bool selecting_ = false;
};

}  // namespace tarvelo
