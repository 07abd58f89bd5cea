#include <gtk/gtk.h>
#include <wx/toplevel.h>

#include "shell/platform/first_size.h"

namespace tarvelo::platform {

// Until GTK allocates a size, wxWidgets creates the window with 2 x 1 pixels, in which a menu bar does not
// fit: GTK would complain on standard error.
void StartInOwnSize(wxTopLevelWindow& window) {
  GtkAllocation allocation;
  gtk_widget_get_allocation(window.GetHandle(), &allocation);
  allocation.width = window.GetSize().x;
  allocation.height = window.GetSize().y;
  gtk_widget_set_allocation(window.GetHandle(), &allocation);
}

}  // namespace tarvelo::platform
