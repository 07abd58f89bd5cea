// Images that look like firmware, of any size, for measuring.
#pragma once

#include <cstdint>
#include <vector>

namespace tarvelo {

// What an image is to hold beside code, texts, random data and a quarter of erased blocks.
struct FirmwareContents {
  bool eeprom = false;           // a store of 400 block headers in the last blocks
  bool colourTable = false;      // a picture table with colours near the end
  bool monochromeTable = false;  // one without colours at the start, and headers outside of it
  bool ringtones = false;        // a ringtone table near the end
};

// Deterministic. Holds a header with a model's name, a T9 area, occurrences of the patterns measured
// (about one in 64 KiB), and no byte 0xA5.
[[nodiscard]] std::vector<std::uint8_t> Firmware(std::size_t size, const FirmwareContents& contents = {});

}  // namespace tarvelo
