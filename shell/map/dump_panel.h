// The map of the dump: a strip of the whole image, what its colours mean, and the list of the regions.
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

  // Shows the map of the image as it is now. An image in which a search fails has none, and the user is
  // told each time.
  void Build() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;

  [[nodiscard]] ImageStrip& Strip() { return *strip_; }
  [[nodiscard]] MapLegend& Legend() { return *legend_; }
  [[nodiscard]] const DumpMap& Map() const { return *map_; }

 protected:
  [[nodiscard]] TableRows Rows() const override;
  [[nodiscard]] std::optional<Region> ChosenRegion() const override;
  [[nodiscard]] PanelCommands MakeCommands() override;
  [[nodiscard]] std::string AddressOf(Offset offset) const override;

 private:
  DumpPanel(Workbench& bench, wxPanel* window);
  void Layout();
  void Bind();
  void MakeMap();
  void ShowMap();
  void ImageChanged();
  void SelectAt(Offset offset);
  void Step(int direction, const std::function<bool(const Claim&)>& isSought);
  // Goes on to a region of the same kind, round and round.
  void StepInKind(int direction);
  [[nodiscard]] const std::vector<Claim>& Regions() const { return map_->regions; }
  [[nodiscard]] const Claim* Chosen() const;

  wxPanel* window_;
  ImageStrip* strip_;
  MapLegend* legend_;
  std::shared_ptr<const DumpMap> map_ = std::make_shared<const DumpMap>();
  bool isStale_ = true;
  Document::Watch watch_;
};

}  // namespace tarvelo
