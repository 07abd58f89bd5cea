// The functions of C166 code in an image.
//
// An entry is the target of a call or far jump, or is named by offset and segment as two words, in a table or
// in two MOVs. A function's instructions are those that its entry reaches: through jumps, and through the
// tables of its switches. None is a reserved encoding, and none is in another segment.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/fullflash.h"
#include "core/progress.h"
#include "core/region.h"

namespace tarvelo {

struct Function {
  Region code;    // from its entry to the end of its last instruction
  int calls = 0;  // places in code that call it; 0: only a pointer or far jump names it
};

class FunctionList {
 public:
  FunctionList() = default;
  // The functions by offset, and a bit for each word at which an instruction of one of them begins. The
  // first word is at offset 0 or 1: at an even phone address.
  FunctionList(std::vector<Function> functions, std::vector<std::uint64_t> starts, Offset firstWord = 0);

  [[nodiscard]] std::span<const Function> All() const { return functions_; }
  // The function whose code has the byte at `offset`; null if none has.
  [[nodiscard]] const Function* At(Offset offset) const;
  // The function that begins at `offset`; null if none does.
  [[nodiscard]] const Function* Entry(Offset offset) const;
  // Whether an instruction of a function begins at `offset`.
  [[nodiscard]] bool IsInstruction(Offset offset) const;

 private:
  std::vector<Function> functions_;
  std::vector<std::uint64_t> starts_;
  Offset firstWord_ = 0;
};

// Finds the functions. An image of more than 16 MiB has none. Never throws because of an image's content.
[[nodiscard]] FunctionList GetFunctions(const Fullflash& image, Progress& progress);

}  // namespace tarvelo
