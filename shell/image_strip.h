// The whole image as a strip: parts of it in colour, where the current place is, and a click that goes
// there. Where several parts share a column of pixels, each shows as far as it covers the column; a part
// that is shorter than a pixel is still seen.
#pragma once

#include <wx/window.h>

#include <functional>
#include <vector>

#include "text/bytes.h"

namespace tarvelo {

struct StripPart {
  Offset offset = 0;
  Offset size = 0;
  wxColour colour;
};

class ImageStrip final : public wxWindow {
 public:
  explicit ImageStrip(wxWindow* parent);

  // Shows parts, in order, of an image of so many bytes. What no part covers has the window's colour.
  void Show(Offset imageSize, std::vector<StripPart> parts);
  // Marks the current place; a size of 0: none.
  void Mark(Offset offset, Offset size);

  // The left button was pressed, or is dragged, over the column of this offset.
  std::function<void(Offset)> onClick;
  // What the tooltip says about the column under the mouse.
  std::function<wxString(Offset offset, Offset size)> describe;
};

}  // namespace tarvelo
