#include "code/masked_pattern.h"

#include <algorithm>

#include "code/movable.h"
#include "code/sweep.h"
#include "core/notation.h"

namespace tarvelo {

std::uint8_t MovableBytes(const Instruction& instruction, const ExtRange& range) {
  const std::uint32_t fixed = FixedBits(instruction, range);
  std::uint8_t bytes = 0;
  // The opcode stays, also where it holds the number of a bit.
  for (int i = 1; i < instruction.Size(); ++i)
    if ((fixed >> 8 * i & 0xFF) != 0xFF) bytes = static_cast<std::uint8_t>(bytes | 1 << i);
  return bytes;
}

std::string MaskedPattern(Bytes bytes, Region region) {
  std::string pattern;
  Sweep(bytes, std::max<Offset>(0, region.offset), region.End(),
        [&](Offset, const Instruction& instruction, const ExtRange& range) {
          const std::uint8_t movable = MovableBytes(instruction, range);
          for (int i = 0; i < instruction.Size(); ++i)
            pattern += (movable >> i & 1) != 0 ? "??" : HexOfByte(instruction.Byte(i));
          return false;
        });
  return pattern;
}

}  // namespace tarvelo
