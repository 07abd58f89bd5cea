#include "files/file_export.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "cli/call.h"
#include "core/disk_names.h"
#include "core/file.h"
#include "file_faults.h"
#include "files/volume_builder.h"
#include "temporary_folder.h"

namespace tarvelo {
namespace {

namespace fs = std::filesystem;

TEST(DiskName, IsOneThatEverySystemTakes) {
  const std::string longName = "a" + std::string(299, 'x');
  const struct {
    std::string name;
    std::string shown;
  } cases[] = {
      {"a.bmp", "a.bmp"},
      {"", "_"},
      {".", "_"},
      {"..", "__"},
      {"../../etc/passwd", ".._.._etc_passwd"},
      {"C:\\a", "C__a"},
      {"a/b<c>d\"e|f?g*h", "a_b_c_d_e_f_g_h"},
      {"tab\there\x7F", "tab_here_"},
      {"end. .", "end___"},
      {"CON", "_CON"},
      {"con.txt", "_con.txt"},
      {"Aux .tar.gz", "_Aux .tar.gz"},
      {"com1", "_com1"},
      {"LPT\u00B2.x", "_LPT\u00B2.x"},
      {"com10", "com10"},
      {"console", "console"},
      {"\u00C4\u0416.jpg", "\u00C4\u0416.jpg"},
      {"broken \xFF", "broken \uFFFD"},
      {longName + ".jpeg", longName.substr(0, 75) + ".jpeg"},
  };
  for (const auto& [name, shown] : cases) EXPECT_EQ(DiskName(name), shown);
}

TEST(UniqueNames, AreNumberedWhateverTheirCase) {
  UniqueNames names;
  EXPECT_EQ(names.Take("a.txt"), "a.txt");
  EXPECT_EQ(names.Take("A.TXT"), "A (2).TXT");
  EXPECT_EQ(names.Take("a (3).txt"), "a (3).txt");
  EXPECT_EQ(names.Take("a.txt"), "a (4).txt");
  EXPECT_EQ(names.Take("\u0416"), "\u0416");
  EXPECT_EQ(names.Take("\u0436"), "\u0436 (2)");
}

// A volume with names that would lead out of the folder, or to one place.
fs::path WriteDump(const TemporaryFolder& folder) {
  ImageBuilder image(0x100000);
  VolumeBuilder files(image, "../FFS");
  files.Unit(0x40000);
  files.Unit(0x50000);
  files.Folder(0, {.number = 6}, {10, 12, 14, 16, 18, 20, 22});
  files.Folder(0, {.number = 10, .name = ".."}, {30});
  files.Folder(0, {.number = 12, .name = "/etc"}, {32});
  files.File(0, {.number = 14, .name = "a.txt"}, "first");
  files.File(0, {.number = 16, .name = "A.txt"}, "second");
  files.File(0, {.number = 18, .name = "nul"}, "device");
  files.Entry(0, {.number = 20, .name = "empty"});
  files.Entry(0, {.number = 22, .name = "unreadable"});
  files.Slot(0, 6023, 0x1000, 5);
  files.File(0, {.number = 30, .parent = 10, .name = "../x"}, "up");
  files.File(0, {.number = 32, .parent = 12, .name = "pass\nwd"}, "in etc");
  files.File(1, {.number = 14, .name = "a.txt"}, "older", VolumeBuilder::deleted);
  return folder.Write("dump.bin", std::move(image).Take());
}

using Texts = std::map<std::string, std::string>;

// The files below a folder, with their bytes.
Texts FilesIn(const fs::path& folder) {
  Texts found;
  for (const auto& [path, bytes] : ContentsOf(folder))
    if (bytes) {
      std::string name = path;
      std::ranges::replace(name, '\\', '/');
      found[name] = *bytes;
    }
  return found;
}

TEST(FileExport, StaysInItsFolder) {
  const TemporaryFolder folder;
  const fs::path dump = WriteDump(folder);
  const Texts live = {{".._FFS/__/.._x", "up"},  {".._FFS/_etc/pass_wd", "in etc"},
                      {".._FFS/a.txt", "first"}, {".._FFS/A (2).txt", "second"},
                      {".._FFS/_nul", "device"}, {".._FFS/empty", ""}};
  Texts all = live;
  all[".._FFS/a (3).txt"] = "older";
  for (const bool deleted : {false, true}) {
    std::vector<std::string> words{"export", "files", PathText(dump), "--to", PathText(folder / "out")};
    if (deleted) words.push_back("--deleted");
    const cli::Result called = cli::Call(words);
    EXPECT_EQ(called.status, 0);
    EXPECT_EQ(called.err, "file 22 has no data in the image\n");
    const Texts written = FilesIn(folder / "out");
    EXPECT_EQ(written, deleted ? all : live);
    EXPECT_EQ(std::ranges::count(called.out, '\n'), std::ssize(written));
  }
  EXPECT_EQ(FilesIn(folder.Path()).size(), all.size() + 1);
}

// What an earlier export wrote stays.
TEST(FileExport, LeavesNoHalfOfAFileOnAFullDisk) {
  if (!FullDisk::isPossible) GTEST_SKIP();
  const TemporaryFolder folder;
  ImageBuilder image(0x100000);
  VolumeBuilder files(image, "FFS");
  files.Unit(0x40000);
  files.Folder(0, {.number = 6}, {10});
  files.File(0, {.number = 10, .name = "a.txt"}, std::string(1000, 'a'));
  const fs::path dump = folder.Write("dump.bin", std::move(image).Take());
  const std::vector<std::string> words{"export", "files", PathText(dump), "--to", PathText(folder / "out")};
  for (const bool isThere : {false, true}) {
    if (isThere) WriteFile(folder / "out" / "FFS" / "a.txt", "old");
    const FullDisk full;
    const cli::Result called = cli::Call(words);
    EXPECT_EQ(called.status, cli::fileTrouble);
    EXPECT_NE(called.err.find("a.txt"), std::string::npos) << called.err;
    EXPECT_EQ(FilesIn(folder / "out"), isThere ? Texts({{"FFS/a.txt", "old"}}) : Texts());
  }
}

// Seventeen folders in each other; names of 300 bytes, of which 240 stay.
TEST(FileExport, ShortensPathsThatAreTooLong) {
  const TemporaryFolder folder;
  ImageBuilder image(0x100000);
  VolumeBuilder files(image, "FFS");
  files.Unit(0x40000);
  std::string name = "\x1F";
  for (int i = 0; i < 100; ++i) name += "\u20AC";
  for (int i = 0; i < 17; ++i) {
    const int parent = i == 0 ? 6 : 2 * i + 8;
    files.Folder(0, {.number = parent, .name = name}, {2 * i + 10, 2 * i + 60});
    files.File(0, {.number = 2 * i + 60, .parent = parent, .name = i == 16 ? name + ".txt" : "a"}, "a");
  }
  const fs::path dump = folder.Write("dump.bin", std::move(image).Take());
  const std::string part(sizeof(fs::path::value_type) == 1 ? 200 : 8, 'd');
  const fs::path out = folder / part / part;
  const cli::Result called = cli::Call({"export", "files", PathText(dump), "--to", PathText(out)});
  EXPECT_EQ(called.status, 0);
  EXPECT_EQ(called.err, "");
  const Texts written = FilesIn(out);
  EXPECT_EQ(written.size(), 17u);
  const auto deepest = std::ranges::max_element(written, {}, [](auto& file) { return file.first.size(); });
  EXPECT_TRUE(deepest->first.ends_with("\u20AC.txt")) << deepest->first;
}

TEST(FileExport, OfOneNumberGoesBesideTheDump) {
  const TemporaryFolder folder;
  const fs::path dump = WriteDump(folder);
  const cli::Result called = cli::Call({"export", "files", PathText(dump), "--number", "32"});
  EXPECT_EQ(called.out, PathText(folder / "FILES" / ".._FFS" / "_etc" / "pass_wd") + "\n");
  EXPECT_EQ(cli::Call({"export", "files", PathText(dump), "--number", "33"}).status, 1);
}

TEST(FileList, IsPrintedWithoutDeletedFiles) {
  const TemporaryFolder folder;
  const std::string dump = PathText(WriteDump(folder));
  const std::string captions = "N\tName\tSize\tDate\tA\tPieces\tOffset\t-\n";
  const cli::Result live = cli::Call({"list", "files", dump});
  EXPECT_EQ(live.status, 0);
  EXPECT_TRUE(live.out.starts_with(captions + "6\t../FFS/\t\t2003-11-24 17:58:42\tD\t1\t0400A0\t\n"))
      << live.out;
  EXPECT_EQ(live.out.find("\t-\n", captions.size()), std::string::npos);
  const cli::Result all = cli::Call({"list", "files", "--deleted", "--json", dump});
  EXPECT_TRUE(all.out.ends_with(R"({"N":"14","Name":"../FFS/a.txt","Size":"5","Date":"2003-11-24 17:58:42",)"
                                R"("A":"","Pieces":"1","Offset":"0500A6","-":"-"})"
                                "\n"))
      << all.out;
}

}  // namespace
}  // namespace tarvelo
