// A firmware written by hand and a later version of it, which has everything elsewhere, linked from the same
// source: what carrying makes of a line must be what the later version's linker makes of it.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "core/fullflash.h"
#include "port/linked_items.h"
#include "port/port.h"

namespace tarvelo {

// Twenty instructions that no other function has in this order, and what it refers to.
inline std::string Body(int number, const std::string& source) {
  std::ostringstream body;
  for (int k = 0; k < 20; ++k)
    body << "E0 " << std::hex << ((number * 37 + k * k * 5 + k * 11) & 0xFF) << ' ';
  return body.str() + source + " DB 0";
}

// Each variable, bit and outer function is used by two functions, which is what makes it sure.
inline std::vector<LinkedItem> Items() {
  const std::string uses =
      "F2 F4 word:near D7 40 word:page:far F2 F5 word:pof:far set:a set:b DA far:outer DA far:leaf "
      "E6 FC word:pof:text E6 FD word:page:text mov:a:c low:d:3:1";
  return {{"leaf", Body(0, "")},
          {"first", Body(1, uses)},
          {"second", Body(2, uses)},
          {"small", "E0 11 E0 22 DB 0"},
          {"alike", "E0 11 E0 22 DB 0"},
          {"third", Body(3,
                         "DA far:second DA far:first E6 FC word:pof:text E6 FD word:page:text D7 40 "
                         "word:page:far2 F2 F5 word:pof:far2")},
          {"between", "12 34 56 78 9A BC", false},
          {"fifth", Body(5, "F2 F5 word:near F2 F6 word:near")},
          {"gone", Body(6, "F2 F4 word:u")},
          {"fourth", Body(4,
                          "D7 40 word:page:far F2 F5 word:pof:far F2 F5 word:near F2 F5 word:w F2 F5 word:x "
                          "D7 40 word:page:far2 F2 F5 word:pof:far2")},
          {"twin", Body(6, "F2 F4 word:v")},
          {"picture", Body(10, "F2 F4 word:k"), false},  // looks like code
          {"sound", Body(11, "F2 F4 word:k"), false},
          {"table",
           "word:off:first word:seg:first word:off:second word:seg:second word:off:third word:seg:third "
           "word:pof:text word:page:text word:pof:other word:page:other",
           false},
          {"text", "4D 65 6E 75 20 6F 6E 65 0 53 65 74 75 70 20 74 77 6F 0 41 42 43 44 45 46 47 0", false},
          {"other", "53 6F 6D 65 20 6F 74 68 65 72 20 77 6F 72 64 73 20 68 65 72 65 0", false},
          {"tail", "50 6C 61 79 20 6D 65 6C 6F 64 79 20 6E 6F 77 0", false}};
}

// The later version has its items in another order, behind something new.
inline std::vector<LinkedItem> LaterItems() {
  std::vector<LinkedItem> items = Items();
  std::rotate(items.begin(), items.begin() + 2, items.end());
  // The twin of what is gone takes its place.
  const auto gone = std::ranges::find(items, "gone", &LinkedItem::name);
  const auto twin = std::ranges::find(items, "twin", &LinkedItem::name);
  std::swap(*gone, *twin);
  items.erase(twin);
  std::ranges::find(items, "fifth", &LinkedItem::name)
      ->source.insert(0, "A8 12 ");  // an instruction in front
  std::ranges::find(items, "tail", &LinkedItem::name)->source.replace(36, 8, "6F 66 66");  // another word
  items.insert(items.begin(), {"new", Body(9, "CC 0 CC 0")});
  return items;
}

inline std::vector<PortedChange> Port(const Linked& old, const std::vector<std::uint8_t>& oldBytes,
                                      const Linked& now, const std::vector<std::uint8_t>& newBytes,
                                      const std::vector<PatchChange>& changes,
                                      const std::optional<std::vector<Region>>& used) {
  const Fullflash before{tarvelo::Bytes(oldBytes)};
  const Fullflash after{tarvelo::Bytes(newBytes)};
  const CodeUnits oldUnits = GetCodeUnits(before, old.Functions());
  const CodeUnits newUnits = GetCodeUnits(after, now.Functions());
  NoProgress progress;
  const CodePairing pairing(oldUnits, before.PhoneAddress(0), newUnits, after.PhoneAddress(0), progress);
  const std::vector<AreaMove> moves =
      used ? OfferAreas(changes, before, after, pairing, progress, *used) : std::vector<AreaMove>();
  return PortChanges(changes, before, after, pairing, progress, moves);
}

// With one byte in front of the old or new image, its code is at odd offsets.
class LinkedVersions : public testing::TestWithParam<std::pair<Offset, Offset>> {
 protected:
  PatchChange ChangeOf(Offset at, std::vector<std::uint8_t> bytes) {
    const auto from = old.Image().begin() + at;
    return {0, {at, {from, from + std::ssize(bytes)}, std::move(bytes)}};
  }
  // With `used`, areas move as offered.
  std::vector<PortedChange> Ported(const std::vector<PatchChange>& changes,
                                   std::optional<std::vector<Region>> used = {}) {
    if (used)
      for (Region& region : *used) region.offset += newFront;
    return Port(old, old.Image(), now, now.Image(), changes, used);
  }

  const Offset oldFront = GetParam().first, newFront = GetParam().second;
  Linked old{Items(),
             {{"near", 0xCC},
              {"far", 0x184010},
              {"far2", 0x184100},
              {"outer", 0x2000},
              {"a", 0x123},
              {"b", 0x210},
              {"c", 0x230},
              {"d", 0x240},
              {"w", 0xCE},
              {"x", 0xD0},
              {"k", 0x9300},
              {"u", 0x9000},
              {"v", 0x9100},
              {"area", base + 0x18000},
              {"mark", base + 0x18400}},
             oldFront};
  Linked now{LaterItems(),
             {{"near", 0x8244},
              {"far", 0x188030},
              {"far2", 0x188140},
              {"outer", 0x2468},
              {"a", 0x135},
              {"b", 0x31F},
              {"v", 0x9200},
              {"c", 0x232},
              {"d", 0x252},
              {"w", 0x8246},
              {"x", 0x9000},
              {"k", 0x9300}},
             newFront};
};

inline const auto oddAndEven =
    testing::Values(std::pair(0, 0), std::pair(1, 0), std::pair(0, 1), std::pair(1, 1));

}  // namespace tarvelo
