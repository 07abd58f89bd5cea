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
  const auto file =
      folder.Write("Tarvelo.ini", std::string("; by hand\n[Mine]\nkey=some value\n\n[General]\nother=1\n"));
  Settings(file).SetIni("General", "Language", "DE");
  const std::string text = ReadAll(file);
  for (const char* part : {"; by hand", "[Mine]", "key=some value", "other=1", "Language=DE"})
    EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
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
