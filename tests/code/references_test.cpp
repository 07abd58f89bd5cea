#include "code/references.h"

#include <gtest/gtest.h>

#include "images.h"

namespace tarvelo {
namespace {

// An image of 128 KiB, which begins at phone address FE0000h. The target is at FF1234h: offset 1234h of
// segment FFh and of page 3FCh.
constexpr std::size_t dumpSize = 0x20000;
constexpr Offset target = 0x11234;
constexpr Offset place = 0x100;        // of the bytes of a case
constexpr Offset nearPlace = 0x11100;  // likewise, in the target's segment

// References as "kind sure text", each after its offset from `from`.
std::vector<std::string> Written(const std::vector<Reference>& references, const Fullflash& image,
                                 Offset from) {
  std::vector<std::string> lines;
  for (const Reference& reference : references)
    lines.push_back(std::to_string(reference.offset - from) + " " + std::string(NameOf(reference.kind)) +
                    " " + std::string(NameOf(reference.sure)) + " " + TextOf(reference, image));
  return lines;
}

std::vector<std::string> Find(const Fullflash& image, Offset from, const DppPages& dpps = {}) {
  return Written(GetReferences(image, target, {}, dpps, noProgress), image, from);
}

const Data someCode{0xA8, 0x45, 0xB8, 0x56, 0x88, 0x90, 0x98, 0xA0};
const Data rets{0xDB, 0x00};

// Bytes within a function in erased memory.
Fullflash InCode(const Data& bytes, Offset at = place) {
  ImageBuilder builder(dumpSize);
  std::size_t end = builder.Data(static_cast<std::size_t>(at) - someCode.size(), someCode);
  end = builder.Data(end, bytes);
  builder.Data(builder.Data(end, someCode), rets);
  return ImageOf(std::move(builder));
}

// Bytes between others that are repeated around them.
Fullflash Among(const Data& others, const Data& bytes) {
  ImageBuilder builder(dumpSize);
  for (std::size_t at = 0; at < 0x1000; at += others.size()) builder.Data(at, others);
  builder.Data(place, bytes);
  return ImageOf(std::move(builder));
}

struct ReferenceCase {
  Data bytes;
  std::vector<std::string> found;
};

TEST(GetReferences, FindsEveryFormInCode) {
  for (const auto& [bytes, found] : std::vector<ReferenceCase>{
           {{0xDA, 0xFF, 0x34, 0x12}, {"0 call certain CALLS 0FFh, 1234h"}},
           {{0xFA, 0xFF, 0x34, 0x12}, {"0 jump certain JMPS 0FFh, 1234h"}},
           {{0xDA, 0xFE, 0x34, 0x12}, {}},  // another segment
           {{0xDA, 0xFF, 0x34, 0x52}, {}},  // the same offset in the next page
           {{0xCA, 0x00, 0x34, 0x12}, {}},  // near, but in another segment
           // EXTP: the low 14 bits count; EXTS: all
           {{0xD7, 0x40, 0xFC, 0x03, 0xF2, 0xF4, 0x34, 0x92}, {"4 access certain MOV R4, 9234h"}},
           {{0xD7, 0x00, 0xFF, 0x00, 0xF2, 0xF4, 0x34, 0x12}, {"4 access certain MOV R4, 1234h"}},
           {{0xD7, 0x00, 0xFF, 0x00, 0xF2, 0xF4, 0x34, 0x92}, {}},
           {{0xD7, 0x40, 0xFD, 0x03, 0xF2, 0xF4, 0x34, 0x12}, {}},  // another page
           {{0xD7, 0xC0, 0xFC, 0x03, 0x04, 0x07, 0x34, 0x12}, {"4 access certain ADD 1234h, 0F00Eh"}},
           {{0xD7, 0x70, 0xFC, 0x03, 0xA8, 0x12, 0xE6, 0xF4, 0, 0x11, 0xA8, 0x13, 0xF6, 0x8E, 0x34, 0x12},
            {"12 access certain MOV 1234h, ZEROS"}},
           // the range is over, or replaced
           {{0xD7, 0x40, 0xFC, 0x03, 0xA8, 0x12, 0xF2, 0xF4, 0x34, 0x12},
            {"6 data possible MOV R4, 1234h (DPP0)"}},
           {{0xD7, 0x50, 0xFC, 0x03, 0xDC, 0x45, 0xF2, 0xF4, 0x34, 0x12}, {}},
           {{0xD7, 0x70, 0xFC, 0x03, 0xD1, 0x00, 0xF2, 0xF4, 0x34, 0x12},
            {"6 data possible MOV R4, 1234h (DPP0)"}},
           // pairs
           {{0xE6, 0xFC, 0x34, 0x12, 0xE6, 0xFD, 0xFC, 0x03},
            {"0 pair likely MOV R12, #1234h; MOV R13, #3FCh"}},
           {{0xE6, 0xF5, 0xFF, 0x00, 0xE6, 0xF4, 0x34, 0x12},
            {"0 pair likely MOV R5, #0FFh; MOV R4, #1234h"}},
           {{0xE6, 0xFC, 0x34, 0x12, 0xA8, 0x45, 0xB8, 0x56, 0xE6, 0xF2, 0xFC, 0x03},
            {"0 pair likely MOV R12, #1234h; MOV R2, #3FCh"}},
           {{0xE6, 0xFC, 0x34, 0x12, 0xE6, 0xFD, 0xFB, 0x03, 0xE6, 0xFF, 0xFC, 0x03},
            {}},  // R13 has another page
           {{0xE6, 0xFC, 0x34, 0x12, 0xE6, 0xFC, 0, 0x11, 0xE6, 0xFD, 0xFC, 0x03},
            {}},                                                                // R12 is loaded again
           {{0xE6, 0xFC, 0x34, 0x12, 0xDB, 0x00, 0xE6, 0xFD, 0xFC, 0x03}, {}},  // another function
           // DPPs
           {{0xF2, 0xF4, 0x34, 0x52}, {"0 data possible MOV R4, 5234h (DPP1)"}},
           {{0xF2, 0xF4, 0x34, 0xD2}, {}},  // DPP3 is 3
           {{0xE6, 0x01, 0xFC, 0x03, 0xA8, 0x45, 0xF2, 0xF4, 0x34, 0x52}, {"6 data likely MOV R4, 5234h"}},
           {{0xC6, 0x03, 0xFC, 0x03, 0xF2, 0xF4, 0x34, 0xD2}, {"4 data likely MOV R4, 0D234h"}},
           {{0xE6, 0x01, 0xFB, 0x03, 0xF2, 0xF4, 0x34, 0x52}, {}},
           {{0xE6, 0x03, 0xFC, 0x03, 0xFC, 0x03, 0xF2, 0xF4, 0x34, 0xD2},
            {"6 data possible MOV R4, 0D234h (DPP3)"}},
           {{0xE6, 0x00, 0xFC, 0x03, 0x0D, 0x00, 0xF2, 0xF4, 0x34, 0x12},
            {"6 data possible MOV R4, 1234h (DPP0)"}},
           {{0xD1, 0x80, 0xE6, 0x01, 0xFC, 0x03, 0xF2, 0xF4, 0x34, 0x52},
            {"6 data possible MOV R4, 5234h (DPP1)"}},
           // neither a constant nor a displacement is a reference alone
           {{0xE6, 0xFC, 0x34, 0x12}, {}},
           {{0xD4, 0x45, 0x34, 0x12}, {}},
       }) {
    const Fullflash image = InCode(bytes);
    EXPECT_EQ(Find(image, place), found);
  }
}

TEST(GetReferences, FindsNearCallsAndBranchesInTheSegment) {
  for (const auto& [bytes, found] : std::vector<ReferenceCase>{
           {{0xCA, 0x20, 0x34, 0x12}, {"0 call likely CALLA cc_Z, 1234h"}},
           {{0xEA, 0x00, 0x34, 0x12}, {"0 jump likely JMPA cc_UC, 1234h"}},
           {{0xE2, 0xF4, 0x34, 0x12}, {"0 call likely PCALL R4, 1234h"}},
           {{0xE6, 0xFC, 0xEA, 0x00, 0x34, 0x12}, {}},  // within a MOV
       })
    EXPECT_EQ(Find(InCode(bytes, nearPlace), nearPlace), found);
  // 11238h + 2 - 6 and 111C0h + 4 + 112
  ImageBuilder builder(dumpSize);
  builder.Data(builder.Data(target, Data{0xA8, 0x45, 0xB8, 0x56, 0x3D, 0xFD}), rets);
  builder.Data(0x111C0, Data{0x8A, 0xF4, 0x38, 0x50, 0xE6, 0xF4, 0x3D, 0x36, 0xBB, 0x35, 0xDB, 0x00});
  const Fullflash image = ImageOf(std::move(builder));
  EXPECT_EQ(Find(image, target),
            (std::vector<std::string>{"-116 jump likely JB R4.5, 1234h", "-108 call likely CALLR 1234h",
                                      "4 jump likely JMPR cc_NZ, 1234h"}));
}

TEST(GetReferences, FollowsBranchesAroundTheSegment) {
  ImageBuilder builder(dumpSize);
  builder.Data(0x10000, Data{0xA8, 0x45, 0x0D, 0xFC});  // back to the segment's end: FFh:FFFEh
  builder.Data(0x1FFF6, Data{0xA8, 0x45, 0x3D, 0x03, 0xA8, 0x45, 0xDB, 0x00, 0xDB, 0x00});
  const Fullflash image = ImageOf(std::move(builder));
  EXPECT_EQ(Written(GetReferences(image, 0x10000, {}, {}, noProgress), image, 0),
            (std::vector<std::string>{"131064 jump likely JMPR cc_NZ, 0h"}));
  EXPECT_EQ(Written(GetReferences(image, 0x1FFFC, {}, {}, noProgress), image, 0),
            (std::vector<std::string>{"65538 jump likely JMPR cc_UC, 0FFFCh"}));
}

TEST(GetReferences, TakesPointersOutsideCode) {
  const Data page{0x34, 0x12, 0xFC, 0x03}, segment{0x34, 0x12, 0xFF, 0x00}, beyond{0x34, 0x52, 0xFB, 0x03};
  const Data noise{0x3B, 0x44, 0x45, 0x83};
  EXPECT_EQ(Find(Among(noise, page), place), std::vector<std::string>{"0 pointer likely DW 1234h, 3FCh"});
  EXPECT_EQ(Find(Among(noise, segment), place), std::vector<std::string>{"0 pointer likely DW 1234h, 0FFh"});
  EXPECT_EQ(Find(Among(noise, beyond), place), std::vector<std::string>{"0 pointer possible DW 5234h, 3FBh"});
  EXPECT_EQ(Find(InCode(page), place), std::vector<std::string>{"0 pointer possible DW 1234h, 3FCh"});
  // A table that decodes as code, too: ADD R1, R0; EXTS R0, #1
  EXPECT_EQ(Find(Among({0x00, 0x10, 0xFE, 0x00}, segment), place),
            std::vector<std::string>{"0 pointer likely DW 1234h, 0FFh"});
}

TEST(GetReferences, IsNotCertainOutsideCode) {
  const Data call{0xDA, 0xFF, 0x34, 0x12};
  Data picture;
  for (int i = 0; i < 64; ++i) picture.push_back(static_cast<std::uint8_t>(i % 3 == 0 ? 0x18 + i : 0));
  for (const Data& others : std::vector<Data>{
           {0x3B, 0x44, 0x45, 0x83},  // no instructions
           {'H', 'e', 'l', 'l', 'o', ' ', 'w', 'o', 'r', 'l', 'd', '!'},
           {'H', 0, 'e', 0, 'l', 0, 'l', 0, 'o', 0, ' ', 0},
           {0xFF, 0xFF},
           {0x00, 0x00},
           {0x14, 0x02, 0x84, 0x03, 0xA2, 0x11, 0x85, 0x03},  // pointers
           picture,
       })
    for (const std::string& line : Find(Among(others, call), place))
      EXPECT_EQ(line.find("certain"), line.npos) << +others[0];
  // Within an instruction of code: MOV R4, #0FFDAh and what the next begins with
  EXPECT_EQ(Find(InCode({0xE6, 0xF4, 0xDA, 0xFF, 0x34, 0x12, 0xA8, 0x45}), place),
            std::vector<std::string>{});
  ImageBuilder odd(dumpSize);
  odd.Data(odd.Data(odd.Data(place + 1, call), someCode), rets);
  EXPECT_EQ(Find(ImageOf(std::move(odd)), place), std::vector<std::string>{});
}

TEST(GetReferences, AsksTheFunctionsFirst) {
  const Fullflash image = Among({0x3B, 0x44, 0x45, 0x83}, {0xDA, 0xFF, 0x34, 0x12, 0xDB, 0x00});
  EXPECT_EQ(Find(image, place), std::vector<std::string>{"0 call likely CALLS 0FFh, 1234h"});
  const auto with = [&](std::uint64_t starts) {
    std::vector<std::uint64_t> bits(place / 128 + 1);
    bits.back() = starts;
    const FunctionList functions({{{place, 6}, 1}}, bits);
    return Written(GetReferences(image, target, functions, {}, noProgress), image, place);
  };
  EXPECT_EQ(with(0b101), std::vector<std::string>{"0 call certain CALLS 0FFh, 1234h"});
  EXPECT_EQ(with(0b110), std::vector<std::string>{"0 call possible CALLS 0FFh, 1234h"});
}

TEST(GetReferences, TakesStatedPages) {
  const Fullflash image = InCode({0xF2, 0xF4, 0x34, 0x52});
  EXPECT_EQ(Find(image, place, {{{}, 0x3FC, {}, {}}}),
            std::vector<std::string>{"0 data likely MOV R4, 5234h"});
  EXPECT_EQ(Find(image, place, {{{}, 0x3FB, {}, {}}}), std::vector<std::string>{});
  EXPECT_EQ(Find(InCode({0xF2, 0xF4, 0x34, 0xD2}), place, {{{}, {}, {}, 0x3FC}}),
            std::vector<std::string>{"0 data likely MOV R4, 0D234h"});
}

TEST(GetReferences, CountsFromTheCorrectedBase) {
  Fullflash image = InCode({0xDA, 0x80, 0x34, 0x12});
  EXPECT_EQ(Find(image, place), std::vector<std::string>{});
  image.SetCorrBase(0x7F0000);  // the target is at 801234h
  EXPECT_EQ(Find(image, place), std::vector<std::string>{"0 call certain CALLS 80h, 1234h"});
}

TEST(GetReferences, ReachesTheImagesEnds) {
  ImageBuilder builder(dumpSize);
  builder.Data(builder.Data(0, Data{0xDA, 0xFF, 0xFF, 0xFF}), rets);  // the last byte, at an odd address
  builder.Data(dumpSize - 4, Data{0xFF, 0xFF, 0xFF, 0x00});
  const Fullflash image = ImageOf(std::move(builder));
  EXPECT_EQ(Written(GetReferences(image, dumpSize - 1, {}, {}, noProgress), image, 0),
            (std::vector<std::string>{"0 call certain CALLS 0FFh, 0FFFFh",
                                      "131068 pointer likely DW 0FFFFh, 0FFh"}));
}

TEST(GetReferences, LargeImagesHaveNone) {
  ImageBuilder builder(0x1000002);
  builder.Data(0x100, Data{0xDA, 0x00, 0x00, 0x10, 0xDB, 0x00});
  EXPECT_TRUE(GetReferences(ImageOf(std::move(builder)), 0x1000, {}, {}, noProgress).empty());
}

// Every even place is a candidate; the walks of two of them never meet.
TEST(GetReferences, EndsOnMillionsOfCandidates) {
  for (const Data& word :
       std::vector<Data>{{0x34, 0x12}, {0xF2, 0xF4, 0x34, 0x12}, {0xE6, 0xFC, 0x34, 0x12}}) {
    ImageBuilder builder(0x80000);
    for (std::size_t at = 0; at < builder.Size(); at += word.size()) builder.Data(at, word);
    const Fullflash image = ImageOf(std::move(builder));
    EXPECT_LT(GetReferences(image, 0x1234, {}, {}, noProgress).size(), 0x40000U);
  }
}

}  // namespace
}  // namespace tarvelo
