#include "shell/hex_desk.h"
#include "shell/keys.h"

namespace tarvelo {
namespace {

TEST_F(HexDesk, IsEditedByKeyboardAlone) {
  const std::uint8_t before = Image().Byte(0);
  const auto changed = [&] { return Image().Byte(0) != before; };
  const auto press = [this](int key, int modifiers, auto done) {
    return PressUntil(*main, key, modifiers, done);
  };
  Panel().Go(0, 0);
  EXPECT_TRUE(press(before == 0x11 ? '2' : '1', wxMOD_NONE, changed));

  // In the line above, keys edit the line.
  wxTextCtrl& line = Panel().Place().Field();
  Copy("34");
  EXPECT_TRUE(press('L', wxMOD_CONTROL, [&] { return line.HasFocus(); }));
  EXPECT_TRUE(press('V', wxMOD_CONTROL, [&] { return line.GetValue() == "34"; }));
  int pressed = 0;
  press('Z', wxMOD_CONTROL, [&] { return ++pressed > 3; });
  EXPECT_TRUE(changed());

  EXPECT_TRUE(press(WXK_ESCAPE, wxMOD_NONE, [&] { return Canvas().HasFocus(); }));
  const bool wasInText = Canvas().CursorInText();
  EXPECT_TRUE(press(WXK_F2, wxMOD_NONE, [&] { return Canvas().CursorInText() != wasInText; }));
  EXPECT_TRUE(press('Z', wxMOD_CONTROL, [&] { return !changed(); }));
  EXPECT_TRUE(press('Y', wxMOD_CONTROL, changed));
}

}  // namespace
}  // namespace tarvelo
