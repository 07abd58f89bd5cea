#include <wx/access.h>
#include <wx/window.h>

#include "shell/platform/accessible_name.h"

namespace tarvelo::platform {
namespace {

// Leaves everything except the control's name to the system.
class NamedAccessible final : public wxAccessible {
 public:
  using wxAccessible::wxAccessible;

  wxAccStatus GetName(int child, wxString* name) override {
    if (child != wxACC_SELF) return wxACC_NOT_IMPLEMENTED;
    *name = GetWindow()->GetName();
    return wxACC_OK;
  }
};

}  // namespace

void SetAccessibleName(wxWindow& window, const wxString& name) {
  window.SetName(name);
  // Lists have an accessible object of their own, which also reports the window's name and their rows.
  if (!window.GetOrCreateAccessible()) window.SetAccessible(new NamedAccessible(&window));
}

}  // namespace tarvelo::platform
