#include "patch/image_compare.h"

#include <gtest/gtest.h>

#include <random>

#include "images.h"
#include "patch/patch_apply.h"
#include "patch/patch_document.h"

namespace tarvelo {
namespace {

using Differences = std::vector<Difference>;

// Zeros, with other bytes at these offsets.
Data With(std::size_t size, std::initializer_list<std::size_t> offsets) {
  Data values(size);
  for (const std::size_t offset : offsets) values[offset] = 0xEE;
  return values;
}

TEST(Compare, MergesAcrossAFewEqualBytes) {
  const Data zeros(64);
  const Data other = With(64, {3, 12, 22});  // 8 equal bytes in between, then 9
  EXPECT_EQ(Compare(zeros, other).differences, (Differences{{3, 10}, {22, 1}}));
  EXPECT_EQ(Compare(zeros, other, 9).differences, (Differences{{3, 20}}));
  EXPECT_EQ(Compare(zeros, With(64, {3, 4, 6}), 0).differences, (Differences{{3, 2}, {6, 1}}));
}

TEST(Compare, SeesEveryByte) {
  for (const std::size_t size : {1u, 7u, 8u, 9u, 0xFFFu, 0x1000u, 0x1001u, 0x2009u}) {
    const Data zeros(size);
    for (std::size_t at = 0; at < size; at += at + 40 < size && at > 40 ? 13 : 1) {
      const Comparison one = Compare(zeros, With(size, {at}));
      ASSERT_EQ(one.differences, (Differences{{static_cast<Offset>(at), 1}})) << size << " " << at;
    }
  }
}

TEST(Compare, StopsAtTheEndOfTheShorterImage) {
  const Comparison longer = Compare(Data(10), With(13, {9, 10}));
  EXPECT_EQ(longer.differences, (Differences{{9, 1}}));
  EXPECT_EQ(longer.common, 10);
  EXPECT_EQ(longer.restOfOld, 0);
  EXPECT_EQ(longer.restOfNew, 3);
  const Comparison shorter = Compare(Data(13), Data(10));
  EXPECT_EQ(shorter.restOfOld, 3);
  EXPECT_FALSE(shorter.Same());
  EXPECT_TRUE(Compare({}, {}).Same());
}

// A byte of the second dump lies `shift` bytes further than the same byte of the first.
TEST(Compare, FollowsAShift) {
  const Data one{1, 2, 3, 4, 5, 6}, end{3, 4, 7, 6};
  const Comparison longer = Compare(one, end, usualGap, -2);
  EXPECT_EQ(longer.differences, (Differences{{4, 1}}));
  EXPECT_EQ(longer.start, 2);
  EXPECT_EQ(longer.common, 4);
  EXPECT_EQ(longer.restOfOld, 2);
  EXPECT_EQ(longer.restOfNew, 0);
  EXPECT_EQ(ChangeOf(one, end, {4, 1}, -2), (Change{4, {5}, {7}}));
  EXPECT_EQ(PatchLines(one, end, longer.differences, -2), "000004: 05 07");
  EXPECT_EQ(DifferingBytes(one, end, longer.differences, -2), 1);

  const Comparison shorter = Compare(end, one, usualGap, 2);
  EXPECT_EQ(shorter.differences, (Differences{{2, 1}}));
  EXPECT_EQ(shorter.start, 0);
  EXPECT_EQ(shorter.restOfNew, 2);
  EXPECT_EQ(PatchLines(end, one, shorter.differences, 2), "000002: 07 05");
  EXPECT_EQ(Compare(one, end, usualGap, 100).common, 0);
  EXPECT_EQ(Compare(one, end, usualGap, -100).restOfNew, 4);
}

TEST(Compare, AlignsDumpsByPhoneAddress) {
  const auto shift = [](std::size_t one, std::size_t other) {
    return AddressShift(Erased(one), Erased(other));
  };
  EXPECT_EQ(shift(0x800000, 0x600000), -0x200000);
  EXPECT_EQ(shift(0x600000, 0x1000000), 0xA00000);
  EXPECT_EQ(shift(0x1000001, 0x1000003), 0);  // large dumps begin at the same address
  EXPECT_EQ(shift(0x800000, 0x1000001), 0);   // no address in common
}

TEST(NearestDifference, IsTheOneBeforeOrBehind) {
  const Differences differences{{10, 5}, {30, 5}};
  for (const auto& [offset, index] : {std::pair(0, 0u), {10, 0u}, {22, 0u}, {23, 1u}, {30, 1u}, {99, 1u}})
    EXPECT_EQ(NearestDifference(differences, offset), index) << offset;
}

TEST(Compare, MakesChangesWithinTheImages) {
  const Data one{1, 2, 3}, other{4, 5, 6};
  EXPECT_EQ(ChangeOf(one, other, {1, 2}), (Change{1, {2, 3}, {5, 6}}));
  for (const Difference& outside : Differences{{1, 3}, {-1, 2}, {4, 1}, {0, -1}})
    EXPECT_THROW((void)ChangeOf(one, other, outside), std::out_of_range) << outside.offset;
}

// A changed copy of a dump: rewrites runs of any length, now and then with the old bytes.
Data Changed(const Data& values, std::mt19937& random) {
  Data changed = values;
  const auto below = [&](std::size_t end) {
    return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
  };
  for (std::size_t runs = below(12); runs > 0; --runs) {
    const std::size_t from = below(changed.size());
    const std::size_t end = std::min(changed.size(), from + 1 + below(1 << below(14)));
    for (std::size_t i = from; i < end; ++i) changed[i] = static_cast<std::uint8_t>(below(3));
  }
  return changed;
}

TEST(RoundTrip, APatchMakesTheSecondDumpOfTheFirst) {
  std::mt19937 random(8);
  for (int i = 0; i < 300; ++i) {
    const Data zeros(2 + random() % 0x4000);
    const Data one = Changed(zeros, random);
    const Data other = Changed(i % 2 ? one : zeros, random);
    const Comparison comparison = Compare(one, other, i % 20);
    const std::string lines = PatchLines(one, other, comparison.differences);
    const ReadPatch patch = ReadPatchText(PatchFile("C55", PatchBlock("test", lines)));
    ASSERT_TRUE(patch.invalid.empty());

    Fullflash image{Bytes(one)};
    const PatchCheck check = CheckPatch(patch.changes, image);
    ASSERT_EQ(check.Count(Fit::Fine), patch.changes.size()) << i;
    ImageEdits edits;
    edits.Write(image, check.ToWrite(patch.changes));
    ASSERT_TRUE(std::ranges::equal(image.ff(), other)) << i;
    ASSERT_EQ(CheckPatch(patch.changes, image).CarriesAll(), one != other) << i;
    edits.Undo(image);
    ASSERT_TRUE(std::ranges::equal(image.ff(), one)) << i;
  }
}

}  // namespace
}  // namespace tarvelo
