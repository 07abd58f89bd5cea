// Rules that every explorer must follow, whatever it finds.
#include "document/explorers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "crafted_images.h"
#include "document/joint_search.h"
#include "document/map_kinds.h"
#include "eeprom/block_store.h"
#include "on_each_unit.h"

namespace tarvelo {
namespace {

std::vector<Claim> ClaimsOf(const Explorer& explorer, const Dump& dump, const Findings& found) {
  std::vector<Claim> claims;
  if (explorer.claim) explorer.claim(dump, found, [&](const Claim& claim) { claims.push_back(claim); });
  return claims;
}

// Only the first rows of very long lists, to keep the tests fast.
TableRows Beginning(TableRows rows) {
  constexpr std::size_t most = 10000;
  rows.count = std::min(rows.count, most);
  return rows;
}

TEST(Explorers, HaveNamesAndPlacesOfTheirOwn) {
  std::set<std::string_view> keys;
  std::set<char> letters;
  std::set<int> places, panels;
  for (const Explorer* explorer : Explorers()) {
    SCOPED_TRACE(explorer->key);
    EXPECT_EQ(FindExplorer(explorer->key), explorer);
    EXPECT_TRUE(keys.insert(explorer->key).second);
    EXPECT_TRUE(letters.insert(explorer->letter).second);
    EXPECT_TRUE(explorer->place == 0 || places.insert(explorer->place).second);
    const int panel = explorer->statusPanel;
    EXPECT_EQ(explorer->status != nullptr, panel != 0);
    EXPECT_TRUE(panel == 0 || (panel >= 3 && panel <= 8 && panels.insert(panel).second)) << panel;
  }
  EXPECT_EQ(FindExplorer("nothing"), nullptr);
}

// If two kinds had the same rank, neither would win.
TEST(Explorers, HaveKindsOfTheirOwn) {
  std::vector<const ClaimKind*> kinds{&map::firmwareHeader, &map::t9,   &map::t9Free,
                                      &map::emptyBlock,     &map::text, &map::erased,
                                      &map::filling,        &map::code, &map::unknown};
  for (const Explorer* explorer : Explorers())
    kinds.insert(kinds.end(), explorer->kinds.begin(), explorer->kinds.end());
  std::set<std::string_view> keys;
  std::set<int> ranks;
  for (const ClaimKind* kind : kinds) {
    EXPECT_TRUE(keys.insert(kind->key).second) << kind->key;
    EXPECT_TRUE(ranks.insert(kind->rank).second) << kind->key;
  }
}

void ExpectListed(const Explorer& explorer, const Dump& dump, const Findings& found, bool deleted) {
  const Listing list = ListOf(explorer, dump, found, deleted);
  std::vector<std::size_t> records;
  for (std::size_t record = 0; record < explorer.count(found); ++record)
    if (deleted || !explorer.item(found, record).isDeleted) records.push_back(record);
  ASSERT_EQ(list.rows.count, records.size());
  for (std::size_t row = 0; row < Beginning(list.rows).count; ++row) {
    ASSERT_EQ(list.RecordOf(row), records[row]);
    const Table::Row made = list.rows.row(row);
    ASSERT_EQ(made.cells.size(), list.rows.captions.size());
    ASSERT_EQ(made.marked, explorer.item(found, records[row]).isDeleted) << row;
  }
}

TEST(Explorers, ListEachRecordAndClaimBytesAsTheirOwnKindsOnly) {
  for (const CraftedImage& crafted : CraftedImages()) {
    const Dump dump = DumpOf(crafted.Build());
    for (const Explorer* explorer : Explorers()) {
      SCOPED_TRACE(std::string(explorer->key) + " in " + crafted.name);
      const Findings found = explorer->search(dump, noProgress);
      for (const bool deleted : {false, true}) ExpectListed(*explorer, dump, found, deleted);
      for (const Claim& claim : ClaimsOf(*explorer, dump, found)) {
        ASSERT_NE(std::ranges::find(explorer->kinds, claim.kind), explorer->kinds.end()) << claim.offset;
        ASSERT_NE(claim.sure, Sureness::Unknown) << claim.kind->key;
      }
    }
  }
}

// In the first image each explorer finds something of every kind that it claims.
TEST(Explorers, FindSomethingOfEachKind) {
  const Dump dump = DumpOf(CraftedImages()[0].Build());
  for (const Explorer* explorer : Explorers()) {
    SCOPED_TRACE(explorer->key);
    const Findings found = explorer->search(dump, noProgress);
    ASSERT_GT(explorer->count(found), 0u);
    EXPECT_NE(explorer->lines(found, Messages()), "");
    std::set<const ClaimKind*> claimed;
    for (const Claim& claim : ClaimsOf(*explorer, dump, found)) claimed.insert(claim.kind);
    EXPECT_EQ(claimed.size(), explorer->kinds.size());
    bool anyDeleted = false;
    for (std::size_t record = 0; record < explorer->count(found); ++record)
      anyDeleted |= explorer->item(found, record).isDeleted;
    EXPECT_EQ(anyDeleted, explorer->hasDeleted);
  }
}

// Lists may show the last digits alone; commands work with the whole offsets.
TEST(Explorers, KnowWholeOffsetsAbove16MiB) {
  ImageBuilder image(0x1200000);
  image.Fill(0x1100000, 0x10000, 0x90);
  PutBlock(image, 0x1170000, liveBlockState, 71, 0, 4);
  image.DWord(0x1170004, 0xF60000);
  PutPicture(image, PutPicture(image, 0x1100000, 0x34, 0x34, 0x88, 0x1101000), 8, 8, 8, 0x1102000);
  image.Fill(0x1100010, 8, 0);
  for (std::uint8_t i = 0; i < 6; ++i) PutRingtone(image, 0x1103000 + 8u * i, i, 2, 0x1104000 + 8u * i);
  const Dump dump = DumpOf(std::move(image));
  constexpr std::tuple<const char*, std::size_t, Offset, Offset> cases[] = {
      {"eeprom", 0, 0x1170000, 0x60F60000},
      {"pictures", 0, 0x1100000, 0x1101000},
      {"pictures", 1, 0x1100008, 0x1102000},
      {"ringtones", 5, 0x1103028, 0x1104028}};
  for (const auto& [key, record, entry, data] : cases) {
    const Explorer& explorer = *FindExplorer(key);
    const Findings found = explorer.search(dump, noProgress);
    ASSERT_GT(explorer.count(found), record) << key;
    const Item item = explorer.item(found, record);
    EXPECT_EQ(item.entry.offset, entry) << key;
    EXPECT_EQ(item.data.offset, data) << key;
  }
}

class ExplorersOnEachUnit : public OnEachUnit {};
INSTANTIATE_TEST_SUITE_P(Units, ExplorersOnEachUnit, eachUnit);

struct Explored {
  std::size_t count = 0;
  std::string list;
  std::vector<Claim> claims;

  [[nodiscard]] bool operator==(const Explored&) const = default;
};

Explored Explore(const Explorer& explorer, const Dump& dump, VectorUnit unit) {
  LimitVectorUnit(unit);
  const Findings found = explorer.search(dump, noProgress);
  Explored explored{explorer.count(found), {}, ClaimsOf(explorer, dump, found)};
  WriteTabSeparated(Beginning(ListOf(explorer, dump, found, true).rows), "\n",
                    [&](std::string_view piece) { explored.list += piece; });
  return explored;
}

TEST_P(ExplorersOnEachUnit, FindTheSameAloneAndTogether) {
  for (const CraftedImage& crafted : CraftedImages()) {
    Dump dump = DumpOf(crafted.Build());
    std::vector<Explored> plain;
    for (const Explorer* explorer : Explorers()) plain.push_back(Explore(*explorer, dump, VectorUnit::None));
    const auto expectSame = [&](const char* how) {
      for (std::size_t i = 0; i < plain.size(); ++i)
        EXPECT_TRUE(Explore(*Explorers()[i], dump, GetParam()) == plain[i])
            << Explorers()[i]->key << how << crafted.name;
    };
    expectSame(" alone in ");
    LimitVectorUnit(GetParam());
    const JointSearch joint(dump, Explorers(), noProgress);
    expectSame(" together in ");
  }
}

}  // namespace
}  // namespace tarvelo
