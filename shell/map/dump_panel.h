// The map of the dump: a strip of the whole image, a legend of its colours, and the list of regions.
#pragma once

#include <functional>
#include <memory>

#include "document/dump_map.h"
#include "shell/list/list_panel.h"

class wxPanel;

namespace tarvelo {

class ImageStrip;
class MapLegend;

class DumpPanel final : public ListPanel {
 public:
  explicit DumpPanel(Workbench& bench);

  // Shows the map of the current image. If a search fails, there is no map and the program says so each time.
  void Build() override;
  void Clear() override;
  [[nodiscard]] std::optional<std::size_t> Figure() const override {
    return isStale_ ? std::nullopt : ListPanel::Figure();
  }
  void Recaption(const Messages& messages) override;

  [[nodiscard]] ImageStrip& Strip() { return *strip_; }
  [[nodiscard]] MapLegend& Legend() { return *legend_; }
  [[nodiscard]] const DumpMap& Map() const { return *map_; }

 protected:
  [[nodiscard]] TableRows Rows() const;
  [[nodiscard]] std::optional<Region> ChosenRegion() const override;
  [[nodiscard]] PanelCommands MakeCommands() override;
  [[nodiscard]] std::string AddressOf(Offset offset) const override;

 private:
  DumpPanel(Workbench& bench, wxPanel* window);
  void Layout();
  void Bind();
  void MakeMap();
  void ShowMap(bool keepView);
  void ImageChanged();
  // The row of the region at an offset; none outside the image.
  [[nodiscard]] std::optional<std::size_t> RowAt(Offset offset) const;
  void Step(int direction, const std::function<bool(const Claim&)>& isWanted);
  // Moves to the next or previous region of the same kind, wrapping around.
  void StepInKind(int direction);
  [[nodiscard]] const std::vector<Claim>& Regions() const { return map_->regions; }
  [[nodiscard]] const Claim* Chosen() const;

  wxPanel* window_;
  ImageStrip* strip_;
  MapLegend* legend_;
  std::shared_ptr<const DumpMap> map_ = std::make_shared<const DumpMap>();
  bool isStale_ = true;
  Document::Watch watch_;
  Document::Watch nameWatch_;
};

}  // namespace tarvelo
