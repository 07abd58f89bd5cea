// Edits of the hex view: what is typed, pasted and filled goes into the image, and what was changed goes
// into the patch.
#pragma once

#include <cstdint>
#include <string>

#include "core/fullflash.h"

namespace tarvelo {

class HexCanvas;
struct Workbench;

class HexEditor {
 public:
  // Writes from then on what is typed into the canvas. Both must outlive the object.
  HexEditor(Workbench& bench, HexCanvas& canvas);

  // A typed byte is one step, whether by one digit or by two.
  void Undo();
  void Redo();
  [[nodiscard]] bool CanUndo() const;
  [[nodiscard]] bool CanRedo() const;

  // Writes the bytes that stand in the clipboard as hexadecimal digits, from the cursor or the start of
  // the selection on. Where they are none, or too many, the user is told.
  void Paste();
  // Fills the selection with a byte that the user is asked for.
  void Fill();
  // Makes a patch of what was changed in the selection; without one, in the whole image.
  void ChangesToPatch();

 private:
  [[nodiscard]] const Fullflash& Image() const;
  void Type(Offset at, std::uint8_t byte, bool again);
  void RefuseNumber(const std::string& text);

  Workbench& bench_;
  HexCanvas& canvas_;
  bool typedStep_ = false;  // the last typed digit changed its byte
};

}  // namespace tarvelo
