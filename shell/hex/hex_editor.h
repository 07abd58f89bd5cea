// The edits of the hex view: writes typed, pasted and filled bytes into the image, and adds changes to the
// patch.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/image_edits.h"
#include "resources/texts.h"

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

  // Writes the clipboard from the cursor or the start of the selection on: hexadecimal digits, or characters
  // in the encoding of the canvas if the cursor is in the text. If the clipboard holds no bytes, or too many,
  // tells the user.
  void Paste();
  // Asks for bytes and fills the selection with them, again and again.
  void Fill();
  // Asks for a file and writes it over the bytes from there on.
  void WriteFileHere();
  // Adds the changes to the patch: all of them, or those in the selection.
  void ChangesToPatch();
  void SelectedToPatch();

 private:
  [[nodiscard]] const Fullflash& Image() const;
  void AddToPatch(Text command, const std::vector<Change>& changes);
  // Writes bytes from the cursor or the start of the selection on. Returns the offset behind them; nothing if
  // the image ends first, which the user learns.
  std::optional<Offset> WriteHere(Bytes bytes);
  void Type(Offset at, std::uint8_t byte, bool again);
  void Refuse(Text message, const std::string& text);

  Workbench& bench_;
  HexCanvas& canvas_;
  bool typedStep_ = false;  // the last typed digit changed its byte
};

}  // namespace tarvelo
