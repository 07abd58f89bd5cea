#include "files/unit_name.h"

#include "core/byte_text.h"
#include "files/volume.h"

namespace tarvelo {

std::optional<std::string> UnitName(Bytes image, Offset unit) {
  constexpr Offset nameAt = unitHeaderAt + 2;
  constexpr Offset nameSize = 6;
  std::string name;
  for (Offset i = 0; i < nameSize; ++i) {
    const std::uint8_t byte = ByteAt(image, unit + nameAt + i);
    if (byte == 0) break;
    if (!IsPrintable(byte)) return {};
    name += static_cast<char>(byte);
  }
  return name;
}

}  // namespace tarvelo
