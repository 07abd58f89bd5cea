// The pane below the rows: the same places in the dump that this one was compared with, in step with them.
#pragma once

#include <wx/panel.h>

#include "shell/hex/hex_look.h"
#include "shell/services/workbench.h"

class wxStaticText;

namespace tarvelo {

class HexCanvas;

class OtherPane final : public wxPanel {
 public:
  // Follows the cursor and the scrolling of `rows`, which must outlive the pane.
  OtherPane(wxWindow* parent, HexCanvas& rows);

  // Shows another dump beside the open one, or nothing. Keeps its place if it shows that dump already.
  void ShowDump(const OtherDump& other, const Fullflash& image);
  void Clear();
  void SetLook(const HexLook& look);
  void Recaption(const Messages& messages);
  // Call after bytes of the open image have changed.
  void ImageChanged();
  // Call after the cursor of the rows has moved.
  void Follow();

  [[nodiscard]] bool HasDump() const { return other_.image != nullptr; }
  [[nodiscard]] HexCanvas& Canvas() { return *canvas_; }

 private:
  HexCanvas& rows_;
  wxStaticText* caption_;
  HexCanvas* canvas_;
  OtherDump other_;
  bool isFollowing_ = false;  // this pane moves the rows, or they move it
};

}  // namespace tarvelo
