// The map of the dump: a strip of the whole image, what its colours mean, and the list of the regions.
#pragma once

#include <functional>

#include "core/table.h"
#include "document/dump_map.h"
#include "shell/services/panel.h"
#include "shell/services/panel_commands.h"

class wxPanel;

namespace tarvelo {

class ImageStrip;
class ListView;
class Main;
class MapLegend;

class DumpPanel final : public Panel {
 public:
  explicit DumpPanel(Main& main);

  [[nodiscard]] wxWindow& Window() override;
  [[nodiscard]] const PanelCommands* Commands() const override { return &commands_; }
  [[nodiscard]] wxWindow& FirstFocus() override;
  // Makes the map where there is none of the image as it is now. An image of too many EEPROM blocks is told
  // each time and has none.
  void Build() override;
  void Save() override;
  void Clear() override;
  // The map is made again when it is shown the next time; soon, while it is shown.
  void ImageChanged() override;
  void Recaption(const Messages& messages) override;

  // The commands. They do nothing without a chosen region.
  void OpenD_Click();
  void OffsetD_Click();
  void AddressD_Click();
  // Go on to a region of the same kind, round and round.
  void NextD_Click();
  void PreviousD_Click();

  [[nodiscard]] ListView& ListD() { return *ListD_; }
  [[nodiscard]] ImageStrip& Strip() { return *strip_; }
  [[nodiscard]] MapLegend& Legend() { return *legend_; }
  [[nodiscard]] const DumpMap& Map() const { return map_; }

 private:
  void Layout();
  void Bind();
  void MakeMap();
  void ShowMap();
  [[nodiscard]] TableRows Rows() const;
  void SelectAt(Offset offset);
  void Step(int direction, const std::function<bool(const MapRegion&)>& isSought);
  void StepInKind(int direction);
  [[nodiscard]] const MapRegion* Chosen() const;
  [[nodiscard]] PanelCommands MakeCommands();

  Main& main_;
  wxPanel* window_;
  ListView* ListD_;
  ImageStrip* strip_;
  MapLegend* legend_;
  PanelCommands commands_;
  DumpMap map_;
  bool stale_ = true;
};

}  // namespace tarvelo
