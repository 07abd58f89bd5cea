#include "files/file_content.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "files/file_lines.h"
#include "files/files_explorer.h"

namespace tarvelo {
namespace {

TEST(ReplaceContent, FillsThePiecesInOrder) {
  Volume volume;
  const auto address = static_cast<std::uint32_t>(0xC00000 + volume.BytesOf(6025));
  volume.files.Slot(1, 6025, address, 3);  // a copy
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
  // Both pieces of "twice" have the bytes of record 6067.
  volume.files.Entry(0, {.number = 64, .name = "twice", .next = 66, .data = 67});
  volume.files.File(0, {.number = 66}, "12");
  volume.Remove(6027);
  const Fullflash image = ImageOf(std::move(volume.image));
  const FileList list = FindFiles(image, noProgress);
  const struct {
    const char* path;
    FileRefusal refusal;
  } cases[] = {{"FFS/b.txt", FileRefusal::Shared},
               {"FFS/shares", FileRefusal::Shared},
               {"FFS/twice", FileRefusal::Shared},
               {"FFS/Pics/a.bmp", FileRefusal::Damaged},
               {"FFS/gone", FileRefusal::Deleted}};
  for (const auto& [name, refusal] : cases) {
    const std::string_view path = name;
    const auto entry = std::ranges::find_if(
        list.entries, [&](const FileEntry& e) { return PathOf(image, list, e) == path; });
    ASSERT_NE(entry, list.entries.end()) << path;
    EXPECT_EQ(ReplaceContent(image, list, *entry, AsBytes("x")).refusal, refusal) << path;
  }
  const std::string damaged = "Damaged files and folders: 3\n";  // no folder lists "shares" and "twice"
  EXPECT_NE(FileInformation(list, Messages()).find(damaged), std::string::npos);
}

TEST(FilesExplorer, ClaimsRecordsForTheirEntries) {
  Volume volume;
  std::map<Offset, int> entries;
  for (const auto& [record, entry] : {std::pair(6024, 24), {6025, 24}, {6030, 30}, {6031, 30}})
    entries[static_cast<Offset>(volume.BytesOf(record))] = entry;
  const Dump dump = DumpOf(std::move(volume.image));
  filesExplorer.claim(dump, filesExplorer.search(dump, noProgress), [&](const Claim& claim) {
    if (entries.contains(claim.offset) && entries[claim.offset] == claim.number) entries.erase(claim.offset);
  });
  EXPECT_TRUE(entries.empty());
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
