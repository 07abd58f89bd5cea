// The Pictures panel: the list of pictures, the chosen one enlarged in its frame, and a gallery of all.
#pragma once

#include <filesystem>
#include <memory>

#include "pictures/picture.h"
#include "pictures/picture_data.h"
#include "shell/services/panel.h"
#include "shell/services/panel_commands.h"
#include "shell/services/text_search.h"

class wxSplitterWindow;
class wxStaticBox;

namespace tarvelo {

class Gallery;
class ListView;
class Main;
class PictureView;

class PicturesPanel final : public Panel {
 public:
  explicit PicturesPanel(Main& main);

  [[nodiscard]] wxWindow& Window() override;
  [[nodiscard]] const PanelCommands* Commands() const override { return &commands_; }
  [[nodiscard]] wxWindow& FirstFocus() override;
  // Looks for pictures while none are listed, and selects the first.
  void Build() override;
  void Save() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;

  // The commands. Those that need a chosen picture do nothing without one.
  void SavePic_Click();
  void SaveAllPic_Click();
  void CopyPic_Click();
  void OffsetP_Click();
  void OpenP_Click();
  void OpenDescP_Click();
  void ShowPic_Click();

  [[nodiscard]] ListView& ListP() { return *ListP_; }
  [[nodiscard]] PictureView& Pic() { return *Pic_; }
  [[nodiscard]] Gallery& AllPictures() { return *gallery_; }
  [[nodiscard]] const PictureList& Pictures() const { return list_; }

 private:
  void Layout();
  void Bind();
  void GetPictures();
  void ShowPicture(std::size_t row);
  [[nodiscard]] const Picture* Chosen() const;
  [[nodiscard]] Bitmap Draw(const Picture& picture);
  [[nodiscard]] std::filesystem::path Folder() const;
  std::filesystem::path SaveCurPic(const Picture& picture);
  bool SaveEach();
  [[nodiscard]] PanelCommands MakeCommands();

  Main& main_;
  TextSearch search_;
  PanelCommands commands_;
  wxSplitterWindow* window_;
  wxSplitterWindow* right_;
  ListView* ListP_;
  wxStaticBox* Frame;
  PictureView* Pic_;
  Gallery* gallery_;
  PictureList list_;
  std::unique_ptr<PictureDecoder> decoder_;
  bool savePng_ = false;
  bool placed_ = false;
};

}  // namespace tarvelo
