#include "shell/settings.h"

#include <gtest/gtest.h>

#include "core/file.h"
#include "shell/recent_files.h"
#include "shell/strings.h"
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

TEST(Settings, KeepsWhatOthersWrote) {
  const TemporaryFolder folder;
  const std::string before =
      "; by hand\r\n[Mine]\r\nkey = some value\r\n\r\n[General]\r\nother=\xC4\xE0\r\na line\r\n";
  const auto file = folder.Write("Tarvelo.ini", before + "\r\n[Last]\r\nx=1");
  Settings settings(file);
  settings.SetIni("General", "Language", "DE");
  settings.SetIni("general", "LANGUAGE", "FR");
  EXPECT_EQ(settings.GetIni("General", "Language"), "FR");
  const std::string text = ReadAll(file);
#ifdef _WIN32  // the system's own functions may move blanks
  for (const char* part : {"; by hand", "[Mine]", "other=\xC4\xE0", "a line"})
    EXPECT_NE(text.find(part), std::string::npos) << part;
#else
  EXPECT_EQ(text.substr(0, before.size()), before);
#endif
  EXPECT_NE(text.find("x=1"), std::string::npos);
  EXPECT_EQ(text.find("DE"), std::string::npos);
  settings.SetIni("New", "Key", "Value");
  EXPECT_EQ(settings.GetRaw("new", "key"), "Value");
  EXPECT_EQ(settings.GetRaw("Mine", "key"), "some value");
}

TEST(Settings, NeverWritesOverWhatItCannotRead) {
  const TemporaryFolder folder;
#ifndef _WIN32  // there, the system's own functions know files of two-byte characters
  for (const std::string& bytes : {std::string("\xFF\xFE[\0G\0]\0", 8), std::string((1 << 20) + 1, ';')}) {
    const auto file = folder.Write("Tarvelo.ini", bytes);
    Settings(file).SetIni("General", "Language", "DE");
    EXPECT_EQ(ReadAll(file), bytes);
  }
#endif
  const auto file = folder.Write("Tarvelo.ini", std::string("[General]\n"));
  std::filesystem::permissions(file, std::filesystem::perms::owner_read);
  Settings(file).SetIni("General", "Language", "DE");
  EXPECT_EQ(ReadAll(file), "[General]\n");
  std::filesystem::permissions(file, std::filesystem::perms::owner_all);
}

TEST(Settings, SurvivesWhatIsNoSettingsFile) {
  const TemporaryFolder folder;
  for (const auto& bytes :
       {std::string("\0\xFF\xFE[[[\n=\n===\n]", 14), std::string(5000, '['), std::string("no section")}) {
    Settings settings(folder.Write("Tarvelo.ini", bytes));
    EXPECT_EQ(settings.GetIni("General", "Language"), "");
    EXPECT_TRUE(settings.GetSec("History").empty());
  }
  Settings nowhere(folder / "no folder" / "Tarvelo.ini");
  nowhere.SetIni("General", "Language", "EN");
  EXPECT_EQ(nowhere.GetIni("General", "Language"), "");
}

TEST(RecentFiles, ComeBackAsTheyWere) {
  const TemporaryFolder folder;
  Settings settings(folder / "Tarvelo.ini");
  RecentFiles files;
  for (const char* path : {"/a/Дамп.bin", "/a/b c.bin", "/a/x=y.bin"}) files.Add(path);
  files.Add("/A/B C.BIN");  // the same file in other letters
  files.Write(settings);
  RecentFiles read;
  read.Read(settings);
  EXPECT_EQ(read[0], "/a/x=y.bin");
  EXPECT_EQ(read[1], "/a/b c.bin");
  EXPECT_EQ(read[2], "/a/Дамп.bin");
  EXPECT_EQ(read[3], "");
}

TEST(Quot, EnclosesTextsWithBlanks) {
  EXPECT_EQ(quot("C:\\my dumps\\a.bin"), "\"C:\\my dumps\\a.bin\"");
  EXPECT_EQ(quot("C:\\dumps\\a.bin"), "C:\\dumps\\a.bin");
}

}  // namespace
}  // namespace tarvelo
