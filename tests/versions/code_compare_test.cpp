#include "versions/code_compare.h"

#include <gtest/gtest.h>

#include <sstream>
#include <tuple>

#include "images.h"

namespace tarvelo {
namespace {

// Two twins that only a table names, of which one may be elsewhere, and a function with two pairs of MOVs:
// each loads the address of data that nothing else refers to.
Fullflash Version(Offset second, std::string_view page) {
  ImageBuilder image(0x20000);  // from FE0000 on
  image.Data(0x300, "0001FE00 0000FE00 0004FE00"_hex);
  image.Word(0x304, static_cast<std::uint16_t>(second));
  for (const Offset twin : {Offset{0x100}, second})
    image.Data(static_cast<std::size_t>(twin), "E014DB00"_hex);
  image.Data(0x400, *ReadHex("E6F40010 E6F5" + std::string(page) + " E6F60011 E6F7F803 DB00"));
  return ImageOf(std::move(image));
}

TEST(CompareFunctions, SeesTwinsThatStayedAndLoneAddressesThatDiffer) {
  using enum FunctionState;
  const std::tuple<Offset, std::string_view, std::string> cases[] = {
      {0x180, "F803", "0 100 100 0, 0 180 180 0, 0 400 400 0, "},
      {0x180, "F903", "0 100 100 0, 0 180 180 0, 0 400 400 2, "},
      {0x1C0, "F803", "0 100 100 0, 3 180 0 0, 0 400 400 0, 4 0 1C0 0, "},
  };
  const Fullflash old = Version(0x180, "F803");
  for (const auto& [second, page, wanted] : cases) {
    const Fullflash now = Version(second, page);
    NoProgress progress;
    const CodeVersions versions(old, now, progress);
    std::ostringstream found;  // state, offsets, constants
    for (const ComparedFunction& function : CompareFunctions(versions))
      found << static_cast<int>(function.state) << std::hex << std::uppercase << ' ' << function.old.offset
            << ' ' << function.now.offset << ' ' << function.constants << ", ";
    EXPECT_EQ(found.str(), wanted);
  }
}

}  // namespace
}  // namespace tarvelo
