// Draws the visible rows of the code panel.
#pragma once

#include <wx/dc.h>

#include "core/image_edits.h"
#include "shell/code/code_view.h"
#include "shell/view/row_scene.h"

namespace tarvelo {

// The columns of a row, in characters.
class CodeColumns {
 public:
  CodeColumns() = default;
  explicit CodeColumns(const Fullflash& image);

  [[nodiscard]] int Place() const { return CodeView::lanes + 1; }
  [[nodiscard]] int Address() const { return Place() + offsetDigits_ + 2; }
  [[nodiscard]] int Bytes() const { return Address() + 9; }
  [[nodiscard]] int Code() const { return Bytes() + 10; }
  [[nodiscard]] int Meaning() const { return Code() + 35; }
  [[nodiscard]] int End() const { return Meaning() + 100; }

 private:
  int offsetDigits_ = 6;
};

// What is visible, and where. The units of the cursor are rows.
struct CodeScene : RowScene {
  const CodeView* view = nullptr;     // null: only the background
  const ImageEdits* edits = nullptr;  // set together with the view
  CodeColumns columns;
  std::vector<wxString> captions;  // of the five columns
};

// Draws the rows. `dc` must have the font of the rows.
void DrawCode(wxDC& dc, const CodeScene& scene, const wxSize& client);

}  // namespace tarvelo
