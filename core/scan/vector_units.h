// The loops under a sieve (vector_scan.h), compiled once for each kind of vector.
//
// Plain fields and pointers: a file that is compiled for a machine that may not be there must not make
// any function that the rest of the program shares.
#pragma once

#include <cstdint>

namespace tarvelo {

struct SieveProbes {
  static constexpr int count = 4;
  std::int32_t offset[count];
  std::uint32_t value[count];
  std::uint32_t mask[count];
  int everywhere;  // how many are compared in each block, 2 or more; the others where these match
};

// The positions of one block at which all probes match: bit i of word i / 64 stands for byte i.
struct SieveBits {
  static constexpr int positions = 128;
  std::uint64_t words[2];
};

// Goes through whole blocks from `block` on, up to `end`, to the first that has matches. Returns it with
// its bits, or where less than a block is left, with bits 0.
using SieveLoop = const std::uint8_t* (*)(const std::uint8_t* block, const std::uint8_t* end,
                                          const SieveProbes& probes, SieveBits& bits);

// By the step between positions.
struct SieveLoops {
  SieveLoop step1, step2, step4;
};

// Only for machines of the x86 family; the second only where the processor has it.
extern const SieveLoops sse2Loops;
extern const SieveLoops avx2Loops;

}  // namespace tarvelo
