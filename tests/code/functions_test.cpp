#include "code/functions.h"

#include <gtest/gtest.h>

#include "images.h"
#include "made_firmware.h"

namespace tarvelo {
namespace {

FunctionList Find(const MadeFirmware& made) {
  return GetFunctions(Fullflash(Bytes(made.bytes)), noProgress);
}

TEST(Functions, OfMadeFirmwareAreFound) {
  std::size_t called = 0, missed = 0, named = 0, namedMissed = 0, listed = 0, wrong = 0;
  for (std::uint32_t seed = 1; seed <= 4; ++seed) {
    const MadeFirmware made = MakeFirmware(seed);
    const FunctionList list = Find(made);
    std::size_t right = 0;
    for (const MadeFunction& function : made.functions) {
      const Function* const found = list.Entry(static_cast<Offset>(function.offset));
      right += found != nullptr;
      called += function.calls > 0;
      missed += function.calls > 0 && !found;
      named += function.isNamed;
      namedMissed += function.isNamed && !found;
      if (!found) continue;
      EXPECT_EQ(found->code.size, static_cast<Offset>(function.size)) << function.offset;
      EXPECT_EQ(found->calls, function.calls) << function.offset;
    }
    listed += list.All().size();
    wrong += list.All().size() - right;
  }
  printf("called %zu missed %zu named %zu missed %zu listed %zu wrong %zu\n", called, missed, named, namedMissed, listed, wrong);
}

}  // namespace
}  // namespace tarvelo
