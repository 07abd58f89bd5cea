// Draws the rows of the hex view that are seen.
#pragma once

#include <wx/dc.h>

#include "core/image_edits.h"
#include "document/hex_columns.h"
#include "document/hex_cursor.h"

namespace tarvelo {

// What is seen, and from where. Sizes are in pixels.
struct HexScene {
  const Fullflash* image = nullptr;   // none: nothing but the background
  const ImageEdits* edits = nullptr;  // what was changed has a colour of its own; set with the image
  HexColumns columns;
  HexCursor cursor;
  bool cursorInText = false;  // which of the two sides has the cursor
  bool secondDigit = false;   // the first one of the byte under the cursor was typed
  bool focused = false;

  Offset topRow = 0;
  int leftColumn = 0;
  int margin = 0;
  double columnWidth = 1;  // fractions count: rows are long
  int rowHeight = 1;
  int headerHeight = 0;

  [[nodiscard]] Offset Rows() const;
  [[nodiscard]] int X(int column) const;
  [[nodiscard]] int Y(Offset row) const;
  // The column and the row at a point, which may lie outside.
  [[nodiscard]] int ColumnAt(int x) const;
  [[nodiscard]] Offset RowAt(int y) const;
};

// `dc` has the font of the rows.
void DrawHex(wxDC& dc, const HexScene& scene, const wxSize& client);

}  // namespace tarvelo
