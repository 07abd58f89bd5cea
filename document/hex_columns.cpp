#include "document/hex_columns.h"

#include <algorithm>

#include "core/places.h"

namespace tarvelo {

HexColumns::HexColumns(const Fullflash& image) : offsetDigits_(OffsetWidth(image)) {}

int HexColumns::ByteAt(int column) const {
  if (IsInText(column)) return std::clamp(column - Text(0), 0, bytesInRow - 1);
  int digits = std::max(0, column - Hex(0));
  if (column >= Hex(bytesInRow / 2) - 1) --digits;  // the gap in the middle
  return std::min(digits / 3, bytesInRow - 1);
}

}  // namespace tarvelo
