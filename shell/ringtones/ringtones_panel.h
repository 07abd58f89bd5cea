// The Ringtones panel: the list of ringtones, the chosen one as a picture of its notes.
#pragma once

#include <optional>
#include <string>

#include "ringtones/ringtone.h"
#include "shell/ringtones/melody_player.h"
#include "shell/services/panel.h"
#include "shell/services/panel_commands.h"
#include "shell/ringtones/ringtone_transfer.h"

class wxSplitterWindow;

namespace tarvelo {

class ListView;
class Main;
class PianoRoll;

class RingtonesPanel final : public Panel {
 public:
  explicit RingtonesPanel(Main& main);

  [[nodiscard]] wxWindow& Window() override;
  [[nodiscard]] const PanelCommands* Commands() const override { return &commands_; }
  [[nodiscard]] wxWindow& FirstFocus() override;
  // Looks for ringtones while none are listed, and selects the first that it finds; looks again after the
  // image was changed.
  void Build() override;
  void Save() override;
  void Clear() override;
  void ImageChanged() override;
  void Recaption(const Messages& messages) override;

  // The commands. Those that need a chosen ringtone do nothing without one.
  void Play_Click();
  void PlayText_Click();
  void Autoplay_Click();
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
  void Find();
  void FindAgain();
  void GetRingtones();
  void SelectQuietly(std::size_t row);
  void ShowRingtone(std::size_t row);
  void ShowFile(const Ringtone& ringtone);
  void ShowTime(std::optional<std::int64_t> time);
  void PlayRing(const std::string& text);
  [[nodiscard]] const Ringtone* Chosen() const;
  [[nodiscard]] std::string TextOf(const Ringtone& ringtone) const;
  [[nodiscard]] PanelCommands MakeCommands();

  Main& main_;
  RingtoneList list_;
  MelodyPlayer player_;
  RingtoneTransfer transfer_;
  PanelCommands commands_;
  wxSplitterWindow* window_;
  ListView* ListR_;
  PianoRoll* roll_;
  std::string typed_;  // the text played last
  bool autoplay_ = false;
  bool selects_ = false;  // the program, not the user
  bool placed_ = false;
  bool stale_ = false;  // the image was changed since it was searched
};

}  // namespace tarvelo
