// The code panel: the whole image as instructions.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "shell/code/code_view.h"
#include "shell/services/panel_commands.h"
#include "shell/view/image_panel.h"

class wxSplitterWindow;

namespace tarvelo {

class CodeCanvas;
class FunctionSide;

class CodePanel final : public ImagePanel {
 public:
  explicit CodePanel(Workbench& bench);

  [[nodiscard]] const PanelCommands* Commands() override { return &commands_; }
  // Shows the image with what is known about it at once, and with its functions and its map as soon as the
  // window has time to find them.
  void Build() override;
  // Writes the selected rows, or the function of the cursor, to a file.
  void Save() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;
  [[nodiscard]] Offset Here() const override;
  void Return(Offset here) override;

  // Shows the row that holds a byte, and selects the rows of `size` bytes. The offset must be in the image.
  void Go(Offset offset, Offset size);

  // The commands.
  void Follow_Click();
  void CopyText_Click(bool withBytes);
  void CopyPointer_Click(bool isPage);
  void CopyAsPattern_Click();
  void FindAlike_Click();
  void StateDpps_Click();

  [[nodiscard]] CodeCanvas& Canvas() { return *canvas_; }
  // The list of functions beside the code.
  [[nodiscard]] FunctionSide& Side() { return *side_; }
  [[nodiscard]] bool IsSideShown() const;
  // The row with this number as text: "00006A  80:006A  DA806A00  CALLS 80h, 6Ah  ; name".
  [[nodiscard]] std::string RowText(Offset row, bool withBytes) const;

 private:
  [[nodiscard]] PanelCommands MakeCommands();
  [[nodiscard]] std::vector<PanelCommand> CopyCommands();

  void ShowView();
  void LearnMore();
  void BindSide();
  void ShowSide(bool show);
  void Browse(const Function& function);
  void CursorMoved();
  void Renew();
  void GoTo(Offset offset) override;
  [[nodiscard]] int CopyCommand() const override;
  [[nodiscard]] std::string InformationText() const override;
  [[nodiscard]] std::string RowsText(const Region& rows, bool withBytes) const;
  [[nodiscard]] Region RowsToSave() const;

  PanelCommands commands_;
  wxSplitterWindow* body_;
  CodeCanvas* canvas_;
  FunctionSide* side_;
  std::unique_ptr<const CodeView> view_;
  bool isStale_ = false;     // bytes or names have changed since the view was made
  bool isLearnt_ = false;    // the view has the functions and the map
  bool isBrowsing_ = false;  // the user goes through the functions beside the code
  Document::Watch watch_;
  Document::Watch nameWatch_;
};

}  // namespace tarvelo
