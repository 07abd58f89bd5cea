// Arbitrary bytes as a dump: its functions are in order and consist of instructions.
#include "fuzz/target.h"
#include "tests/code/sound_functions.h"

namespace tarvelo::fuzz {

void Run(Bytes input) {
  const Fullflash image = ImageOf(input);
  const std::string fault = FaultOf(GetFunctions(image, noProgress), image);
  Check(fault.empty(), fault.c_str());
}

}  // namespace tarvelo::fuzz
