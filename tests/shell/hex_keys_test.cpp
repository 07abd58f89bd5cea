#include <wx/uiaction.h>

#include "shell/hex_desk.h"

namespace tarvelo {
namespace {

// Presses a key until that has done what it should; not for ever. The window may not have the keyboard yet.
template <typename Done>
bool PressUntil(int key, int modifiers, Done done) {
  wxUIActionSimulator simulator;
  for (int i = 0; i < 20 && !done(); ++i) {
    simulator.Char(key, modifiers);
    wxMilliSleep(100);
    Settle();
  }
  return done();
}

TEST_F(HexDesk, IsEditedByKeyboardAlone) {
  const std::uint8_t before = Image().Byte(0);
  const auto changed = [&] { return Image().Byte(0) != before; };
  Panel().Go(0, 0);
  EXPECT_TRUE(PressUntil(before == 0x11 ? '2' : '1', wxMOD_NONE, changed));

  // In the line above the keys are the line's own.
  wxTextCtrl& line = Panel().PlaceLine();
  main->Copy("34");
  EXPECT_TRUE(PressUntil('L', wxMOD_CONTROL, [&] { return line.HasFocus(); }));
  EXPECT_TRUE(PressUntil('V', wxMOD_CONTROL, [&] { return line.GetValue() == "34"; }));
  int pressed = 0;
  PressUntil('Z', wxMOD_CONTROL, [&] { return ++pressed > 3; });
  EXPECT_TRUE(changed());
  EXPECT_TRUE(PressUntil(WXK_ESCAPE, wxMOD_NONE, [&] { return Canvas().HasFocus(); }));
  const bool wasInText = Canvas().CursorInText();
  EXPECT_TRUE(PressUntil(WXK_F2, wxMOD_NONE, [&] { return Canvas().CursorInText() != wasInText; }));
  EXPECT_TRUE(PressUntil('Z', wxMOD_CONTROL, [&] { return !changed(); }));
  EXPECT_TRUE(PressUntil('Y', wxMOD_CONTROL, changed));
}

}  // namespace
}  // namespace tarvelo
