// The Patch panel: the patch text with a check of every line, and what the line at the caret does to the
// code.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "shell/patch/live_check.h"
#include "shell/patch/patch_files.h"
#include "shell/services/panel.h"
#include "shell/services/panel_commands.h"
#include "shell/services/text_search.h"
#include "shell/services/workbench.h"

class wxPanel;
class wxSplitterWindow;
class wxStaticText;
class wxStyledTextCtrl;

namespace tarvelo {

class ChangeView;
class PatchEditor;

class PatchPanel final : public Panel {
 public:
  explicit PatchPanel(Workbench& bench);

  [[nodiscard]] wxWindow& Window() override;
  [[nodiscard]] const PanelCommands* Commands() override { return &commands_; }
  [[nodiscard]] wxWindow& FirstFocus() override;
  void Build() override;
  void Save() override { SavePatch(); }
  void Clear() override;
  void Recaption(const Messages& messages) override;
  // The line of the caret, from 1.
  [[nodiscard]] Offset Here() const override;
  void Return(Offset here) override;

  // Asks for a patch file and shows it.
  void OpenPatch_Click();
  // Shows a patch file in place of the current text. Asks first if that is unsaved. Throws FileError.
  void OpenPatch(const std::filesystem::path& file);
  // Whether the text belongs to another file than the one beside the dump.
  [[nodiscard]] bool IsFromElsewhere() const;
  [[nodiscard]] RecentFiles& Recent() { return files_.Recent(); }

  // The last line that changes the byte at an offset, for Return.
  [[nodiscard]] std::optional<Offset> LineOf(Offset offset);
  // Goes to the next line with a problem, or the one before.
  void GoToProblem(bool backwards);

  // Appends a named patch and announces it if asked to. `body` may have several lines, separated by line
  // feeds.
  void AddPatch(const std::string& name, const std::string& body, bool announce);

  // Adds changes to the document (Frame::AddPatch). What it holds already is not added again; if its lines
  // change the same bytes otherwise, asks before replacing them.
  void AskAndAddPatch(Text command, Offset changedBytes, std::size_t all,
                      const std::function<std::vector<Change>()>& makeChanges);

  // Writes the patch file and tells the user. Throws FileError; the text then still counts as unsaved.
  void SavePatch();

  // Shows the instructions that the change in the current line concerns, before and after.
  void ChangeAsCode_Click();

  [[nodiscard]] PatchEditor& Patch() { return *editor_; }
  // The texts above the patch and below it, and the instructions.
  [[nodiscard]] wxString Totals() const;
  [[nodiscard]] wxString LineFacts() const;
  [[nodiscard]] ChangeView& Preview() { return *preview_; }

 private:
  void Layout();
  void BindEditor();
  void TextChanged();
  void SavePatchAs_Click();
  void ClosePatch_Click();
  void ShowTotals();
  void ShowCaretLine();
  [[nodiscard]] std::optional<Change> CaretChange() const;
  [[nodiscard]] wxStyledTextCtrl& Focused();
  [[nodiscard]] PanelCommands MakeCommands();
  [[nodiscard]] std::vector<PanelCommand> EditCommands();
  [[nodiscard]] std::vector<PanelCommand> LineCommands();
  [[nodiscard]] std::vector<PanelCommand> WholeCommands();
  [[nodiscard]] std::vector<PanelCommand> FileCommands();

  Workbench& bench_;
  wxPanel* window_;
  wxStaticText* totals_;
  wxSplitterWindow* halves_;
  PatchEditor* editor_;
  wxPanel* below_;
  wxStaticText* lineFacts_;
  ChangeView* preview_;
  PatchFiles files_;
  LiveCheck check_;
  TextSearch search_;
  PanelCommands commands_;
  Document::Watch watch_;
  bool isLineStale_ = true;  // the caret's line is to be shown again
  std::size_t shownAt_ = 0;  // the line that the texts are about
  std::string shownLine_;    // the text of the line that the preview shows
};

}  // namespace tarvelo
