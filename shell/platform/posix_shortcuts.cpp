#include <gtk/gtk.h>
#include <wx/frame.h>

#include "shell/platform/shortcuts.h"

namespace tarvelo::platform {

// GTK looks keys up in a table that it rebuilds only when idle. A key pressed before that would be lost.
void ShortcutsChanged(wxFrame& frame) { g_signal_emit_by_name(frame.GetHandle(), "keys-changed"); }

}  // namespace tarvelo::platform
