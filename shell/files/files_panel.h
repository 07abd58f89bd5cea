// The Files panel: the tree of the phone's folders, the list of the files in the chosen folder and below it,
// and a preview of the chosen file.
#pragma once

#include <optional>
#include <vector>

#include "files/file_list.h"
#include "shell/files/file_transfer.h"
#include "shell/list/explorer_panel.h"
#include "shell/ringtones/melody_player.h"

class wxSplitterWindow;

namespace tarvelo {

class FilePreview;
class FolderTree;

class FilesPanel final : public ExplorerPanel {
 public:
  explicit FilesPanel(Workbench& bench);

  void Build() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;

  // The commands. Those that need a chosen file do nothing without one.
  void OpenFile_Click();  // of a folder: lists its files
  void Play_Click();

  // The listed files.
  [[nodiscard]] const FileList& Files() const;
  [[nodiscard]] FolderTree& Folders() { return *folders_; }
  [[nodiscard]] FilePreview& Preview() { return *preview_; }
  [[nodiscard]] FileTransfer& Transfer() { return transfer_; }

 protected:
  [[nodiscard]] OwnCommands Own() override;
  void ListChanged(bool isNew) override;
  void RecordChosen(std::size_t record) override;
  [[nodiscard]] bool CanChange() const override { return !player_.IsPlaying(); }
  [[nodiscard]] std::function<bool(std::size_t record)> Narrowing() override;
  // That of the piece that is chosen in the preview.
  [[nodiscard]] std::optional<Region> ChosenRegion() const override;

 private:
  FilesPanel(Workbench& bench, wxSplitterWindow* window);
  void Layout();
  void Bind();
  void BindPreview();
  void Drag(wxDataViewEvent& event);
  void ShowChosen();
  [[nodiscard]] FileChoice Choice();
  [[nodiscard]] std::vector<std::size_t> EntriesOf(bool all) const;
  [[nodiscard]] wxString DamageText(const FileEntry& entry) const;
  [[nodiscard]] bool CanPlay() const;

  MelodyPlayer player_;
  FileTransfer transfer_;
  wxSplitterWindow* window_;
  wxSplitterWindow* right_;
  FolderTree* folders_;
  FilePreview* preview_;
  std::optional<std::size_t> previewed_;  // the entry in the preview
  bool placed_ = false;
};

}  // namespace tarvelo
