// The EEPROM panel: the list of blocks, live and deleted.
#pragma once

#include <optional>
#include <vector>

#include "eeprom/block_store.h"
#include "eeprom/descriptions.h"
#include "shell/eeprom/eeprom_transfer.h"
#include "shell/services/panel.h"
#include "shell/services/panel_commands.h"
#include "shell/services/text_search.h"

namespace tarvelo {

class BlockView;
class ListView;
class Main;

class EepromPanel final : public Panel {
 public:
  explicit EepromPanel(Main& main);

  [[nodiscard]] wxWindow& Window() override;
  [[nodiscard]] const PanelCommands* Commands() const override { return &commands_; }
  [[nodiscard]] wxWindow& FirstFocus() override;
  // Scans the image once a document. An image of too many blocks is told each time and shows none.
  void Build() override;
  void Save() override;
  void Clear() override;
  void ImageChanged() override;
  void Recaption(const Messages& messages) override;

  // The commands. Those that need a chosen block do nothing without one.
  void ShowDel_Click();
  void OpenE_Click();
  void OpenDescE_Click();
  void InfoE_Click();
  void OffsetE_Click();
  // Shows the live block that an entry of KnownBlocks stands for.
  void Viewer_Click(ViewerEntry entry);

  [[nodiscard]] ListView& ListE() { return *ListE_; }
  [[nodiscard]] const BlockStore& Blocks() const { return store_; }
  // The window of "Info about block"; null until it is opened first.
  [[nodiscard]] BlockView* View() const { return view_; }

 private:
  void Scan();
  void ReadDescriptions();
  void ShowList();
  void ShowBlock(std::size_t record);
  // The record of the current row.
  [[nodiscard]] std::optional<std::size_t> Chosen() const;
  [[nodiscard]] PanelCommands MakeCommands();
  [[nodiscard]] std::vector<PanelCommand> KnownBlocks();

  Main& main_;
  BlockStore store_;
  EepromTransfer transfer_;
  TextSearch search_;
  PanelCommands commands_;
  ListView* ListE_;
  BlockView* view_ = nullptr;
  Descriptions descriptions_;
  std::vector<std::size_t> shown_;  // the record of each row
  ViewerSet viewers_;               // the entries of KnownBlocks that are enabled
  bool scanned_ = false;
  bool showDeleted_ = false;
};

}  // namespace tarvelo
