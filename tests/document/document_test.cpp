#include "document/document.h"

#include <gtest/gtest.h>

#include <functional>

#include "core/summary.h"
#include "document/explorers.h"
#include "document/map_table.h"
#include "eeprom/block_store.h"
#include "images.h"

namespace tarvelo {
namespace {

int searches = 0;

// Finds the first byte of the image; 0xEE counts as too many. Lists three records, the second one deleted.
const Explorer firstByte{
    .key = "first byte",
    .about = "",
    .letter = '1',
    .name = Text::MapText,
    .help = Text::MapText,
    .search =
        [](const Dump& dump, Progress&) {
          ++searches;
          if (dump.image.Byte(0) == 0xEE) throw std::length_error("too much");
          return Findings(int{dump.image.Byte(0)});
        },
    .count = [](const Findings&) -> std::size_t { return 3; },
    .item = [](const Findings&, std::size_t record) -> Item { return {.isDeleted = record % 2 == 1}; },
    .hasDeleted = true};

// 64 KiB of zeros.
class DocumentTest : public testing::Test {
 protected:
  DocumentTest() {
    ImageBuilder image(0x10000);
    image.Fill(0, image.Size(), 0);
    document.Open(ImageOf(std::move(image)), "some/Dump.bin");
    searches = 0;
  }

  int Find() { return document.Find(firstByte, noProgress).As<int>(); }
  void Write(Offset offset, Data bytes) { document.Write(offset, bytes); }
  [[nodiscard]] bool IsKnown() const { return document.Known(firstByte) != nullptr; }
  std::string FirstLabel() { return LabelOf(*document.Map(noProgress), 0); }

  Document document;
};

TEST_F(DocumentTest, KeepsTheFindingsUntilAChange) {
  EXPECT_FALSE(IsKnown());
  EXPECT_EQ(Find(), 0);
  EXPECT_EQ(&document.Find(firstByte, noProgress), document.Known(firstByte));
  EXPECT_EQ(Find(), 0);
  EXPECT_EQ(searches, 1);
  EXPECT_EQ(document.KnownCount(firstByte), 2u);
  const std::pair<std::function<void()>, int> changes[] = {
      {[&] { Write(0, {7}); }, 7},
      {[&] { document.Undo(); }, 0},
      {[&] { document.Redo(); }, 7},
      {[&] {
         document.Write(std::vector<Change>{{0, {7}, {9}}, {5, {0}, {1}}});
       },
       9}};
  for (const auto& [change, first] : changes) {
    change();
    EXPECT_FALSE(IsKnown());
    EXPECT_EQ(Find(), first);
  }
  document.Close();
  EXPECT_FALSE(IsKnown());
  EXPECT_FALSE(document.IsOpen());
  EXPECT_FALSE(document.Edits().CanUndo());
  EXPECT_EQ(document.FileName(), "SOME/DUMP.BIN");  // as dialogs suggest it
}

TEST_F(DocumentTest, NoChangeDropsNothing) {
  (void)Find();
  int told = 0;
  const Document::Watch watch = document.OnChange([&] { ++told; });
  EXPECT_EQ(document.Undo(), std::nullopt);
  EXPECT_EQ(document.Redo(), std::nullopt);
  EXPECT_THROW(Write(0xFFFF, {1, 2}), std::out_of_range);
  EXPECT_TRUE(IsKnown());
  EXPECT_EQ(told, 0);
}

TEST_F(DocumentTest, WatchersSeeTheChangedImage) {
  (void)Find();
  std::vector<int> seen;
  const Document::Watch watch = document.OnChange([&] { seen.push_back(Find()); });
  Write(0, {7});
  document.Undo();
  document.Redo();
  EXPECT_EQ(seen, (std::vector{7, 0, 7}));
}

TEST_F(DocumentTest, WatchesMayEndWhileTheyAreCalled) {
  std::string called;
  Document::Watch first, second, third, late;
  first = document.OnChange([&] {
    called += '1';
    first.reset();
    third.reset();
    late = document.OnChange([&] { called += 'L'; });
  });
  second = document.OnChange([&] { called += '2'; });
  third = document.OnChange([&] { called += '3'; });
  Write(0, {1});
  EXPECT_EQ(called, "12");
  Write(0, {2});
  EXPECT_EQ(called, "122L");
}

TEST_F(DocumentTest, TheMapFollowsEdits) {
  const auto map = document.Map(noProgress);
  EXPECT_EQ(map, document.Map(noProgress));
  EXPECT_EQ(FirstLabel(), "unknown");
  Write(0, Data(0x200, 0xFF));
  EXPECT_EQ(FirstLabel(), "erased");
  EXPECT_EQ(LabelOf(*map, 0), "unknown");  // a map that is still shown stays valid
  document.Undo();
  EXPECT_EQ(FirstLabel(), "unknown");
}

TEST_F(DocumentTest, AFaultOfASearchLeavesItUsable) {
  Write(0, {0xEE});
  EXPECT_THROW((void)Find(), std::length_error);
  EXPECT_FALSE(IsKnown());
  EXPECT_THROW((void)Find(), std::length_error);
  document.Undo();
  EXPECT_EQ(Find(), 0);
}

TEST_F(DocumentTest, AMapThatCannotBeMadeIsMadeAfterAnEdit) {
  ImageBuilder image(0x10000);
  for (std::size_t i = 0; i <= mostBlocks; ++i) PutBlock(image, 12 * i, liveBlockState, 1, 0x8000, 4);
  document.Open(ImageOf(std::move(image)), "dump.bin");
  EXPECT_THROW((void)document.Map(noProgress), std::length_error);
  Write(0, {0});
  EXPECT_EQ(LabelOf(*document.Map(noProgress), 12), "EEPROM 1 (header)");
}

TEST_F(DocumentTest, AnUnknownModelComesFromTheGreeting) {
  const Explorer& eeprom = *FindExplorer("eeprom");
  int calls = 0;
  const Document::Watch watch = document.OnModel([&] { ++calls; });
  for (const bool hasHeader : {false, true}) {
    ImageBuilder image(0x100000);
    image.Text(0x90000, "S55 hello");
    PutBlock(image, 0x1000, liveBlockState, 5076, 0x90000, 10);
    if (hasHeader) PutHeader(image, "C55");
    document.Open(ImageOf(std::move(image)), "dump.bin");
    const std::string before = document.Info().Model;
    EXPECT_EQ(before, hasHeader ? "C55" : "");
    (void)document.Find(eeprom, noProgress);
    EXPECT_EQ(calls, 1);  // for the greeting alone
    EXPECT_EQ(document.Info().Model, hasHeader ? "C55" : "S55");
    EXPECT_EQ(document.Info().StatusText(), hasHeader ? "C55 v24 FD-02" : "S55");
    EXPECT_NE(
        Summary("", document.Image(), document.Info(), Messages()).find("Mobile: " + document.Info().Model),
        std::string::npos);
  }
  document.Open(Erased(0x10000), "dump.bin");
  EXPECT_EQ(document.Info().Model, "");
}

}  // namespace
}  // namespace tarvelo
