// The hex view: the bytes of the open dump.
#pragma once

#include <string>

#include "shell/hex/hex_editor.h"
#include "shell/services/panel_commands.h"
#include "shell/view/image_panel.h"

namespace tarvelo {

class HexCanvas;
class Pattern;

class HexPanel final : public ImagePanel {
 public:
  explicit HexPanel(Workbench& bench);

  [[nodiscard]] const PanelCommands* Commands() override { return &commands_; }
  // Shows the open image from its start. If the image is shown already, keeps its position.
  void Build() override;
  // Writes the selected bytes to a file named after their offset.
  void Save() override;
  void Clear() override;

  [[nodiscard]] Offset Here() const override;
  void Return(Offset here) override;

  // Selects a region, clipped to the end of the image, and scrolls to it. It must start within the image. A
  // size of 0 only moves the cursor.
  void Go(Offset start, Offset size);

  // The commands.
  void CopyHex_Click();
  void CopyText_Click();
  void CopyOffset_Click();
  void FindBytes_Click();
  void FindNext_Click();
  void FindPrevious_Click();
  void UndoBytes_Click();
  void RedoBytes_Click();
  void PasteHex_Click();

  [[nodiscard]] HexCanvas& Canvas() { return *canvas_; }

 private:
  [[nodiscard]] PanelCommands MakeCommands();
  [[nodiscard]] std::vector<PanelCommand> SearchCommands();
  [[nodiscard]] std::vector<PanelCommand> EditCommands();

  void GoTo(Offset offset) override;
  [[nodiscard]] int CopyCommand() const override;
  [[nodiscard]] std::string InformationText() const override;

  [[nodiscard]] const Fullflash& Image() const;
  // The bytes for a command: the selected ones, otherwise the one under the cursor. If they are too many for
  // the clipboard, tells the user and returns none.
  [[nodiscard]] Bytes BytesToCopy(Text command);
  bool AskForPattern();
  void ShowHit(const Pattern& pattern, Offset hit);
  void SayWrapped(Text text);
  void CursorMoved();

  PanelCommands commands_;
  HexCanvas* canvas_;
  HexEditor editor_;
  std::string pattern_;       // the pattern of the last search
  bool isHitShown_ = false;   // the last search found something
  bool isWrapShown_ = false;  // the status bar says that the search went round
  Document::Watch watch_;
  Document::Watch nameWatch_;
};

}  // namespace tarvelo
