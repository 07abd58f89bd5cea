// Files that cannot be written or read: every way to save, with every fault.
#include <gtest/gtest.h>
#ifndef _WIN32
#include <sys/stat.h>
#endif

#include "cli/call.h"
#include "core/file.h"
#include "document/document.h"
#include "eeprom/block_files.h"
#include "eeprom/blocks.h"
#include "file_faults.h"
#include "images.h"
#include "pictures/picture_files.h"
#include "ringtones/ringtone_files.h"
#include "temporary_folder.h"

namespace tarvelo {
namespace {

namespace fs = std::filesystem;

using Contents = std::map<std::string, std::optional<std::string>>;

constexpr char oldContents[] = "what stood there before";

// Saves something into a folder under a name derived from a stem. Throws FileError.
struct Saver {
  const char* name;
  std::string file;    // the file that it writes for the stem "dump"
  bool deletesBefore;  // deletes an old file first
  std::function<void(const fs::path& folder, const std::string& stem)> save;
};

class Faults : public testing::Test {
 protected:
  Faults() {
    ImageBuilder one(0x10000), other(0x10000);
    other.Fill(0x100, 16, 0);
    dump = PathText(folder.Write("one.bin", std::move(one).Take()));
    changed = PathText(folder.Write("other.bin", std::move(other).Take()));
    patch = PathText(folder / "read.qpt");
    CommandLine({"diff", dump, changed, "--patch", patch});
  }

  // Runs the command line and throws its file errors.
  static void CommandLine(const std::vector<std::string>& arguments) {
    const cli::Result result = cli::Call(arguments);
    if (result.status == cli::fileTrouble) throw FileError(FileError::Kind::CantWrite, {}, result.err);
  }

  static void SaveAPicture(const fs::path& to, const std::string& stem) {
    PictureDecoder decoder(image.ff());
    SavePicture(decoder, {.type = 8, .width = 50, .height = 50}, true, to, stem, PictureFormat::Bmp);
  }

  static void SaveABlock(const fs::path& to, const std::string& stem) {
    const BlockStore store = StoreOf({{.Number = 7, .DataOffset = 0x100, .Size = 0x100}});
    SaveBlock(image, store, store.records[0], to, stem);
  }

  static void SaveARingtone(const fs::path& to, const std::string& stem) {
    const Ringtone ringtone{.number = 7, .data = 0x100, .size = 0x100};
    SaveRingtone(image, ringtone, to, stem, RingtoneFormat::Raw);
  }

  static void NameAPlace(const fs::path& to, const std::string& stem) {
    Document document;
    document.Open(Fullflash(image.ff()), to / PathOf(stem + ".bin"));
    document.NamePlace(0x100, "name", "comment");
  }

  [[nodiscard]] std::vector<Saver> Savers() const {
    using Text = const std::string&;
    const auto named = [](const fs::path& to, Text name) { return PathText(to / PathOf(name)); };
    return {
        {"picture", "dump_0000.bmp", false, SaveAPicture},
        {"block", "dump_0007.bin", true, SaveABlock},
        {"ringtone", "dump_0007.bin", true, SaveARingtone},
        {"diff", "dump.qpt", false,
         [=, this](const fs::path& to, Text stem) {
           CommandLine({"diff", dump, changed, "--patch", named(to, stem + ".qpt")});
         }},
        {"apply", "dump.bin", false,
         [=, this](const fs::path& to, Text stem) {
           CommandLine({"apply", dump, patch, "--output", named(to, stem + ".bin")});
         }},
        {"port", "dump.qpt", false,
         [=, this](const fs::path& to, Text stem) {
           CommandLine({"port", dump, changed, patch, "--output", named(to, stem + ".qpt")});
         }},
        {"names", "dump.names.tsv", false, NameAPlace},
    };
  }

  // The message of a saver that fails, otherwise empty.
  static std::string Failure(const Saver& saver, const fs::path& to, const std::string& stem = "dump") try {
    saver.save(to, stem);
    return {};
  } catch (const FileError& error) {
    return error.what();
  }

  static inline const Fullflash image = Erased(0x10000);
  TemporaryFolder folder;
  std::string dump, changed, patch;
};

TEST_F(Faults, FullDiskLeavesNoHalfOfAFile) {
  if (!FullDisk::isPossible) GTEST_SKIP();
  for (const Saver& saver : Savers()) {
    SCOPED_TRACE(saver.name);
    const TemporaryFolder to;
    std::string failure;
    for (const bool isThere : {false, true}) {
      if (isThere) (void)to.Write(saver.file, std::string(oldContents));
      {
        const FullDisk full;
        failure = Failure(saver, to.Path());
      }
      EXPECT_NE(failure.find(saver.file), std::string::npos) << failure;
      const bool stays = isThere && !saver.deletesBefore;
      EXPECT_EQ(ContentsOf(to.Path()), stays ? Contents({{saver.file, oldContents}}) : Contents());
    }
    EXPECT_EQ(Failure(saver, to.Path()), "");  // works the next time
    EXPECT_GT(ReadAll(to / saver.file).size(), 10u);
    EXPECT_EQ(ContentsOf(to.Path()).size(), 1u);
  }
}

TEST_F(Faults, AnObstacleStays) {
  for (const Saver& saver : Savers()) {
    SCOPED_TRACE(saver.name);
    const TemporaryFolder to;
    MakeFolder(to / saver.file);
    EXPECT_NE(Failure(saver, to.Path()).find(saver.file), std::string::npos);
    EXPECT_EQ(ContentsOf(to.Path()), (Contents{{saver.file, {}}}));
    const auto file = to.Write("no folder", std::string(oldContents));
    EXPECT_NE(Failure(saver, file).find("no folder"), std::string::npos);
    EXPECT_EQ(ReadAll(file), oldContents);
  }
}

TEST_F(Faults, AFileThatIsOpenElsewhereStays) {
  if (!OpenElsewhere::isPossible) GTEST_SKIP();
  for (const Saver& saver : Savers()) {
    SCOPED_TRACE(saver.name);
    const TemporaryFolder to;
    const auto file = to.Write(saver.file, std::string(oldContents));
    {
      const OpenElsewhere open(file);
      EXPECT_NE(Failure(saver, to.Path()).find(saver.file), std::string::npos);
    }
    EXPECT_EQ(ContentsOf(to.Path()), (Contents{{saver.file, oldContents}}));
  }
}

TEST_F(Faults, NamesAreOfAnyScriptAndAsLongAsTheSystemHasThem) {
  constexpr std::size_t longest = 255;
  std::vector<std::string> stems{"Дамп", "Αντίγραφο", "转储", "דָּמְפּ", "🎵📱", "e\u0301", "a b'&%"};
#ifndef _WIN32
  stems.emplace_back("\xFF\xC3(");  // not UTF-8 at all
#endif
  std::string& longStem = stems.emplace_back();
  for (const Saver& saver : Savers()) {
    const std::string rest = saver.file.substr(4);
    longStem.assign(longest - rest.size(), 'x');
    for (const std::string& stem : stems) {
      const TemporaryFolder to;
      EXPECT_EQ(Failure(saver, to.Path(), stem), "") << saver.name << stem;
      const Contents contents = ContentsOf(to.Path());
      ASSERT_EQ(contents.size(), 1u) << saver.name << stem;
      EXPECT_EQ(contents.begin()->first, stem + rest);
    }
    const TemporaryFolder to;
    EXPECT_NE(Failure(saver, to.Path(), longStem + "x"), "");
    EXPECT_EQ(ContentsOf(to.Path()).size(), 0u) << saver.name;
  }
}

TEST(ReplaceFile, KeepsTheOldFileWhenItsContentsFail) {
  const TemporaryFolder folder;
  const auto file = folder.Write("a.txt", std::string(oldContents));
  const auto fail = [](const TextSink& write) {
    write("half of it");
    throw std::bad_alloc();
  };
  EXPECT_THROW(ReplaceFile(file, fail), std::bad_alloc);
  EXPECT_EQ(ContentsOf(folder.Path()), (Contents{{"a.txt", oldContents}}));
  ReplaceFile(file, "new");
  EXPECT_EQ(ContentsOf(folder.Path()), (Contents{{"a.txt", "new"}}));
}

#ifndef _WIN32
TEST(ReplaceFile, KeepsPermissionsAndLeavesDevicesAlone) {
  const TemporaryFolder folder;
  const auto file = folder.Write("a.txt", std::string(oldContents));
  fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
  ReplaceFile(file, "new");
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  const auto pipe = folder / "pipe";
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_THROW(ReplaceFile(pipe, "x"), FileError);
  EXPECT_TRUE(fs::is_fifo(pipe));
}
#endif

TEST(ReadFile, SaysThatTheFileHasShrunk) {
  const TemporaryFolder folder;
  const auto file = folder.Write("a.bin", std::string(100000, 'x'));
  FileReader reader(file, 1 << 20);
  std::vector<std::uint8_t> bytes(reader.Size());
  std::error_code error;
  fs::resize_file(file, 50000, error);
  if (error) GTEST_SKIP() << error.message();  // the system protects it
  try {
    reader.Read(bytes);
    FAIL();
  } catch (const FileError& fault) {
    EXPECT_EQ(fault.Reason(), FileError::Kind::CantRead);
    EXPECT_NE(std::string(fault.what()).find("a.bin: it ended while it was read"), std::string::npos);
  }
}

}  // namespace
}  // namespace tarvelo
