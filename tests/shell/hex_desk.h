// The hex view of the demonstration dump.
#pragma once

#include <wx/choice.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "shell/desk.h"
#include "shell/hex/hex_canvas.h"
#include "shell/hex/hex_panel.h"
#include "shell/view/place_line.h"

namespace tarvelo {

class HexDesk : public Desk {
 protected:
  HexDesk() { OpenDemo(Id::HexView); }

  [[nodiscard]] HexPanel& Panel() { return Shown<HexPanel>(); }
  [[nodiscard]] HexCanvas& Canvas() { return Panel().Canvas(); }
  [[nodiscard]] Region Selected() { return Canvas().Selection(); }
  [[nodiscard]] std::string Information() { return Utf8(Panel().Information().GetLabelText()); }
  [[nodiscard]] Offset End() const { return std::ssize(Image().ff()); }

  // Enters a place to go to. Returns the error message.
  std::string Enter(const std::string& place) {
    wxTextCtrl& field = Panel().Place().Field();
    field.SetValue(Wx(place));
    wxCommandEvent enter(wxEVT_TEXT_ENTER, field.GetId());
    field.ProcessWindowEvent(enter);
    return Utf8(Panel().Place().Fault().GetLabelText());
  }

  void Press(int key, int modifiers = wxMOD_NONE) { Key(Canvas(), key, modifiers); }

  // Types a text, or with modifiers gives a command by a letter.
  void Type(const std::u32string& text, int modifiers = wxMOD_NONE) {
    for (const char32_t character : text) {
      wxKeyEvent event(wxEVT_CHAR);
      event.m_uniChar = static_cast<wxChar>(character);
      event.SetControlDown((modifiers & wxMOD_CONTROL) != 0);
      event.SetAltDown((modifiers & wxMOD_ALT) != 0);
      Canvas().ProcessWindowEvent(event);
    }
  }
};

}  // namespace tarvelo
