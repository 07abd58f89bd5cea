#include <gtk/gtk.h>
#include <wx/dataview.h>

#include "shell/platform/list_keys.h"

namespace tarvelo::platform {
namespace {

constexpr char search[] = "start-interactive-search";

gboolean DoNotSearch(GtkTreeView* tree) {
  g_signal_stop_emission_by_name(tree, search);
  return FALSE;  // the key is still unhandled
}

}  // namespace

void LeaveSearchToMenus(wxDataViewCtrl& list) {
  auto* tree = GTK_TREE_VIEW(list.GtkGetTreeView());
  gtk_tree_view_set_enable_search(tree, FALSE);                      // by letters
  g_signal_connect(tree, search, G_CALLBACK(DoNotSearch), nullptr);  // by Ctrl+F, which is still on
}

}  // namespace tarvelo::platform
