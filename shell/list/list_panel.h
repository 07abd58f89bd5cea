// A panel with a list. Filtering, sorting, searching, saving and copying work the same for every list, with
// the same commands.
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
  // `letter` is part of the saved list's file name. `window` is the panel's window and `listParent` the
  // list's parent; without them the list is the whole panel.
  ListPanel(Workbench& bench, PanelTraits traits, char letter, wxWindow* window = nullptr,
            wxWindow* listParent = nullptr);

  [[nodiscard]] wxWindow& Window() override { return *window_; }
  [[nodiscard]] wxWindow& FirstFocus() override;
  [[nodiscard]] const PanelCommands* Commands() override;
  void Save() override;
  void Recaption(const Messages& messages) override;
  // The chosen row; -1: none.
  [[nodiscard]] Offset Here() const override;
  void Return(Offset here) override;
  // The number of rows.
  [[nodiscard]] std::optional<std::size_t> Figure() const override;

  [[nodiscard]] ListView& List() const { return *list_; }

  // The commands of every list. They do nothing if no row is chosen.
  void CopyOffset_Click();
  void CopyAddress_Click();

 protected:
  // The bytes that the chosen row describes; none if no row is chosen.
  [[nodiscard]] virtual std::optional<Region> ChosenRegion() const = 0;
  // Called once, when the commands are first needed.
  [[nodiscard]] virtual PanelCommands MakeCommands() = 0;
  // The text that CopyAddress puts into the clipboard for an offset.
  [[nodiscard]] virtual std::string AddressOf(Offset offset) const;
  // The column that Find searches; none means all.
  [[nodiscard]] virtual std::optional<unsigned> SearchedColumn() const { return {}; }

  // Commands for MakeCommands.
  [[nodiscard]] std::vector<PanelCommand> OpenCommands();
  [[nodiscard]] std::vector<PanelCommand> CopyCommands();
  [[nodiscard]] std::vector<PanelCommand> FindCommands(Text search);
  [[nodiscard]] std::vector<PanelCommand> StepCommands(Text next, Text previous);
  // A hint for an empty list: the command that fills it.
  [[nodiscard]] wxString HowToFill(Text command, const char* shortcut, Text help) const;
  // Whether a row is chosen, and whether there are any rows. For PanelCommand::enabled.
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
