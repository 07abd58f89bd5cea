// The search for byte patterns and the list of its hits.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/table.h"
#include "patch/pattern.h"
#include "shell/services/panel.h"
#include "shell/services/panel_commands.h"

namespace tarvelo {

class ListView;
class Main;

class HitsPanel final : public Panel {
 public:
  explicit HitsPanel(Main& main);

  [[nodiscard]] wxWindow& Window() override;
  [[nodiscard]] const PanelCommands* Commands() const override { return &commands_; }
  [[nodiscard]] wxWindow& FirstFocus() override;
  void Build() override {}
  void Save() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;

  // Asks for a pattern, searches the whole image, adds the hits to the information text and lists them.
  void Search_Click();

  // The commands. Those that need a chosen hit do nothing without one.
  void OpenHit_Click();
  void OffsetHit_Click();

  [[nodiscard]] ListView& ListS() { return *ListS_; }

 private:
  // What one search has found.
  struct Found {
    Pattern pattern{""};
    std::vector<Offset> hits;  // ascending
    bool cutOff = false;       // there are more
  };

  [[nodiscard]] Found FindHits(const std::string& pattern);
  void ShowHits(Found found);
  [[nodiscard]] bool TextIsWanted() const;
  [[nodiscard]] std::optional<std::string> HitsAsText();
  [[nodiscard]] TableRows Rows() const;
  [[nodiscard]] Table::Row RowOf(std::size_t number) const;
  [[nodiscard]] std::optional<Offset> Chosen() const;
  [[nodiscard]] PanelCommands MakeCommands();

  Main& main_;
  ListView* ListS_;
  PanelCommands commands_;
  Found found_;
};

}  // namespace tarvelo
