// The list of the places that the user has named or commented on.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "shell/list/list_panel.h"

namespace tarvelo {

class NamesPanel final : public ListPanel {
 public:
  explicit NamesPanel(Workbench& bench);

  void Build() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;
  [[nodiscard]] std::optional<std::size_t> Figure() const override;

 protected:
  // Outside the image for a name of, say, a variable in RAM.
  [[nodiscard]] std::optional<Region> ChosenRegion() const override;
  [[nodiscard]] PanelCommands MakeCommands() override;

 private:
  void ShowHint();
  [[nodiscard]] TableRows Rows() const;
  [[nodiscard]] Table::Row RowOf(std::uint32_t address) const;
  [[nodiscard]] Offset OffsetAt(std::uint32_t address) const;
  void Remove_Click();

  std::vector<std::uint32_t> addresses_;  // of the phone, ascending: one for each row
  bool isStale_ = false;                  // names, or what lies at their places, have changed
  Document::Watch changeWatch_;
  Document::Watch nameWatch_;
};

}  // namespace tarvelo
