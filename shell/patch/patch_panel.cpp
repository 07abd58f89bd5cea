#include "shell/patch/patch_panel.h"

#include "patch/patch_document.h"
#include "patch/patch_lines.h"
#include "patch/patch_merge.h"
#include "resources/texts.h"
#include "shell/base/strings.h"
#include "shell/carry/carry_patch.h"
#include "shell/patch/patch_editor.h"
#include "shell/services/change_as_code.h"
#include "shell/services/clipboard.h"
#include "shell/services/ids.h"
#include "shell/services/status_bar.h"
#include "shell/services/talk.h"

namespace tarvelo {
namespace {

constexpr Offset patchLimit = 0x100000;  // changed bytes; as text they take several times as much memory

// The bytes that a patch changes, from the first to the last one.
std::string NameFor(const std::vector<Change>& changes) {
  const Offset first = changes.front().offset;
  const Offset last = changes.back().offset + changes.back().Size() - 1;
  return first == last ? PatchAddress(first) : PatchAddress(first) + " - " + PatchAddress(last);
}

}  // namespace

PatchPanel::PatchPanel(Workbench& bench)
    : Panel({.menuEntry = Id::PatchMenu, .name = Text::Patch, .saveTextCaption = Text::SavePatch}),
      bench_(bench),
      Patch_(new PatchEditor(&bench.frame.Parent())),
      search_(bench,
              [this](const auto& text, SearchFrom from) {
                return Patch_->SelectNext(text, from == SearchFrom::Before);
              }),
      commands_(MakeCommands()) {
  Patch_->Bind(wxEVT_STC_CHANGE, [this](wxStyledTextEvent&) { Patch_Change(); });
  Patch_->Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent& event) {
    if (event.GetPosition() == wxDefaultPosition) Patch_->EnsureCaretVisible();
    bench_.frame.PopUpCommands(MenuPlace(event, *Patch_, Patch_->BelowCaret()));
  });
  // If keys reach the control before the menu bar, it would swap two lines on Ctrl+T.
  Patch_->Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
    if (event.GetModifiers() == wxMOD_CONTROL && event.GetKeyCode() == 'T')
      bench_.frame.Run(Id::SaveText);
    else
      event.Skip();
  });
  bench.frame.AcceptDrops(*Patch_);
}

wxWindow& PatchPanel::Window() { return *Patch_; }

void PatchPanel::Clear() { Patch_->Forget(); }

// Every change, by the user or by the program, counts as unsaved; an empty text has nothing to lose.
void PatchPanel::Patch_Change() {
  bench_.status.SetPanel(StatusBar::patchPanel, Patch_->IsEmpty() ? "" : "P");
}

void PatchPanel::AddPatch(const std::string& name, const std::string& body, bool announce) {
  Patch_->Append(PatchBlock(name, body));
  if (announce)
    bench_.talk.Announce(Wx(bench_.texts.MsgS(Text::PatchAdded, name)), Wx(";" + name + "\n\n" + body));
}

void PatchPanel::AskAndAddPatch(Text command, Offset changedBytes, std::size_t all,
                                const std::function<std::vector<Change>()>& makeChanges) {
  if (changedBytes > patchLimit) return bench_.talk.ComplainOfSize(command, changedBytes, patchLimit);
  const Messages& texts = bench_.texts;
  const MergedPatch merged = MergeIntoPatch(Patch_->Lines(), makeChanges());
  if (merged.taken == 0) return bench_.talk.Tell(Wx(texts.Msg(Text::PatchHoldsChanges)));
  if (!merged.replaced.empty() && !bench_.talk.Confirm(Wx(texts.Msg(Text::AskReplacePatchLines)))) return;
  std::optional<std::string> name;
  if (!merged.added.empty() && !(name = bench_.talk.Ask(Text::AskPatchName, NameFor(merged.added)))) return;
  const std::string body = PatchLines(merged.added);
  Patch_->BeginUndoAction();
  Patch_->ReplaceLines(merged.replaced);
  if (name) Patch_->Append(PatchBlock(*name, body));
  Patch_->EndUndoAction();

  std::string told = std::string(texts.Msg(Text::ChangesTakenLabel)) + std::to_string(merged.taken) + " / " +
                     std::to_string(all);
  if (!merged.replaced.empty())
    told.append("\n").append(texts.Msg(Text::PatchLinesReplacedLabel)) +=
        std::to_string(merged.replaced.size());
  if (name)
    bench_.talk.Announce(Wx(texts.MsgS(Text::PatchAdded, *name)), Wx(told + "\n\n;" + *name + "\n\n" + body));
  else
    bench_.talk.Tell(Wx(told));
}

void PatchPanel::SavePatch() {
  const std::filesystem::path file = bench_.document.Beside(".qpt");
  ReplaceFile(file, PatchFile(Utf8(bench_.status.Panel(2)), Patch_->Document()));
  bench_.talk.Tell(Text::PatchSaved, file);
  bench_.status.SetPanel(StatusBar::patchPanel, wxString());
}

void PatchPanel::ChangeAsCode_Click() {
  const auto line = static_cast<std::size_t>(Patch_->GetCurrentLine());
  const PatchLine read = ReadPatchLine(Patch_->Lines().at(line));
  if (read.kind != PatchLine::Kind::Change) return bench_.talk.Complain(Text::NoChangeHere);
  ShowChangeAsCode(bench_, {Offset{read.address}, read.oldBytes, read.newBytes});
}

// --- commands ---

PanelCommands PatchPanel::MakeCommands() {
  const auto any = [this] { return !Patch_->IsEmpty(); };
  const auto selected = [this] { return !Patch_->GetSelectionEmpty(); };
  const auto canUndo = [this] { return Patch_->CanUndo(); };
  const auto canRedo = [this] { return Patch_->CanRedo(); };
  const auto canPaste = [this] { return Patch_->CanPaste(); };
  return PanelCommands(
      {{Id::Undo, Text::Undo, Text::HelpUndo, "Ctrl+Z", [this] { Patch_->Undo(); }, canUndo},
       {Id::Redo, Text::Redo, Text::HelpRedo, "Ctrl+Y", [this] { Patch_->Redo(); }, canRedo},
       {},
       {Id::Cut, Text::Cut, Text::HelpCut, "Ctrl+X", [this] { Patch_->Cut(); }, selected},
       {Id::Copy, Text::Copy, Text::HelpCopy, "Ctrl+C", [this] { Patch_->Copy(); }, selected},
       {Id::Paste, Text::Paste, Text::HelpPaste, "Ctrl+V", [this] { Patch_->Paste(); }, canPaste},
       {Id::SelectAll, Text::SelectAll, Text::HelpSelectAll, "Ctrl+A", [this] { Patch_->SelectAll(); }, any},
       {},
       {Id::Find, Text::SearchInPatch, Text::HelpSearchText, "Ctrl+F", [this] { search_.Find(); }, any},
       {Id::FindMore, Text::SearchAgain, Text::HelpSearchAgain, "Ctrl+G", [this] { search_.FindMore(); },
        any},
       {Id::Next, Text::NextHit, Text::HelpSearchAgain, "F3", [this] { search_.FindMore(); }, any},
       {Id::Previous, Text::PreviousHit, Text::HelpSearchAgain, "Shift+F3",
        [this] { search_.FindPrevious(); }, any},
       {},
       {Id::ChangeAsCode, Text::ChangeAsCode, Text::HelpChangeAsCode, "Ctrl+Shift+D",
        [this] { ChangeAsCode_Click(); }, [this] { return !Patch_->IsEmpty() && bench_.document.IsOpen(); }},
       {Id::CarryPatch, Text::CarryPatch, Text::HelpCarryPatch, "",
        [this] { CarryPatch(bench_, Patch_->Document()); },
        [this] { return !Patch_->IsEmpty() && bench_.document.IsOpen(); }},
       {Id::SavePatch, Text::SavePatch, Text::HelpSavePatch, "", [this] { SavePatch(); }}},
      Id::SavePatch);
}

}  // namespace tarvelo
