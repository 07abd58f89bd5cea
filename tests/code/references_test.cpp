#include "code/references.h"

#include <gtest/gtest.h>

#include <sstream>

#include "images.h"

namespace tarvelo {
namespace {

// An image of 128 KiB, which begins at phone address FE0000h. The target is at FF1234h: offset 1234h of
// segment FFh and of page 3FCh.
constexpr std::size_t dumpSize = 0x20000;
constexpr Offset target = 0x11234;
constexpr Offset place = 0x100;        // of the bytes of a case
constexpr Offset nearPlace = 0x11100;  // likewise, in the target's segment

// References as "kind sure text; ", each after its offset from `from`.
std::string Written(const std::vector<Reference>& references, const Fullflash& image, Offset from = 0) {
  std::ostringstream text;
  for (const Reference& each : references)
    text << each.offset - from << ' ' << NameOf(each.kind) << ' ' << NameOf(each.sure) << ' '
         << TextOf(each, image) << "; ";
  return text.str();
}

std::string Find(const Fullflash& image, Offset from, const DppPages& dpps = {}) {
  return Written(GetReferences(image, target, {}, dpps, noProgress), image, from);
}

const Data someCode = "A845 B856 8890 98A0"_hex;
const Data rets = "DB00"_hex;

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

using FoundInCode = std::vector<std::pair<Data, const char*>>;

TEST(GetReferences, FindsEveryFormInCode) {
  for (const auto& [bytes, found] : FoundInCode{
           {"DAFF3412"_hex, "0 call certain CALLS 0FFh, 1234h; "},
           {"FAFF3412"_hex, "0 jump certain JMPS 0FFh, 1234h; "},
           {"DAFE3412"_hex, ""},  // another segment
           {"DAFF3452"_hex, ""},  // the same offset in the next page
           {"CA003412"_hex, ""},  // near, but in another segment
           // EXTP: the low 14 bits count; EXTS: all
           {"D740FC03 F2F43492"_hex, "4 access certain MOV R4, 9234h; "},
           {"D700FF00 F2F43412"_hex, "4 access certain MOV R4, 1234h; "},
           {"D700FF00 F2F43492"_hex, ""},
           {"D740FD03 F2F43412"_hex, ""},  // another page
           {"D7C0FC03 04073412"_hex, "4 access certain ADD 1234h, 0F00Eh; "},
           {"D770FC03 A812 E6F40011 A813 F68E3412"_hex, "12 access certain MOV 1234h, ZEROS; "},
           // the range is over, or replaced
           {"D740FC03 A812 F2F43412"_hex, "6 data possible MOV R4, 1234h (DPP0); "},
           {"D750FC03 DC45 F2F43412"_hex, ""},
           {"D770FC03 D100 F2F43412"_hex, "6 data possible MOV R4, 1234h (DPP0); "},
           // pairs
           {"E6FC3412 E6FDFC03"_hex, "0 pair likely MOV R12, #1234h; MOV R13, #3FCh; "},
           {"E6F5FF00 E6F43412"_hex, "0 pair likely MOV R5, #0FFh; MOV R4, #1234h; "},
           {"E6FC3412 A845 B856 E6F2FC03"_hex, "0 pair likely MOV R12, #1234h; MOV R2, #3FCh; "},
           {"E6FC3412 E6FDFB03 E6FFFC03"_hex, ""},  // R13 has another page
           {"E6FC3412 E6FC0011 E6FDFC03"_hex, ""},  // R12 is loaded again
           {"E6FC3412 DB00 E6FDFC03"_hex, ""},      // another function
           // the second page replaces the first, unless that is used: by MOV R4, R12, or what is called
           {"E6FDFB03 E6FC3412 E6FDFC03"_hex, "4 pair likely MOV R12, #1234h; MOV R13, #3FCh; "},
           {"E00D E6FC3412 F012 E6FDFC03"_hex, "2 pair likely MOV R12, #1234h; MOV R13, #3FCh; "},
           {"E6FDFC03 E6FC3412 E6FDFB03"_hex, ""},
           {"E6FDFC03 E6FC3412 F04C E6FDFB03"_hex, "0 pair likely MOV R13, #3FCh; MOV R12, #1234h; "},
           {"E6FDFC03 E6FC3412 DAFE0010 E6FDFB03"_hex, "0 pair likely MOV R13, #3FCh; MOV R12, #1234h; "},
           {"DAFFE04D E6FC3412 E6FDFC03"_hex, "4 pair likely MOV R12, #1234h; MOV R13, #3FCh; "},
           {"E6FC3412 F2FC0080 E6FDFC03"_hex, ""},  // R12 or R13 comes from elsewhere
           {"E6FDFC03 F0D4 E6FC3412"_hex, ""},
           {"E6FDFC03 08C2 F0C4 E6FC3412"_hex, "0 pair likely MOV R13, #3FCh; MOV R12, #1234h; "},
           // DPPs
           {"F2F43452"_hex, "0 data possible MOV R4, 5234h (DPP1); "},
           {"F2F434D2"_hex, ""},  // DPP3 is 3
           {"E601FC03 A845 F2F43452"_hex, "6 data likely MOV R4, 5234h; "},
           {"C603FC03 F2F434D2"_hex, "4 data likely MOV R4, 0D234h; "},
           {"E601FB03 F2F43452"_hex, ""},
           {"E603FC03 FC03 F2F434D2"_hex, "6 data possible MOV R4, 0D234h (DPP3); "},
           {"E600FC03 0D00 F2F43412"_hex, "6 data possible MOV R4, 1234h (DPP0); "},
           {"D180 E601FC03 F2F43452"_hex, "6 data possible MOV R4, 5234h (DPP1); "},
           // neither a constant nor a displacement is a reference alone
           {"E6FC3412"_hex, ""},
           {"D4453412"_hex, ""},
       })
    EXPECT_EQ(Find(InCode(bytes), place), found);
}

TEST(GetReferences, FindsNearCallsAndBranchesInTheSegment) {
  for (const auto& [bytes, found] : FoundInCode{
           {"CA203412"_hex, "0 call likely CALLA cc_Z, 1234h; "},
           {"EA003412"_hex, "0 jump likely JMPA cc_UC, 1234h; "},
           {"E2F43412"_hex, "0 call likely PCALL R4, 1234h; "},
           {"E6FCEA00 3412"_hex, ""},  // within a MOV
       })
    EXPECT_EQ(Find(InCode(bytes, nearPlace), nearPlace), found);
  // 11238h + 2 - 6 and 111C0h + 4 + 112
  ImageBuilder builder(dumpSize);
  builder.Data(builder.Data(target, "A845 B856 3DFD"_hex), rets);
  builder.Data(0x111C0, "8AF43850 E6F43D36 BB35 DB00"_hex);
  const Fullflash self = InCode("8A20FF30"_hex);  // into its own middle
  EXPECT_EQ(Written(GetReferences(self, place + 2, {}, {}, noProgress), self, place),
            "0 jump likely JB 0FD40h.3, 102h; ");
  const Fullflash image = ImageOf(std::move(builder));
  EXPECT_EQ(Find(image, target),
            "-116 jump likely JB R4.5, 1234h; "
            "-108 call likely CALLR 1234h; "
            "4 jump likely JMPR cc_NZ, 1234h; ");
}

TEST(GetReferences, FollowsBranchesAroundTheSegment) {
  ImageBuilder builder(dumpSize);
  builder.Data(0x10000, "A845 0DFC"_hex);  // back to the segment's end: FFh:FFFEh
  builder.Data(0x1FFF6, "A845 3D03 A845 DB00 DB00"_hex);
  const Fullflash image = ImageOf(std::move(builder));
  EXPECT_EQ(Written(GetReferences(image, 0x10000, {}, {}, noProgress), image),
            "131064 jump likely JMPR cc_NZ, 0h; ");
  EXPECT_EQ(Written(GetReferences(image, 0x1FFFC, {}, {}, noProgress), image),
            "65538 jump likely JMPR cc_UC, 0FFFCh; ");
}

TEST(GetReferences, TakesPointersOutsideCode) {
  const Data page = "3412FC03"_hex, segment = "3412FF00"_hex, beyond = "3452FB03"_hex;
  const Data noise = "3B44 4583"_hex;
  EXPECT_EQ(Find(Among(noise, page), place), "0 pointer likely DW 1234h, 3FCh; ");
  EXPECT_EQ(Find(Among(noise, segment), place), "0 pointer likely DW 1234h, 0FFh; ");
  EXPECT_EQ(Find(Among(noise, beyond), place), "0 pointer possible DW 5234h, 3FBh; ");
  EXPECT_EQ(Find(InCode(page), place), "0 pointer possible DW 1234h, 3FCh; ");
  const Fullflash alone = Among("FFFF"_hex, "E026FC03"_hex);  // MOV R6, #2, too
  EXPECT_EQ(Written(GetReferences(alone, 0x126E0, {}, {}, noProgress), alone, place),
            "0 pointer likely DW 26E0h, 3FCh; ");
  // A table that decodes as code, too: ADD R1, R0; EXTS R0, #1
  EXPECT_EQ(Find(Among("0010 FE00"_hex, segment), place), "0 pointer likely DW 1234h, 0FFh; ");
}

TEST(GetReferences, IsNotCertainOutsideCode) {
  const Data call = "DAFF3412"_hex;
  Data picture;
  for (int i = 0; i < 64; ++i) picture.push_back(static_cast<std::uint8_t>(i % 3 == 0 ? 0x18 + i : 0));
  for (const Data& others : std::vector<Data>{
           "3B44 4583"_hex,  // no instructions
           {'H', 'e', 'l', 'l', 'o', ' ', 'w', 'o', 'r', 'l', 'd', '!'},
           {'H', 0, 'e', 0, 'l', 0, 'l', 0, 'o', 0, ' ', 0},
           "FFFF"_hex,
           "0000"_hex,
           "08FF 18FF 28FF 38FF"_hex,
           "14028403 A2118503"_hex,  // pointers
           picture,
       })
    EXPECT_EQ(Find(Among(others, call), place).find("certain"), std::string::npos) << +others[0];
  // Within an instruction of code: MOV R4, #0FFDAh and what the next begins with
  EXPECT_EQ(Find(InCode("E6F4DAFF 3412A845"_hex), place), "");
  ImageBuilder odd(dumpSize);
  odd.Data(odd.Data(odd.Data(place + 1, call), someCode), rets);
  EXPECT_EQ(Find(ImageOf(std::move(odd)), place), "");
}

TEST(GetReferences, AsksTheFunctionsFirst) {
  const Fullflash image = Among("3B44 4583"_hex, "DAFF3412 DB00"_hex);
  EXPECT_EQ(Find(image, place), "0 call likely CALLS 0FFh, 1234h; ");
  const auto with = [&](std::uint64_t starts) {
    std::vector<std::uint64_t> bits(place / 128 + 1);
    bits.back() = starts;
    const FunctionList functions({{{place, 6}, 1}}, bits);
    return Written(GetReferences(image, target, functions, {}, noProgress), image, place);
  };
  EXPECT_EQ(with(0b101), "0 call certain CALLS 0FFh, 1234h; ");
  EXPECT_EQ(with(0b110), "0 call possible CALLS 0FFh, 1234h; ");
}

TEST(GetReferences, TakesStatedPages) {
  const Fullflash image = InCode("F2F43452"_hex);
  EXPECT_EQ(Find(image, place, {{{}, 0x3FC, {}, {}}}), "0 data likely MOV R4, 5234h; ");
  EXPECT_EQ(Find(image, place, {{{}, 0x3FB, {}, {}}}), "");
  EXPECT_EQ(Find(InCode("F2F434D2"_hex), place, {{{}, {}, {}, 0x3FC}}), "0 data likely MOV R4, 0D234h; ");
}

TEST(GetReferences, CountsFromTheCorrectedBase) {
  Fullflash image = InCode("DA803412"_hex);
  EXPECT_EQ(Find(image, place), "");
  image.SetCorrBase(0x7F0000);  // the target is at 801234h
  EXPECT_EQ(Find(image, place), "0 call certain CALLS 80h, 1234h; ");
}

TEST(GetReferences, ReachesTheImagesEnds) {
  ImageBuilder builder(dumpSize);
  builder.Data(builder.Data(0, "DAFFFFFF"_hex), rets);  // the last byte, at an odd address
  builder.Data(dumpSize - 4, "FFFF FF00"_hex);
  const Fullflash image = ImageOf(std::move(builder));
  EXPECT_EQ(Written(GetReferences(image, dumpSize - 1, {}, {}, noProgress), image),
            "0 call certain CALLS 0FFh, 0FFFFh; "
            "131068 pointer likely DW 0FFFFh, 0FFh; ");
}

TEST(GetReferences, LargeImagesHaveNone) {
  ImageBuilder builder(0x1000002);
  builder.Data(0x100, "DA000010 DB00"_hex);
  EXPECT_TRUE(GetReferences(ImageOf(std::move(builder)), 0x1000, {}, {}, noProgress).empty());
}

// Every even place is a candidate; the walks of two of them never meet.
TEST(GetReferences, EndsOnMillionsOfCandidates) {
  for (const Data& word : std::vector<Data>{"3412"_hex, "F2F43412"_hex, "E6FC3412"_hex}) {
    ImageBuilder builder(0x80000);
    for (std::size_t at = 0; at < builder.Size(); at += word.size()) builder.Data(at, word);
    const Fullflash image = ImageOf(std::move(builder));
    EXPECT_LT(GetReferences(image, 0x1234, {}, {}, noProgress).size(), 0x40000U);
  }
}

}  // namespace
}  // namespace tarvelo
