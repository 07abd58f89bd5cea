// The Pictures panel: the list of pictures, an enlarged view of the chosen one, and a gallery of all.
#pragma once

#include <filesystem>
#include <memory>

#include "pictures/picture.h"
#include "pictures/picture_data.h"
#include "shell/list/explorer_panel.h"

class wxSplitterWindow;
class wxStaticBox;

namespace tarvelo {

class Gallery;
class PictureView;

class PicturesPanel final : public ExplorerPanel {
 public:
  explicit PicturesPanel(Workbench& bench);

  void Build() override;
  void Recaption(const Messages& messages) override;

  // The commands. Those that need a chosen picture do nothing without one.
  void SavePic_Click();
  void SaveAllPic_Click();
  void CopyPic_Click();
  void ShowPic_Click();

  [[nodiscard]] PictureView& Pic() { return *view_; }
  [[nodiscard]] Gallery& AllPictures() { return *gallery_; }
  // The listed pictures.
  [[nodiscard]] const PictureList& Pictures() const;

 protected:
  [[nodiscard]] OwnCommands Own() override;
  void ListChanged(bool isNew) override;
  void RecordChosen(std::size_t record) override;

 private:
  PicturesPanel(Workbench& bench, wxSplitterWindow* window);
  void Layout();
  void Bind();
  [[nodiscard]] const Picture* ChosenPicture() const;
  [[nodiscard]] Bitmap Draw(const Picture& picture);
  [[nodiscard]] std::filesystem::path Folder() const;
  std::filesystem::path SaveCurPic(const Picture& picture);
  void SaveSelected(const std::vector<std::size_t>& records);

  wxSplitterWindow* window_;
  wxSplitterWindow* right_;
  wxStaticBox* box_;
  PictureView* view_;
  Gallery* gallery_;
  std::unique_ptr<PictureDecoder> decoder_;  // for the current image; null while nothing is listed
  bool savePng_ = false;
  bool placed_ = false;
};

}  // namespace tarvelo
