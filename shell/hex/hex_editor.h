// The edits of the hex view: writes typed, pasted and filled bytes into the image, and adds changes to the
// patch.
#pragma once

#include <cstdint>
#include <string>

#include "core/fullflash.h"

namespace tarvelo {

class HexCanvas;
struct Workbench;

class HexEditor {
 public:
  // From now on writes what the user types into the canvas. Both must outlive the object.
  HexEditor(Workbench& bench, HexCanvas& canvas);

  // A typed byte is one step, whether it took one digit or two.
  void Undo();
  void Redo();
  [[nodiscard]] bool CanUndo() const;
  [[nodiscard]] bool CanRedo() const;

  // Writes the clipboard's bytes, which it holds as hexadecimal digits, from the cursor or the start of the
  // selection on. If the clipboard holds no bytes, or too many, tells the user.
  void Paste();
  // Asks for a byte and fills the selection with it.
  void Fill();
  // Makes a patch of the changes in the selection, or in the whole image if nothing is selected.
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
