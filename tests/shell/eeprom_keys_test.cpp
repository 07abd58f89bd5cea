#include "shell/desk.h"
#include "shell/eeprom/block_view.h"
#include "shell/eeprom/eeprom_panel.h"
#include "shell/keys.h"

namespace tarvelo {
namespace {

TEST_F(Desk, EepromTakesTheKeyboard) {
  OpenDemo(eeprom);
  EXPECT_TRUE(PressUntil(*main, 'F', wxMOD_CONTROL, [&] { return !script.said.empty(); }));
  EXPECT_EQ(script.TakeSaid(), "ask Enter the string for search: ");
  main->Run(Id::ShowBlock);
  const BlockView& view = *Shown<EepromPanel>().View();
  EXPECT_TRUE(PressUntil(view, WXK_ESCAPE, wxMOD_NONE, [&] { return !view.IsShown(); }));
}

// In every list, whichever window of the panel has the focus.
TEST_F(Desk, ListsAreSearchedByKeyboard) {
  OpenDemo(Id::Info);
  for (const int panel : {ringtones, pictures}) {
    Choose(panel);
    script.said.clear();
    EXPECT_TRUE(PressUntil(*main, 'F', wxMOD_CONTROL, [&] { return !script.said.empty(); })) << Title();
    script.said.clear();
    EXPECT_TRUE(PressUntil(*main, WXK_F3, wxMOD_NONE, [&] { return !script.said.empty(); })) << Title();
  }
}

}  // namespace
}  // namespace tarvelo
