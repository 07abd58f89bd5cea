// Every way to save on the desk, with every fault: the user is told, and the document stays.
#include "demo/demo_image.h"
#include "file_faults.h"
#include "shell/desk.h"
#include "shell/hex_panel.h"
#include "shell/list_view.h"
#include "shell/patch_panel.h"
#include "shell/pictures_panel.h"

namespace tarvelo {
namespace {

namespace fs = std::filesystem;

constexpr char oldContents[] = "what stood there before";

// A command of the menu, and the file that it writes.
struct Saver {
  const char* name;
  fs::path file;       // in the dump's folder
  bool deletesBefore;  // an old file goes first
  std::function<void()> save;
};

class FaultsDesk : public Desk {
 protected:
  FaultsDesk() { Open("demo"); }

  void Open(const std::string& stem) {
    fs::remove_all(dumps);
    MakeFolder(dumps);
    dump = dumps / PathOf(stem + ".bin");
    static const std::vector<std::uint8_t> demo = DemoImage();
    WriteFile(dump, demo, progress);
    main->OpenF(dump);
    main->Patch().AddPatch("one", "10: 00 01", false);
    Settle();
  }

  [[nodiscard]] std::vector<Saver> Savers() {
    const std::string stem = PathText(dump.stem());
    const auto panel = [this](int entry, int command) {
      return [=, this] {
        Choose(entry);
        main->Run(command);
      };
    };
    return {
        {"Save", PathOf(stem + ".bin"), true, panel(Info, Save)},
        {"list", PathOf(stem + "_P.txt"), false, panel(Pictures, SaveText)},
        {"information", PathOf(stem + ".info"), false, panel(Info, SaveText)},
        {"patch", PathOf(stem + ".qpt"), false, panel(PatchMenu, SaveText)},
        {"picture", fs::path("BMP") / PathOf(stem + "_0000.bmp"), false, panel(Pictures, SavePic)},
        {"region", PathOf(stem + "_000010.bin"), false,
         [this] {
           main->ShowHex(0x10, 0x100);
           main->Run(SaveText);
         }},
    };
  }

  // Saves, and looks at what is to be: the message, the document, and the folder with nothing new in it.
  void ExpectFailure(const Saver& saver, const std::function<void()>& save) {
    script.said.clear();
    const auto before = ContentsOf(dumps);
    const std::size_t size = main->Open().image.ff().size();
    save();
    Settle();
    const std::string said = script.TakeSaid();
    EXPECT_TRUE(said.starts_with("!")) << said;
    EXPECT_NE(said.find(PathText(saver.file.filename())), std::string::npos) << said;
    EXPECT_TRUE(script.said.empty());
    EXPECT_EQ(main->Open().image.ff().size(), size);
    EXPECT_EQ(main->Open().path, dump);
    EXPECT_EQ(Status(StatusBar::patchPanel), "P");
    auto expected = before;
    if (saver.deletesBefore && !fs::exists(dumps / saver.file)) expected.erase(PathText(saver.file));
    expected.try_emplace(PathText(saver.file.parent_path()));  // a folder that was made stays
    auto after = ContentsOf(dumps);
    after.try_emplace(PathText(saver.file.parent_path()));
    EXPECT_EQ(after == expected, true);  // not printed: the contents are long
  }

  void PutInTheWay(const Saver& saver) const {
    MakeFolder((dumps / saver.file).parent_path());
    if (saver.file.extension() != ".bin" || !FileExist(dumps / saver.file))
      WriteFile(dumps / saver.file, oldContents);
  }

  NoProgress progress;
  const fs::path dumps = folder / "dumps";
  fs::path dump;
};

TEST_F(FaultsDesk, AFullDiskIsToldOf) {
  if (!FullDisk::isPossible) GTEST_SKIP();
  for (const Saver& saver : Savers()) {
    SCOPED_TRACE(saver.name);
    for (const bool isThere : {false, true}) {
      if (isThere) PutInTheWay(saver);
      ExpectFailure(saver, [&] {
        const FullDisk full;
        saver.save();
      });
    }
  }
}

TEST_F(FaultsDesk, AFolderInTheWayIsToldOf) {
  for (const Saver& saver : Savers()) {
    SCOPED_TRACE(saver.name);
    fs::remove(dumps / saver.file);
    MakeFolder(dumps / saver.file);
    ExpectFailure(saver, saver.save);
    EXPECT_TRUE(DirExist(dumps / saver.file));
  }
}

TEST_F(FaultsDesk, AFileThatIsOpenElsewhereIsToldOf) {
  if (!OpenElsewhere::isPossible) GTEST_SKIP();
  for (const Saver& saver : Savers()) {
    SCOPED_TRACE(saver.name);
    PutInTheWay(saver);
    script.said.clear();
    {
      const OpenElsewhere open(dumps / saver.file);
      saver.save();
      Settle();
    }
    EXPECT_TRUE(script.TakeSaid().starts_with("!"));
    EXPECT_TRUE(FileExist(dumps / saver.file));
    EXPECT_TRUE(main->Open().IsOpen());
  }
}

TEST_F(FaultsDesk, SaveAsToWhereNothingCanBeWritten) {
  const auto size = main->Open().image.ff().size();
  for (const fs::path& target : {folder.Path(), dump / "below a file.bin", folder / std::string(256, 'x'),
                                 folder / "missing" / "x.bin"}) {
    script.said.clear();
    script.file = target;
    Choose(SaveAs);
    ASSERT_EQ(script.said.size(), 2u);  // the dialog and the message
    EXPECT_TRUE(script.said[1].starts_with("!Can't open file !")) << script.said[1];
    EXPECT_NE(script.said[1].find(PathText(target)), std::string::npos) << script.said[1];
    EXPECT_EQ(main->Open().image.ff().size(), size);
    EXPECT_EQ(main->Open().path, dump);
  }
  script.file = folder / "copy.bin";
  Choose(SaveAs);
  EXPECT_EQ(std::filesystem::file_size(folder / "copy.bin"), size);
}

TEST_F(FaultsDesk, NamesAreOfAnyScript) {
  std::vector<std::string> stems{"Дамп", "Αντίγραφο", "转储", "🎵📱"};
#ifndef _WIN32
  stems.emplace_back("\xFF\xC3(");  // no UTF-8 at all
#endif
  for (const std::string& stem : stems) {
    Open(stem);
    for (const Saver& saver : Savers()) {
      script.said.clear();
      saver.save();
      Settle();
      EXPECT_TRUE(FileExist(dumps / saver.file)) << saver.name << " " << stem;
      const std::string said = script.TakeSaid();
      EXPECT_TRUE(said.empty() || said.starts_with("i")) << saver.name << " " << said;
    }
    EXPECT_EQ(ContentsOf(dumps).size(), 7u) << stem;  // six files and a folder
  }
}

TEST_F(FaultsDesk, ANameThatLeavesNoRoomForAnEnding) {
  Open(std::string(251, 'x'));
  for (const Saver& saver : Savers()) {
    SCOPED_TRACE(saver.name);
    if (saver.file.string().ends_with("x.bin") || saver.file.extension() == ".qpt") continue;  // these fit
    ExpectFailure(saver, saver.save);
  }
}

#ifndef _WIN32
TEST_F(FaultsDesk, SettingsStayAsTheyWere) {
  Settings settings(SettingsFile());
  const std::string before = ReadAll(SettingsFile());
  {
    const FullDisk full;
    settings.SetIni("General", "Language", "DE");
  }
  EXPECT_EQ(ReadAll(SettingsFile()), before);
  settings.SetIni("General", "Language", "DE");
  EXPECT_EQ(settings.GetIni("General", "Language"), "DE");
}
#endif

// A senseless image with a long list: the rows are made when they are drawn.
TEST_F(FaultsDesk, AHundredThousandPicturesAreShownAndSaved) {
  ImageBuilder image(0x100000);
  for (std::size_t p = 0; p + 8 <= image.Size(); p += 8) {
    image.DWord(p, p == 0 ? 0x00010404 : 0x00050404);
    image.Pointer(p + 4, 0x100);
  }
  main->OpenF(folder.Write("table.bin", std::move(image).Take()));
  Choose(Pictures);
  auto& list = dynamic_cast<PicturesPanel&>(*main->Visible()).ListP();
  EXPECT_EQ(list.RowCount(), 0x20000u);
  EXPECT_TRUE(list.GetTable().rows.empty());
  main->Run(SaveText);
  const std::string text = ReadAll(folder / "table_P.txt");
  EXPECT_EQ(std::ranges::count(text, '\n'), 0x20001);
  list.SortBy(2);
  list.SortBy(2);
  list.Step(1);
  EXPECT_TRUE(list.Selected());
}

}  // namespace
}  // namespace tarvelo
