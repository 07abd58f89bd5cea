#include "files/file_search.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "files/file_content.h"
#include "files/file_table.h"
#include "files/file_text.h"
#include "files/volume_builder.h"

namespace tarvelo {
namespace {

constexpr std::size_t imageSize = 0x400000;
constexpr std::size_t mapAt = 0x12346;
constexpr std::size_t firstUnit = 0x100000;

using Lines = std::vector<std::string>;

// A line for each entry: number, path, size, pieces, mark; for folders without the size.
Lines Listed(const Fullflash& image) {
  const FileList list = FindFiles(image, noProgress);
  const TableRows rows = FileRows(list, image, Messages(), 0x10000, false);
  Lines lines;
  for (std::size_t i = 0; i < rows.count; ++i) {
    const std::vector<std::string> cells = rows.row(i).cells;
    std::string line = cells[0];
    for (const std::size_t column : {1, 2, 5, 7})
      if (!cells[column].empty()) line += " " + cells[column];
    lines.push_back(line);
  }
  return lines;
}

std::string ContentAt(const Fullflash& image, const std::string& path) {
  const FileList list = FindFiles(image, noProgress);
  for (const FileEntry& entry : list.entries)
    if (PathOf(image, list, entry) == path) {
      const auto bytes = ContentOf(image, list, entry);
      return {bytes.begin(), bytes.end()};
    }
  return "no such file";
}

// --- whole volumes ---

// The map and the records of "again.mid" are those of a phone. The root is added.
TEST(FindFiles, ReadsARewrittenFile) {
  ImageBuilder image(0xE00000);
  image.Data(0x4269B4, Data{0x20, 0, 0, 0, 0x01, 0, 0xF4, 0x28, 0x89, 0x01});
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
  image.Data(0xB9FFDC, Data{0xFC, 0, 0x1A, 0, 0xC6, 0, 0xD9, 0, 0xBC, 0x17, 0, 0xFC});
  image.Text(image.Data(0xB900C6,
                        Data{0x4C, 0, 6, 0, 0x55, 0x8F, 0x78, 0x2F, 0x4D, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0xFF}),
             "again.mid");
  image.Data(0xB8FFDC, Data{0xFC, 0, 0x4D, 0x01, 0x24, 0x01, 0xD8, 0, 0xBD, 0x17, 0, 0xFC});
  image.Data(0xB7FFDC, Data{0xF0, 0, 0x1A, 0, 0xBC, 0, 0xD7, 0, 0xBC, 0x17, 0, 0xF0});
  image.Text(
      image.Data(0xB700BC, Data{0x4C, 0, 6, 0, 0x01, 0x80, 0x78, 0x2F, 0x4D, 0, 0, 0, 0, 0, 0xFF, 0xFF}),
      "again.mid");
  image.Data(0xB6FFDC, Data{0xF0, 0, 0xBC, 0x01, 0xB2, 0x01, 0xD6, 0, 0xBD, 0x17, 0, 0xF0});
  // Record 6006 at B00090: the root; record 6007 behind it: its only item is 76.
  image.Data(0xB0FFF4, Data{0xFC, 0, 0x10, 0, 0x90, 0, 0xD0, 0, 0x76, 0x17, 0, 0xFC});
  image.Data(0xB0FFE8, Data{0xFC, 0, 0x04, 0, 0xA0, 0, 0xD0, 0, 0x77, 0x17, 0, 0xFC});
  image.Data(0xB00090, Data{6, 0, 0, 0, 0, 0, 0, 0, 7, 0, 0x10, 0, 0, 0, 0xFF, 0xFF, 76, 0, 0xAB, 0xCD});

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
  ImageBuilder image(imageSize);
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
      {"f", 0xEF9FBF7D, 0, "f", "2099-12-31 23:59:58", ""},
      {"g", 0x0021C000, 0, "g", "", ""},  // hour 24
      {"h", 0x00210780, 0, "h", "", ""},  // minute 60
      {"i", 0x0021001E, 0, "i", "", ""},  // second 60
  };
  for (const bool isWide : {false, true})
    for (const auto& [name, time, attributes, shownName, shownTime, shownAttributes] : cases) {
      ImageBuilder image(imageSize);
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

// --- damage ---

// Root 6: folder 20 with file 22 of pieces 22, 24, 26; file 30.
struct Volume {
  explicit Volume() : image(imageSize), files(image, "FFS") {
    for (const std::size_t unit : {firstUnit, firstUnit + 0x10000}) files.Unit(unit);
    files.Folder(0, {.number = 6}, {20, 30});
    files.Folder(0, {.number = 20, .name = "Pics"}, {22});
    files.File(1, {.number = 22, .parent = 20, .name = "a.bmp", .next = 24}, "12345");
    files.File(0, {.number = 24, .next = 26}, "678");
    files.File(1, {.number = 26}, "90");
    files.File(1, {.number = 30, .name = "b.txt"}, "text");
  }

  // The offset of the live slot of a record.
  [[nodiscard]] std::size_t SlotOf(int number) const {
    for (std::size_t unit = firstUnit; unit < firstUnit + 0x20000; unit += 0x10000)
      for (std::size_t slot = unit + 0x10000 - 12; image[slot] != 0xFF; slot -= 12)
        if (image[slot] == 0xFC && image[slot + 8] + 256 * image[slot + 9] == number) return slot;
    throw std::out_of_range("no such record");
  }
  // The offset of a record's bytes.
  [[nodiscard]] std::size_t BytesOf(int number) const {
    const std::size_t slot = SlotOf(number);
    return image[slot + 4] + 0x100u * image[slot + 5] + 0x10000u * image[slot + 6] - 0xC00000;
  }
  void Remove(int number) { image.Byte(SlotOf(number), 0xE0); }

  ImageBuilder image;
  VolumeBuilder files;
};

const Lines whole = {"6 FFS/ 1", "20 FFS/Pics/ 1", "22 FFS/Pics/a.bmp 10 3", "30 FFS/b.txt 4 1"};

struct Damage {
  const char* name;
  void (*make)(Volume& v);
  Lines expected;
};

const Damage damages[] = {
    {"none", [](Volume&) {}, whole},
    {"a map of the units", [](Volume& v) { v.files.Map(mapAt); }, whole},
    {"two maps of the same units",
     [](Volume& v) {
       v.files.Map(mapAt);
       v.files.Map(mapAt + 0x1000);
     },
     whole},
    {"two pointers to one group table",
     [](Volume& v) {
       v.files.Map(mapAt);
       for (std::size_t i = 0; i < 10; ++i) v.image.Byte(0x9000 + i, v.image[mapAt + i]);
     },
     whole},
    {"a unit in the map that was never formatted",
     [](Volume& v) {
       v.files.Unit(0x300000);
       v.image.Fill(0x300080, 16, 0xFF);
       v.files.Map(mapAt);
     },
     whole},
    {"a map that leads outside the image",
     [](Volume& v) {
       v.files.Map(mapAt);
       v.image.DWord(mapAt + 10 + 12, 0x12345678);
     },
     whole},
    {"a group that states too many units",
     [](Volume& v) {
       v.files.Map(mapAt);
       v.image.Word(mapAt + 10, 0xFFFF);
     },
     whole},
    {"marks of a unit's header, with a map",
     [](Volume& v) {
       v.files.Map(mapAt);
       v.image.Word(firstUnit + 0x8E, 0);
     },
     whole},
    {"two live records that agree",
     [](Volume& v) {
       const std::size_t slot = v.SlotOf(6031);
       v.files.Slot(0, 6031, 0xC00000 + static_cast<std::uint32_t>(v.BytesOf(6031)), v.image[slot + 2]);
     },
     whole},
    {"two live records of data",
     [](Volume& v) { v.files.Record(1, 6031, AsBytes("older text")); },
     {whole[0], whole[1], whole[2], "30 FFS/b.txt 4 1 !", "30 FFS/b.txt 10 1 -"}},
    {"two live headers",
     [](Volume& v) { v.files.Entry(1, {.number = 30, .name = "other"}); },
     {whole[0], whole[1], whole[2], "30 FFS/b.txt 4 1 !", "30 FFS/other 4 1 -"}},
    {"two entries of one number",
     [](Volume& v) { v.files.Record(1, 7000, v.files.Header({.number = 30, .name = "twin", .data = 23})); },
     {whole[0], whole[1], whole[2], whole[3], "30 FFS/twin 5 1 !"}},
    {"a record of 0 bytes",
     [](Volume& v) { v.image.Word(v.SlotOf(6031) + 2, 0); },
     {whole[0], whole[1], whole[2], "30 FFS/b.txt 0 1"}},
    {"bytes outside the image",
     [](Volume& v) { v.image.DWord(v.SlotOf(6031) + 4, 0x00100000); },
     {whole[0], whole[1], whole[2], "30 FFS/b.txt 0 0 !"}},
    {"bytes across the image's end",
     [](Volume& v) { v.image.DWord(v.SlotOf(6031) + 4, 0x00FFFFFE); },
     {whole[0], whole[1], whole[2], "30 FFS/b.txt 2 1 !"}},
    {"a header outside the image",
     [](Volume& v) { v.image.DWord(v.SlotOf(6030) + 4, 0x00100000); },
     {"6 FFS/ 1 !", whole[1], whole[2]}},
    {"no root",
     [](Volume& v) { v.Remove(6006); },
     {"20 FFS/Pics/ 1", "22 FFS/Pics/a.bmp 10 3", "30 FFS/b.txt 4 1"}},
    {"no items of the root",
     [](Volume& v) { v.Remove(6007); },
     {"6 FFS/ 0", "20 FFS/Pics/ 1 !", whole[2], "30 FFS/b.txt 4 1 !"}},
    {"no folder", [](Volume& v) { v.Remove(6020); }, {"6 FFS/ 1 !", whole[3], "22 FFS/a.bmp 10 3 !"}},
    {"no items of a folder",
     [](Volume& v) { v.Remove(6021); },
     {"6 FFS/ 1", "20 FFS/Pics/ 0", "22 FFS/Pics/a.bmp 10 3 !", whole[3]}},
    {"no first data record",
     [](Volume& v) { v.Remove(6031); },
     {whole[0], whole[1], whole[2], "30 FFS/b.txt 0 0"}},
    {"no header of a later piece; its last piece belongs to nothing",
     [](Volume& v) { v.Remove(6024); },
     {whole[0], whole[1], "22 FFS/Pics/a.bmp 5 1 !", whole[3], "26 FFS/#26 2 1 !"}},
    {"no data of a later piece",
     [](Volume& v) { v.Remove(6025); },
     {whole[0], whole[1], "22 FFS/Pics/a.bmp 5 1 !", whole[3], "26 FFS/#26 2 1 !"}},
    {"a byte left over in a folder", [](Volume& v) { v.image.Word(v.SlotOf(6007) + 2, 9); }, whole},
    {"half an item at the end of a folder", [](Volume& v) { v.image.Word(v.SlotOf(6007) + 2, 6); }, whole},
    {"cleared and unused items",
     [](Volume& v) {
       v.image.Word(v.BytesOf(6007), 0);
       v.image.Word(v.BytesOf(6021), 0xFFFF);
     },
     {"6 FFS/ 1", whole[3], "20 FFS/Pics/ 1 !", "22 FFS/Pics/a.bmp 10 3 !"}},
    {"a folder inside itself",
     [](Volume& v) { v.image.Word(v.BytesOf(6021), 20); },
     {whole[0], "20 FFS/Pics/ 1 !", "22 FFS/Pics/a.bmp 10 3 !", whole[3]}},
    {"folders that hold each other, out of the root's reach",
     [](Volume& v) {
       v.files.Folder(1, {.number = 40, .parent = 42, .name = "A"}, {42});
       v.files.Folder(1, {.number = 42, .parent = 40, .name = "B"}, {40, 44});
       v.files.File(1, {.number = 44, .parent = 42, .name = "in ring"}, "1");
     },
     {whole[0], whole[1], whole[2], whole[3], "40 FFS/A/ 1 !", "42 FFS/A/B/ 1 !", "44 FFS/A/B/in ring 1 1"}},
    {"pieces in a ring",
     [](Volume& v) { v.image.Word(v.BytesOf(6026) + 14, 24); },
     {whole[0], whole[1], "22 FFS/Pics/a.bmp 10 3 !", whole[3]}},
    {"a file that is its own next piece",
     [](Volume& v) { v.image.Word(v.BytesOf(6030) + 14, 30); },
     {whole[0], whole[1], whole[2], "30 FFS/b.txt 4 1 !"}},
    {"an entry that no folder lists",
     [](Volume& v) { v.files.File(0, {.number = 50, .parent = 20, .name = "lost"}, "1"); },
     {whole[0], whole[1], whole[2], "50 FFS/Pics/lost 1 1 !", whole[3]}},
    {"folders that state far more bytes than they have, before the root",
     [](Volume& v) {
       for (const int number : {40, 42, 44}) {
         v.files.Entry(0, {.number = number, .name = "huge", .attributes = 0x10});
         v.files.Slot(0, number + 6001, 0xE00000, 0xFFFF);
       }
       v.Remove(6006);
       v.files.Entry(1, {.number = 6, .attributes = 0x10});
     },
     {whole[0], whole[1], whole[2], whole[3], "40 FFS/huge/ 1 !", "42 FFS/huge/ 1 !", "44 FFS/huge/ 1 !"}},
    {"a header in another record than its own",
     [](Volume& v) {
       v.files.Record(0, 8000, v.files.Header({.number = 52, .parent = 20, .name = "moved", .data = 31}));
       v.image.Word(v.BytesOf(6021), 52);
     },
     {whole[0], whole[1], "52 FFS/Pics/moved 4 1", "22 FFS/Pics/a.bmp 10 3 !", whole[3]}},
    {"a header of too few bytes",
     [](Volume& v) { v.image.Word(v.SlotOf(6030) + 2, 15); },
     {"6 FFS/ 1 !", whole[1], whole[2]}},
    {"a state in a slot's second place", [](Volume& v) { v.image.Byte(v.SlotOf(6031) + 11, 0xF0); }, whole},
    {"a slot that was not written hides those behind it",
     [](Volume& v) { v.image.Word(v.SlotOf(6026), 0xFFFF); },
     {whole[0].substr(0, 8) + " !", whole[1], "22 FFS/Pics/a.bmp 8 2 !"}},
};

TEST(FindFiles, HidesNothingWholeBecauseOfDamage) {
  for (const Damage& damage : damages) {
    Volume volume;
    damage.make(volume);
    EXPECT_EQ(Listed(ImageOf(std::move(volume.image))), damage.expected) << damage.name;
  }
}

TEST(FindFiles, KeepsWhatPrecedesDamage) {
  Volume volume;
  volume.Remove(6027);
  const Fullflash image = ImageOf(std::move(volume.image));
  EXPECT_EQ(ContentAt(image, "FFS/Pics/a.bmp"), "12345678");
}

// A unit is found by its header alone, as long as its directory tells; the dump ends inside the second one.
TEST(FindFiles, ReadsAUnitThatTheImageCutsOff) {
  ImageBuilder image(0x100000);
  VolumeBuilder files(image, "FFS");
  files.Unit(0x10000, 0x20000);
  files.Folder(0, {.number = 6}, {10});
  files.File(0, {.number = 10, .name = "a"}, "1");
  image.Word(0xFF080, 0xFEFE);
  image.Text(0xFF082, "FFS");
  image.Word(0xFF08E, 0xFEFE);
  EXPECT_EQ(Listed(ImageOf(std::move(image))), (Lines{"6 FFS/ 1", "10 FFS/a 1 1"}));
}

TEST(FindFiles, FindsNothingInSmallImages) {
  for (const std::size_t size : {2, 10, 0x8E, 0x90, 0x1090}) {
    ImageBuilder image(size);
    EXPECT_EQ(Listed(ImageOf(std::move(image))), Lines{}) << size;
  }
}

// --- deleted entries ---

struct Deletion {
  const char* name;
  void (*make)(VolumeBuilder& files);
  Lines expected;  // behind the root
};

constexpr std::uint8_t gone = VolumeBuilder::deleted;

const Deletion deletions[] = {
    {"a deleted file",
     [](VolumeBuilder& f) { f.File(0, {.number = 10, .name = "a"}, "123", gone); },
     {"10 FFS/a 3 1 -"}},
    {"two generations, each in its own unit",
     [](VolumeBuilder& f) {
       f.File(0, {.number = 10, .name = "a"}, "1", gone);
       f.File(1, {.number = 10, .name = "b"}, "12", gone);
     },
     {"10 FFS/a 1 1 -", "10 FFS/b 2 1 -"}},
    {"headers and data in different orders: pairs in order",
     [](VolumeBuilder& f) {
       f.Record(0, 6011, AsBytes("1"), gone);
       f.Record(0, 6011, AsBytes("12"), gone);
       f.Entry(1, {.number = 10, .name = "a"}, gone);
       f.Entry(1, {.number = 10, .name = "b"}, gone);
     },
     {"10 FFS/a 1 1 -", "10 FFS/b 2 1 -"}},
    {"a lost data record: the other one belongs to the header next to it",
     [](VolumeBuilder& f) {
       f.Entry(0, {.number = 10, .name = "a"}, gone);
       f.File(1, {.number = 10, .name = "b"}, "12", gone);
     },
     {"10 FFS/a 0 0 -", "10 FFS/b 2 1 -"}},
    {"a renamed file",
     [](VolumeBuilder& f) {
       f.Entry(0, {.number = 20, .name = "old name"}, gone);
       f.File(0, {.number = 20, .name = "new"}, "1234");
     },
     {"20 FFS/new 4 1", "20 FFS/old name 4 1 -"}},
    {"new data under the same header",
     [](VolumeBuilder& f) {
       f.Record(0, 6021, AsBytes("12"), gone);
       f.File(0, {.number = 20, .name = "new"}, "1234");
     },
     {"20 FFS/new 4 1", "20 FFS/new 2 1 -"}},
    {"a deleted file of pieces",
     [](VolumeBuilder& f) {
       f.File(0, {.number = 10, .name = "a", .next = 12}, "123", gone);
       f.File(1, {.number = 12}, "45", gone);
     },
     {"10 FFS/a 5 2 -"}},
    {"a deleted file with a lost piece",
     [](VolumeBuilder& f) { f.File(0, {.number = 10, .name = "a", .next = 12}, "123", gone); },
     {"10 FFS/a 3 1 -"}},
    {"a file in a deleted folder",
     [](VolumeBuilder& f) {
       f.File(0, {.number = 10, .parent = 12, .name = "a"}, "1", gone);
       f.Entry(0, {.number = 12, .parent = 14, .name = "F", .attributes = 0x10}, gone);
       f.Entry(0, {.number = 14, .parent = 6, .name = "G", .attributes = 0x10}, gone);
     },
     {"14 FFS/G/ 0 -", "12 FFS/G/F/ 0 -", "10 FFS/G/F/a 1 1 -"}},
    {"deleted folders in a ring",
     [](VolumeBuilder& f) {
       f.Entry(0, {.number = 12, .parent = 14, .name = "F", .attributes = 0x10}, gone);
       f.Entry(0, {.number = 14, .parent = 12, .name = "G", .attributes = 0x10}, gone);
     },
     {"12 FFS/F/ 0 -", "14 FFS/F/G/ 0 -"}},
    {"bytes that are a header no more",
     [](VolumeBuilder& f) { f.Record(0, 6010, AsBytes("something else by now"), gone); },
     {}},
};

TEST(FindFiles, FindsDeletedFilesAndOlderGenerations) {
  for (const Deletion& deletion : deletions) {
    ImageBuilder image(imageSize);
    VolumeBuilder files(image, "FFS");
    files.Unit(firstUnit);
    files.Unit(firstUnit + 0x10000);
    files.Folder(0, {.number = 6}, {20});
    deletion.make(files);
    Lines listed = Listed(ImageOf(std::move(image)));
    listed.erase(listed.begin());
    EXPECT_EQ(listed, deletion.expected) << deletion.name;
  }
}

// --- replacing ---

TEST(ReplaceContent, FillsThePiecesInOrder) {
  Volume volume;
  Fullflash image = ImageOf(std::move(volume.image));
  const FileList list = FindFiles(image, noProgress);
  const FileEntry& file = list.entries[2];
  EXPECT_EQ(ReplaceContent(image, list, file, AsBytes("12345678901")).refusal, FileRefusal::TooLong);
  EXPECT_EQ(ReplaceContent(image, list, list.entries[1], {}).refusal, FileRefusal::Folder);
  for (const std::string_view content : {"abcdefghij", "ABCDEF", "k", ""}) {
    ImageEdits edits;
    const FileReplacement replacement = ReplaceContent(image, list, file, AsBytes(content));
    ASSERT_EQ(replacement.refusal, FileRefusal::None);
    edits.Write(image, replacement.changes);
    EXPECT_EQ(ContentAt(image, "FFS/Pics/a.bmp"), content);
    EXPECT_EQ(ContentAt(image, "FFS/b.txt"), "text");
    edits.Undo(image);
    EXPECT_EQ(ContentAt(image, "FFS/Pics/a.bmp"), "1234567890");
  }
}

TEST(ReplaceContent, RefusesWhatIsNotTheFilesAlone) {
  Volume volume;
  // Record 6061 begins in the middle of the bytes of "b.txt".
  volume.files.Entry(0, {.number = 60, .name = "shares"});
  volume.files.Slot(0, 6061, 0xC00000 + static_cast<std::uint32_t>(volume.BytesOf(6031)) + 2, 1);
  volume.files.File(0, {.number = 62, .name = "gone"}, "1", gone);
  volume.Remove(6027);
  const Fullflash image = ImageOf(std::move(volume.image));
  const FileList list = FindFiles(image, noProgress);
  const struct {
    const char* path;
    FileRefusal refusal;
  } cases[] = {{"FFS/b.txt", FileRefusal::Shared},
               {"FFS/shares", FileRefusal::Shared},
               {"FFS/Pics/a.bmp", FileRefusal::Damaged},
               {"FFS/gone", FileRefusal::Deleted}};
  for (const auto& [path, refusal] : cases) {
    const auto entry = std::ranges::find_if(
        list.entries, [&](const FileEntry& e) { return PathOf(image, list, e) == path; });
    ASSERT_NE(entry, list.entries.end()) << path;
    EXPECT_EQ(ReplaceContent(image, list, *entry, AsBytes("x")).refusal, refusal) << path;
  }
}

TEST(FolderContents, GivesTheMembersOfEachFolder) {
  Volume volume;
  const Fullflash image = ImageOf(std::move(volume.image));
  const FileList list = FindFiles(image, noProgress);
  const FolderContents contents(list);
  using Indices = std::vector<std::uint32_t>;
  const auto in = [&](std::uint32_t folder) {
    const auto members = contents.In(folder);
    return Indices(members.begin(), members.end());
  };
  EXPECT_EQ(in(noIndex), Indices{0});
  EXPECT_EQ(in(0), (Indices{1, 3}));
  EXPECT_EQ(in(1), Indices{2});
  EXPECT_EQ(in(2), Indices{});
}

}  // namespace
}  // namespace tarvelo
