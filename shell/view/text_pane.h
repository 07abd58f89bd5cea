// A pane of plain text in a fixed font, in the colours of the system. The panes that show patches and code
// build on it.
#pragma once

#include <wx/stc/stc.h>

namespace tarvelo {

class TextPane : public wxStyledTextCtrl {
 protected:
  explicit TextPane(wxWindow* parent);

  // Chooses the colours of the system; a pane adds those of its own styles. A pane calls this when it is
  // made; later, a change of the system's colours does.
  virtual void ChooseColours();

  // Makes the visible width the scrollable one, until a longer line is drawn. The control's own guess would
  // always show a scrollbar. A text that is scrolled sideways keeps its place.
  void FitScrollWidth();
};

}  // namespace tarvelo
