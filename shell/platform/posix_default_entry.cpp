#include <gtk/gtk.h>
#include <wx/menu.h>

#include "shell/platform/default_entry.h"

namespace tarvelo::platform {

void ShowAsDefault(wxMenu& menu, int id) {
  const wxMenuItem* entry = menu.FindItem(id);
  if (!entry) return;
  GtkWidget* label = gtk_bin_get_child(GTK_BIN(entry->GetMenuItem()));
  if (!label || !GTK_IS_LABEL(label)) return;
  PangoAttrList* attributes = pango_attr_list_new();
  pango_attr_list_insert(attributes, pango_attr_weight_new(PANGO_WEIGHT_BOLD));
  gtk_label_set_attributes(GTK_LABEL(label), attributes);
  pango_attr_list_unref(attributes);
}

}  // namespace tarvelo::platform
