// The search for byte patterns and the list of its hits.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "patch/pattern.h"
#include "shell/list/list_panel.h"

namespace tarvelo {

class HitsPanel final : public ListPanel {
 public:
  explicit HitsPanel(Workbench& bench);

  // Searches again if the image has changed since the last search.
  void Build() override;
  void Clear() override;
  [[nodiscard]] std::optional<std::size_t> Figure() const override {
    return isStale_ ? std::nullopt : ListPanel::Figure();
  }
  void Recaption(const Messages& messages) override;

  // Asks for a pattern, searches the whole image, adds the hits to the information text and lists them.
  void Search_Click();
  // Searches for a pattern and lists its hits.
  void Search(const std::string& pattern);

 protected:
  [[nodiscard]] TableRows Rows() const;
  [[nodiscard]] std::optional<Region> ChosenRegion() const override;
  [[nodiscard]] PanelCommands MakeCommands() override;

 private:
  // The result of one search.
  struct FoundHits {
    std::string text;  // of the pattern
    Pattern pattern{""};
    std::vector<Offset> hits;  // ascending
    bool cutOff = false;       // the image holds more hits
  };

  // Searches for a pattern. False if there is no hit, which the user learns.
  [[nodiscard]] bool Find(const std::string& pattern);
  void ShowList();
  [[nodiscard]] FoundHits FindHits(const std::string& pattern);
  void ShowHits(FoundHits found);
  void ShowHint();
  [[nodiscard]] bool TextIsWanted() const;
  [[nodiscard]] std::optional<std::string> HitsAsText();
  [[nodiscard]] Table::Row RowOf(std::size_t number) const;

  void ImageChanged();

  FoundHits found_;
  bool isStale_ = false;  // the image has changed since the search
  Document::Watch watch_;
  Document::Watch nameWatch_;
};

}  // namespace tarvelo
