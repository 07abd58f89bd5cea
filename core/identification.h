// Identifies a fullflash: phone model and firmware, T9 dictionary area, empty blocks.
//
// The firmware header begins on a 0x100 boundary; its signature "SIEMENS" follows somewhere in the same 0x100
// bytes. Relative to the header:
//   0x50  firmware version, one byte, shown in hexadecimal
//   0x60  a second header string
//   0x70  the model's name
// GetStr (text/decoders.h) reads all strings. The build date is printable text in the header's page
// (header_date.h).
//
// The T9 area begins on a 64 KiB block with the letters "T9":
//   4  its exact size, double word
//   8  number of languages, one byte
// Its full size is ((exact size AND 0x1F0000) + 0x10000); the rest of it is erased.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/fullflash.h"

namespace tarvelo {

struct T9Area {
  std::int32_t T9Base = 0;  // offset of its first byte
  std::int32_t T9Size = 0;  // exact size in bytes, as the area states it
  std::int32_t T9Full = 0;  // size in whole blocks
  std::int64_t T9Free = 0;  // first offset of the erased run at the end of the full size
  int languages = 0;

  [[nodiscard]] std::int64_t Empty() const { return T9Base + T9Full - T9Free; }
};

// The firmware family of a model, from 0 (C35) to 6 (S40). 7 stands for the A50, A55, C55, S55, SL55 and
// every unknown name.
[[nodiscard]] int FamilyOf(std::string_view model);

struct Identification {
  std::string Model;                   // empty without a signature; Document::Find may fill it
  int Family = 7;                      // FamilyOf(Model)
  std::optional<std::int32_t> SigPos;  // offset of the firmware header
  std::string version;                 // the version byte in two hexadecimal digits, or empty
  std::string headerText;              // the second header string
  std::string buildDate;               // as printed in the header, or empty
  std::optional<T9Area> t9;            // page-mode images only
  // The empty 64 KiB blocks: ", 12 - 1F, 40", block numbers in hexadecimal, each run after ", ".
  std::string EmptyBlocks;

  // The summary for status panel 2: "C55 v24 header text T9lg4", with a dot for each control character.
  [[nodiscard]] std::string StatusText() const;
};

// Identifies an image and sets its corrected base. Never throws; whatever cannot be read is absent.
[[nodiscard]] Identification Identify(Fullflash& image);

}  // namespace tarvelo
