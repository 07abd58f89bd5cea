#include <gtest/gtest.h>

#include "files/file_lines.h"

namespace tarvelo {
namespace {

struct Deletion {
  const char* name;
  void (*make)(VolumeBuilder& files);
  Lines expected;  // behind the root
};

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
    {"a deleted file and older data",
     [](VolumeBuilder& f) {
       f.Record(0, 6011, AsBytes("1"), gone);
       f.File(1, {.number = 10, .name = "a"}, "12", gone);
     },
     {"10 FFS/a 2 1 -", "10 FFS/a 1 1 -"}},
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
    {"an older root, not marked as a folder",
     [](VolumeBuilder& f) { f.Entry(0, {.number = 6, .name = "a"}, gone); },
     {"6 FFS/ 1 -"}},
    {"headers in other records than their own: of a file, of a piece, in units erased since then",
     [](VolumeBuilder& f) {
       f.Record(0, 6010, f.Header({.number = 12, .name = "a"}), gone);
       f.File(0, {.number = 12, .name = "b"}, "123", gone);
       f.Record(0, 6014, f.Header({.number = 16}), gone);
       f.File(1, {.number = 20, .name = "new"}, "1234");
       f.Slot(0, 6016, f.Address(firstUnit + 0x10090), 20, gone);
       f.Slot(1, 6018, f.Address(firstUnit + 0xA4), 18, gone);
     },
     {"20 FFS/new 4 1", "12 FFS/b 3 1 -", "12 FFS/a 0 0 -"}},
    {"bytes that are a header no more",
     [](VolumeBuilder& f) { f.Record(0, 6010, AsBytes("by now something else"), gone); },
     {}},
};

TEST(FindFiles, FindsDeletedFilesAndOlderGenerations) {
  for (const Deletion& deletion : deletions) {
    ImageBuilder image(volumeSize);
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

}  // namespace
}  // namespace tarvelo
