// A panel that shows a list: filtered, sorted, searched, saved and copied alike whatever is listed, with
// the commands that every list has.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "core/region.h"
#include "core/table.h"
#include "shell/services/panel.h"
#include "shell/services/panel_commands.h"
#include "shell/services/text_search.h"
#include "shell/services/workbench.h"

namespace tarvelo {

class ListView;

class ListPanel : public Panel {
 public:
  // `letter` names the saved list. The panel's window is `window`, the list stands in `listParent`;
  // without them the list is the whole panel.
  ListPanel(Workbench& bench, PanelTraits traits, char letter, wxWindow* window = nullptr,
            wxWindow* listParent = nullptr);

  [[nodiscard]] wxWindow& Window() override { return *window_; }
  [[nodiscard]] wxWindow& FirstFocus() override;
  [[nodiscard]] const PanelCommands* Commands() override;
  void Save() override;
  void Recaption(const Messages& messages) override;

  [[nodiscard]] ListView& List() const { return *list_; }

  // The commands of every list. They do nothing without a chosen row.
  void OpenHex_Click();
  void CopyOffset_Click();
  void CopyAddress_Click();

 protected:
  // The whole list in the current language.
  [[nodiscard]] virtual TableRows Rows() const = 0;
  // The bytes that the chosen row is about; nothing where no row is chosen.
  [[nodiscard]] virtual std::optional<Region> ChosenRegion() const = 0;
  // Made once, when the commands are first asked for.
  [[nodiscard]] virtual PanelCommands MakeCommands() = 0;
  // A phone address as CopyAddress puts it into the clipboard.
  [[nodiscard]] virtual std::string AddressOf(Offset offset) const;
  // The column that Find searches; none: all.
  [[nodiscard]] virtual std::optional<unsigned> SearchedColumn() const { return {}; }

  // Lines for MakeCommands.
  [[nodiscard]] PanelCommand OpenHexCommand();
  [[nodiscard]] std::vector<PanelCommand> CopyCommands();
  [[nodiscard]] std::vector<PanelCommand> FindCommands(Text search);
  [[nodiscard]] std::vector<PanelCommand> StepCommands(Text next, Text previous);
  // Whether a row is chosen; whether there are any. For PanelCommand::enabled.
  [[nodiscard]] std::function<bool()> Chosen();
  [[nodiscard]] std::function<bool()> Any();

  Workbench& bench_;

 private:
  char letter_;
  ListView* list_;
  wxWindow* window_;
  TextSearch search_;
  std::optional<PanelCommands> commands_;
};

}  // namespace tarvelo
