// The list of places that refer to a place in the image.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "code/references.h"
#include "shell/list/list_panel.h"

namespace tarvelo {

class ReferencesPanel final : public ListPanel {
 public:
  explicit ReferencesPanel(Workbench& bench);

  // Searches again if the image, the names or what is stated of it have changed since the last search.
  void Build() override;
  void Clear() override;
  [[nodiscard]] std::optional<std::size_t> Figure() const override {
    return isStale_ ? std::nullopt : ListPanel::Figure();
  }
  void Recaption(const Messages& messages) override;

  // The place that the list is about, and the chosen row of it.
  [[nodiscard]] Offset Here() const override;
  void Return(Offset here) override;

  // Searches and lists the references to the byte at an offset, the surest first. It must be in the image.
  // Throws Stopped, and still lists the former ones, if the user stops the search.
  void Show(Offset target);
  // The place that the list is about; none before the first search.
  [[nodiscard]] std::optional<Offset> Target() const { return target_; }

 protected:
  [[nodiscard]] std::optional<Region> ChosenRegion() const override;
  [[nodiscard]] PanelCommands MakeCommands() override;

 private:
  void Search(Offset target);
  void ShowHint();
  [[nodiscard]] TableRows Rows() const;
  [[nodiscard]] Table::Row RowOf(const Reference& reference) const;
  [[nodiscard]] std::string NameOfTarget() const;

  static constexpr int rowBits = 32;  // of Here; the target is above them

  std::optional<Offset> target_;
  std::vector<Reference> found_;
  std::shared_ptr<const FunctionList> functions_;
  bool isStale_ = false;
  Document::Watch watch_;
  Document::Watch nameWatch_;
};

}  // namespace tarvelo
