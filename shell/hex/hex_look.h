// How the hex view looks, kept in the settings, section [HexView]:
//
//   Columns     8, 16, 32; 0: as many as fit
//   Encoding    0 .. 3, in the order of TextEncoding
//   Zoom        points of the font above its usual size
//   Map, Values, Other   0: hidden
#pragma once

#include "core/text_encoding.h"
#include "document/hex_columns.h"

namespace tarvelo {

class Settings;

struct HexLook {
  static constexpr int smallest = -4;
  static constexpr int largest = 16;

  int bytes = HexColumns::usualBytes;  // in a row; 0: as many as fit
  TextEncoding encoding = TextEncoding::Windows1251;
  int zoom = 0;             // smallest .. largest
  bool mapColours = true;   // underlines in the colours of the dump map, as far as it is known
  bool showsValues = true;  // the values at the cursor
  bool showsOther = true;   // the dump that this one was compared with
};

// Unknown values become the usual ones.
[[nodiscard]] HexLook ReadLook(const Settings& settings);
void StoreLook(Settings& settings, const HexLook& look);

}  // namespace tarvelo
