#include "shell/view/text_pane.h"

#include <wx/settings.h>

#include <algorithm>

namespace tarvelo {

TextPane::TextPane(wxWindow* parent) : wxStyledTextCtrl(parent) {
  SetLexer(wxSTC_LEX_CONTAINER);
  UsePopUp(wxSTC_POPUP_NEVER);
  SetScrollWidthTracking(true);
  SetMarginLeft(FromDIP(6));
  Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
    FitScrollWidth();
    event.Skip();
  });
  Bind(wxEVT_SYS_COLOUR_CHANGED, [this](wxSysColourChangedEvent& event) {
    ChooseColours();
    event.Skip();
  });
}

void TextPane::ChooseColours() {
  const auto system = [](wxSystemColour colour) { return wxSystemSettings::GetColour(colour); };
  StyleSetFont(wxSTC_STYLE_DEFAULT, wxFont(wxFontInfo().Family(wxFONTFAMILY_TELETYPE)));
  StyleSetBackground(wxSTC_STYLE_DEFAULT, system(wxSYS_COLOUR_WINDOW));
  StyleSetForeground(wxSTC_STYLE_DEFAULT, system(wxSYS_COLOUR_WINDOWTEXT));
  StyleClearAll();
  SetCaretForeground(system(wxSYS_COLOUR_WINDOWTEXT));
  SetSelBackground(true, system(wxSYS_COLOUR_HIGHLIGHT));
  SetSelForeground(true, system(wxSYS_COLOUR_HIGHLIGHTTEXT));
}

void TextPane::FitScrollWidth() {
  int margins = GetMarginLeft() + GetMarginRight();
  for (int margin = 0; margin < 3; ++margin) margins += GetMarginWidth(margin);
  const int seen = std::max(1, GetClientSize().x - margins);
  if (GetXOffset() == 0 || seen > GetScrollWidth()) SetScrollWidth(seen);
}

}  // namespace tarvelo
