// Arbitrary bytes as a dump: its functions are in order and consist of instructions.
#include "code/functions.h"
#include "code/instruction.h"
#include "fuzz/target.h"

namespace {

using namespace tarvelo;
using namespace tarvelo::fuzz;

void CheckFunction(const Function& function, const FunctionList& list, const Fullflash& image) {
  const Region code = function.code;
  Check(code.size > 0 && code.End() <= std::ssize(image.ff()), "a function is within the image");
  Check(image.PhoneAddress(code.offset) >> 16 == image.PhoneAddress(code.End() - 1) >> 16,
        "a function is within a segment");
  Check(list.Entry(code.offset) == &function && list.At(code.End() - 1) == &function, "a function is found");
  Check(list.IsInstruction(code.offset), "an entry is an instruction");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Fullflash image = ImageOf({data, size});
  if (!image.IsOpen()) return 0;
  NoProgress progress;
  const FunctionList list = GetFunctions(image, progress);
  Offset end = 0;
  for (const Function& function : list.All()) {
    Check(function.code.offset >= end, "functions are in order");
    end = function.code.End();
    CheckFunction(function, list, image);
  }
  for (Offset p = 0; p + 1 < std::ssize(image.ff()); p += 2) {
    if (!list.IsInstruction(p)) continue;
    const Instruction instruction = Instruction::Decode(image.ff(), p);
    Check(!instruction.IsData(), "a function holds no data");
    Check(list.At(p) != nullptr, "an instruction belongs to a function");
    Check(instruction.Size() == 2 || !list.IsInstruction(p + 2), "instructions do not overlap");
  }
  return 0;
}
