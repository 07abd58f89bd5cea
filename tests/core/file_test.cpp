#include "core/file.h"

#include <gtest/gtest.h>

#include "core/fullflash.h"
#include "images.h"
#include "temporary_folder.h"

namespace tarvelo {
namespace {

FileError::Kind KindOf(const std::function<void()>& access) try {
  access();
  ADD_FAILURE() << "no error";
  return {};
} catch (const FileError& error) {
  return error.Reason();
}

TEST(File, RefusesPathsThatAreNotFiles) {
  const TemporaryFolder folder;
  for (const auto& path : {folder.Path(), folder / "missing.bin", std::filesystem::path()})
    EXPECT_EQ(KindOf([&] { (void)ReadFile(path, 10, noProgress); }), FileError::Kind::CantOpen) << path;
  for (const auto& path : {folder.Path(), folder / "no folder" / "x"}) {
    EXPECT_EQ(KindOf([&] { WriteFile(path, "x"); }), FileError::Kind::CantOpen) << path;
    EXPECT_EQ(KindOf([&] { ReplaceFile(path, "x"); }), FileError::Kind::CantOpen) << path;
  }
}

TEST(File, HasALimit) {
  const TemporaryFolder folder;
  const auto file = folder.Write("eleven.bin", std::string(11, 'x'));
  EXPECT_EQ(KindOf([&] { (void)ReadFile(file, 10, noProgress); }), FileError::Kind::TooLarge);
  EXPECT_EQ(ReadFile(file, 11, noProgress).size, 11u);
  std::error_code error;
  std::filesystem::resize_file(file, Fullflash::sizeLimit + 1, error);  // sparse if the system supports it
  if (error) GTEST_SKIP() << error.message();
  EXPECT_EQ(KindOf([&] { (void)Fullflash::Load(file, noProgress); }), FileError::Kind::TooLarge);
}

TEST(File, IsReadAndWrittenWholeUnderAnyName) {
  const TemporaryFolder folder;
  const std::string bytes("\0\r\n\x1A\xFF", 5);
  for (const char8_t* name : {u8"plain.bin", u8"имя с пробелом.bin", u8"名.bin"}) {
    const auto file = folder / std::filesystem::path(name);
    WriteFile(file, "longer than what replaces it");
    WriteFile(file, bytes);
    const FileBytes read = ReadFile(file, 100, noProgress);
    EXPECT_EQ(std::string(read.data.get(), read.data.get() + read.size), bytes) << PathText(file);
    RemoveFile(file);
    EXPECT_FALSE(FileExist(file));
  }
}

TEST(File, IsNoDocumentWithoutASecondByte) {
  const TemporaryFolder folder;
  EXPECT_FALSE(Fullflash::Load(folder.Write("1", std::string("x")), noProgress).IsOpen());
  EXPECT_EQ(Fullflash::Load(folder.Write("2", std::string("xy")), noProgress).ffEnd(), 1);
}

}  // namespace
}  // namespace tarvelo
