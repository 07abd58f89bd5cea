#include "shell/view/change_view.h"

#include <wx/settings.h>

#include <stdexcept>
#include <string>

#include "document/code_change.h"
#include "resources/texts.h"
#include "shell/base/blend.h"
#include "shell/base/strings.h"
#include "shell/services/status_bar.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

enum Ink { PlainInk = 0, BeforeInk, AfterInk };

Ink InkOf(char first) {
  if (first == '-') return BeforeInk;
  return first == '+' ? AfterInk : PlainInk;
}

}  // namespace

ChangeView::ChangeView(wxWindow* parent, Workbench& bench) : TextPane(parent), bench_(bench) {
  for (int margin = 0; margin < 3; ++margin) SetMarginWidth(margin, 0);
  SetReadOnly(true);
  SetCaretWidth(0);
  ChooseColours();
  // The keys that leave the pane, which the control would take as text.
  Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_TAB)
      Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
    else
      event.Skip();
  });
}

void ChangeView::ChooseColours() {
  TextPane::ChooseColours();
  const wxColour text = wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT);
  StyleSetForeground(BeforeInk, Blend(wxColour(230, 40, 40), text, 0.6));
  StyleSetForeground(AfterInk, Blend(wxColour(0, 160, 0), text, 0.6));
}

void ChangeView::ShowChange(const std::optional<Change>& change) {
  const std::string text = change ? TextOf(*change) : std::string();
  SetReadOnly(false);
  SetText(Wx(text));
  SetXOffset(0);
  FitScrollWidth();
  StartStyling(0);
  for (int line = 0; line < GetLineCount(); ++line) {
    const int start = PositionFromLine(line), end = PositionFromLine(line + 1);
    SetStyling(end - start, InkOf(static_cast<char>(GetCharAt(start))));
  }
  SetReadOnly(true);
}

std::string ChangeView::TextOf(const Change& change) {
  Document& document = bench_.document;
  if (!document.IsOpen()) return {};
  if (!document.Image().PageMode()) return std::string(bench_.texts.Msg(Text::NoCodeInLargeImage));
  try {
    (void)document.Functions(bench_.status);
  } catch (const std::length_error&) {  // too many; without them, instructions are found by reading on
  }
  const std::string text = InstructionsOf(change, document.Image(), *document.KnownFunctions());
  return text.empty() ? std::string(bench_.texts.Msg(Text::DataOutsideImage)) : text;
}

}  // namespace tarvelo
