// Firmware-like images of any size, for measurements.
#pragma once

#include <cstdint>
#include <vector>

namespace tarvelo {

// The optional contents of an image, in addition to code, texts, random data and a quarter of erased blocks.
struct FirmwareContents {
  bool eeprom = false;           // a store of 400 block headers in the last blocks
  bool colourTable = false;      // a picture table with colours near the end
  bool monochromeTable = false;  // a picture table without colours at the start, and headers outside it
  bool ringtones = false;        // a ringtone table near the end
  bool files = false;            // 1/8 of the image is units of the flash file system, with a map
};

// Deterministic. Contains a header with a model's name, a T9 area, the measured patterns (about one
// occurrence per 64 KiB), and no byte 0xA5.
[[nodiscard]] std::vector<std::uint8_t> Firmware(std::size_t size, const FirmwareContents& contents = {});

}  // namespace tarvelo
