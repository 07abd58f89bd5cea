// Draws the visible rows of the hex view.
#pragma once

#include <wx/dc.h>

#include "core/image_edits.h"
#include "document/hex_columns.h"
#include "document/hex_cursor.h"

namespace tarvelo {

// What is visible, and its position. Sizes are in pixels.
struct HexScene {
  const Fullflash* image = nullptr;   // null: only the background
  const ImageEdits* edits = nullptr;  // changed bytes have a colour of their own; set together with the image
  HexColumns columns;
  HexCursor cursor;
  bool cursorInText = false;  // which of the two sides the cursor is on
  bool secondDigit = false;   // the first digit of the byte under the cursor was typed
  bool focused = false;

  Offset topRow = 0;
  int leftColumn = 0;
  int margin = 0;
  double columnWidth = 1;  // fractional: the error would add up over a row
  int rowHeight = 1;
  int headerHeight = 0;

  [[nodiscard]] Offset Rows() const;
  [[nodiscard]] int X(int column) const;
  [[nodiscard]] int Y(Offset row) const;
  // The column and the row at a point, which may be outside the window.
  [[nodiscard]] int ColumnAt(int x) const;
  [[nodiscard]] Offset RowAt(int y) const;
};

// `dc` must have the font of the rows.
void DrawHex(wxDC& dc, const HexScene& scene, const wxSize& client);

}  // namespace tarvelo
