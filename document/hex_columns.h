// The columns in a row of the hex view.
#pragma once

#include "core/fullflash.h"

namespace tarvelo {

inline constexpr int bytesInRow = 16;

// The columns in a row, in characters of a monospaced font:
//   01A2B4  284:2345  00 11 22 33 44 55 66 77  88 99 AA BB CC DD EE FF  text
class HexColumns {
 public:
  HexColumns() = default;
  explicit HexColumns(const Fullflash& image);

  [[nodiscard]] int Address() const { return offsetDigits_ + 2; }
  // The column of a byte's first digit, and of its character; `byte` is 0 .. 15.
  [[nodiscard]] int Hex(int byte) const {
    return Address() + 10 + 3 * byte + (byte >= bytesInRow / 2 ? 1 : 0);
  }
  [[nodiscard]] int Text(int byte) const { return Hex(bytesInRow - 1) + 4 + byte; }
  [[nodiscard]] int End() const { return Text(bytesInRow); }

  // The byte in a column or next to it.
  [[nodiscard]] int ByteAt(int column) const;
  [[nodiscard]] bool IsInText(int column) const { return column >= Text(0) - 1; }

 private:
  int offsetDigits_ = 6;
};

}  // namespace tarvelo
