// The loops under a sieve (vector_scan.h), compiled once for each kind of vector.
//
// Plain fields and pointers only: a file compiled for a machine that may not be there must not create any
// function that the rest of the program shares.
#pragma once

#include <cstdint>

namespace tarvelo {

struct SieveProbes {
  static constexpr int count = 4;
  std::int32_t offset[count];
  std::uint32_t value[count];
  std::uint32_t mask[count];
  int everywhere;  // how many are compared in every block, 2 or more; the others only where these match
};

// The positions of one block at which all probes match: bit i % 64 of word i / 64 stands for byte i.
struct SieveBits {
  static constexpr int positions = 128;
  std::uint64_t words[2];
};

// Searches whole blocks from `block` up to `end` for the first one with matches. Returns that block with its
// bits, or the start of the incomplete last block with bits 0.
using SieveLoop = const std::uint8_t* (*)(const std::uint8_t* block, const std::uint8_t* end,
                                          const SieveProbes& probes, SieveBits& bits);

// Looks at the positions of 64 blocks from `block` on. Returns a bit for each block that may have matches: at
// least those at whose positions the first two probes match.
using MarkLoop = std::uint64_t (*)(const std::uint8_t* block, const SieveProbes& probes);

// Whether all bytes from p up to `end` are 0xFF.
using ErasedLoop = bool (*)(const std::uint8_t* p, const std::uint8_t* end);

// One sieve and one marking loop for each step between positions.
struct SieveLoops {
  SieveLoop step1, step2, step4;
  MarkLoop mark1, mark2, mark4;
  ErasedLoop erased;
};

// Only for machines of the x86 family; avx2Loops only if the processor has AVX2.
extern const SieveLoops sse2Loops;
extern const SieveLoops avx2Loops;

}  // namespace tarvelo
