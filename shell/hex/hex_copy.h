// What the hex view puts into the clipboard: the selected bytes, or the byte at the cursor, and their place.
#pragma once

#include <functional>
#include <string>

#include "core/places.h"
#include "resources/texts.h"

namespace tarvelo {

class HexCanvas;
struct Workbench;

class HexCopy {
 public:
  // Both must outlive the object.
  HexCopy(Workbench& bench, const HexCanvas& canvas) : bench_(bench), canvas_(canvas) {}

  // If the bytes are too many for the clipboard, these tell the user and copy nothing. Text is in the
  // encoding of the canvas.
  void CopyHex() const;
  void CopyText() const;
  void CopyCArray() const;
  // Patch lines with the bytes of the file that was opened and the current ones.
  void CopyPatchLines() const;

  // The place of the first byte.
  void CopyOffset() const;
  void CopyAddress() const;
  // The bytes of a pointer to it.
  void CopyPointer(ColonForm form) const;

 private:
  [[nodiscard]] Region Chosen() const;
  void CopyBytes(Text command, const std::function<std::string(Bytes)>& write) const;

  Workbench& bench_;
  const HexCanvas& canvas_;
};

}  // namespace tarvelo
