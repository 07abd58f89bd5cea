#include <gtk/gtk.h>
#include <wx/window.h>

#include "shell/platform/accessible_name.h"

namespace tarvelo::platform {

void SetAccessibleName(wxWindow& window, const wxString& name) {
  if (AtkObject* accessible = gtk_widget_get_accessible(window.GetHandle()))
    atk_object_set_name(accessible, name.utf8_str());
}

}  // namespace tarvelo::platform
