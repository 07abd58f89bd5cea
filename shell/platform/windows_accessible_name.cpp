#include <wx/access.h>
#include <wx/window.h>

#include "shell/platform/accessible_name.h"

namespace tarvelo::platform {
namespace {

// Everything but the name of the control itself is as the system has it.
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
  // Lists have an object of their own, which tells the window's name, too, and their rows.
  if (!window.GetOrCreateAccessible()) window.SetAccessible(new NamedAccessible(&window));
}

}  // namespace tarvelo::platform
