#include <wx/access.h>
#include <wx/window.h>

#include "shell/platform/accessible_name.h"

namespace tarvelo::platform {
namespace {

// Everything but the name of the control itself is as the system has it.
class NamedAccessible final : public wxAccessible {
 public:
  NamedAccessible(wxWindow* window, const wxString& name) : wxAccessible(window), name_(name) {}

  wxAccStatus GetName(int child, wxString* name) override {
    if (child != wxACC_SELF) return wxACC_NOT_IMPLEMENTED;
    *name = name_;
    return wxACC_OK;
  }

 private:
  wxString name_;
};

}  // namespace

void SetAccessibleName(wxWindow& window, const wxString& name) {
  window.SetAccessible(new NamedAccessible(&window, name));  // the window owns it
}

}  // namespace tarvelo::platform
