// Draws the visible rows of the hex view.
#pragma once

#include <wx/dc.h>

#include <memory>

#include "core/image_edits.h"
#include "core/names.h"
#include "core/text_encoding.h"
#include "document/dump_map.h"
#include "document/hex_columns.h"
#include "shell/view/row_scene.h"

namespace tarvelo {

// What is visible, and where. The units of the cursor are bytes; unit u is the image's byte u + shift. Units
// without a byte stay empty.
struct HexScene : RowScene {
  const Fullflash* image = nullptr;   // null: only the background
  const ImageEdits* edits = nullptr;  // changed bytes have a colour of their own; null: none
  Offset shift = 0;
  // Bytes that differ from those of another image have a colour of their own; null: none.
  const Fullflash* other = nullptr;
  Offset otherShift = 0;               // as `shift`
  const Names* names = nullptr;        // named places are marked; null: none
  std::shared_ptr<const DumpMap> map;  // its colours underline the bytes; null: none
  TextEncoding encoding = TextEncoding::Windows1251;
  HexColumns columns;
  bool cursorInText = false;  // which of the two sides the cursor is on
  bool secondDigit = false;   // the first digit of the byte under the cursor was typed

  [[nodiscard]] Offset Rows() const;
  // Whether the image has a byte at a unit, and the other one has a different byte or none.
  [[nodiscard]] bool Differs(Offset unit) const;
};

// Draws the rows. `dc` must have the font of the rows.
void DrawHex(wxDC& dc, const HexScene& scene, const wxSize& client);

}  // namespace tarvelo
