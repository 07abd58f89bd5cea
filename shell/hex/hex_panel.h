// The hex view: the bytes of the open dump.
#pragma once

#include <string>
#include <vector>

#include "shell/hex/hex_copy.h"
#include "shell/hex/hex_editor.h"
#include "shell/hex/hex_look.h"
#include "shell/hex/hex_search.h"
#include "shell/services/panel_commands.h"
#include "shell/view/image_panel.h"

class wxTextCtrl;

namespace tarvelo {

class FindBar;
class HexCanvas;
class OtherPane;
class ValuePanel;

class HexPanel final : public ImagePanel {
 public:
  explicit HexPanel(Workbench& bench);

  [[nodiscard]] const PanelCommands* Commands() override { return &commands_; }
  // Shows the open image from its start. If the image is shown already, keeps its position.
  void Build() override;
  // Writes the selected bytes to a file named after their offset.
  void Save() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;

  [[nodiscard]] Offset Here() const override;
  void Return(Offset here) override;

  // Selects a region, clipped to the end of the image, and scrolls to it. It must start within the image. A
  // size of 0 only moves the cursor.
  void Go(Offset start, Offset size);

  // The parts, for those who look at them.
  [[nodiscard]] HexCanvas& Canvas() { return *canvas_; }
  [[nodiscard]] FindBar& Bar() { return *bar_; }
  [[nodiscard]] ValuePanel& Values() { return *values_; }
  [[nodiscard]] OtherPane& Other() { return *other_; }

 private:
  // --- hex_commands.cpp ---
  [[nodiscard]] PanelCommands MakeCommands();
  [[nodiscard]] std::vector<PanelCommand> SearchCommands();
  [[nodiscard]] std::vector<PanelCommand> CopyCommands();
  [[nodiscard]] std::vector<PanelCommand> EditCommands();
  [[nodiscard]] std::vector<PanelCommand> StepCommands();
  [[nodiscard]] std::vector<PanelCommand> LookCommands();
  [[nodiscard]] std::vector<PanelCommand> LookEntries();
  // A command that is enabled while an image is shown.
  [[nodiscard]] PanelCommand Command(int id, Text caption, Text help, const char* shortcut,
                                     std::function<void()> run);
  [[nodiscard]] std::function<bool()> Any() const;

  void Find_Click();
  void Step_Click(bool isNext);
  void SelectRegion_Click();
  void SelectAll_Click();
  void ShowValues_Click();
  void MapColours_Click();
  void StepToChange(bool isNext);
  void StepToName(bool isNext);

  // --- hex_panel.cpp ---
  void LayOut();
  void Bind();
  void BindBar();
  void PressKey(wxKeyEvent& event);
  void GoTo(Offset offset) override;
  [[nodiscard]] int CopyCommand() const override;
  [[nodiscard]] std::string InformationText() const override;
  [[nodiscard]] std::string SelectionText(const Region& range) const;

  [[nodiscard]] const Fullflash& Image() const;
  // The text field in this panel that has the keyboard; null if none has.
  [[nodiscard]] wxTextCtrl* FocusedField() const;
  // Whether the values fit beside the rows: beside whole ones, or beside a part of them.
  [[nodiscard]] bool HasRoomForValues(bool besideWhole) const;
  // Looks otherwise from now on, also after the next start.
  void SetLook(const HexLook& look);
  void ApplyLook();
  void ShowParts();
  void ShowValues();
  void ReadValues();
  void ShowMap();
  void ImageChanged();
  void CursorMoved();
  void CloseBar();

  PanelCommands commands_;
  HexLook look_;
  bool valuesFirst_ = false;  // the user wants the values even if they cover a part of the rows
  HexCanvas* canvas_;
  OtherPane* other_;
  FindBar* bar_;
  ValuePanel* values_;
  HexEditor editor_;
  HexSearch search_;
  HexCopy copy_;
  Document::Watch watch_;
  Document::Watch nameWatch_;
};

}  // namespace tarvelo
