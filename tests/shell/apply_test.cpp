#include <wx/display.h>

#include "shell/hex_desk.h"
#include "shell/list/review_dialog.h"
#include "shell/patch/apply_patch.h"
#include "shell/patch/patch_editor.h"

namespace tarvelo {
namespace {

// An open dump of 1 MiB that starts with erased bytes, and patches for it.
class ApplyDesk : public Desk {
 protected:
  ApplyDesk() { main->Dumps().OpenF(WriteDump("phone.bin")); }

  // Applies a patch through the menu. Returns the message without the file's name.
  std::string Apply(const std::string& text) {
    script.file = folder.Write("own.qpt", text);
    const std::string asked = "open Patch (*.qpt)|*.qpt|All files|*.*";
    std::string said = Said(Id::ApplyPatch);
    EXPECT_TRUE(said.starts_with(asked)) << said;
    said.erase(0, asked.size() + 3);
    const std::string name = At(*script.file);
    const std::size_t place = said.find(name);
    return place == said.npos ? said : said.erase(place, name.size());
  }

  [[nodiscard]] std::string Start() const { return AsHex(Image().Region(0, 8)); }
};

TEST_F(ApplyDesk, WritesFittingLinesAsOneStep) {
  EXPECT_EQ(Apply("; Greeting\r\n\r\n0: FFFF 4869 ; text\r\n4: FF 21\r\n6: FF 3F\r\n"),
            "iThe patch was applied. Number of changes: 3");
  EXPECT_EQ(Start(), "48 69 FF FF 21 FF 3F FF");
  EXPECT_EQ(Status(10), "F");
  EXPECT_EQ(Title(), "Tarvelo - Info");  // the panel does not change
  Choose(Id::HexView);
  main->Run(Id::Undo);
  EXPECT_EQ(Start(), "FF FF FF FF FF FF FF FF");
  EXPECT_FALSE(Open().Edits().CanUndo());
  main->Run(Id::Redo);
  EXPECT_EQ(Apply("4: FF 21\n5: FF 22"),
            "iThe patch was applied. Number of changes: 1\nLines that were applied already: 1");
  EXPECT_EQ(Shown<HexPanel>().Canvas().Selection(), (Region{5, 1}));
}

TEST_F(ApplyDesk, SaysWhyThereIsNothingToWrite) {
  script.reviewed = ReviewAnswer();
  for (const auto& [patch, said] :
       {std::pair("; only\n\n; comments", "iThe patch holds no changes."),
        {"0: 0102 FFFF\n4: 00 FF", "iThe fullflash carries this patch already."},
        {"nothing\n3: FF FF",
         "review Lines of the patch that don't fit the fullflash: 1\nLines that fit: 0\n"}})
    EXPECT_TRUE(Apply(patch).starts_with(said)) << patch;
  script.file.reset();
  Said(Id::ApplyPatch);  // cancelled
  const auto large = folder.Write("large.qpt", std::string("0: FF 12\n"));
  std::filesystem::resize_file(large, std::uintmax_t{33} << 20);
  script.file = large;
  EXPECT_EQ(SaidAtLast(Id::ApplyPatch), "!The file is larger than 32 MiB and can't be opened." + At(large));
  EXPECT_FALSE(Open().Edits().CanUndo());
}

TEST_F(ApplyDesk, ListsMisfitsAndAsks) {
  const char* const mixed = "0: FFFF 4869\n2: 00 01 ;not what stands there\nrub\tbish\n3: FF FF\n";
  const std::string list =
      "review Lines of the patch that don't fit the fullflash: 2\nLines that fit: 1\n"
      "Lines that were applied already: 1\nLine\tOffset\tPhone address\tExpected\tFound\n"
      "2\t000002\t3C0:0002\t00\tFF\n3\t\t\t\tThis is not a line of a patch. \"rub bish\"\n";
  EXPECT_EQ(Apply(mixed), list);
  EXPECT_EQ(Start(), "FF FF FF FF FF FF FF FF");
  script.reviewed = ReviewAnswer();
  EXPECT_EQ(Apply(mixed), list +
                              " | iThe patch was applied. Number of changes: 1\n"
                              "Lines that were applied already: 1\n"
                              "Lines of the patch that don't fit the fullflash: 2");
  EXPECT_EQ(Start(), "48 69 FF FF FF FF FF FF");
}

TEST_F(ApplyDesk, PatchesAreShownAndNeverOpenedAsDumps) {
  const auto file = folder.Write("own.QPT", std::string("0: FF 12\n")), missing = folder / "missing.qpt";
  const auto expectShown = [&] {
    EXPECT_EQ(Title(), "Tarvelo - Patch");
    EXPECT_EQ(Patch().Patch().Document(), "0: FF 12\r\n");
    EXPECT_EQ(Start(), "FF FF FF FF FF FF FF FF");
    Patch().Patch().Forget();
    Choose(Id::Info);
  };
  Drop(file);
  expectShown();
  Drop(missing);
  EXPECT_TRUE(script.TakeSaid().starts_with("!Can't open file !" + At(missing)));
  script.file = file;
  Said(Id::OpenFF);
  EXPECT_EQ(Open().Path(), folder / "phone.bin");  // the document stays
  expectShown();
  const std::string refusal =
      "!This is a patch, not a fullflash. Open the fullflash first, then apply the patch to it." + At(file);
  const auto open = [&] { main->Dumps().OpenNamed(PathText(file)); };
  main->Dumps().CloseFF();
  for (const auto& way : std::initializer_list<std::function<void()>>{open, [&] { Drop(file); }}) {
    script.said.clear();
    way();
    EXPECT_EQ(script.TakeSaid(), refusal);
    EXPECT_FALSE(Open().IsOpen());
  }
  WriteDump("own.fls");
  open();
  EXPECT_EQ(Open().Path(), folder / "own.fls");
  expectShown();
}

TEST_F(ApplyDesk, ListsAMillionLinesAtMost) {
  std::string text;
  for (int i = 0; i < 1100000; ++i) text += "0: 00 01\n";
  const ReadPatch patch = ReadPatchText(text);
  const PatchCheck check = CheckPatch(patch.changes, Image());
  const MisfitTable misfits(patch, check, Image(), main->Bench().texts);
  EXPECT_NE(misfits.Summary().find("\nOnly the first 1000000 lines are listed."), std::string::npos);
  const Review review = ReviewOf(misfits);
  ReviewDialog dialog(main, main->Bench().texts, review);
  dialog.Show();
  Settle();
  EXPECT_EQ(dialog.List().RowCount(), 1000000u);
  EXPECT_EQ(RowOf(dialog.List(), 999999), "1000000\t000000\t3C0:0000\t00\tFF\n");
  EXPECT_FALSE(dialog.FindWindow(wxID_OK)->IsEnabled());
  EXPECT_EQ(dialog.GetDefaultItem(), dialog.FindWindow(wxID_CANCEL));
  EXPECT_LT(dialog.GetSize().x, wxDisplay(main).GetClientArea().GetWidth());
}

}  // namespace
}  // namespace tarvelo
