#include <wx/access.h>
#include <wx/window.h>

#include "shell/platform/accessible_name.h"

namespace tarvelo::platform {
namespace {

// Leaves everything except the control's name, and the role of a button, to the system.
class NamedAccessible final : public wxAccessible {
 public:
  NamedAccessible(wxWindow* window, bool isButton) : wxAccessible(window), isButton_(isButton) {}

  wxAccStatus GetName(int child, wxString* name) override {
    if (child != wxACC_SELF) return wxACC_NOT_IMPLEMENTED;
    *name = GetWindow()->GetName();
    return wxACC_OK;
  }
  wxAccStatus GetRole(int child, wxAccRole* role) override {
    if (child != wxACC_SELF || !isButton_) return wxACC_NOT_IMPLEMENTED;
    *role = wxROLE_SYSTEM_PUSHBUTTON;
    return wxACC_OK;
  }

 private:
  bool isButton_;
};

// Lists have an accessible object of their own, which also reports the window's name and their rows.
void Name(wxWindow& window, const wxString& name, bool isButton) {
  window.SetName(name);
  if (!window.GetOrCreateAccessible()) window.SetAccessible(new NamedAccessible(&window, isButton));
}

}  // namespace

void SetAccessibleName(wxWindow& window, const wxString& name) { Name(window, name, false); }

void SetAccessibleButton(wxWindow& window, const wxString& name) { Name(window, name, true); }

}  // namespace tarvelo::platform
