// The columns in a row of the hex view.
#pragma once

#include "core/fullflash.h"

namespace tarvelo {

// The columns in a row, in characters of a monospaced font, with a gap after every 8 bytes:
//   01A2B4  284:2345  00 11 22 33 44 55 66 77  88 99 AA BB CC DD EE FF  text
class HexColumns {
 public:
  static constexpr int usualBytes = 16;
  static constexpr int fewestBytes = 4;
  static constexpr int mostBytes = 64;

  HexColumns() = default;
  // `bytes`: in a row, fewestBytes .. mostBytes.
  explicit HexColumns(const Fullflash& image, int bytes = usualBytes);

  // The largest multiple of four bytes for which a row has at most `columns`; at least fewestBytes.
  [[nodiscard]] static int FittingBytes(const Fullflash& image, int columns);

  [[nodiscard]] int Bytes() const { return bytes_; }
  [[nodiscard]] int Address() const { return offsetDigits_ + 2; }
  // The column of a byte's first digit, and of its character; `byte` is 0 .. Bytes() - 1.
  [[nodiscard]] int Hex(int byte) const { return Address() + 10 + 3 * byte + byte / gapAfter; }
  [[nodiscard]] int Text(int byte) const { return Hex(bytes_ - 1) + 4 + byte; }
  [[nodiscard]] int End() const { return Text(bytes_); }

  // The byte in a column or next to it.
  [[nodiscard]] int ByteAt(int column) const;
  [[nodiscard]] bool IsInText(int column) const { return column >= Text(0) - 1; }
  // Whether a gap precedes a byte.
  [[nodiscard]] static bool BeginsGroup(int byte) { return byte % gapAfter == 0; }

 private:
  static constexpr int gapAfter = 8;  // bytes

  int offsetDigits_ = 6;
  int bytes_ = usualBytes;
};

}  // namespace tarvelo
