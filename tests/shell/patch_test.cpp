#include "patch/patch_document.h"
#include "shell/desk.h"
#include "shell/patch_editor.h"
#include "shell/patch_panel.h"

namespace tarvelo {
namespace {

const std::string phone = "C55 v24 FD-02";

// An open dump with its Patch panel shown.
class PatchDesk : public Desk {
 protected:
  PatchDesk() {
    main->OpenF(WriteDump("phone.bin"));
    Choose(PatchMenu);
  }

  [[nodiscard]] PatchPanel& Panel() const { return main->Patch(); }
  [[nodiscard]] PatchEditor& Editor() const { return Panel().Patch(); }
  [[nodiscard]] std::string Document() const { return Editor().Document(); }
  [[nodiscard]] std::string Selected() const { return Utf8(Editor().GetSelectedText()); }
  [[nodiscard]] int StyleAt(const std::string& text) const {
    return Editor().GetStyleAt(static_cast<int>(Document().find(text)));
  }
  [[nodiscard]] std::filesystem::path File() const { return folder / "phone.qpt"; }
};

TEST_F(PatchDesk, TakesPatchesOneBelowTheOther) {
  EXPECT_EQ(Title(), "Tarvelo - Patch");
  EXPECT_EQ(Caption(SaveText), "Save patch");
  Panel().AddPatch("Block 71", "1A: 00 FF\n1C: 00 FF", true);
  EXPECT_EQ(script.TakeSaid(), "[Tarvelo - Was added patch \"Block 71\"];Block 71\n\n1A: 00 FF\n1C: 00 FF");
  Panel().AddPatch("Привет", "10: 00 01", false);
  EXPECT_TRUE(script.said.empty());
  const std::string first = PatchBlock("Block 71", "1A: 00 FF\n1C: 00 FF");
  EXPECT_EQ(Document(), first + PatchBlock("Привет", "10: 00 01"));
  main->Run(UndoPatch);
  EXPECT_EQ(Document(), first);
  main->Run(UndoPatch);
  EXPECT_EQ(Document(), "");
  EXPECT_EQ(Status(9), "");
  main->Run(RedoPatch);
  EXPECT_EQ(Document(), first);
}

TEST_F(PatchDesk, IsUnsavedFromAnyChangeUntilItIsSaved) {
  EXPECT_EQ(Status(9), "");
  Editor().AddText("1A: 00 FF");  // as if typed
  EXPECT_EQ(Status(9), "P");
  Choose(SaveText);
  EXPECT_EQ(script.TakeSaid(), "iPatch was saved in file\n\n" + PathText(File()));
  EXPECT_EQ(ReadAll(File()), PatchFile(phone, "1A: 00 FF"));
  EXPECT_EQ(Status(9), "");
  main->Run(UndoPatch);
  EXPECT_EQ(Status(9), "");  // it is empty again
  main->Run(RedoPatch);
  EXPECT_EQ(Status(9), "P");
  main->Run(SelectPatch);
  main->Run(CutPatch);
  EXPECT_EQ(Status(9), "");
  main->Run(SavePatchFile);
  EXPECT_EQ(ReadAll(File()), PatchFile(phone, ""));
}

TEST_F(PatchDesk, GoesWithTheFullflash) {
  Panel().AddPatch("one", "10: 00 01", false);
  main->OpenChosen(WriteDump("other.bin"));
  EXPECT_EQ(script.TakeSaid(), "?Exist unsaved data in patch !\nAre you sure to continue ?");
  EXPECT_EQ(Status(9), "P");
  script.confirm = true;
  main->OpenChosen(WriteDump("other.bin"));
  EXPECT_EQ(Document(), "");
  EXPECT_EQ(Status(9), "");
  Choose(PatchMenu);
  main->Run(UndoPatch);
  EXPECT_FALSE(Editor().CanUndo());
  EXPECT_EQ(Document(), "");
}

TEST_F(PatchDesk, IsSearchedRoundAndRound) {
  Panel().AddPatch("Привет", "1A: 00 FF", false);
  Panel().AddPatch("ПРИВЕТ", "1C: 00 FF", false);
  Editor().GotoPos(0);
  script.answer = "привет";
  main->Run(FindPatch);
  EXPECT_EQ(Selected(), "Привет");
  main->Run(FindMorePatch);
  EXPECT_EQ(Selected(), "ПРИВЕТ");
  main->Run(FindMorePatch);
  EXPECT_EQ(Selected(), "Привет");
  script.said.clear();
  script.answer = "1D";
  main->Run(FindPatch);
  EXPECT_EQ(script.TakeSaid(), "ask Enter the string for search: привет");
  EXPECT_EQ(script.TakeSaid(), "!String \"1D\" wasn't found");
}

TEST_F(PatchDesk, MarksCommentsAndLinesThatAreNoPatch) {
  Editor().SetText(";comment\r\n10: 00 01 ;change\r\n10: 00 wrong\r\nlast");
  Editor().Colourise(0, -1);
  EXPECT_EQ(StyleAt("comment"), StyleAt(";comment"));
  EXPECT_NE(StyleAt("comment"), StyleAt("change"));
  EXPECT_EQ(StyleAt("wrong"), StyleAt("last"));
  EXPECT_NE(StyleAt("wrong"), StyleAt("comment"));
  EXPECT_NE(StyleAt("wrong"), StyleAt("change"));
}

TEST_F(PatchDesk, ShortcutOfTheMenuBarReachesIt) {
  Editor().AddText("1A: 00 FF\r\n;last");
  wxKeyEvent key(wxEVT_CHAR_HOOK);
  key.m_keyCode = 'T';
  key.SetControlDown(true);
  EXPECT_TRUE(Editor().ProcessWindowEvent(key));
  EXPECT_EQ(script.TakeSaid(), "iPatch was saved in file\n\n" + PathText(File()));
  EXPECT_EQ(Document(), "1A: 00 FF\r\n;last");
}

TEST_F(PatchDesk, IsSavedBeforeThePatcherTakesIt) {
  main->Destroy();
  script.registry["HKCR\\Quillo.bin\\shell\\open\\command\\"] = R"("C:\Quillo\quillo.exe" "%1")";
  StartProgram();
  main->OpenF(folder / "phone.bin");
  Panel().AddPatch("one", "10: 00 01", false);
  Choose(Quillo);
  EXPECT_EQ(script.TakeSaid(), "iPatch was saved in file\n\n" + PathText(File()));
  EXPECT_EQ(ReadAll(File()), PatchFile(phone, PatchBlock("one", "10: 00 01")));
  const std::string command = R"(run "C:\Quillo\quillo.exe" ")" + PathText(File()) + '"';
  EXPECT_EQ(script.started, std::deque<std::string>{command});
  Choose(Quillo);  // saved already
  EXPECT_TRUE(script.said.empty());
  EXPECT_EQ(script.started.size(), 2u);

  Panel().AddPatch("two", "10: 00 01", false);
  RemoveFile(File());
  MakeFolder(File());  // in the way
  Choose(Quillo);
  EXPECT_EQ(script.TakeSaid(), "!Can't open file !\n\n" + PathText(File()) + WriteAdvice());
  EXPECT_EQ(script.started.size(), 2u);  // not started with what is old
}

}  // namespace
}  // namespace tarvelo
