// What a screen reader calls a control that has no caption of its own.
#pragma once

class wxString;
class wxWindow;

namespace tarvelo::platform {

void SetAccessibleName(wxWindow& window, const wxString& name);

}  // namespace tarvelo::platform
