// Where a second dump differs from the open one.
#pragma once

#include <wx/string.h>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "document/dump_map.h"
#include "patch/image_compare.h"
#include "shell/list/list_panel.h"

class wxButton;
class wxPanel;
class wxStaticText;

namespace tarvelo {

class ImageStrip;

class ComparePanel final : public ListPanel {
 public:
  explicit ComparePanel(Workbench& bench);

  // The list; as long as there is no second dump, the button that chooses one.
  [[nodiscard]] wxWindow& FirstFocus() override;
  // Compares again where the image was changed since.
  void Build() override;
  // Drops the second dump too. Its path is offered when one is chosen next.
  void Clear() override;
  void Recaption(const Messages& messages) override;

  // Asks for a second dump and compares it with the open one. One that cannot be read leaves the
  // comparison as it was.
  void CompareWith_Click();
  // Makes a patch of the selected differences. Does nothing without one.
  void DifferencesToPatch_Click();

  [[nodiscard]] ImageStrip& Strip() { return *strip_; }
  // What is said about the second dump and of the differences.
  [[nodiscard]] wxString Head() const;
  [[nodiscard]] wxString Figures() const;

 protected:
  [[nodiscard]] TableRows Rows() const override;
  [[nodiscard]] std::optional<Region> ChosenRegion() const override;
  [[nodiscard]] PanelCommands MakeCommands() override;

 private:
  ComparePanel(Workbench& bench, wxPanel* window);
  ComparePanel(Workbench& bench, wxPanel* window, wxPanel* none, wxPanel* compared);
  void Layout();
  void Bind();
  void LayOutTexts();
  void ImageChanged();
  void CompareAgain();
  void MakeMap();
  void ShowDifferences();
  void ShowStrip();
  [[nodiscard]] wxString RestText() const;
  [[nodiscard]] wxString Describe(Offset offset, Offset size) const;
  [[nodiscard]] bool HasSecond() const { return second_.IsOpen(); }
  [[nodiscard]] const Difference* Chosen() const;

  wxPanel* window_;
  wxPanel* none_;  // shown as long as there is no second dump
  wxStaticText* invitation_;
  wxButton* choose_;
  wxPanel* compared_;  // shown afterwards
  wxStaticText* head_;
  wxButton* chooseAnother_;
  wxStaticText* figures_;
  ImageStrip* strip_;

  std::filesystem::path path_;  // of the second dump
  Fullflash second_;
  Comparison comparison_;
  Offset differingBytes_ = 0;
  bool joined_ = false;  // neighbours, as there were too many differences
  bool stale_ = false;   // the image was changed after the comparison
  std::shared_ptr<const DumpMap> map_ = std::make_shared<const DumpMap>();  // of the open image
  bool mapFailed_ = false;                                                  // and the user was told
  Document::Watch watch_;
};

}  // namespace tarvelo
