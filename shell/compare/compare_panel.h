// The differences between the open dump and a second one.
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
#include "shell/compare/function_comparison.h"
#include "shell/list/list_panel.h"
#include "shell/services/workbench.h"

class wxButton;
class wxCheckBox;
class wxPanel;
class wxStaticText;

namespace tarvelo {

class ChangeView;
class ImageStrip;

class ComparePanel final : public ListPanel {
 public:
  explicit ComparePanel(Workbench& bench);

  // The list, or the button that chooses a second dump if there is none yet.
  [[nodiscard]] wxWindow& FirstFocus() override;
  // Compares again if the image has changed since the last comparison.
  void Build() override;
  // Drops the second dump too, but keeps its path to offer in the next file dialog.
  void Clear() override;
  [[nodiscard]] std::optional<std::size_t> Figure() const override {
    return stale_ ? std::nullopt : ListPanel::Figure();
  }
  void Recaption(const Messages& messages) override;

  // Asks for a second dump and compares it with the open one. If it cannot be read, the last comparison
  // stays.
  void CompareWith_Click();
  void CompareWithFile(const std::filesystem::path& path);
  // Compares from the first byte of both dumps instead of by phone address, or the reverse.
  void SetFromStart(bool fromStart);
  // Compares the functions of C166 code instead of the bytes, or the reverse.
  void ShowFunctions(bool functions);
  // Makes a patch of the selected differences. Does nothing if none is selected.
  void DifferencesToPatch_Click();

  [[nodiscard]] OtherDump Other() const;

  [[nodiscard]] ImageStrip& Strip() { return *strip_; }
  // Both versions of the chosen function.
  [[nodiscard]] ListView& Sides() { return *sides_; }
  // The chosen difference as instructions.
  [[nodiscard]] ChangeView& ShownChange() { return *change_; }
  // The texts above the list: the second dump's path, and the figures of the comparison.
  [[nodiscard]] wxString Head() const;
  [[nodiscard]] wxString Figures() const;

 protected:
  [[nodiscard]] TableRows Rows() const;
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
  void CompareFunctionsAgain();
  [[nodiscard]] bool ShowsFunctions() const;
  void ForgetRows();
  void ShowRow(std::size_t row);
  void ShowSides();
  void MakeMap();
  void ShowDifferences(bool keepView);
  void ShowStrip();
  [[nodiscard]] Offset AddressShift() const;
  [[nodiscard]] wxString RestText() const;
  [[nodiscard]] wxString Describe(Offset offset, Offset size) const;
  [[nodiscard]] bool HasSecond() const { return second_->IsOpen(); }
  [[nodiscard]] const Difference* Chosen() const;
  [[nodiscard]] std::vector<std::size_t> RowsOf(const std::vector<Difference>& chosen) const;
  [[nodiscard]] Change ChangeOf(const Difference& difference) const;

  wxPanel* window_;
  wxPanel* none_;  // shown while there is no second dump
  wxStaticText* invitation_;
  wxButton* choose_;
  wxPanel* compared_;  // shown once there is one
  wxStaticText* head_;
  wxButton* chooseAnother_;
  wxCheckBox* fromStart_;  // shown only if it makes a difference
  wxCheckBox* asFunctions_;
  wxStaticText* figures_;
  ImageStrip* strip_;
  ListView* sides_;  // both versions of the chosen function
  ChangeView* change_;

  std::filesystem::path path_;  // of the second dump
  std::shared_ptr<const Fullflash> second_ = std::make_shared<const Fullflash>();
  Comparison comparison_;
  FunctionComparison functions_;
  Offset differingBytes_ = 0;
  bool joined_ = false;  // there were too many differences: neighbours were joined
  bool stale_ = false;   // the image has changed since the comparison
  std::shared_ptr<const DumpMap> map_ = std::make_shared<const DumpMap>();  // of the open image
  bool mapFailed_ = false;                                                  // the user has been told
  Document::Watch watch_, names_;
};

}  // namespace tarvelo
