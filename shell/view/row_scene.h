// What a view in rows shows, and where. Sizes are in pixels, columns in characters of a monospaced font.
#pragma once

#include "document/row_cursor.h"

namespace tarvelo {

struct RowScene {
  RowCursor cursor;
  bool focused = false;

  Offset topRow = 0;
  int leftColumn = 0;
  int margin = 0;
  double columnWidth = 1;  // fractional: the error would add up over a row
  int rowHeight = 1;
  int headerHeight = 0;

  [[nodiscard]] int X(int column) const;
  [[nodiscard]] int Y(Offset row) const;
  // The column and the row at a point, which may be outside the window.
  [[nodiscard]] int ColumnAt(int x) const;
  [[nodiscard]] Offset RowAt(int y) const;
};

}  // namespace tarvelo
