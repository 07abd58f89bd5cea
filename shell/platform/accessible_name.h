// The name that a screen reader gives to a control without a caption.
#pragma once

class wxString;
class wxWindow;

namespace tarvelo::platform {

void SetAccessibleName(wxWindow& window, const wxString& name);
// The same for a window that draws itself as a button.
void SetAccessibleButton(wxWindow& window, const wxString& name);

}  // namespace tarvelo::platform
