// The Patch panel's commands.
#include <utility>

#include "core/file.h"
#include "patch/patch_text.h"
#include "resources/texts.h"
#include "shell/carry/carry_patch.h"
#include "shell/patch/apply_patch.h"
#include "shell/patch/patch_editor.h"
#include "shell/patch/patch_panel.h"
#include "shell/patch/patch_work.h"
#include "shell/services/ids.h"
#include "shell/services/place_commands.h"
#include "shell/view/change_view.h"

namespace tarvelo {

PanelCommands PatchPanel::MakeCommands() {
  std::vector<PanelCommand> commands = EditCommands();
  Append(commands, LineCommands());
  Append(commands, WholeCommands());
  Append(commands, FileCommands());
  return PanelCommands(std::move(commands), Id::SavePatch);
}

// The text that copying and selecting are about.
wxStyledTextCtrl& PatchPanel::Focused() {
  if (preview_->HasFocus()) return *preview_;
  return *editor_;
}

std::vector<PanelCommand> PatchPanel::EditCommands() {
  const auto any = [this] { return !editor_->IsEmpty(); };
  const auto selected = [this] { return !editor_->GetSelectionEmpty(); };
  const auto canCopy = [this] { return !Focused().GetSelectionEmpty(); };
  const auto canUndo = [this] { return editor_->CanUndo(); };
  const auto canRedo = [this] { return editor_->CanRedo(); };
  const auto canPaste = [this] { return editor_->CanPaste(); };
  return {
      {Id::Undo, Text::Undo, Text::HelpUndo, "Ctrl+Z", [this] { editor_->Undo(); }, canUndo},
      {Id::Redo, Text::Redo, Text::HelpRedo, "Ctrl+Y", [this] { editor_->Redo(); }, canRedo},
      {},
      {Id::Cut, Text::Cut, Text::HelpCut, "Ctrl+X", [this] { editor_->Cut(); }, selected},
      {Id::Copy, Text::Copy, Text::HelpCopy, "Ctrl+C", [this] { Focused().Copy(); }, canCopy},
      {Id::Paste, Text::Paste, Text::HelpPaste, "Ctrl+V", [this] { editor_->Paste(); }, canPaste},
      {Id::SelectAll, Text::SelectAll, Text::HelpSelectAll, "Ctrl+A", [this] { Focused().SelectAll(); }, any},
      {},
      {Id::Find, Text::SearchInPatch, Text::HelpSearchText, "Ctrl+F", [this] { search_.Find(); }, any},
      {Id::FindMore, Text::SearchAgain, Text::HelpSearchAgain, "Ctrl+G", [this] { search_.FindMore(); }, any},
      {Id::Next, Text::NextHit, Text::HelpSearchAgain, "F3", [this] { search_.FindMore(); }, any},
      {Id::Previous, Text::PreviousHit, Text::HelpSearchAgain, "Shift+F3", [this] { search_.FindPrevious(); },
       any}};
}

// For the line at the caret.
std::vector<PanelCommand> PatchPanel::LineCommands() {
  const auto any = [this] { return !editor_->IsEmpty() && bench_.document.IsOpen(); };
  const auto chosen = [this]() -> std::optional<Region> {
    const auto change = CaretChange();
    if (!change) return {};
    return Region{change->offset, change->Size()};
  };
  std::vector<PanelCommand> commands = {
      {Id::NextProblem, Text::NextProblem, Text::HelpProblems, "F8", [this] { GoToProblem(false); }, any},
      {Id::PreviousProblem, Text::PreviousProblem, Text::HelpProblems, "Shift+F8",
       [this] { GoToProblem(true); }, any}};
  Append(commands, PlaceCommands(bench_, chosen, Id::ShowInPatch));
  commands.push_back({Id::ChangeAsCode, Text::ChangeAsCode, Text::HelpChangeAsCode, "Ctrl+Shift+D",
                      [this] { ChangeAsCode_Click(); }, any});
  return commands;
}

// For the whole patch.
std::vector<PanelCommand> PatchPanel::WholeCommands() {
  const auto any = [this] { return !editor_->IsEmpty() && bench_.document.IsOpen(); };
  const auto open = [this] { return bench_.document.IsOpen(); };
  return {{Id::ApplyThisPatch, Text::ApplyThisPatch, Text::HelpApplyThisPatch, "F9",
           [this] { ApplyPatch(bench_, ReadPatchText(editor_->Document())); }, any},
          {Id::TakeOutPatch, Text::TakeOutPatch, Text::HelpTakeOutPatch, "Shift+F9",
           [this] { TakeOutPatch(bench_, ReadPatchText(editor_->Document())); }, any},
          {Id::ReversePatch, Text::ReversePatch, Text::HelpReversePatch, "",
           [this] { editor_->ReplaceAll(ReversedText(editor_->Document())); }, any},
          {Id::CarryPatch, Text::CarryPatch, Text::HelpCarryPatch, "",
           [this] { CarryPatch(bench_, editor_->Document()); }, any},
          {Id::AddPatchFile, Text::AddPatchFile, Text::HelpAddPatchFile, "",
           [this] { AddPatchFile_Click(bench_, files_, *editor_); }, open},
          {Id::SplitPatch, Text::SplitPatch, Text::HelpSplitPatch, "",
           [this] { SplitPatch_Click(bench_, files_, *editor_); }, any}};
}

std::vector<PanelCommand> PatchPanel::FileCommands() {
  std::vector<PanelCommand> recent;
  for (std::size_t i = 0; i < RecentFiles::count; ++i)
    recent.push_back({.id = Id::FirstRecentPatch + static_cast<int>(i),
                      .help = Text::HelpOpenPatch,
                      .run = [this, i] { OpenPatch(PathOf(Recent()[i])); },
                      .name = [this, i] { return Recent()[i]; }});
  return {{.caption = Text::RecentPatches, .help = Text::HelpOpenPatch, .entries = std::move(recent)},
          {Id::SavePatch, Text::SavePatch, Text::HelpSavePatch, "", [this] { SavePatch(); }},
          {Id::SavePatchAs, Text::SavePatchAs, Text::HelpSavePatchAs, "", [this] { SavePatchAs_Click(); }},
          {Id::ClosePatch, Text::ClosePatch, Text::HelpClosePatch, "", [this] { ClosePatch_Click(); },
           [this] { return !editor_->IsEmpty() || !files_.Path().empty(); }}};
}

}  // namespace tarvelo
