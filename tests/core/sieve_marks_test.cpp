#include "core/sieve_marks.h"

#include <gtest/gtest.h>

#include <random>

#include "core/progress.h"
#include "on_each_unit.h"

namespace tarvelo {
namespace {

constexpr Probe ones[] = {{.offset = 0, .value = 0x0101}, {.offset = 6, .value = 0x0001, .mask = 0x00FF}};
constexpr Probe halves[] = {{.offset = 20, .value = 0x00010100, .mask = 0x00FFFF00},
                            {.offset = 4, .value = 0, .mask = 1}};
constexpr Probe erased[] = {{.offset = 2, .value = 0xFFFF}};
constexpr Probe endOfErased[] = {{.offset = 0, .value = 0xFFFF}, {.offset = 2, .value = 0x0101}};
constexpr SieveForm forms[] = {{2, ones}, {4, halves}, {2, erased}, {2, endOfErased}};

std::vector<Offset> Found(const Sieve& sieve, Bytes image, Offset from, Offset last) {
  std::vector<Offset> found;
  sieve.Each(image, from, last, [&](Offset p) {
    found.push_back(p);
    return false;
  });
  return found;
}

// Chunks of 8 KiB in turn: two of noise with matches in few blocks, an erased one, and one full of matches.
std::vector<std::uint8_t> MakeImage(std::size_t size) {
  std::mt19937 random(7);
  std::vector<std::uint8_t> image(size);
  for (std::size_t i = 0; i < size; ++i) {
    const std::size_t kind = i / 0x2000 % 4;
    const bool isOne = kind < 2 ? i % 0x3A0 < 0x20 : i % 0x2000 < 0x20;
    image[i] = static_cast<std::uint8_t>(kind == 2   ? 0xFF
                                         : isOne     ? 1
                                         : kind == 3 ? random() % 2
                                                     : 2 + random() % 250);
  }
  return image;
}

class SieveMarksOnEachUnit : public OnEachUnit {};
INSTANTIATE_TEST_SUITE_P(Units, SieveMarksOnEachUnit, eachUnit);

TEST_P(SieveMarksOnEachUnit, LeadToAllMatches) {
  NoProgress progress;
  for (const std::size_t size : {std::size_t{24}, std::size_t{0x2000}, std::size_t{0x2018},
                                 std::size_t{0x6218}, std::size_t{0x9123}}) {
    const std::vector<std::uint8_t> image = MakeImage(size);
    const SieveForm* const pointers[] = {&forms[0], &forms[1], &forms[2], &forms[3]};
    const SieveMarks marks(image, pointers, progress);
    for (const SieveForm& form : forms)
      for (const Offset from :
           {Offset{0}, Offset{4}, Offset{0x7E}, Offset{0x7F}, Offset{0x2000}, Offset{0x5FF4}}) {
        const Offset last = std::ssize(image) - 24;
        EXPECT_EQ(Found(Sieve(form, marks.Of(form)), image, from, last),
                  Found(Sieve(form), image, from, last))
            << size << " from " << from << " form " << &form - forms;
      }
  }
}

// Nothing is marked in erased chunks, nor for forms that the pass was not made for.
TEST_P(SieveMarksOnEachUnit, LeaveOutWhatCanNotMatch) {
  NoProgress progress;
  const std::vector<std::uint8_t> image(0x6000, 0xFF);
  const SieveForm* const pointers[] = {&forms[0], &forms[2]};
  const SieveMarks marks(image, pointers, progress);
  EXPECT_TRUE(std::ranges::equal(marks.Of(forms[0]), std::vector<std::uint64_t>(2, 0)));
  EXPECT_TRUE(std::ranges::equal(marks.Of(forms[2]), std::vector<std::uint64_t>(2, ~std::uint64_t{0})));
  EXPECT_TRUE(marks.Of(forms[1]).empty());
}

}  // namespace
}  // namespace tarvelo
