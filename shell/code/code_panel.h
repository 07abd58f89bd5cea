// The code panel: the whole image as instructions, with a line for going to a place.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "shell/code/code_view.h"
#include "shell/services/panel.h"
#include "shell/services/panel_commands.h"
#include "shell/services/workbench.h"

class wxPanel;
class wxStaticText;

namespace tarvelo {

class CodeCanvas;
class PlaceLine;

class CodePanel final : public Panel {
 public:
  explicit CodePanel(Workbench& bench);

  [[nodiscard]] wxWindow& Window() override;
  [[nodiscard]] const PanelCommands* Commands() override { return &commands_; }
  [[nodiscard]] wxWindow& FirstFocus() override;
  // Shows the image with what is known about it at once, and with its functions and its map as soon as the
  // window has time to find them.
  void Build() override;
  // Writes the selected rows, or the function of the cursor, to a file.
  void Save() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;
  [[nodiscard]] Offset Here() const override;
  void Return(Offset here) override;
  bool StartGoTo() override;

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
  [[nodiscard]] PlaceLine& Place() { return *place_; }
  [[nodiscard]] wxStaticText& Information() { return *information_; }
  // The row with this number, as it is shown: "80:006A  DA806A00  CALLS 80h, 6Ah  name".
  [[nodiscard]] std::string RowText(Offset row, bool withBytes) const;

 private:
  void Layout();
  void Bind();
  [[nodiscard]] PanelCommands MakeCommands();
  [[nodiscard]] std::vector<PanelCommand> CopyCommands();

  void ShowView();
  void LearnMore();
  void Renew();
  void ShowInformation();
  [[nodiscard]] std::string RowsText(const Region& rows, bool withBytes) const;
  [[nodiscard]] Region RowsToSave() const;

  Workbench& bench_;
  PanelCommands commands_;
  wxPanel* window_;
  PlaceLine* place_;
  CodeCanvas* canvas_;
  wxStaticText* information_;
  std::unique_ptr<const CodeView> view_;
  bool isStale_ = false;   // bytes or names have changed since the view was made
  bool isLearnt_ = false;  // the view has the functions and the map
  Document::Watch watch_;
  Document::Watch nameWatch_;
};

}  // namespace tarvelo
