// Makes up firmware: code in the forms and numbers of compiled programs, and a list of what it holds.
//
// Sizes of functions have a heavy tail. Half of the functions are called, most of them once; 40 % are in
// tables of pointers alone, the rest is named by nothing. A quarter of the calls leaves the image. There are
// lists of calls, switches with their tables elsewhere, inner returns, shared ends, functions of a lone RETS,
// twins, small tables between functions, filling at the ends of segments, and words that look like calls in
// data and inside instructions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "core/byte_writer.h"

namespace tarvelo {

struct MadeFunction {
  std::size_t offset = 0;
  std::size_t size = 0;
  int calls = 0;           // places that call it
  bool isNamed = false;    // a table has a pointer to it
  bool isUnknown = false;  // neither: nothing leads to it
};

struct MadeReference {
  enum class Kind : std::uint8_t { Call, Near, Pointer, Pair, Access, Case };
  Kind kind = Kind::Call;
  std::size_t place = 0;   // of the instruction, the pointer, or the word in a switch's table
  std::size_t target = 0;  // offset in the image
};

struct MadeFirmware {
  ByteBuffer bytes;                       // 1 MiB
  std::vector<MadeFunction> functions;    // by offset
  std::vector<MadeReference> references;  // in no order
};

// The same for the same seed, everywhere.
[[nodiscard]] MadeFirmware MakeFirmware(std::uint32_t seed);

}  // namespace tarvelo
