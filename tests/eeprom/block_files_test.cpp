#include "eeprom/block_files.h"

#include <gtest/gtest.h>

#include "core/file.h"
#include "images.h"
#include "temporary_folder.h"

namespace tarvelo {
namespace {

// 64 KiB, offset 0 at 0xFF0000.
class BlockFiles : public testing::Test {
 protected:
  BlockFiles() {
    ImageBuilder builder(0x10000);
    PutBlock(builder, 0x100, deletedBlockState, 76, 0x1000, 4);
    PutBlock(builder, 0x200, liveBlockState, 76, 0x2000, 4);
    PutBlock(builder, 0x300, liveBlockState, 76, 0x3000, 5);    // the live one
    PutBlock(builder, 0x400, liveBlockState, 5001, 0xFFFE, 3);  // past the end of the image
    PutBlock(builder, 0x500, liveBlockState, 7, 0x4000, 0);
    builder.Fill(0x1000, 4, 'a');
    builder.Fill(0x3000, 5, 'c');
    image = ImageOf(std::move(builder));
    store = GetEE(image, "", noProgress);
  }

  Fullflash image;
  BlockStore store;
  TemporaryFolder folder;
};

TEST_F(BlockFiles, HoldTheLiveBlockOrEveryGeneration) {
  const auto live = SaveBlocks(image, store, false, folder / "live", "dump");
  EXPECT_EQ(live, std::vector{folder / "live" / "dump_0076.bin"});
  EXPECT_EQ(ReadAll(live[0]), "ccccc");
  const auto all = SaveBlocks(image, store, true, folder / "all", "dump");
  const std::filesystem::path to = folder / "all";
  EXPECT_EQ(all,
            (std::vector{to / "dump_0076_000100.bin", to / "dump_0076_000200.bin", to / "dump_0076.bin"}));
  EXPECT_EQ(ReadAll(all[0]), "aaaa");
  EXPECT_EQ(SaveBlock(image, store, store.records[3], to, "dump"), std::nullopt);  // cut off by the end
}

TEST_F(BlockFiles, AreLoadedIntoTheLiveBlocksPlace) {
  const auto change = LoadBlock(image, store, 76, folder.Write("new", std::string("12345")));
  EXPECT_EQ(change, (Change{0x3000, {'c', 'c', 'c', 'c', 'c'}, {'1', '2', '3', '4', '5'}}));
  for (const int number : {1, 7, 5001})
    EXPECT_EQ(LoadBlock(image, store, number, folder / "new"), std::nullopt) << number;
  EXPECT_THROW((void)LoadBlock(image, store, 76, folder / "missing"), FileError);
}

TEST_F(BlockFiles, OfAnotherSizeAreRefusedWithBothSizes) {
  for (const std::string text : {"", "1234", "123456"}) try {
      (void)LoadBlock(image, store, 76, folder.Write("new", text));
      ADD_FAILURE() << text;
    } catch (const WrongBlockSize& error) {
      EXPECT_EQ(error.fileSize, text.size());
      EXPECT_EQ(error.blockSize, 5);
    }
}

TEST_F(BlockFiles, NewFoldersStandBesideOlderOnes) {
  EXPECT_EQ(MakeNewFolder(folder.Path(), "backup"), folder / "backup");
  folder.Write("backup (2)", std::string("a file"));
  EXPECT_EQ(MakeNewFolder(folder.Path(), "backup"), folder / "backup (3)");
  EXPECT_EQ(ReadAll(folder / "backup (2)"), "a file");
  EXPECT_THROW(MakeNewFolder(folder / "missing", "backup"), FileError);
}

}  // namespace
}  // namespace tarvelo
