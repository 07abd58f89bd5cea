// What new bytes become in another version.
#include <gtest/gtest.h>

#include "port/linked_versions.h"

namespace tarvelo {
namespace {

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

class PortBytes : public LinkedVersions {};

INSTANTIATE_TEST_SUITE_P(InFront, PortBytes, oddAndEven);

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
