#include <wx/uiaction.h>

#include "demo/demo_image.h"
#include "shell/block_view.h"
#include "shell/desk.h"
#include "shell/eeprom_panel.h"

namespace tarvelo {
namespace {

// Presses a key with the pointer over a window, until that has done what it should; not for ever.
template <typename Done>
bool Press(wxWindow& window, int key, int modifiers, Done done) {
  wxUIActionSimulator simulator;
  for (int i = 0; i < 20 && !done(); ++i) {
    const wxRect place = window.GetScreenRect();
    simulator.MouseMove(place.GetTopLeft() + place.GetSize() / 2);
    simulator.Char(key, modifiers);
    wxMilliSleep(100);
    Settle();
  }
  return done();
}

TEST_F(Desk, EepromTakesTheKeyboard) {
  main->OpenF(folder.Write("demo.bin", DemoImage()));
  Choose(EEPROM);
  EXPECT_TRUE(Press(*main, 'F', wxMOD_CONTROL, [&] { return !script.said.empty(); }));
  EXPECT_EQ(script.TakeSaid(), "ask Enter the string for search: ");

  main->Run(InfoE);
  BlockView* view = dynamic_cast<EepromPanel&>(*main->Visible()).View();
  ASSERT_NE(view, nullptr);
  EXPECT_TRUE(Press(*view, WXK_ESCAPE, wxMOD_NONE, [&] { return !view->IsShown(); }));
}

}  // namespace
}  // namespace tarvelo
