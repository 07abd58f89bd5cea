#include "shell/settings/settings.h"

#include <gtest/gtest.h>

#include "file_faults.h"
#include "shell/base/strings.h"
#include "shell/settings/recent_files.h"
#include "temporary_folder.h"

namespace tarvelo {
namespace {

TEST(Settings, ReadsInUpperCase) {
  const TemporaryFolder folder;
  Settings settings(folder / "Tarvelo.ini");
  EXPECT_EQ(settings.GetIni("General", "Language"), "");
  settings.SetIni("General", "Language", "en");
  settings.SetIni("Integration", "HexEditor", "HexWorkshop");
  EXPECT_EQ(settings.GetIni("General", "Language"), "EN");
  EXPECT_EQ(settings.GetIni("general", "LANGUAGE"), "EN");
  EXPECT_EQ(settings.GetIni("Integration", "HexEditor"), "HEXWORKSHOP");
  settings.SetIni("Integration", "HexEditor", std::string(300, 'x'));
  EXPECT_EQ(settings.GetIni("Integration", "HexEditor"), std::string(255, 'X'));
}

// The settings' fuzz target reads and changes files of every shape.
TEST(Settings, KeepsUnknownLines) {
  const TemporaryFolder folder;
  const auto file = folder.Write(
      "Tarvelo.ini", std::string("; by hand\r\n[Mine]\r\nkey = some value\r\nother=\xC4\xE0\r\na line\r\n"));
  Settings settings(file);
  settings.SetIni("General", "Language", "DE");
  settings.SetIni("general", "LANGUAGE", "FR");
  const std::string text = ReadAll(file);
  for (const char* part : {"; by hand\r\n", "[Mine]\r\n", "other=\xC4\xE0\r\n", "a line\r\n"})
    EXPECT_NE(text.find(part), text.npos) << part;
  EXPECT_EQ(text.find("DE"), text.npos);
  EXPECT_EQ(settings.GetIni("General", "Language"), "FR");
  EXPECT_EQ(settings.GetRaw("Mine", "key"), "some value");
}

TEST(Settings, NeverSpoilsAFile) {
  const TemporaryFolder folder;
#ifndef _WIN32  // there the system's own functions handle files of two-byte characters
  for (const std::string& bytes : {std::string("\xFF\xFE[\0G\0]\0", 8), std::string((1 << 20) + 1, ';')}) {
    const auto file = folder.Write("Tarvelo.ini", bytes);
    Settings(file).SetIni("General", "Language", "DE");
    EXPECT_EQ(ReadAll(file), bytes);
  }
#endif
  const auto file = folder.Write("Tarvelo.ini", std::string("[General]\n"));
  if (FullDisk::isPossible) {
    const FullDisk full;
    Settings(file).SetIni("General", "Language", "DE");
  }
  EXPECT_EQ(ReadAll(file), "[General]\n");
  std::filesystem::permissions(file, std::filesystem::perms::owner_read);
  Settings(file).SetIni("General", "Language", "DE");
  EXPECT_EQ(ReadAll(file), "[General]\n");
  std::filesystem::permissions(file, std::filesystem::perms::owner_all);
  Settings nowhere(folder / "no folder" / "Tarvelo.ini");
  nowhere.SetIni("General", "Language", "EN");
  EXPECT_EQ(nowhere.GetIni("General", "Language"), "");
}

TEST(RecentFiles, AreTheSameInOtherLetters) {
  RecentFiles files;
  for (const char* path : {"/a/b c.bin", "/A/B C.BIN"}) files.Add(path);
  EXPECT_EQ(files[0], "/a/b c.bin");
  EXPECT_EQ(files[1], "");
}

TEST(RecentFiles, ClosedGapLeavesNoDouble) {
  const TemporaryFolder folder;
  Settings settings(folder / "Tarvelo.ini");
  settings.SetIni("History", "File2", "a.bin");
  settings.SetIni("History", "File4", "b.bin");
  RecentFiles files;
  files.Read(settings);
  files.Write(settings);
  RecentFiles again;
  again.Read(settings);
  EXPECT_EQ(again[0] + " " + again[1] + " " + again[2], "a.bin b.bin ");
}

}  // namespace
}  // namespace tarvelo
