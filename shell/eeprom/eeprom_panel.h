// The EEPROM panel: the list of blocks, the window of one block, the known blocks, and saving and loading
// blocks as files.
#pragma once

#include "eeprom/eeprom_explorer.h"
#include "shell/eeprom/eeprom_transfer.h"
#include "shell/list/explorer_panel.h"

namespace tarvelo {

class BlockView;

class EepromPanel final : public ExplorerPanel {
 public:
  explicit EepromPanel(Workbench& bench);

  void Recaption(const Messages& messages) override;

  // The commands. Those that need a chosen block do nothing without one.
  void InfoE_Click();  // for a known block only
  void ShowBlock_Click();
  // Shows the live block that an entry of KnownBlocks stands for.
  void Viewer_Click(ViewerEntry entry);

  [[nodiscard]] const BlockStore& Blocks() const;
  // The window of "Info about block"; null until it is first opened.
  [[nodiscard]] BlockView* View() const { return view_; }

 protected:
  [[nodiscard]] OwnCommands Own() override;
  void ListChanged(bool isNew) override;
  [[nodiscard]] bool IsSeen() const override;

 private:
  void ShowBlock(std::size_t record);
  [[nodiscard]] bool IsKnownChosen() const;
  [[nodiscard]] std::vector<PanelCommand> KnownBlocks();
  [[nodiscard]] const EepromFindings& Records() const;

  EepromTransfer transfer_;
  BlockView* view_ = nullptr;
  ViewerSet viewers_;  // the enabled entries of KnownBlocks
};

}  // namespace tarvelo
