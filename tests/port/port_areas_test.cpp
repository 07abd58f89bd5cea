// Where what a patch brings into erased flash goes, and what becomes of it and of all that names it.
#include <gtest/gtest.h>

#include <algorithm>

#include "port/linked_versions.h"

namespace tarvelo {
namespace {

class PortAreas : public LinkedVersions {};

INSTANTIATE_TEST_SUITE_P(InFront, PortAreas, oddAndEven);

// Code in an erased area, cut into lines inside its instructions, and a text behind it that looks like JMPA.
TEST_P(PortAreas, KeepAFunctionThatIsCutIntoLines) {
  const std::string source =
      "F2 F4 word:near 2D 2 DA far:third E6 FC 14 0 E6 FD FE 3 E6 F6 32 80 E6 F7 FF 0 DB 0 "
      "F2 F4 word:near 0D EF "                        // leads back to the start
      "F2 F4 CC 0 0D 1 EA 0 20 41 "                   // leads to nothing known: data
      "F2 F5 word:near DB 0 F2 F6 word:near DB 0 0";  // at 2Ch, which is called, and at 32h
  const std::vector<std::uint8_t> code = old.Bytes(source);
  const std::vector<std::uint8_t> wanted = now.Bytes(source);
  const Offset erased = old.At("area"), there = erased + newFront - oldFront;
  std::vector<PatchChange> changes{
      ChangeOf(old.At("first") + 56, {0xDA, 0xFF, 0x00, 0x80, 0xDA, 0xFF, 0x2C, 0x80})};
  for (Offset at = 0; at < std::ssize(code); at += 7) {
    const auto end = std::min<Offset>(at + 7, std::ssize(code));
    changes.push_back(ChangeOf(erased + at, {code.begin() + at, code.begin() + end}));
  }
  const std::vector<PortedChange> ported = Ported(changes);
  EXPECT_EQ(ported[0].newBytes, changes[0].change.newBytes);
  for (std::size_t i = 1; i < ported.size(); ++i) {
    EXPECT_EQ(ported[i].offset, changes[i].change.offset + there - erased);
    const auto first = wanted.begin() + (ported[i].offset - there);
    EXPECT_EQ(ported[i].newBytes,
              std::vector<std::uint8_t>(first, first + std::ssize(changes[i].change.newBytes)));
  }
  now.Image()[static_cast<std::size_t>(there) + 3] = 0;
  for (const PortedChange& change : Ported({changes[1], changes[2]}))
    EXPECT_EQ(change.refusal, PortRefusal::NotEmpty);
}

// The new dump is full where the patch has its area. All behind the items is erased but for that.
TEST_P(PortAreas, MoveWithAllThatNamesThemIfTheNewDumpIsFullThere) {
  struct Case {
    std::vector<Region> used;
    Offset area, mark;  // 0: none
  };
  const Case cases[] = {
      {{}, 0x8000, 0x8400},                               // the same offsets in the segment
      {{{0x7F00, 0x200}}, 0xC000, 0xC400},                // in the page
      {{{0, 0xE000}, {0xE800, 0x1800}}, 0xE400, 0xE200},  // 100h bytes from all; not by one distance
      {{{0, 0xE000}, {0xE207, 0x1DF9}}, 0, 0},            // 207h bytes are too few for 8 and margins
  };
  const std::string code =  // a near and a far call, a near jump back, a pair, an EXTP, a table
      "2D 4 DA far:third EA 0 word:area E6 FC word:pof:mark E6 FD word:page:mark D7 40 word:page:mark "
      "F2 F4 word:pof:mark E6 F1 F0 02 CA 0 word:area DB 0 word:area word:seg:area word:pof:mark "
      "word:page:mark";
  // A word may be half of an address: of its offset, which only the first case keeps, or of the page.
  enum class Half { None, Offset, Page };
  struct Place {
    std::string name;
    tarvelo::Offset at;
    std::string source;
    Half half = Half::None;
  };
  const Place places[] = {
      {"first", 56, "DA far:area"},
      {"second", 64, "E6 FC word:pof:mark E6 FD word:page:mark"},
      {"table", 4, "word:area word:seg:area"},
      {"table", 12, "word:pof:mark word:page:mark"},
      {"area", 0, code},
      {"area", 0x7E, "word:area", Half::Offset},
      {"mark", 0, "12 34 FF FF 41 42 8C 0"},
      {"mark", 8, "word:area", Half::Offset},
      {"fifth", 40, "E6 F5 word:page:area", Half::Page},
      {"table", 8, "word:page:mark word:pof:mark", Half::Page},
      {"fifth", 44, "E6 F6 04 40", Half::Page},     // the area through DPP1
      {"fourth", 48, "E6 F6 04 80", Half::Offset},  // a plain number
  };
  std::ranges::copy(old.Bytes("E6 01 word:page:area"), old.Image().begin() + 0x10000 + oldFront);
  std::fill_n(now.Image().begin() + 0x18000 + newFront, 0x500, 0);
  // A half that is refused in an area takes along all that names the area.
  for (const bool hasHalves : {false, true})
    for (const Case& each : cases) {
      std::vector<Place> lines;
      std::ranges::copy_if(places, std::back_inserter(lines),
                           [&](const Place& line) { return hasHalves || line.half == Half::None; });
      std::vector<PatchChange> changes;
      for (const Place& line : lines)
        changes.push_back(ChangeOf(old.At(line.name) + line.at, old.Bytes(line.source)));
      now.Put("area", each.area);
      now.Put("mark", each.mark);
      const auto ported = Ported(changes, each.used);
      for (std::size_t i = 0; i < ported.size(); ++i) {
        const auto& [name, at, source, half] = lines[i];
        SCOPED_TRACE(std::to_string(each.area) + ": " + source);
        const bool isBrought = name == "area" || name == "mark";
        const bool isMoved = each.area != 0, isLow = each.area == 0x8000;
        const bool isRefused = half == Half::None     ? name != "mark" && (!isMoved || (hasHalves && !isLow))
                               : half == Half::Offset ? isMoved && !isLow
                                                      : isMoved;
        if (!isMoved && isBrought) {
          EXPECT_EQ(ported[i].refusal, PortRefusal::NotEmpty);
        } else if (isRefused) {
          EXPECT_EQ(ported[i].refusal, PortRefusal::NoAddress);
        } else if (isMoved) {
          ASSERT_FALSE(ported[i].refusal);
          EXPECT_EQ(ported[i].offset, now.At(name) + at);
          EXPECT_EQ(ported[i].newBytes, now.Bytes(source));
        }
      }
      const PatchChange area = ChangeOf(old.At("area"), old.Bytes(code));
      EXPECT_EQ(Ported({area}, each.used)[0].refusal, PortRefusal::NotEmpty);  // nothing refers to it
      EXPECT_EQ(Ported(changes)[0].refusal, PortRefusal::NoAddress);           // unless the user wants it
    }
}

}  // namespace
}  // namespace tarvelo
