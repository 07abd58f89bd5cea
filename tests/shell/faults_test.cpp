// Every way to save in the window, with every fault: the program reports it, and the document stays.
#include "file_faults.h"
#include "shell/desk.h"
#include "shell/patch/patch_panel.h"

namespace tarvelo {
namespace {

namespace fs = std::filesystem;

// A menu command and the file that it writes.
struct Saver {
  const char* name;
  fs::path file;       // in the dump's folder
  bool deletesBefore;  // deletes an old file first
  std::function<void()> save;
};

class FaultsDesk : public Desk {
 protected:
  FaultsDesk() {
    MakeFolder(dumps);
    OpenBytes(dump, DemoImage(), Id::Info);
    Patch().AddPatch("one", "10: 00 01", false);
    Settle();
  }

  [[nodiscard]] std::vector<Saver> Savers() {
    const auto panel = [this](int entry, int command) {
      return [=, this] {
        Choose(entry);
        main->Run(command);
      };
    };
    return {
        {"Save", PathOf(stem + ".bin"), true, panel(Id::Info, Id::Save)},
        {"list", PathOf(stem + "_P.txt"), false, panel(pictures, Id::SaveText)},
        {"information", PathOf(stem + ".info"), false, panel(Id::Info, Id::SaveText)},
        {"patch", PathOf(stem + ".qpt"), false, panel(Id::PatchMenu, Id::SaveText)},
        {"picture", fs::path("BMP") / PathOf(stem + "_0000.bmp"), false, panel(pictures, Id::SavePic)},
        {"region", PathOf(stem + "_000010.bin"), false,
         [this] {
           ShowHex(0x10, 0x100);
           main->Run(Id::SaveText);
         }},
    };
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
      saver.save();
      Settle();
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

    saver.save();  // works the next time
    const std::string saidThen = script.TakeSaid();
    EXPECT_TRUE(saidThen.empty() || saidThen.starts_with("i")) << saidThen;
    EXPECT_GT(fs::file_size(file), 30u);
    main->Bench().status.SetPanel(StatusBar::patchPanel, "P");
  }

  const std::string stem = "Дамп 转储 🎵";
  const fs::path dumps = folder / "dumps";
  const fs::path dump = dumps / PathOf(stem + ".bin");
};

struct FullDiskAnywhere : FullDisk {
  explicit FullDiskAnywhere(const fs::path&) {}
};

TEST_F(FaultsDesk, AreReportedForEveryWayToSave) {
  for (const Saver& saver : Savers()) {
    SCOPED_TRACE(saver.name);
    if (FullDisk::isPossible) ExpectFailure<FullDiskAnywhere>(saver);
    if (OpenElsewhere::isPossible) ExpectFailure<OpenElsewhere>(saver);
  }
}

TEST_F(FaultsDesk, SaveAsReportsAnUnwritableTarget) {
  for (const fs::path& target : {folder.Path(), dump / "below a file.bin", folder / "missing" / "x.bin"}) {
    script.said.clear();
    script.file = target;
    Choose(Id::SaveAs);
    ASSERT_EQ(script.said.size(), 2u);  // the dialog and the message
    EXPECT_EQ(script.said[1], "!Can't open file !\n\n" + PathText(target) + WriteAdvice());
    EXPECT_EQ(Image().ff().size(), 0x800000u);
    EXPECT_EQ(Open().Path(), dump);
    EXPECT_EQ(Open().FileStem(), dumps / PathOf(stem));
    EXPECT_TRUE(script.beeps.empty());
  }
}

}  // namespace
}  // namespace tarvelo
