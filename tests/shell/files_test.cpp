#include "shell/files/files_panel.h"

#include <array>

#include "core/file.h"
#include "core/notation.h"
#include "files/volume_builder.h"
#include "pictures/bitmap_file.h"
#include "shell/desk.h"
#include "shell/files/file_picture.h"
#include "shell/files/file_preview.h"
#include "shell/files/folder_tree.h"
#include "shell/files/piece_list.h"
#include "shell/pictures/picture_view.h"
#include "shell/platform/temporary_folder.h"
#include "shell/ringtones/piano_roll.h"

namespace tarvelo {
namespace {

using namespace std::string_literals;

const int files = EntryOf("files");

// One red pixel.
const std::string gif = "GIF89a\1\0\1\0\x80\0\0\xFF\0\0\0\0\0,\0\0\0\0\1\0\1\0\0\2\2D\1\0;"s;
// 8 x 8 pixels of the middle grey, drawn so many times: every code is one bit, and both coefficients are 0.
std::string Jpeg(int scans) {
  std::string file = "\xFF\xD8\xFF\xDB\0\x43\0"s + std::string(64, 1);
  file += "\xFF\xC0\0\x0B\x08\0\x08\0\x08\1\1\x11\0"s;
  for (const char tableClass : {'\0', '\x10'})
    file += "\xFF\xC4\0\x14"s + tableClass + '\1' + std::string(16, 0);
  for (int i = 0; i < scans; ++i) file += "\xFF\xDA\0\x08\1\1\0\0\x3F\0\x3F"s;
  return file + "\xFF\xD9";
}

// A record of a melody.
std::string Note(std::uint16_t frequency, std::uint16_t duration) {
  return {static_cast<char>(frequency), static_cast<char>(frequency >> 8), static_cast<char>(duration),
          static_cast<char>(duration >> 8)};
}

// The Files panel of the demonstration: Pictures (rows 1 .. 3), Melodies, Texts (6 .. 9), settings.ini.
class FilesDesk : public Desk {
 protected:
  FilesDesk() { OpenDemo(files); }

  [[nodiscard]] FilesPanel& Panel() { return Shown<FilesPanel>(); }
  [[nodiscard]] FilePreview& Preview() { return Panel().Preview(); }
  [[nodiscard]] std::string Facts() { return Utf8(Preview().Facts()); }
  [[nodiscard]] std::string Text() { return Utf8(Preview().Shown()); }
  void Select(const std::string& name) { ASSERT_TRUE(List().Find(name, SearchFrom::Top, 1)) << name; }

  // Opens a volume whose root has a file with each of these contents, "1", "2" ...
  void OpenVolume(const std::vector<std::string>& contents) {
    ImageBuilder image(0x100000);
    VolumeBuilder volume(image, "FFS");
    volume.Unit(0x40000);
    volume.Unit(0x50000);
    std::vector<int> members;
    for (int i = 1; i <= std::ssize(contents); ++i) {
      members.push_back(2 * i + 8);
      const std::string name = std::to_string(i);
      volume.File(1, {.number = 2 * i + 8, .name = name}, contents[static_cast<std::size_t>(i) - 1]);
    }
    volume.Folder(0, {.number = 6}, members);
    OpenBytes("volume.bin", std::move(image).Take(), files);
  }
};

TEST_F(FilesDesk, TreeNarrowsTheListAndWhatIsSaved) {
  EXPECT_EQ(List().RowCount(), 11u);
  List().Select(1);
  EXPECT_EQ(Cell(1, 1), "FFS/Pictures/");
  main->Run(Id::OpenFile);
  EXPECT_EQ(Panel().Folders().Chosen(), FolderPlace{.folder = 1});
  EXPECT_EQ(List().RowCount(), 2u);
  EXPECT_EQ(Cell(1, 1), "FFS/Pictures/battery.bmp");
  EXPECT_EQ(Facts(), "BMP, 52 x 52");  // of the first
  List().Filter("battery");
  const auto saved = folder / "FILES" / "FFS";
  EXPECT_EQ(Said(Id::SaveFolder), "iFiles saved: 2" + At(folder / "FILES"));
  EXPECT_TRUE(FileExist(saved / "Pictures" / "globe.bmp"));

  List().Filter("");
  Panel().Folders().Choose({});
  EXPECT_EQ(List().RowCount(), 11u);
  main->Run(Id::ShowDel);
  List().SelectRows({12});
  EXPECT_EQ(Said(Id::SaveFiles),
            "iFile \"shopping (2).txt\" was saved" + At(saved / "Texts" / "shopping (2).txt"));
  EXPECT_EQ(ReadAll(saved / "Texts" / "shopping (2).txt"), "Bread, milk, a new cover.\r\n");
  EXPECT_FALSE(FileExist(saved / "Texts" / "shopping.txt"));
  EXPECT_EQ(Said(Id::SaveAllFiles), "iFiles saved: 9" + At(folder / "FILES"));
  EXPECT_TRUE(FileExist(saved / "Texts" / "shopping.txt"));
  List().SelectRows({6});
  EXPECT_EQ(Said(Id::SaveFiles), "iFiles saved: 3" + At(folder / "FILES"));  // without the deleted one

  Panel().Folders().Choose({.folder = 6});
  Open().Write(0, Bytes(std::array<std::uint8_t, 1>{1}));  // the tree stays as it is
  EXPECT_EQ(Panel().Folders().Chosen(), FolderPlace{.folder = 6});
  EXPECT_EQ(List().RowCount(), 4u);
  main->Dumps().OpenF(WriteDump("other.bin"));
  Choose(files);
  EXPECT_EQ(List().RowCount(), 0u);
  EXPECT_EQ(Panel().Folders().Chosen(), FolderPlace{});
  EXPECT_FALSE(Panel().Commands()->CanRun(Id::SaveAllFiles));
}

TEST_F(FilesDesk, PiecesHaveThePlaceCommands) {
  Select("globe.bmp");
  const auto& pieces = Preview().Pieces();
  ASSERT_EQ(pieces.Pieces().size(), 2u);
  EXPECT_EQ(Copied(Id::CopyOffset), Cell(2, 6));
  Preview().Pieces().Choose(1);
  EXPECT_EQ(Copied(Id::CopyOffset), WholeHex(pieces.Pieces()[1].offset));
  List().Select(3);
  EXPECT_FALSE(pieces.IsShown());
  EXPECT_EQ(Copied(Id::CopyOffset), Cell(3, 6));
}

TEST_F(FilesDesk, ContentIsShownByWhatItIs) {
  Bitmap bitmap(3, 2);
  bitmap.pixels[1] = 0x123456;
  const auto png = PngFile(bitmap);
  std::string vast = gif;
  vast.replace(6, 4, "\xFF\xFF\xFF\xFF");
  const std::string melody =
      Note(440, 500) + Note(0xFFFE, 100) + Note(880, 250) + Note(440, 500) + Note(0xFFFC, 0);
  const struct {
    std::string bytes, facts, text;
  } cases[] = {
      {gif, "GIF, 1 x 1", ""},
      {Jpeg(1), "JPEG, 8 x 8", ""},
      {{png.begin(), png.end()}, "PNG, 3 x 2", ""},
      {Jpeg(101), "Hex", "000000  FF D8"},
      {vast, "Hex", "000000  47 49 46 38"},
      {"\x89PNG\r\n\x1A\n\0\0"s, "Hex", "000000  89 50"},
      {"BM", "ASCII", "BM"},
      {melody, "Mono, 1.4 s", ""},
      {"440:500 880:250 ", "Mono, 0.8 s", ""},
      {"MThd\0\0\0\6\0\0\0\1\0\x60MTrk\0\0\0\4\0\xFF\x2F\0"s, "MIDI", ""},
      {"\xCF\xF0\xE8", "Windows-1251", "\u041F\u0440\u0438"},
      {std::string(0x8001, 'a'), "ASCII, 32768 / 32769", "aaaa"},
      {std::string(0x2001, '\0'), "Hex, 8192 / 8193", "000000  00 00"},
      {"", "", ""},
  };
  std::vector<std::string> contents;
  for (const auto& each : cases) contents.push_back(each.bytes);
  OpenVolume(contents);
  for (std::size_t i = 0; i < std::size(cases); ++i) {
    List().Select(i + 1);
    EXPECT_EQ(Facts(), cases[i].facts) << i;
    EXPECT_EQ(Text().substr(0, cases[i].text.size()), cases[i].text) << i;
  }
  List().Select(1);
  EXPECT_EQ(Preview().Picture().GetBitmap()->pixels, std::vector<Colour>{0xFF0000});
  List().Select(2);
  EXPECT_EQ(Preview().Picture().GetBitmap()->pixels, std::vector<Colour>(64, 0x808080));
  List().Select(3);
  EXPECT_EQ(Preview().Picture().GetBitmap()->pixels, bitmap.pixels);
  List().Select(8);
  main->Run(Id::Play);
  EXPECT_EQ(script.beeps.front(), "440 Hz 500 ms");
  EXPECT_EQ(Preview().Roll().Notes().size(), 3u);
}

TEST_F(FilesDesk, FilesAreReplacedAsOneStep) {
  Select("shopping.txt");
  const auto before = AllBytes();
  script.file = folder.Write("new.txt", AsBytes("Tea."));
  EXPECT_EQ(SaidAtLast(Id::ReplaceFile), "iThe file was replaced by" + At(*script.file));
  EXPECT_EQ(PathText(script.offered.filename()), "shopping.txt");
  EXPECT_EQ(Cell(7, 2), "     4");
  EXPECT_EQ(Text(), "Tea.");
  main->Run(Id::Undo);
  EXPECT_EQ(AllBytes(), before);
  EXPECT_EQ(Cell(7, 2), "    38");
  script.file = folder.Write("long.txt", AsBytes(std::string(39, 'x')));
  EXPECT_EQ(SaidAtLast(Id::ReplaceFile),
            "!Error ! Wrong size of file \"long.txt\" !\nSize of the file: 39\nSize in the fullflash: 38 "
            "(shopping.txt)");
  EXPECT_EQ(AllBytes(), before);
  main->Run(Id::ShowDel);
  List().Select(12);
  EXPECT_EQ(Said(Id::ReplaceFile), "!shopping.txt: A deleted file can't be replaced.");
  List().Select(1);
  EXPECT_FALSE(Panel().Commands()->CanRun(Id::ReplaceFile));
}

TEST_F(FilesDesk, FilesOpenElsewhereUnlessTheyCouldBePrograms) {
  Select("shopping.txt");
  EXPECT_EQ(Said(Id::OpenFile), "");
  const std::filesystem::path opened = PathOf(script.started.back().substr(5));
  EXPECT_EQ(ReadAll(opened), "Bread, milk, a new cover, batteries.\r\n");
  wxArrayString dropped;
  dropped.Add(WxPath(opened));
  EXPECT_FALSE(dynamic_cast<wxFileDropTarget&>(*main->GetDropTarget()).OnDropFiles(0, 0, dropped));
  Select("settings.ini");
  EXPECT_EQ(Said(Id::OpenFile),
            "!The file \"settings.ini\" could be a program, so it is not opened. Save it to examine it.");
  EXPECT_EQ(script.started.size(), 1u);
  main->Destroy();
  main = nullptr;
  Settle();
  EXPECT_FALSE(FileExist(opened));
}

}  // namespace
}  // namespace tarvelo
