#include "shell/settings/settings.h"

#include <gtest/gtest.h>

#include "file_faults.h"
#include "shell/base/strings.h"
#include "shell/settings/recent_files.h"
#include "temporary_folder.h"

namespace tarvelo {
namespace {

class SettingsTest : public testing::Test {
 protected:
  const TemporaryFolder folder;
  const std::filesystem::path file = folder / "Tarvelo.ini";
  Settings settings{file};
};

TEST_F(SettingsTest, AreReadInUpperCase) {
  EXPECT_EQ(settings.GetIni("General", "Language"), "");
  settings.SetIni("General", "Language", "en");
  EXPECT_EQ(settings.GetIni("General", "Language"), "EN");
  EXPECT_EQ(settings.GetIni("general", "LANGUAGE"), "EN");
  settings.SetIni("Integration", "HexEditor", std::string(300, 'x'));
  EXPECT_EQ(settings.GetIni("Integration", "HexEditor"), std::string(255, 'X'));
}

// The settings' fuzz target reads and changes files of every shape.
TEST_F(SettingsTest, KeepUnknownLines) {
  folder.Write("Tarvelo.ini", std::string("; by hand\r\n[Mine]\r\nkey = some value\r\n"
                                          "other=\xC4\xE0\r\na line\r\n"));
  settings.SetIni("General", "Language", "DE");
  settings.SetIni("general", "LANGUAGE", "FR");
  const std::string text = ReadAll(file);
  for (const char* part : {"; by hand\r\n", "[Mine]\r\n", "other=\xC4\xE0\r\n", "a line\r\n"})
    EXPECT_NE(text.find(part), text.npos) << part;
  EXPECT_EQ(text.find("DE"), text.npos);
  EXPECT_EQ(settings.GetIni("General", "Language"), "FR");
  EXPECT_EQ(settings.GetRaw("Mine", "key"), "some value");
}

TEST_F(SettingsTest, NeverSpoilAFile) {
  const auto expectUnchanged = [this](const std::string& bytes) {
    settings.SetIni("General", "Language", "DE");
    EXPECT_EQ(ReadAll(file), bytes);
  };
#ifndef _WIN32  // there the system's own functions handle files of two-byte characters
  for (const std::string& bytes : {std::string("\xFF\xFE[\0G\0]\0", 8), std::string((1 << 20) + 1, ';')}) {
    folder.Write("Tarvelo.ini", bytes);
    expectUnchanged(bytes);
  }
#endif
  folder.Write("Tarvelo.ini", std::string("[General]\n"));
  if (FullDisk::isPossible) {
    const FullDisk full;
    settings.SetIni("General", "Language", "DE");
  }
  std::filesystem::permissions(file, std::filesystem::perms::owner_read);
  expectUnchanged("[General]\n");
  std::filesystem::permissions(file, std::filesystem::perms::owner_all);
  Settings nowhere(folder / "no folder" / "Tarvelo.ini");
  nowhere.SetIni("General", "Language", "EN");
  EXPECT_EQ(nowhere.GetIni("General", "Language"), "");
}

TEST_F(SettingsTest, RecentFilesLeaveNoGapOrDouble) {
  settings.SetIni("History", "File2", "a.bin");
  settings.SetIni("History", "File4", "b.bin");
  RecentFiles files;
  files.Read(settings);
  files.Write(settings);
  RecentFiles again;
  again.Read(settings);
  again.Add("A.BIN");  // the same
  EXPECT_EQ(again[0] + " " + again[1] + " " + again[2], "a.bin b.bin ");
}

}  // namespace
}  // namespace tarvelo
