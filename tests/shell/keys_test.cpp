// The effects of real key presses.
#include <wx/textctrl.h>

#include "shell/calculator/calc166.h"
#include "shell/desk.h"
#include "shell/keys.h"

namespace tarvelo {
namespace {

void Press(int key) {
  wxUIActionSimulator().Char(key);
  wxYield();
  wxMilliSleep(50);
  wxYield();
}

TEST_F(Desk, CalculatorIsUsedByKeyboardAlone) {
  Choose(Id::Calc166_Menu);
  Calc166& calculator = *main->AddressCalculator();
  for (int i = 0; i < 40 && !calculator.Page->HasFocus(); ++i) {
    wxMilliSleep(50);
    wxYield();
  }
  ASSERT_TRUE(calculator.Page->HasFocus());
  for (const int key : {'2', 'z', '8', '-', 'a', ' '}) Press(key);
  EXPECT_EQ(calculator.Page->GetValue(), "28A");
  Press(WXK_BACK);
  Press('4');
  Press(WXK_TAB);
  for (const int key : {'2', '3', '4', '5'}) Press(key);
  EXPECT_EQ(calculator.Addr->GetValue(), "A12345");
  Press('g');
  EXPECT_EQ(Utf8(calculator.Error()), "Not a number: \"2345G\"");
  Press(WXK_RETURN);
  EXPECT_EQ(main->AddressCalculator(), nullptr);
  EXPECT_FALSE(Item(Id::Calc166_Menu)->IsChecked());
}

}  // namespace
}  // namespace tarvelo
