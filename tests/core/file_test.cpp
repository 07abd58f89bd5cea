#include "core/file.h"

#include <gtest/gtest.h>

#include "core/fullflash.h"
#include "temporary_folder.h"

namespace tarvelo {
namespace {

NoProgress progress;

FileError::Kind KindOf(const std::function<void()>& access) try {
  access();
  ADD_FAILURE() << "no error";
  return {};
} catch (const FileError& error) {
  return error.Reason();
}

TEST(File, RefusesWhatIsNoFile) {
  const TemporaryFolder folder;
  EXPECT_EQ(KindOf([&] { (void)ReadFile(folder / "missing.bin", 10, progress); }), FileError::Kind::CantOpen);
  EXPECT_EQ(KindOf([&] { (void)ReadFile(folder.Path(), 10, progress); }), FileError::Kind::CantOpen);
  EXPECT_EQ(KindOf([&] { (void)ReadFile("", 10, progress); }), FileError::Kind::CantOpen);
  EXPECT_EQ(KindOf([&] { WriteFile(folder.Path(), "x"); }), FileError::Kind::CantOpen);
  EXPECT_EQ(KindOf([&] { WriteFile(folder / "no folder" / "x", "x"); }), FileError::Kind::CantOpen);
}

TEST(File, HasALimit) {
  const TemporaryFolder folder;
  const auto file = folder.Write("eleven.bin", std::string(11, 'x'));
  EXPECT_EQ(KindOf([&] { (void)ReadFile(file, 10, progress); }), FileError::Kind::TooLarge);
  EXPECT_EQ(ReadFile(file, 11, progress).size, 11u);
}

TEST(File, OverTwoGigabytesIsRefused) {
  const TemporaryFolder folder;
  const auto file = folder.Write("huge.bin", std::string("x"));
  std::error_code error;
  std::filesystem::resize_file(file, Fullflash::sizeLimit + 1, error);  // sparse, where the system can
  if (error) GTEST_SKIP() << error.message();
  EXPECT_EQ(KindOf([&] { (void)Fullflash::Load(file, progress); }), FileError::Kind::TooLarge);
}

TEST(File, NamesThePathAndTheCause) {
  const TemporaryFolder folder;
  try {
    (void)ReadFile(folder / u8"нет.bin", 10, progress);
    FAIL();
  } catch (const FileError& error) {
    EXPECT_NE(std::string(error.what()).find("нет.bin: "), std::string::npos) << error.what();
  }
}

TEST(File, IsReadAndWrittenWholeUnderAnyName) {
  const TemporaryFolder folder;
  const std::string bytes("\0\r\n\x1A\xFF", 5);
  for (const char8_t* name : {u8"plain.bin", u8"имя с пробелом.bin", u8"名.bin"}) {
    const auto file = folder / std::filesystem::path(name);
    WriteFile(file, "longer than what replaces it");
    WriteFile(file, bytes);
    const FileBytes read = ReadFile(file, 100, progress);
    EXPECT_EQ(std::string(read.data.get(), read.data.get() + read.size), bytes) << PathText(file);
    EXPECT_TRUE(FileExist(file));
    RemoveFile(file);
    EXPECT_FALSE(FileExist(file));
  }
}

TEST(ReplaceFile, KeepsTheOldFileWhereItFails) {
  const TemporaryFolder folder;
  const auto file = folder / u8"имя.qpt";
  ReplaceFile(file, "old\r\n");
  EXPECT_EQ(ReadAll(file), "old\r\n");
  ReplaceFile(file, "new");
  EXPECT_EQ(ReadAll(file), "new");
  MakeFolder(folder / "folder");
  EXPECT_EQ(KindOf([&] { ReplaceFile(folder / "folder", "never"); }), FileError::Kind::CantOpen);
  const std::filesystem::directory_iterator left(folder.Path());
  EXPECT_EQ(std::distance(begin(left), end(left)), 2);  // nothing that was written beside
  EXPECT_EQ(KindOf([&] { ReplaceFile(folder / "no folder" / "x", "x"); }), FileError::Kind::CantOpen);
}

TEST(File, EmptyAndOneByteFilesAreNoDocument) {
  const TemporaryFolder folder;
  EXPECT_FALSE(Fullflash::Load(folder.Write("0", std::string()), progress).IsOpen());
  EXPECT_FALSE(Fullflash::Load(folder.Write("1", std::string("x")), progress).IsOpen());
  EXPECT_EQ(Fullflash::Load(folder.Write("2", std::string("xy")), progress).ffEnd(), 1);
}

TEST(File, TellsFilesFromFolders) {
  const TemporaryFolder folder;
  const auto file = folder.Write("a", std::string("x"));
  EXPECT_TRUE(FileExist(file));
  EXPECT_FALSE(DirExist(file));
  EXPECT_TRUE(DirExist(folder.Path()));
  EXPECT_FALSE(FileExist(folder.Path()));
  EXPECT_FALSE(FileExist(std::filesystem::path(std::string(5000, 'x'))));
}

}  // namespace
}  // namespace tarvelo
