// Where a second dump differs from the open one.
#pragma once

#include <wx/string.h>

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/fullflash.h"
#include "core/table.h"
#include "document/dump_map.h"
#include "patch/image_compare.h"
#include "shell/services/panel.h"
#include "shell/services/panel_commands.h"

class wxButton;
class wxPanel;
class wxStaticText;

namespace tarvelo {

class ImageStrip;
class ListView;
class Main;

class ComparePanel final : public Panel {
 public:
  explicit ComparePanel(Main& main);

  [[nodiscard]] wxWindow& Window() override;
  [[nodiscard]] const PanelCommands* Commands() const override { return &commands_; }
  // The list; as long as there is no second dump, the button that chooses one.
  [[nodiscard]] wxWindow& FirstFocus() override;
  // Compares again where the image was changed since.
  void Build() override;
  void Save() override;
  // Drops the second dump too. Its path is offered when one is chosen next.
  void Clear() override;
  void ImageChanged() override;
  void Recaption(const Messages& messages) override;

  // Asks for a second dump and compares it with the open one. One that cannot be read leaves the
  // comparison as it was.
  void CompareWith_Click();

  // The commands. Those that need a chosen difference do nothing without one.
  void OpenDifference_Click();
  void OffsetDifference_Click();
  void AddressDifference_Click();
  void DifferencesToPatch_Click();

  [[nodiscard]] ListView& ListC() { return *ListC_; }
  [[nodiscard]] ImageStrip& Strip() { return *strip_; }
  // What is said about the second dump and of the differences.
  [[nodiscard]] wxString Head() const;
  [[nodiscard]] wxString Figures() const;

 private:
  void Layout();
  void Bind();
  void LayOutTexts();
  void CompareAgain();
  void MakeMap();
  void ShowDifferences();
  void ShowStrip();
  [[nodiscard]] wxString RestText() const;
  [[nodiscard]] wxString Describe(Offset offset, Offset size) const;
  [[nodiscard]] bool HasSecond() const { return second_.IsOpen(); }
  [[nodiscard]] TableRows Rows() const;
  [[nodiscard]] const Difference* Chosen() const;
  [[nodiscard]] PanelCommands MakeCommands();

  Main& main_;
  PanelCommands commands_;
  wxPanel* window_;
  wxPanel* none_;  // shown as long as there is no second dump
  wxStaticText* invitation_;
  wxButton* choose_;
  wxPanel* compared_;  // shown afterwards
  wxStaticText* head_;
  wxButton* chooseAnother_;
  wxStaticText* figures_;
  ImageStrip* strip_;
  ListView* ListC_;

  std::filesystem::path path_;  // of the second dump
  Fullflash second_;
  Comparison comparison_;
  Offset differingBytes_ = 0;
  bool joined_ = false;         // neighbours, as there were too many differences
  bool stale_ = false;          // the image was changed after the comparison
  std::optional<DumpMap> map_;  // of the open image; made once
};

}  // namespace tarvelo
