#include "files/file_search.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "files/file_lines.h"

namespace tarvelo {
namespace {

// --- whole volumes ---

// The map and the records of "again.mid" are those of a phone. The root is added.
TEST(FindFiles, ReadsARewrittenFile) {
  ImageBuilder image(0xE00000);
  image.Data(0x4269B4, "20000000 0100F428 8901"_hex);
  for (std::uint16_t i = 0; i < 32; ++i) {
    image.Data(0x426834 + 6u * i, Data{0, 0, static_cast<std::uint8_t>(0xD0 + i), 0, 0x40, 0});
    image.Word(image.Word(image.Word(0x4268F4 + 6u * i, 1), static_cast<std::uint16_t>(0x2834 + 6 * i)),
               0x0189);
  }
  const Data header{0xFE, 0xFE, 'F', 'F', 'S', 0, 0, 0, 1, 0, 2, 0, 3, 0, 0xFE, 0xFE};
  for (const std::size_t unit : {0xB00000, 0xB60000, 0xB70000, 0xB80000, 0xB90000}) {
    image.Data(unit + 0x80, header);
    if (unit != 0xB00000) image.Fill(unit + 0xFFE8, 24, 0);  // two slots of no known state
  }
  image.Data(0xB9FFDC, "FC001A00 C600D900 BC1700FC"_hex);
  image.Text(image.Data(0xB900C6, "4C000600 558F782F 4D000000 FFFFFFFF"_hex), "again.mid");
  image.Data(0xB8FFDC, "FC004D01 2401D800 BD1700FC"_hex);
  image.Data(0xB7FFDC, "F0001A00 BC00D700 BC1700F0"_hex);
  image.Text(image.Data(0xB700BC, "4C000600 0180782F 4D000000 0000FFFF"_hex), "again.mid");
  image.Data(0xB6FFDC, "F000BC01 B201D600 BD1700F0"_hex);
  // Record 6006 at B00090: the root; record 6007 behind it: its only item is 76.
  image.Data(0xB0FFF4, "FC001000 9000D000 761700FC"_hex);
  image.Data(0xB0FFE8, "FC000400 A000D000 771700FC"_hex);
  image.Data(0xB00090, "06000000 00000000 07001000 0000FFFF 4C00ABCD"_hex);

  const Fullflash flash = ImageOf(std::move(image));
  const FileList list = FindFiles(flash, noProgress);
  const TableRows rows = FileRows(list, flash, Messages(), 0x10000, false);
  const std::vector<Lines> expected = {
      {"6", "FFS/", "", "", "D", "1", "B000A0", ""},
      {"76", "FFS/again.mid", "333", "2003-11-24 17:58:42", "", "1", "B80124", ""},
      {"76", "FFS/again.mid", "444", "2003-11-24 16:00:02", "", "1", "B601B2", "-"},
  };
  ASSERT_EQ(rows.count, expected.size());
  EXPECT_EQ(rows.captions, (Lines{"N", "Name", "Size", "Date", "A", "Pieces", "Offset", "-"}));
  for (std::size_t i = 0; i < expected.size(); ++i) EXPECT_EQ(rows.row(i).cells, expected[i]);
}

struct Shape {
  bool isWide;
  std::size_t unitSize;
  std::uint16_t sizeCode;  // 0: no map
};

// Files of 0 to 4 pieces whose records lie in any order and unit.
class FindFilesInEachShape : public testing::TestWithParam<Shape> {};

INSTANTIATE_TEST_SUITE_P(Shapes, FindFilesInEachShape,
                         testing::Values(Shape{false, 0x10000, 0x40}, Shape{false, 0x10000, 0},
                                         Shape{true, 0x20000, 0x80}, Shape{true, 0x20000, 0},
                                         Shape{false, 0x20000, 0x40},  // groups of two
                                         Shape{true, 0x40000, 0x80}, Shape{true, 0x40000, 0}));

TEST_P(FindFilesInEachShape, PutsPiecesTogether) {
  const auto [isWide, unitSize, sizeCode] = GetParam();
  ImageBuilder image(volumeSize);
  VolumeBuilder volume(image, "FFS_B", isWide);
  for (std::size_t i = 0; i < 3; ++i) volume.Unit(firstUnit + i * unitSize, unitSize);
  std::mt19937 random(static_cast<unsigned>(unitSize + sizeCode));

  struct Record {
    int number;
    Data bytes;
  };
  std::vector<Record> records;
  std::vector<std::string> contents;
  Data items;
  for (int file = 0; file < 40; ++file) {
    const int number = 100 + 10 * file, pieces = file % 5;
    const std::string name = "file " + std::to_string(file);
    std::string& content = contents.emplace_back();
    AppendWord(items, static_cast<std::size_t>(number));
    AppendWord(items, random());
    for (int piece = 0; piece < std::max(pieces, 1); ++piece) {
      const int entry = number + 2 * piece;
      const int next = piece + 1 < pieces ? entry + 2 : 0xFFFF;
      records.push_back(
          {entry + 6000,
           volume.Header({.number = entry, .name = piece == 0 ? std::string_view(name) : "", .next = next})});
      if (pieces == 0) continue;
      Data bytes(random() % 300);
      std::ranges::generate(bytes, [&] { return static_cast<std::uint8_t>(random()); });
      content.append(bytes.begin(), bytes.end());
      records.push_back({entry + 6001, bytes});
    }
  }
  // The folder's items are cut in the middle of one.
  records.push_back({6006, volume.Header({.number = 6, .name = "x", .attributes = 0x10, .next = 8})});
  records.push_back({6007, Data(items.begin(), items.begin() + 50)});
  records.push_back({6008, volume.Header({.number = 8})});
  records.push_back({6009, Data(items.begin() + 50, items.end())});
  std::ranges::shuffle(records, random);
  for (const Record& record : records) volume.Record(random() % 3, record.number, record.bytes);
  if (sizeCode != 0) volume.Map(mapAt, sizeCode);

  const Fullflash flash = ImageOf(std::move(image));
  const FileList list = FindFiles(flash, noProgress);
  ASSERT_EQ(list.entries.size(), contents.size() + 1);
  for (std::size_t i = 0; i < contents.size(); ++i) {
    const FileEntry& entry = list.entries[i + 1];
    EXPECT_EQ(PathOf(flash, list, entry), "FFS_B/file " + std::to_string(i));
    const auto content = ContentOf(flash, list, entry);
    EXPECT_EQ(std::string(content.begin(), content.end()), contents[i]);
    EXPECT_EQ(entry.pieceCount, i % 5);
    EXPECT_EQ(entry.damage, 0);
  }
}

// --- names, times, attributes ---

TEST(FindFiles, DecodesNamesAndTimes) {
  const struct {
    std::string_view name;
    std::uint32_t time;
    int attributes;
    const char *shownName, *shownTime, *shownAttributes;
  } cases[] = {
      {"plain.txt", 0x2F788F55, 0x01, "plain.txt", "2003-11-24 17:58:42", "R"},
      {"\x1F\xC3\xA4", 0x2F788F55, 0x06, "\u00E4", "2003-11-24 17:58:42", "HS"},  // UTF-8
      {"\x1F", 0x2F788F55, 0x27, "\x1F", "2003-11-24 17:58:42", "RHS"},           // the mark alone is a name
      {"\xC4\xE0", 0x00000000, 0, "\u0414\u0430", "", ""},                        // Windows-1251; no time
      {"a", 0x00210000, 0, "a", "1980-01-01 00:00:00", ""},                       // the first day
      {"b", 0x00010000, 0, "b", "", ""},                                          // month 0
      {"c", 0x01A10000, 0, "c", "", ""},                                          // month 13
      {"d", 0x485D0000, 0, "d", "2016-02-29 00:00:00", ""},
      {"e", 0x465D0000, 0, "e", "", ""},  // 29 February 2015
      {"e", 0x285D0000, 0, "e", "2000-02-29 00:00:00", ""},
      {"e", 0xF05D0000, 0, "e", "", ""},  // 29 February 2100
      {"f", 0xEF9FBF7D, 0, "f", "2099-12-31 23:59:58", ""},
      {"g", 0x0021C000, 0, "g", "", ""},  // hour 24
      {"h", 0x00210780, 0, "h", "", ""},  // minute 60
      {"i", 0x0021001E, 0, "i", "", ""},  // second 60
  };
  for (const bool isWide : {false, true})
    for (const auto& [name, time, attributes, shownName, shownTime, shownAttributes] : cases) {
      ImageBuilder image(volumeSize);
      VolumeBuilder volume(image, "FFS", isWide);
      volume.Unit(firstUnit);
      volume.Folder(0, {.number = 6}, {10});
      volume.File(0, {.number = 10, .name = name, .attributes = attributes, .time = time}, "x");
      const Fullflash flash = ImageOf(std::move(image));
      const FileList list = FindFiles(flash, noProgress);
      const Lines cells = FileRows(list, flash, Messages(), 0x10000, false).row(1).cells;
      EXPECT_EQ(cells[1], std::string("FFS/") + shownName);
      EXPECT_EQ(cells[3], shownTime);
      EXPECT_EQ(cells[4], shownAttributes);
    }
}

TEST(FindFiles, FindsNothingInSmallImages) {
  for (const std::size_t size : {2, 10, 0x8E, 0x90, 0x1090}) {
    ImageBuilder image(size);
    EXPECT_EQ(Listed(ImageOf(std::move(image))), Lines{}) << size;
  }
}

}  // namespace
}  // namespace tarvelo
