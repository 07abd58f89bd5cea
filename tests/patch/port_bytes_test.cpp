// What new bytes become in another version: a firmware written by hand, and the same one with everything
// elsewhere. Expected bytes are the same source, linked for the other version.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "core/fullflash.h"
#include "patch/linked_items.h"
#include "patch/port.h"

namespace tarvelo {
namespace {

// Twenty instructions that no other function has in this order, and what it refers to.
std::string Body(int number, const std::string& source) {
  std::ostringstream body;
  for (int k = 0; k < 20; ++k)
    body << "E0 " << std::hex << ((number * 37 + k * k * 5 + k * 11) & 0xFF) << ' ';
  return body.str() + source + " DB 0";
}

// Each variable, bit and outer function is used by two functions, which is what makes it sure.
std::vector<LinkedItem> Items() {
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
std::vector<LinkedItem> LaterItems() {
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

struct Line {
  const char* name;    // of the place
  Offset at;           // bytes behind it
  const char* source;  // the new bytes
  bool isRefused = false;
  Offset moved = 0;  // within what the name names
};

// Offsets: the 20 instructions of a body have 40 bytes; in the first and second, then come F2 at 40, EXTP 44,
// F2 48, BSET 52 and 54, CALLS 56 and 60, the pair 64 and 68.
constexpr Line lines[] = {
    {"first", 56, "DA far:third"},
    {"first", 60, "DA far:outer"},
    {"second", 56, "DA 00 34 12", true},  // nothing says where 1234h went
    {"first", 48, "F2 F6 word:pof:far"},  // in the range of an EXTP that stays
    {"first", 50, "10 01", true},         // there, another variable
    {"first", 50, "word:pof:far2"},       // one of the same page
    {"second", 52, "0F 25", true},        // nothing says where the bit 25h.0 went
    {"first", 40, "D7 40 word:page:far F2 F6 word:pof:far"},
    {"second", 40, "mov:a:b"},
    {"second", 52, "set:b set:a"},
    {"second", 56, "low:a:3:2"},
    {"second", 52, "set:c set:a"},
    {"second", 76, "low:d:3:2"},          // the same bits with other data
    {"first", 40, "F2 F4 word:w"},        // one vote, and what is next to it moved as far
    {"first", 40, "F2 F4 word:x", true},  // and something else
    {"first", 40, "F2 F4 word:k", true},  // only data says so
    {"first", 56, "DA far:alike"},        // one of two, between functions that are pairs
    {"third", 44, "E6 FC 10 0"},          // before the same register is loaded with half of an address
    {"third", 40, "E6 F5 FA 3 E6 F4 10 0"},
    {"third", 40, "E6 F4 0 80 E6 F5 FF 0", true},  // FF:8000 is inside, and no function
    {"third", 40, "E6 F4 10 0 E6 F5 FA 3", true},  // as an address is loaded
    {"third", 40, "E6 F4 34 12 E6 F5 10 0"},       // outside the image in both forms
    {"tail", 0, "51", true},                       // the text has become another one
    {"second", 64, "E6 FC word:pof:other"},        // half of a pair, whose page is the same in both
    {"third", 40, "E6 FC word:off:leaf E6 FD word:seg:leaf"},
    {"fourth", 0, "0D 13 CC"},  // 19 words on: "F2 F5 near"; ends inside an instruction
    {"table", 4, "word:off:fourth word:seg:fourth"},
    {"table", 12, "word:pof:other word:page:other"},
    {"text", 5, "5A 5A"},
    {"first", 62, "7C", true},             // calls the second; the byte behind the line would change, too
    {"first", 40, "CC 0 CC 0"},            // the second NOP has the bytes of the address 00CCh
    {"fifth", 40, "D EB CC 0", false, 2},  // 21 words back: to the first instruction, no more the entry
    {"between", 2, "55"},
    {"other", 0, "word:off:leaf word:seg:leaf"},
    {"gone", 2, "CC 0", true},  // only its twin is left
};

std::vector<PortedChange> Port(const Linked& old, const std::vector<std::uint8_t>& oldBytes,
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
class PortBytes : public testing::TestWithParam<std::pair<Offset, Offset>> {
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

INSTANTIATE_TEST_SUITE_P(InFront, PortBytes,
                         testing::Values(std::pair(0, 0), std::pair(1, 0), std::pair(0, 1), std::pair(1, 1)));

TEST_P(PortBytes, AreThoseOfTheOtherVersion) {
  for (const Line& line : lines) {
    SCOPED_TRACE(std::string(line.name) + " + " + std::to_string(line.at) + ": " + line.source);
    const PortedChange ported = Ported({ChangeOf(old.At(line.name) + line.at, old.Bytes(line.source))})[0];
    EXPECT_EQ(ported.refusal.has_value(), line.isRefused);
    if (ported.refusal || line.isRefused) continue;
    EXPECT_EQ(ported.offset, now.At(line.name) + line.at + line.moved);
    EXPECT_EQ(ported.newBytes, now.Bytes(line.source));
  }
  for (const Change& other : {Change{old.At("text"), {1}, {2}}, {imageSize + oldFront - 1, {255, 255}, {}}})
    EXPECT_EQ(Ported({{0, other}})[0].refusal, PortRefusal::NotOld);
}

// Nothing but pointers, among erased bytes and at another place in each version.
TEST_P(PortBytes, OfATableOfPointersAlone) {
  const std::string table =
      "word:off:first word:seg:first word:off:second word:seg:second word:off:third word:seg:third "
      "word:off:leaf word:seg:leaf word:off:fourth word:seg:fourth";
  const Offset at = 0x10000 + oldFront, there = 0x11000 + newFront;
  std::ranges::copy(old.Bytes(table), old.Image().begin() + at);
  std::ranges::copy(now.Bytes(table), now.Image().begin() + there);
  const std::string source = "0 word:off:first word:seg:first";  // with a byte of the pointer in front
  const PortedChange ported = Ported({ChangeOf(at + 7, old.Bytes(source))})[0];
  EXPECT_EQ(ported.refusal, std::nullopt);
  EXPECT_EQ(ported.offset, there + 7);
  EXPECT_EQ(ported.newBytes, now.Bytes(source));
}

// Nothing but the other version's bytes says that its numbers are pointers.
TEST_P(PortBytes, OfATableThatHasOtherPointersInTheOtherVersion) {
  const auto put = [](Linked& version, const std::string& name, Offset at, int seed, Offset front) {
    version.Put(name, at);
    for (Offset k = 0; k < 64; ++k)
      version.Image()[static_cast<std::size_t>(at + front + k)] =
          static_cast<std::uint8_t>(0x80 | (seed + k * k));
  };
  const std::string table = "word:pof:one word:page:one";
  const Offset place = 0x6020;
  for (const bool isOld : {true, false}) {
    Linked& version = isOld ? old : now;
    const Offset front = isOld ? oldFront : newFront;
    put(version, "one", isOld ? 0x9000 : 0x9042, 1, front);
    put(version, "two", isOld ? 0xA100 : 0xA166, 2, front);
    put(version, "around", place - 32, 3, front);
    std::ranges::copy(version.Bytes(table), version.Image().begin() + place + front);
  }
  const PortedChange ported =
      Ported({ChangeOf(place + oldFront, old.Bytes("word:pof:two word:page:two"))})[0];
  ASSERT_EQ(ported.refusal, std::nullopt);
  EXPECT_EQ(ported.newBytes, now.Bytes("word:pof:two word:page:two"));
}

// Code in an erased area, cut into lines inside its instructions, and a text behind it that looks like JMPA.
TEST_P(PortBytes, OfABroughtFunctionAreCarriedAcrossLines) {
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
TEST_P(PortBytes, OfAnAreaThatIsFullMoveWithAllThatNamesThem) {
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

// The function in front of it is gone, so that it is the first one.
TEST(PortFirst, HasNothingInFront) {
  const std::string source = Body(1, "F2 F4 word:near");
  Linked old({{"gone", Body(6, "F2 F4 word:u")}, {"first", source}}, {{"near", 0x8000}});
  Linked now({{"first", source}}, {{"near", 0x8002}});
  const Offset at = old.At("first");
  const PatchChange change{0, {at, old.Bytes("E0 25"), {0xCC, 0}}};
  const auto ported = Port(old, old.Image(), now, now.Image(), {change}, {});
  EXPECT_EQ(ported[0].refusal, PortRefusal::NotUnique);  // 22 instructions and no evidence
}

// Three lines, the last two in a text that has changed.
TEST_P(PortBytes, AreNotMadeAfterAStop) {
  struct Stopper final : Progress {
    void Start(std::int64_t, std::int64_t end) override { changes = end; }
    void At(std::int64_t position) override { at.push_back(position); }
    void Finish() override { ++finished; }
    bool StopAsked() override { return at.size() == 4; }

    std::int64_t changes = 0;
    std::vector<std::int64_t> at;
    int finished = 0;
  };
  const Fullflash before{tarvelo::Bytes(old.Image())}, after{tarvelo::Bytes(now.Image())};
  const CodeUnits oldUnits = GetCodeUnits(before, old.Functions());
  const CodeUnits newUnits = GetCodeUnits(after, now.Functions());
  NoProgress none;
  const CodePairing pairing(oldUnits, before.PhoneAddress(0), newUnits, after.PhoneAddress(0), none);
  const std::vector<PatchChange> changes{ChangeOf(old.At("first"), {0xCC, 0}),
                                         ChangeOf(old.At("tail") + 4, {1}),
                                         ChangeOf(old.At("tail") + 5, {2})};
  Stopper stopper;
  Interruptible progress(stopper);
  EXPECT_THROW((void)PortChanges(changes, before, after, pairing, progress), Stopped);
  EXPECT_EQ(stopper.at, (std::vector<std::int64_t>{0, 1, 1, 2}));
  EXPECT_EQ(stopper.changes, 3);
  EXPECT_EQ(stopper.finished, 1);
}

}  // namespace
}  // namespace tarvelo
