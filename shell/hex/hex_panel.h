// The hex view: the bytes of the open dump, a line for going to a place, and information about the cursor.
#pragma once

#include <string>

#include "shell/hex/hex_editor.h"

#include "shell/services/panel.h"
#include "shell/services/panel_commands.h"
#include "shell/services/workbench.h"

class wxPanel;
class wxStaticText;

namespace tarvelo {

class HexCanvas;
class Pattern;
class PlaceLine;

class HexPanel final : public Panel {
 public:
  explicit HexPanel(Workbench& bench);

  [[nodiscard]] wxWindow& Window() override;
  [[nodiscard]] const PanelCommands* Commands() override { return &commands_; }
  [[nodiscard]] wxWindow& FirstFocus() override;
  // Shows the open image from its start. If the image is shown already, keeps its position.
  void Build() override;
  // Writes the selected bytes to a file named after their offset.
  void Save() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;

  [[nodiscard]] Offset Here() const override;
  void Return(Offset here) override;
  bool StartGoTo() override;

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
  void SelectBytes_Click();
  void UndoBytes_Click();
  void RedoBytes_Click();
  void PasteHex_Click();

  [[nodiscard]] HexCanvas& Canvas() { return *canvas_; }
  [[nodiscard]] PlaceLine& Place() { return *place_; }
  [[nodiscard]] wxStaticText& Information() { return *information_; }

 private:
  void Layout();
  void Bind();
  [[nodiscard]] PanelCommands MakeCommands();
  [[nodiscard]] std::vector<PanelCommand> SearchCommands();
  [[nodiscard]] std::vector<PanelCommand> EditCommands();

  void ShowInformation();
  [[nodiscard]] std::string InformationText() const;

  [[nodiscard]] const Fullflash& Image() const;
  // The bytes for a command: the selected ones, otherwise the one under the cursor. If they are too many for
  // the clipboard, tells the user and returns none.
  [[nodiscard]] Bytes BytesToCopy(Text command);
  bool AskForPattern();
  void ShowHit(const Pattern& pattern, Offset hit);
  void SayWrapped(Text text);
  void CursorMoved();

  Workbench& bench_;
  PanelCommands commands_;
  wxPanel* window_;
  PlaceLine* place_;
  HexCanvas* canvas_;
  HexEditor editor_;
  wxStaticText* information_;
  std::string pattern_;       // the pattern of the last search
  bool isHitShown_ = false;   // the last search found something
  bool isWrapShown_ = false;  // the status bar says that the search went round
  Document::Watch watch_;
  Document::Watch nameWatch_;
};

}  // namespace tarvelo
