// Draws the visible rows of the hex view.
#pragma once

#include <wx/dc.h>

#include "core/image_edits.h"
#include "document/hex_columns.h"
#include "shell/view/row_scene.h"

namespace tarvelo {

// What is visible, and where. The units of the cursor are bytes.
struct HexScene : RowScene {
  const Fullflash* image = nullptr;   // null: only the background
  const ImageEdits* edits = nullptr;  // changed bytes have a colour of their own; set together with the image
  HexColumns columns;
  bool cursorInText = false;  // which of the two sides the cursor is on
  bool secondDigit = false;   // the first digit of the byte under the cursor was typed

  [[nodiscard]] Offset Rows() const;
};

// Draws the rows. `dc` must have the font of the rows.
void DrawHex(wxDC& dc, const HexScene& scene, const wxSize& client);

}  // namespace tarvelo
