// The firmware header: one page of 0x100 bytes by which the phone and its firmware are known.
#pragma once

#include <cstdint>
#include <string_view>

#include "demo/demo_region.h"

namespace tarvelo {

// Texts of up to 15 bytes each.
struct HeaderTexts {
  std::string_view model;
  std::string_view second;  // shown behind the version
  std::string_view date;    // day.month.year
  std::string_view time;    // hour:minute:second
  std::uint8_t version = 0;
};

// Fills the page at `header` (0x100 bytes on a multiple of 0x100).
void WriteHeader(ImageBuilder& image, Region header, const HeaderTexts& texts);

}  // namespace tarvelo
