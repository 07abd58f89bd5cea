// The commands that save the EEPROM panel's blocks to files and load them.
#pragma once

#include <filesystem>
#include <functional>
#include <vector>

#include "eeprom/block_store.h"
#include "shell/services/panel_commands.h"

namespace tarvelo {

class LoadedFiles;
struct Workbench;

class EepromTransfer {
 public:
  // Returns the listed blocks.
  using Blocks = std::function<const BlockStore&()>;
  // Returns the chosen block, or null.
  using ChosenBlock = std::function<const EepromBlockRecord*()>;

  // Returns the blocks of all selected rows.
  using SelectedBlocks = std::function<std::vector<const EepromBlockRecord*>()>;

  EepromTransfer(Workbench& bench, Blocks blocks, ChosenBlock chosen, SelectedBlocks selected)
      : bench_(bench),
        blocks_(std::move(blocks)),
        chosen_(std::move(chosen)),
        selected_(std::move(selected)) {}

  // The entries of the panel's menu.
  [[nodiscard]] std::vector<PanelCommand> Commands();

  // Each does nothing if it has no block to work on.
  void SaveBlock_Click();
  void SaveAllBlock_Click();
  void LoadBlock_Click();
  void LoadAllBlock_Click();
  // Saves the live blocks into a new folder named after the current time.
  void eeBackup_Click();

 private:
  struct Saved {
    std::size_t files = 0;
    std::vector<int> without;  // numbers of the blocks whose data the image does not hold
    bool stopped = false;
  };

  Saved SaveEach(const std::filesystem::path& folder, const std::vector<const EepromBlockRecord*>& blocks);
  void TellSelectedSaved(const Saved& saved);
  void TellSaved(const Saved& saved, const std::filesystem::path& path);
  void LoadFile(int number, const std::filesystem::path& file);
  void LoadNumber(int number, const std::filesystem::path& file, LoadedFiles& loaded);
  [[nodiscard]] bool HasPlace(int number) const;
  [[nodiscard]] wxString WhyNoPlace(int number) const;
  [[nodiscard]] wxString Whose(int number) const;
  [[nodiscard]] std::filesystem::path Folder() const;
  [[nodiscard]] std::string Stem() const;

  Workbench& bench_;
  Blocks blocks_;
  ChosenBlock chosen_;
  SelectedBlocks selected_;
  bool deletedToo_ = false;
};

}  // namespace tarvelo
