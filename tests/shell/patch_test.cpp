#include "patch/patch_document.h"

#include <set>

#include "shell/desk.h"
#include "shell/patch/patch_editor.h"

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
  EXPECT_TRUE(Key(Editor(), 'T', wxMOD_CONTROL));  // the menu bar's shortcut, not the control's own
  EXPECT_EQ(script.TakeSaid(), "iPatch was saved in file" + At(File()));
  EXPECT_EQ(Document(), text);
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

}  // namespace
}  // namespace tarvelo
