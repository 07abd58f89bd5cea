#include <gtest/gtest.h>

#include "files/file_lines.h"

namespace tarvelo {
namespace {

const Lines whole = {"6 FFS/ 1", "20 FFS/Pics/ 1", "22 FFS/Pics/a.bmp 10 3", "30 FFS/b.txt 4 1"};

struct Damage {
  const char* name;
  void (*make)(Volume& v);
  Lines expected;
};

const Damage damages[] = {
    {"none", [](Volume&) {}, whole},
    {"a map of the units, whose headers have lost their marks", [](Volume& v) { v.MapAlone(); }, whole},
    {"two maps of the same units",
     [](Volume& v) {
       v.MapAlone();
       v.files.Map(mapAt + 0x1000);
       v.files.File(0, {.number = 60, .name = "gone"}, "1", VolumeBuilder::deleted);
     },
     {whole[0], whole[1], whole[2], whole[3], "60 FFS/gone 1 1 -"}},
    {"two pointers to one group table",
     [](Volume& v) {
       v.MapAlone();
       for (std::size_t i = 0; i < 10; ++i) v.image.Byte(0x9000 + i, v.image[mapAt + i]);
     },
     whole},
    {"a unit in the map that was never formatted",
     [](Volume& v) {
       v.files.Unit(0x300000);
       v.image.Fill(0x300080, 16, 0xFF);
       v.MapAlone();
     },
     whole},
    {"a map that leads outside the image",
     [](Volume& v) {
       v.files.Map(mapAt);
       v.image.DWord(mapAt + 10 + 12, 0x12345678);
     },
     whole},
    {"groups that state too many units",
     [](Volume& v) {
       v.MapAlone();
       v.image.Word(mapAt + 10, 0xFFFF);
       v.image.Word(mapAt + 16, 0xFFFF);
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
    {"two live records of different size",
     [](Volume& v) { v.files.Slot(0, 6031, 0xC00000 + static_cast<std::uint32_t>(v.BytesOf(6031)), 2); },
     {whole[0], whole[1], whole[2], "30 FFS/b.txt 2 1 !", "30 FFS/b.txt 4 1 -"}},
    {"two live headers",
     [](Volume& v) { v.files.Entry(1, {.number = 30, .name = "other"}); },
     {whole[0], whole[1], whole[2], "30 FFS/b.txt 4 1 !", "30 FFS/other 4 1 -"}},
    {"two entries of one number",
     [](Volume& v) { v.files.Record(1, 7000, v.files.Header({.number = 30, .name = "twin", .data = 23})); },
     {whole[0], whole[1], whole[2], whole[3], "30 FFS/twin 5 1 !"}},
    {"two entries of one number, the wrong one first",
     [](Volume& v) {
       v.files.Record(0, 7000, v.files.Header({.number = 46, .name = "twin", .data = 23}));
       v.files.File(1, {.number = 46, .name = "own record"}, "1");
       v.image.Word(v.BytesOf(6007) + 4, 46);
     },
     {whole[0], whole[1], whole[2], "46 FFS/own record 1 1", "46 FFS/twin 5 1 !", "30 FFS/b.txt 4 1 !"}},
    {"a name that looks like the bytes before a wide one",
     [](Volume& v) {
       v.image.Fill(v.BytesOf(6030) + 16, 4, 0xFF);
       v.image.Word(v.SlotOf(6030) + 2, 20);
     },
     {whole[0], whole[1], whole[2], "30 FFS/\u044F\u044F\u044F\u044F 4 1"}},
    {"sizes of pieces, together more than the volume",
     [](Volume& v) {
       for (const int piece : {6023, 6025, 6027}) v.image.Word(v.SlotOf(piece) + 2, 0xFFFF);
     },
     {whole[0], whole[1], "22 FFS/Pics/a.bmp 196605 3", whole[3]}},
    {"records of 0 bytes, one of them outside the image",
     [](Volume& v) {
       for (const int number : {6025, 6031}) v.image.Word(v.SlotOf(number) + 2, 0);
       v.image.DWord(v.SlotOf(6025) + 4, 0x00100000);
     },
     {whole[0], whole[1], "22 FFS/Pics/a.bmp 7 2", "30 FFS/b.txt 0 1"}},
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
    {"no root but a piece of it; folders that hold earlier ones",
     [](Volume& v) {
       v.files.Folder(0, {.number = 40, .parent = 42, .name = "A"}, {});
       v.files.Folder(0, {.number = 42, .name = "B"}, {40, 44});
       v.files.Folder(0, {.number = 44, .parent = 42}, {46});
       v.files.File(0, {.number = 46, .parent = 44, .name = "x"}, "1");
       v.files.Folder(0, {.number = 8}, {42});
       v.Remove(6006);
     },
     {whole[1], whole[2], "42 FFS/B/ 1", "40 FFS/B/A/ 1", "44 FFS/B/#44/ 1", "46 FFS/B/#44/x 1 1", whole[3],
      "8 FFS/#8/ 1 !"}},
    {"a deleted root; a deleted header in a second volume, in another record than its own",
     [](Volume& v) {
       v.image.Byte(v.SlotOf(6006), gone);
       v.files.File(0, {.number = 60, .name = "a"}, "1", gone);
       VolumeBuilder second(v.image, "FFS_B");
       second.Record(second.Unit(0x300000), 6010, second.Header({.number = 12, .name = "b"}), gone);
     },
     {whole[1], whole[2], whole[3], "6 FFS/ 1 -", "60 FFS/a 1 1 -", "12 FFS_B/b 0 0 -"}},
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
    {"pieces of no file, the last one first",
     [](Volume& v) {
       v.files.File(1, {.number = 50}, "3");
       v.files.File(1, {.number = 52, .next = 50}, "12");
     },
     {whole[0], whole[1], whole[2], whole[3], "52 FFS/#52 3 2 !"}},
    {"a unit without its second mark",
     [](Volume& v) { v.image.Word(firstUnit + 0x1008E, 0); },
     {"6 FFS/ 1 !", "20 FFS/Pics/ 1 !", "24 FFS/#24 3 1 !"}},
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
  ImageBuilder end(0x100000);  // an empty unit is the last one
  VolumeBuilder atEnd(end, "FFS");
  atEnd.Unit(0xE0000);
  atEnd.Unit(0xF0000);
  atEnd.Folder(0, {.number = 6}, {});
  EXPECT_EQ(Listed(ImageOf(std::move(end))), Lines{"6 FFS/ 1"});
}

// Slot 0 of each unit tells nothing; a unit of another store stands somewhere behind the first one.
TEST(FindFiles, TakesNoRecordsOfAnotherStore) {
  const struct {
    std::size_t second, size, other;  // second: the distance of another header of the volume; 0: none
    bool isEmpty, hasMarks;
  } cases[] = {{0, 0x10000, 0x10000, false, false},      {0, 0x10000, 0x10000, true, true},
               {0x10000, 0x10000, 0x20000, true, false}, {0x30000, 0x10000, 0x10000, true, true},
               {0, 0x20000, 0x20000, false, true},       {0, 0x40000, 0x40000, false, false},
               {0x1000, 0x20000, 0x20000, false, true},  {0x30000, 0x10000, 0x10000, false, true}};
  for (const auto& [second, size, behind, isEmpty, hasMarks] : cases)
    for (const std::uint8_t state : {0xFC, 0xFE, 0xF8, 0xE0, 0xC0, 0x00}) {
      ImageBuilder image(volumeSize);
      VolumeBuilder files(image, "FFS"), other(image, "EEFULL");
      files.Slot(files.Unit(firstUnit, size), 6100, 0, 8, state);
      if (second > 0) files.Slot(files.Unit(firstUnit + second, size), 6100, 0, 8, state);
      if (!isEmpty) files.File(second > size ? 1 : 0, {.number = 8, .name = "own"}, "1");
      other.Unit(firstUnit + behind);
      other.File(0, {.number = 10, .name = "other"}, "1");
      if (!hasMarks) image.Word(firstUnit + behind + 0x8E, 0);
      EXPECT_EQ(Listed(ImageOf(std::move(image))), isEmpty ? Lines{} : Lines{"8 FFS/own 1 1"})
          << second << " " << size << " " << int{state};
    }
}

}  // namespace
}  // namespace tarvelo
