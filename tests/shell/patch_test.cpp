#include "patch/patch_document.h"

#include <set>

#include "shell/hex_desk.h"
#include "shell/patch/patch_editor.h"
#include "shell/view/change_view.h"

namespace tarvelo {
namespace {

const std::string phone = "C55 v24 FD-02";

// An open dump with the Patch panel visible.
class PatchDesk : public Desk {
 protected:
  PatchDesk() {
    main->Dumps().OpenF(WriteDump("phone.bin"));
    Choose(Id::PatchMenu);
  }

  // Undoes or redoes, then compares the text.
  void ExpectAfter(int id, const std::string& text) {
    main->Run(id);
    EXPECT_EQ(Document(), text);
    EXPECT_EQ(Status(9), text.empty() ? "" : "P");
  }
  [[nodiscard]] PatchEditor& Editor() const { return Patch().Patch(); }
  [[nodiscard]] std::string Document() const { return Editor().Document(); }
  [[nodiscard]] std::filesystem::path File() const { return folder / "phone.qpt"; }
};

TEST_F(PatchDesk, TakesPatchesOneBelowTheOther) {
  EXPECT_EQ(Title(), "Tarvelo - Patch");
  EXPECT_EQ(Caption(Id::SaveText), "Save patch");
  Patch().AddPatch("Block 71", "1A: 00 FF\n1C: 00 FF", true);
  EXPECT_EQ(script.TakeSaid(), "[Tarvelo - Was added patch \"Block 71\"];Block 71\n\n1A: 00 FF\n1C: 00 FF");
  Patch().AddPatch("Привет", "10: 00 01", false);
  EXPECT_TRUE(script.said.empty());
  const std::string first = PatchBlock("Block 71", "1A: 00 FF\n1C: 00 FF");
  EXPECT_EQ(Document(), first + PatchBlock("Привет", "10: 00 01"));
  ExpectAfter(Id::Undo, first);
  ExpectAfter(Id::Undo, "");
  ExpectAfter(Id::Redo, first);
  script.confirm = true;
  main->Dumps().OpenChosen(WriteDump("other.bin"));  // the patch goes with the fullflash
  EXPECT_EQ(Document(), "");
  EXPECT_EQ(Status(9), "");
  EXPECT_FALSE(Editor().CanUndo());
}

TEST_F(PatchDesk, IsUnsavedFromAnyChangeUntilItIsSaved) {
  EXPECT_EQ(Status(9), "");
  Editor().AddText("1A: 00 FF");  // as if typed
  EXPECT_EQ(Status(9), "P");
  EXPECT_EQ(Said(Id::SaveText), "iPatch was saved in file" + At(File()));
  EXPECT_EQ(ReadAll(File()), PatchFile(phone, "1A: 00 FF"));
  EXPECT_EQ(Status(9), "");
  ExpectAfter(Id::Undo, "");
  ExpectAfter(Id::Redo, "1A: 00 FF");
  main->Run(Id::SelectAll);
  ExpectAfter(Id::Cut, "");
  main->Run(Id::SavePatch);
  EXPECT_EQ(ReadAll(File()), PatchFile(phone, ""));
}

TEST_F(PatchDesk, IsSearchedRoundAndRound) {
  Patch().AddPatch("Привет", "1A: 00 FF", false);
  Patch().AddPatch("ПРИВЕТ", "1C: 00 FF", false);
  Editor().GotoPos(0);
  Said(Id::Find, "привет");
  for (const auto& [found, next] : {std::pair("Привет", Id::FindMore),
                                    {"ПРИВЕТ", Id::Next},
                                    {"Привет", Id::Previous},
                                    {"ПРИВЕТ", Id::Previous}}) {
    EXPECT_EQ(Utf8(Editor().GetSelectedText()), found);
    EXPECT_EQ(Said(next), "");
  }
  EXPECT_EQ(Utf8(Editor().GetSelectedText()), "Привет");
  EXPECT_EQ(Said(Id::Find, "1D"), "ask Enter the string for search: привет | !String \"1D\" wasn't found");
}

TEST_F(PatchDesk, MarksCommentsAndInvalidLines) {
  const std::string text = ";comment\r\n10: 00 01 ;change\r\n10: 00 wrong\r\nlast";
  Editor().SetText(text);
  Editor().Colourise(0, -1);
  const auto style = [&](const char* part) { return Editor().GetStyleAt(static_cast<int>(text.find(part))); };
  EXPECT_EQ(style("comment"), style(";comment"));
  EXPECT_EQ(style("wrong"), style("last"));
  EXPECT_EQ(std::set({style("comment"), style("change"), style("wrong")}).size(), 3u);
}

// The control has commands of its own for these keys.
TEST_F(PatchDesk, LeavesShortcutsToTheMenus) {
  Editor().SetText("10: FF 01");
  for (const auto& [key, title] : {std::pair('U', "References"), {'D', "Code"}, {'M', "Patch"}}) {
    Choose(Id::PatchMenu);
    EXPECT_TRUE(Key(Editor(), key, wxMOD_CONTROL));
    EXPECT_EQ(Title(), "Tarvelo - " + std::string(title));
  }
  EXPECT_EQ(script.TakeSaid(), "ask Comment on this place: ");
  EXPECT_TRUE(Key(Editor(), 'T', wxMOD_CONTROL));
  EXPECT_EQ(script.TakeSaid(), "iPatch was saved in file" + At(File()));
  EXPECT_EQ(Document(), "10: FF 01");
  EXPECT_TRUE(Key(Editor(), 'U', wxMOD_CONTROL | wxMOD_SHIFT));
  EXPECT_EQ(Title(), "Tarvelo - References");
}

TEST_F(PatchDesk, IsSavedBeforeThePatcherTakesIt) {
  EXPECT_FALSE(Enabled(Id::Quillo));  // no patcher is known
  script.registry["HKCR\\Quillo.bin\\shell\\open\\command\\"] = R"("C:\Quillo\quillo.exe" "%1")";
  Restart();
  main->Dumps().OpenF(folder / "phone.bin");
  Choose(Id::Quillo);  // there are no unsaved changes
  EXPECT_TRUE(script.said.empty());
  EXPECT_FALSE(FileExist(File()));
  EXPECT_EQ(script.started.back(), R"(run "C:\Quillo\quillo.exe" ")" + PathText(File()) + '"');

  Patch().AddPatch("one", "10: 00 01", false);
  EXPECT_EQ(Said(Id::Quillo), "iPatch was saved in file" + At(File()));
  EXPECT_EQ(ReadAll(File()), PatchFile(phone, PatchBlock("one", "10: 00 01")));
  EXPECT_EQ(script.started.size(), 2u);

  Patch().AddPatch("two", "10: 00 01", false);
  RemoveFile(File());
  MakeFolder(File());  // blocks the file's name
  EXPECT_EQ(Said(Id::Quillo), "!Can't open file !" + At(File()) + WriteAdvice());
  EXPECT_EQ(script.started.size(), 2u);  // not started with the old file
}

TEST_F(PatchDesk, ChecksLinesWhileOneTypes) {
  const auto mark = [this](int line) { return Editor().MarkerGet(line); };
  const auto sign = [](LineVerdict verdict) { return 1 << static_cast<int>(verdict); };
  const auto expectAt = [this](std::size_t line, const std::string& facts) {
    Settle();
    EXPECT_EQ(Editor().CaretLine(), line);
    EXPECT_EQ(Utf8(Patch().LineFacts()), facts);
  };
  Editor().AddText("0: FF 12 ;a\r\n4: 00 01\r\nrubbish\r\n0: 12 13");
  expectAt(4, "Line: 4    overlaps: 1    Found: FF");
  EXPECT_EQ(Utf8(Patch().Totals()), "malformed 1    differs 1    overlaps 1    fits 1");
  EXPECT_EQ(mark(0), sign(LineVerdict::Fits));
  EXPECT_EQ(mark(1), sign(LineVerdict::Differs));
  EXPECT_NE(Editor().GetStyleAt(Editor().PositionFromLine(1)), Editor().GetStyleAt(0));
  Editor().GotoLine(0);
  Choose(Id::NextProblem);
  expectAt(2, "Line: 2    differs    Found: FF");
  EXPECT_TRUE(Utf8(Patch().Preview().GetText()).starts_with("- F0:0004  00FF"));
  Open().Write(5, std::vector<std::uint8_t>{0x11});
  Settle();
  EXPECT_TRUE(Utf8(Patch().Preview().GetText()).starts_with("- F0:0004  0011"));
  UndoAll();
  Choose(Id::PreviousProblem);
  expectAt(4, "Line: 4    overlaps: 1    Found: FF");
  Choose(Id::OpenHex);
  EXPECT_EQ(Shown<HexPanel>().Canvas().Selection(), (Region{0, 1}));
  Choose(Id::ShowInPatch);
  EXPECT_EQ(Title(), "Tarvelo - Patch");
  Editor().GotoLine(1);
  Choose(Id::OpenHex);
  ShowHex(5, 1);
  EXPECT_EQ(Said(Id::ShowInPatch), "!No line of the patch changes this byte.");
  Choose(Id::GoBack);
  Choose(Id::GoBack);
  expectAt(2, "Line: 2    differs    Found: FF");

  script.reviewed = ReviewAnswer();
  Said(Id::ApplyThisPatch);
  EXPECT_EQ(AsHex(Image().Region(0, 2)), "13 FF");
  expectAt(2, "Line: 2    differs    Found: FF");
  EXPECT_EQ(Utf8(Patch().Totals()), "malformed 1    differs 1    overlaps 1    fits 1");  // as it was opened
  EXPECT_TRUE(Said(Id::TakeOutPatch)
                  .ends_with("iThe patch was taken out. Number of changes: 2\n"
                             "Lines of the patch that don't fit the fullflash: 2"));
  EXPECT_EQ(AsHex(Image().Region(0, 2)), "FF FF");
  EXPECT_NE(Said(Id::TakeOutPatch).find("\nLines that weren't applied: 2"), std::string::npos);
}

TEST_F(PatchDesk, IsOpenedSavedElsewhereAndClosed) {
  const auto other = folder.Write("other.qpt", std::string("0: FF 12 ;\xEF\n"));
  const auto kept = "\n\nThe earlier file was kept as \"phone.qpt.bak\"";
  folder.Write("phone.qpt", std::string("old"));
  main->Dumps().OpenChosen(other);
  EXPECT_EQ(Document(), "0: FF 12 ;п\r\n");
  EXPECT_EQ(Status(9), "");
  script.file = folder / "copy";
  EXPECT_EQ(SaidAtLast(Id::SavePatchAs), "iPatch was saved in file" + At(folder / "copy.qpt"));
  EXPECT_EQ(ReadAll(folder / "copy.qpt"), "0: FF 12 ;\xEF\r\n");
  EXPECT_EQ(Said(Id::SavePatch), "iPatch was saved in file" + At(File()) + kept);
  EXPECT_EQ(ReadAll(folder / "phone.qpt.bak"), "old");
  EXPECT_EQ(ReadAll(File()), PatchFile(phone, "0: FF 12 ;\xEF\r\n"));
  EXPECT_EQ(Said(Id::SavePatch), "iPatch was saved in file" + At(File()));
  Editor().AddText("x");
  Said(Id::ClosePatch);
  EXPECT_EQ(Status(9), "P");
  script.confirm = true;
  Said(Id::ClosePatch);
  EXPECT_EQ(Document() + Status(9) + Utf8(Patch().Totals()), "");
  Restart();
  main->Dumps().OpenF(folder / "phone.bin");
  Choose(Id::PatchMenu);
  EXPECT_EQ(Item(Id::FirstRecentPatch + 2), nullptr);
  Choose(Id::FirstRecentPatch + 1);
  EXPECT_EQ(Document(), "0: FF 12 ;п\r\n");
  EXPECT_TRUE(Patch().IsFromElsewhere());  // the patcher gets the file beside the dump

  main->Dumps().OpenChosen(folder.Write("line.qpt", ";" + std::string(300000, '.')));
  EXPECT_TRUE(script.said.back().starts_with("!The file has a line that is too long for a patch."));
  std::string lines;
  for (int i = 0; i < 200000; ++i) lines += "0: FF 12\r\n";
  main->Dumps().OpenChosen(folder.Write("long.qpt", lines));
  Choose(Id::PreviousProblem);  // completes the check, which waits for the user to pause
  EXPECT_EQ(Editor().CaretLine(), 200000u);
}

TEST_F(PatchDesk, IsMergedReversedAndSplit) {
  const std::string own = "0: FF 12 ;a\r\n";
  Editor().SetText(own);
  script.file = folder.Write("other.qpt", std::string("0: FF 13\n4: FF 01\n0: FF 12 ;b"));
  EXPECT_EQ(SaidAtLast(Id::AddPatchFile),
            "[Tarvelo - Add patch file]Lines added: 2\nLines that the patch had already: 1\n"
            "Lines that contradict others: 2\n\n000000    1: FF 12\n000000    5: FF 13\n");
  const std::string merged = "0: FF 12 ;a ;b\r\n" + PatchBlock("other", "0: FF 13\r\n4: FF 01\r\n");
  EXPECT_EQ(Document(), merged);
  main->Run(Id::ReversePatch);
  EXPECT_EQ(Document(), "0: 13 FF\r\n" + PatchBlock("other", "0: 12 FF ;a ;b\r\n4: 01 FF\r\n"));
  ExpectAfter(Id::Undo, merged);
  EXPECT_EQ(Said(Id::SplitPatch), "!The patch has no separate parts.");
  Patch().AddPatch("two/three", "8: FF 00", false);
  EXPECT_EQ(Said(Id::SplitPatch), "iPatch files written: 2" + At(folder / "phone_*.qpt"));
  EXPECT_EQ(ReadAll(folder / "phone_two_three.qpt"),
            PatchFile(phone, "\r\n;two/three\r\n\r\n8: FF 00\r\n\r\n"));
  EXPECT_TRUE(FileExist(folder / "phone_other.qpt"));
  ExpectAfter(Id::Undo, merged);
  ExpectAfter(Id::Undo, own);
}

}  // namespace
}  // namespace tarvelo
