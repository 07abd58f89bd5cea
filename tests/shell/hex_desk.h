// The hex view of the demonstration dump, to test.
#pragma once

#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "demo/demo_image.h"
#include "shell/desk.h"
#include "shell/hex_canvas.h"
#include "shell/hex_panel.h"

namespace tarvelo {

class HexDesk : public Desk {
 protected:
  HexDesk() {
    main->OpenF(folder.Write("demo.bin", DemoImage()));
    Choose(HexView);
  }

  [[nodiscard]] HexPanel& Panel() { return dynamic_cast<HexPanel&>(*main->Visible()); }
  [[nodiscard]] HexCanvas& Canvas() { return Panel().Canvas(); }
  [[nodiscard]] ByteRange Selected() { return Canvas().Selection(); }
  [[nodiscard]] std::string Information() { return Utf8(Panel().Information().GetLabelText()); }
  [[nodiscard]] const Fullflash& Image() const { return main->Open().image; }

  // Enters a place to go to, and returns what is said against it.
  std::string Enter(const std::string& place) {
    Panel().PlaceLine().SetValue(Wx(place));
    wxCommandEvent enter(wxEVT_TEXT_ENTER, Panel().PlaceLine().GetId());
    Panel().PlaceLine().ProcessWindowEvent(enter);
    return Utf8(Panel().Fault().GetLabelText());
  }

  void Press(int key, bool shift = false, bool control = false) {
    wxKeyEvent event(wxEVT_CHAR_HOOK);
    event.m_keyCode = key;
    event.SetShiftDown(shift);
    event.SetControlDown(control);
    Canvas().ProcessWindowEvent(event);
  }

  // Types a text, or gives a command by a letter.
  void Type(const std::u32string& text, int modifiers = wxMOD_NONE) {
    for (const char32_t character : text) {
      wxKeyEvent event(wxEVT_CHAR);
      event.m_uniChar = static_cast<wxChar>(character);
      event.SetControlDown((modifiers & wxMOD_CONTROL) != 0);
      event.SetAltDown((modifiers & wxMOD_ALT) != 0);
      Canvas().ProcessWindowEvent(event);
    }
  }

  void Mouse(wxEventType type, const wxPoint& point, bool shift = false) {
    wxMouseEvent event(type);
    event.SetPosition(point);
    event.SetShiftDown(shift);
    Canvas().ProcessWindowEvent(event);
  }
};

}  // namespace tarvelo
