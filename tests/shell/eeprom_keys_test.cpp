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
  main->Run(Id::InfoE);
  const BlockView& view = *Shown<EepromPanel>().View();
  EXPECT_TRUE(PressUntil(view, WXK_ESCAPE, wxMOD_NONE, [&] { return !view.IsShown(); }));
}

}  // namespace
}  // namespace tarvelo
