#include "shell/frame/wx_dialogs.h"

#include <wx/timer.h>

#include "shell/desk.h"
#include "shell/keys.h"

namespace tarvelo {
namespace {

// Presses a key again and again, with the pointer over the centre of a window where its dialogs appear, until
// the dialog closes.
class KeyPresser final : public wxTimer {
 public:
  KeyPresser(wxWindow& window, int key) : window_(window), key_(key) { Start(400); }

  void Notify() override {
    PointAt(window_);
    wxUIActionSimulator().Char(key_);
  }

 private:
  wxWindow& window_;
  int key_;
};

TEST_F(Desk, RealDialogsTakeTheKeyboard) {
  const Messages messages(*FindLanguage("RU"));
  WxDialogs dialogs(main, messages);
  {
    const KeyPresser presser(*main, WXK_RETURN);
    dialogs.Message("Information", Dialogs::Icon::Information);
    EXPECT_FALSE(dialogs.Confirm("No by default"));
  }
  const KeyPresser presser(*main, WXK_ESCAPE);
  dialogs.Message("Failure", Dialogs::Icon::Critical);
  EXPECT_FALSE(dialogs.Confirm("Cancel"));
  EXPECT_FALSE(dialogs.OpenFile("Open", "All files|*.*", folder / "dump.bin"));
  EXPECT_FALSE(dialogs.SaveFile("Save", "All files|*.*", folder / "dump.bin"));
}

TEST(FilterForSystem, ShowsEveryFile) {
#ifdef __WXGTK__
  EXPECT_EQ(FilterForSystem("Dumps|*.bin|All|*.*"), "Dumps|*.bin;*.BIN|All|*");
#else
  EXPECT_EQ(FilterForSystem("Dumps|*.bin|All|*.*"), "Dumps|*.bin;*.BIN|All|*.*");
#endif
}

TEST_F(Desk, ListOfMisfitsTakesTheKeyboard) {
  main->Dumps().OpenF(WriteDump("phone.bin"));
  const ReadPatch patch = ReadPatchText("0: FF 00\n1: 00 11\n");
  const PatchCheck check = CheckPatch(patch.changes, Image());
  const MisfitTable misfits(patch, check, Image(), main->Bench().texts);
  WxDialogs dialogs(main, main->Bench().texts);
  for (const int key : {WXK_RETURN, WXK_ESCAPE}) {  // neither applies anything by mistake
    const KeyPresser presser(*main, key);
    EXPECT_FALSE(dialogs.ApplyOthers(misfits));
  }
}

}  // namespace
}  // namespace tarvelo
