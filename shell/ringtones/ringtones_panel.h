// The Ringtones panel: the list of ringtones, the chosen one as a piano roll, and playing.
#pragma once

#include <optional>
#include <string>

#include "ringtones/ringtone.h"
#include "shell/list/explorer_panel.h"
#include "shell/ringtones/melody_player.h"
#include "shell/ringtones/ringtone_transfer.h"

class wxSplitterWindow;

namespace tarvelo {

class PianoRoll;

class RingtonesPanel final : public ExplorerPanel {
 public:
  explicit RingtonesPanel(Workbench& bench);

  void Build() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;

  // The commands. Those that need a chosen ringtone do nothing without one.
  void Play_Click();
  void PlayText_Click();
  void Autoplay_Click();
  void CopyR_Click();

  [[nodiscard]] PianoRoll& Roll() { return *roll_; }
  [[nodiscard]] MelodyPlayer& Player() { return player_; }
  // The listed ringtones.
  [[nodiscard]] const RingtoneList& Ringtones() const;

 protected:
  [[nodiscard]] OwnCommands Own() override;
  void ListChanged(bool isNew) override;
  void RecordChosen(std::size_t record) override;
  // A playing melody belongs to the list.
  [[nodiscard]] bool CanChange() const override { return !player_.IsPlaying(); }

 private:
  RingtonesPanel(Workbench& bench, wxSplitterWindow* window);
  void Layout();
  void Bind();
  void ShowRingtone(std::size_t record);
  void ShowFile(const Ringtone& ringtone);
  void ShowTime(std::optional<std::int64_t> time);
  void PlayRing(const std::string& text);
  [[nodiscard]] const Ringtone* ChosenRingtone() const;
  [[nodiscard]] std::string TextOf(const Ringtone& ringtone) const;

  MelodyPlayer player_;
  RingtoneTransfer transfer_;
  wxSplitterWindow* window_;
  PianoRoll* roll_;
  std::string typed_;  // the last text that was played
  bool autoplay_ = false;
  bool placed_ = false;
};

}  // namespace tarvelo
