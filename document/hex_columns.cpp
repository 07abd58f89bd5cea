#include "document/hex_columns.h"

#include <algorithm>

#include "core/places.h"

namespace tarvelo {

HexColumns::HexColumns(const Fullflash& image, int bytes)
    : offsetDigits_(OffsetWidth(image)), bytes_(bytes) {}

int HexColumns::FittingBytes(const Fullflash& image, int columns) {
  int bytes = fewestBytes;
  while (bytes < mostBytes && HexColumns(image, bytes + 4).End() <= columns) bytes += 4;
  return bytes;
}

int HexColumns::ByteAt(int column) const {
  if (IsInText(column)) return std::clamp(column - Text(0), 0, bytes_ - 1);
  int byte = 0;
  while (byte + 1 < bytes_ && column >= Hex(byte + 1) - (BeginsGroup(byte + 1) ? 1 : 0)) ++byte;
  return byte;
}

}  // namespace tarvelo
