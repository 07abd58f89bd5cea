// The hex view: the bytes of the open dump, a line to go somewhere, and what stands at the cursor.
#pragma once

#include <string>

#include "shell/hex/hex_editor.h"

#include "shell/services/panel.h"
#include "shell/services/panel_commands.h"
#include "shell/services/workbench.h"

class wxChoice;
class wxPanel;
class wxStaticText;
class wxTextCtrl;

namespace tarvelo {

class HexCanvas;
class Pattern;

class HexPanel final : public Panel {
 public:
  explicit HexPanel(Workbench& bench);

  [[nodiscard]] wxWindow& Window() override;
  [[nodiscard]] const PanelCommands* Commands() override { return &commands_; }
  [[nodiscard]] wxWindow& FirstFocus() override;
  // Shows the open image from its start; one that is shown already stays as it was left.
  void Build() override;
  // Writes the selected bytes to a file that is named after their offset.
  void Save() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;

  // Selects a region and scrolls to it; the caller has made sure that it begins within the image. What
  // lies behind the image's end is left out; a size of 0 only puts the cursor there.
  void Go(Offset start, Offset size);

  // The commands.
  void GoTo_Click();
  void CopyHex_Click();
  void CopyText_Click();
  void CopyOffset_Click();
  void FindBytes_Click();
  void FindNext_Click();
  void FindPrevious_Click();
  void SelectBytes_Click();
  void UndoBytes_Click();
  void RedoBytes_Click();
  void PasteHex_Click();

  [[nodiscard]] HexCanvas& Canvas() { return *canvas_; }
  [[nodiscard]] wxTextCtrl& PlaceLine() { return *place_; }
  [[nodiscard]] wxChoice& KindChoice() { return *kind_; }
  [[nodiscard]] wxStaticText& Fault() { return *fault_; }
  [[nodiscard]] wxStaticText& Information() { return *information_; }

 private:
  void Layout();
  void Bind();
  [[nodiscard]] PanelCommands MakeCommands();
  [[nodiscard]] std::vector<PanelCommand> SearchCommands();
  [[nodiscard]] std::vector<PanelCommand> EditCommands();

  void GoToPlace();
  void ShowFault(const wxString& text);
  void ShowInformation();
  [[nodiscard]] std::string InformationText() const;

  [[nodiscard]] const Fullflash& Image() const;
  // The bytes that a command takes: the selected ones, else that under the cursor. Empty, and the user
  // is told, where these are too many for the clipboard.
  [[nodiscard]] Bytes BytesToCopy();
  bool AskForPattern();
  void ShowHit(const Pattern& pattern, Offset hit);

  Workbench& bench_;
  PanelCommands commands_;
  wxPanel* window_;
  wxStaticText* caption_;
  wxTextCtrl* place_;
  wxChoice* kind_;
  wxStaticText* fault_;
  HexCanvas* canvas_;
  HexEditor editor_;
  wxStaticText* information_;
  std::string pattern_;  // the last that was searched for
  Document::Watch watch_;
};

}  // namespace tarvelo
