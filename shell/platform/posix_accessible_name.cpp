#include <gtk/gtk.h>
#include <wx/window.h>

#include "shell/platform/accessible_name.h"

namespace tarvelo::platform {
namespace {

void SetName(GtkWidget* widget, const wxString& name) {
  if (AtkObject* accessible = gtk_widget_get_accessible(widget))
    atk_object_set_name(accessible, name.utf8_str());
}

}  // namespace

// What scrolls is a widget within another one; it has the keyboard.
void SetAccessibleName(wxWindow& window, const wxString& name) {
  GtkWidget* widget = window.GetHandle();
  SetName(widget, name);
  if (!GTK_IS_SCROLLED_WINDOW(widget)) return;
  if (GtkWidget* scrolled = gtk_bin_get_child(GTK_BIN(widget))) SetName(scrolled, name);
}

void SetAccessibleButton(wxWindow& window, const wxString& name) {
  SetAccessibleName(window, name);
  if (AtkObject* accessible = gtk_widget_get_accessible(window.GetHandle()))
    atk_object_set_role(accessible, ATK_ROLE_PUSH_BUTTON);
}

}  // namespace tarvelo::platform
