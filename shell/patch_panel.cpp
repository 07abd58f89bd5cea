#include "shell/patch_panel.h"

#include "patch/patch_document.h"
#include "shell/main.h"
#include "shell/patch_editor.h"
#include "shell/strings.h"

namespace tarvelo {
namespace {

constexpr Offset patchLimit = 0x100000;  // changed bytes; as text they become several times as much

}  // namespace

PatchPanel::PatchPanel(Main& main)
    : Panel({.menuEntry = PatchMenu, .name = 135, .saveTextCaption = 4}),
      main_(main),
      Patch_(new PatchEditor(&main)),
      search_(main, [this](const auto& text, bool) { return Patch_->SelectNext(text); }),
      commands_(MakeCommands()) {
  Patch_->Bind(wxEVT_STC_CHANGE, [this](wxStyledTextEvent&) { Patch_Change(); });
  Patch_->Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent&) { main_.PopUpCommands(); });
  // Where keys reach the control before the menu bar, it would exchange two lines.
  Patch_->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'T')
      main_.Run(SaveText);
    else
      event.Skip();
  });
  main.AcceptDrops(*Patch_);
}

wxWindow& PatchPanel::Window() { return *Patch_; }

void PatchPanel::Clear() { Patch_->Forget(); }

// Every change counts as unsaved, by whom it may be; an empty text has nothing to lose.
void PatchPanel::Patch_Change() {
  main_.Status().SetPanel(StatusBar::patchPanel, Patch_->IsEmpty() ? "" : "P");
}

void PatchPanel::AddPatch(const std::string& name, const std::string& body, bool announce) {
  Patch_->Append(PatchBlock(name, body));
  if (announce) main_.Announce(Wx(main_.Texts().MsgS(77, name)), Wx(";" + name + "\n\n" + body));
}

void PatchPanel::AskAndAddPatch(int n, Offset changedBytes, const std::function<std::string()>& makeBody) {
  if (changedBytes > patchLimit) {
    const std::string sizes = std::to_string(changedBytes) + " > " + std::to_string(patchLimit);
    return main_.Complain(Wx(std::string(main_.Texts().Msg(n)) + ": " + sizes));
  }
  const auto name = main_.Ask(282, PathText(main_.Open().path.filename()));
  if (name) AddPatch(*name, makeBody(), true);
}

void PatchPanel::SavePatch() {
  const std::filesystem::path file = main_.Open().Beside(".qpt");
  ReplaceFile(file, PatchFile(Utf8(main_.Status().Panel(2)), Patch_->Document()));
  main_.Tell(31, file);
  main_.Status().SetPanel(StatusBar::patchPanel, wxString());
}

// --- commands ---

PanelCommands PatchPanel::MakeCommands() {
  const auto any = [this] { return !Patch_->IsEmpty(); };
  const auto selected = [this] { return !Patch_->GetSelectionEmpty(); };
  return PanelCommands({{.id = UndoPatch,
                         .message = 236,
                         .help = 385,
                         .shortcut = "Ctrl+Z",
                         .run = [this] { Patch_->Undo(); },
                         .enabled = [this] { return Patch_->CanUndo(); }},
                        {.id = RedoPatch,
                         .message = 237,
                         .help = 386,
                         .shortcut = "Ctrl+Y",
                         .run = [this] { Patch_->Redo(); },
                         .enabled = [this] { return Patch_->CanRedo(); }},
                        {},
                        {.id = CutPatch,
                         .message = 238,
                         .help = 391,
                         .shortcut = "Ctrl+X",
                         .run = [this] { Patch_->Cut(); },
                         .enabled = selected},
                        {.id = CopyPatch,
                         .message = 239,
                         .help = 392,
                         .shortcut = "Ctrl+C",
                         .run = [this] { Patch_->Copy(); },
                         .enabled = selected},
                        {.id = PastePatch,
                         .message = 240,
                         .help = 393,
                         .shortcut = "Ctrl+V",
                         .run = [this] { Patch_->Paste(); },
                         .enabled = [this] { return Patch_->CanPaste(); }},
                        {.id = SelectPatch,
                         .message = 235,
                         .help = 384,
                         .shortcut = "Ctrl+A",
                         .run = [this] { Patch_->SelectAll(); },
                         .enabled = any},
                        {},
                        {.id = FindPatch,
                         .message = 241,
                         .help = 366,
                         .shortcut = "Ctrl+F",
                         .run = [this] { search_.Find(); },
                         .enabled = any},
                        {.id = FindMorePatch,
                         .message = 118,
                         .help = 367,
                         .shortcut = "Ctrl+G",
                         .run = [this] { search_.FindMore(); },
                         .enabled = any},
                        {},
                        {.id = SavePatchFile, .message = 4, .help = 394, .run = [this] { SavePatch(); }}},
                       SavePatchFile);
}

}  // namespace tarvelo
