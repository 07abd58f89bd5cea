#include "shell/patch/patch_panel.h"

#include "patch/patch_document.h"
#include "shell/frame/main.h"
#include "shell/patch/patch_editor.h"
#include "shell/base/strings.h"

namespace tarvelo {
namespace {

constexpr Offset patchLimit = 0x100000;  // changed bytes; as text they become several times as much

}  // namespace

PatchPanel::PatchPanel(Main& main)
    : Panel({.menuEntry = PatchMenu, .name = Text::Patch, .saveTextCaption = Text::SavePatch}),
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
  if (announce) main_.Announce(Wx(main_.Texts().MsgS(Text::PatchAdded, name)), Wx(";" + name + "\n\n" + body));
}

void PatchPanel::AskAndAddPatch(int n, Offset changedBytes, const std::function<std::string()>& makeBody) {
  if (changedBytes > patchLimit) {
    const std::string sizes = std::to_string(changedBytes) + " > " + std::to_string(patchLimit);
    return main_.Complain(Wx(std::string(main_.Texts().Msg(n)) + ": " + sizes));
  }
  const auto name = main_.Ask(Text::AskPatchName, PathText(main_.Open().path.filename()));
  if (name) AddPatch(*name, makeBody(), true);
}

void PatchPanel::SavePatch() {
  const std::filesystem::path file = main_.Open().Beside(".qpt");
  ReplaceFile(file, PatchFile(Utf8(main_.Status().Panel(2)), Patch_->Document()));
  main_.Tell(Text::PatchSaved, file);
  main_.Status().SetPanel(StatusBar::patchPanel, wxString());
}

// --- commands ---

PanelCommands PatchPanel::MakeCommands() {
  const auto any = [this] { return !Patch_->IsEmpty(); };
  const auto selected = [this] { return !Patch_->GetSelectionEmpty(); };
  return PanelCommands({{.id = UndoPatch,
                         .message = Text::Undo,
                         .help = Text::HelpUndo,
                         .shortcut = "Ctrl+Z",
                         .run = [this] { Patch_->Undo(); },
                         .enabled = [this] { return Patch_->CanUndo(); }},
                        {.id = RedoPatch,
                         .message = Text::Redo,
                         .help = Text::HelpRedo,
                         .shortcut = "Ctrl+Y",
                         .run = [this] { Patch_->Redo(); },
                         .enabled = [this] { return Patch_->CanRedo(); }},
                        {},
                        {.id = CutPatch,
                         .message = Text::Cut,
                         .help = Text::HelpCut,
                         .shortcut = "Ctrl+X",
                         .run = [this] { Patch_->Cut(); },
                         .enabled = selected},
                        {.id = CopyPatch,
                         .message = Text::Copy,
                         .help = Text::HelpCopy,
                         .shortcut = "Ctrl+C",
                         .run = [this] { Patch_->Copy(); },
                         .enabled = selected},
                        {.id = PastePatch,
                         .message = Text::Paste,
                         .help = Text::HelpPaste,
                         .shortcut = "Ctrl+V",
                         .run = [this] { Patch_->Paste(); },
                         .enabled = [this] { return Patch_->CanPaste(); }},
                        {.id = SelectPatch,
                         .message = Text::SelectAll,
                         .help = Text::HelpSelectAll,
                         .shortcut = "Ctrl+A",
                         .run = [this] { Patch_->SelectAll(); },
                         .enabled = any},
                        {},
                        {.id = FindPatch,
                         .message = Text::SearchInPatch,
                         .help = Text::HelpSearchText,
                         .shortcut = "Ctrl+F",
                         .run = [this] { search_.Find(); },
                         .enabled = any},
                        {.id = FindMorePatch,
                         .message = Text::SearchAgain,
                         .help = Text::HelpSearchAgain,
                         .shortcut = "Ctrl+G",
                         .run = [this] { search_.FindMore(); },
                         .enabled = any},
                        {},
                        {.id = SavePatchFile, .message = Text::SavePatch, .help = Text::HelpSavePatch, .run = [this] { SavePatch(); }}},
                       SavePatchFile);
}

}  // namespace tarvelo
