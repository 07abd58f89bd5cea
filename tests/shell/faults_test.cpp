// Every way to save in the window, with every fault: the program reports it, and the document stays.
#include "file_faults.h"
#include "shell/desk.h"

namespace tarvelo {
namespace {

namespace fs = std::filesystem;

// A panel's command, the file that it writes into the dump's folder, and whether it deletes an old one first.
struct Saver {
  int panel;
  int command;
  fs::path file;
  bool deletesBefore = false;
};

struct FullDiskAnywhere : FullDisk {
  explicit FullDiskAnywhere(const fs::path&) {}
};

class FaultsDesk : public Desk {
 protected:
  FaultsDesk() {
    MakeFolder(dumps);
    OpenBytes(dump, DemoImage(), Id::Info);
    Patch().AddPatch("one", "10: 00 01", false);
    Settle();
  }

  void Save(const Saver& saver) {
    if (saver.panel == Id::HexView)
      ShowHex(0x10, 0x100);
    else
      Choose(saver.panel);
    main->Run(saver.command);
    Settle();
  }

  // Makes a saver try to overwrite an old file, then checks the message, the document, and that the folder
  // contains nothing new.
  template <typename Fault>
  void ExpectFailure(const Saver& saver) {
    const fs::path file = dumps / saver.file;
    MakeFolder(file.parent_path());
    if (!FileExist(file)) WriteFile(file, "what stood there before");
    auto expected = ContentsOf(dumps);
    script.said.clear();
    {
      const Fault fault(file);
      Save(saver);
    }
    const std::string said = script.TakeSaid();
    EXPECT_TRUE(said.starts_with("!")) << said;
    EXPECT_NE(said.find(PathText(file.filename())), std::string::npos) << said;
    EXPECT_TRUE(script.said.empty());
    EXPECT_EQ(Image().ff().size(), 0x800000u);
    EXPECT_EQ(Open().Path(), dump);
    EXPECT_EQ(Status(StatusBar::patchPanel), "P");
    if (saver.deletesBefore && !fs::exists(file)) expected.erase(PathText(saver.file));
    EXPECT_TRUE(ContentsOf(dumps) == expected);  // not printed: the contents are long

    Save(saver);  // works the next time
    const std::string saidThen = script.TakeSaid();
    EXPECT_TRUE(saidThen.empty() || saidThen.starts_with("i")) << saidThen;
    EXPECT_GT(fs::file_size(file), 30u);
    main->Bench().status.SetPanel(StatusBar::patchPanel, "P");
  }

  const std::string stem = "Дамп 转储 🎵";
  const fs::path dumps = folder / "dumps";
  const fs::path dump = dumps / PathOf(stem + ".bin");
};

TEST_F(FaultsDesk, AreReportedForEveryWayToSave) {
  for (const Saver& saver : {Saver{Id::Info, Id::Save, PathOf(stem + ".bin"), true},
                             {pictures, Id::SaveText, PathOf(stem + "_P.txt")},
                             {Id::Info, Id::SaveText, PathOf(stem + ".info")},
                             {Id::PatchMenu, Id::SaveText, PathOf(stem + ".qpt")},
                             {pictures, Id::SavePic, fs::path("BMP") / PathOf(stem + "_0000.bmp")},
                             {Id::HexView, Id::SaveText, PathOf(stem + "_000010.bin")}}) {
    SCOPED_TRACE(saver.file);
    if (FullDisk::isPossible) ExpectFailure<FullDiskAnywhere>(saver);
    if (OpenElsewhere::isPossible) ExpectFailure<OpenElsewhere>(saver);
  }
}

TEST_F(FaultsDesk, SaveAsReportsAnUnwritableTarget) {
  for (const fs::path& target : {folder.Path(), dump / "below a file.bin", folder / "missing" / "x.bin"}) {
    script.file = target;
    EXPECT_EQ(SaidAtLast(Id::SaveAs), "!Can't open file !" + At(target) + WriteAdvice());
    EXPECT_EQ(Image().ff().size(), 0x800000u);
    EXPECT_EQ(Open().Path(), dump);
    EXPECT_EQ(Open().FileStem(), dumps / PathOf(stem));
    EXPECT_TRUE(script.beeps.empty());
  }
}

}  // namespace
}  // namespace tarvelo
