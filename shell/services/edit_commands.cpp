#include "shell/services/edit_commands.h"

#include <wx/textentry.h>
#include <wx/window.h>

#include "shell/services/ids.h"
#include "shell/services/workbench.h"

namespace tarvelo {
namespace {

// The text field that has the focus and can be edited; null if there is none.
wxTextEntryBase* FocusedField() {
  auto* field = dynamic_cast<wxTextEntryBase*>(wxWindow::FindFocus());
  return field && field->IsEditable() ? field : nullptr;
}

}  // namespace

std::vector<PanelCommand> EditCommands(Workbench& bench) {
  Document& document = bench.document;
  const auto undo = [&document] {
    if (wxTextEntryBase* field = FocusedField())
      field->Undo();
    else
      document.Undo();
  };
  const auto redo = [&document] {
    if (wxTextEntryBase* field = FocusedField())
      field->Redo();
    else
      document.Redo();
  };
  return {{Id::Undo, Text::Undo, Text::HelpUndo, "Ctrl+Z", undo,
           [&document] { return FocusedField() || document.Edits().CanUndo(); }},
          {Id::Redo, Text::Redo, Text::HelpRedo, "Ctrl+Y", redo,
           [&document] { return FocusedField() || document.Edits().CanRedo(); }}};
}

}  // namespace tarvelo
