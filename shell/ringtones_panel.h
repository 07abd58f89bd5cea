// The Ringtones panel: the list of ringtones, the chosen one as a picture of its notes.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "media/ringtone.h"
#include "media/ringtone_files.h"
#include "shell/melody_player.h"
#include "shell/panel.h"
#include "shell/panel_commands.h"

class wxSplitterWindow;

namespace tarvelo {

class ListView;
class Main;
class PianoRoll;

class RingtonesPanel final : public Panel {
 public:
  explicit RingtonesPanel(Main& main);

  [[nodiscard]] int MenuEntry() const override;
  [[nodiscard]] int Name() const override { return 139; }
  [[nodiscard]] int SaveTextCaption() const override { return 5; }
  [[nodiscard]] wxWindow& Window() override;
  [[nodiscard]] const PanelCommands* Commands() const override { return &commands_; }
  [[nodiscard]] wxWindow& FirstFocus() override;
  // Looks for ringtones while none are listed, and selects the first that it finds.
  void Build() override;
  void Save() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;

  // The commands. Those that need a chosen ringtone do nothing without one.
  void Play_Click();
  void PlayText_Click();
  void Autoplay_Click();
  void SaveRing_Click();
  void SaveAllRing_Click();
  void CopyR_Click();
  void OffsetR_Click();
  void OpenR_Click();
  void OpenDescR_Click();

  [[nodiscard]] ListView& ListR() { return *ListR_; }
  [[nodiscard]] PianoRoll& Roll() { return *roll_; }
  [[nodiscard]] MelodyPlayer& Player() { return player_; }

 private:
  void Layout();
  void Bind();
  void GetRingtones();
  void ShowRingtone(std::size_t row);
  void ShowFile(const Ringtone& ringtone);
  void ShowTime(std::optional<std::int64_t> time);
  void PlayRing(const std::string& text);
  [[nodiscard]] const Ringtone* Chosen() const;
  [[nodiscard]] std::string TextOf(const Ringtone& ringtone) const;
  [[nodiscard]] std::filesystem::path Folder() const;
  std::optional<std::filesystem::path> SaveOne(const Ringtone& ringtone, RingtoneFormat format);
  std::optional<std::filesystem::path> SaveFormats(const Ringtone& ringtone);
  bool SaveEach();
  [[nodiscard]] PanelCommands MakeCommands();

  Main& main_;
  PanelCommands commands_;
  MelodyPlayer player_;
  wxSplitterWindow* window_;
  ListView* ListR_;
  PianoRoll* roll_;
  RingtoneList list_;
  std::string typed_;  // the text played last
  bool autoplay_ = false;
  bool saveMidi_ = false;
  bool selects_ = false;  // the program, not the user
  bool placed_ = false;
};

}  // namespace tarvelo
