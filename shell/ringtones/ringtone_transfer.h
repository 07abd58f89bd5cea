// The commands that save the Ringtones panel's ringtones to files and load them.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ringtones/ringtone.h"
#include "ringtones/ringtone_files.h"
#include "ringtones/ringtone_load.h"
#include "shell/services/panel_commands.h"

namespace tarvelo {

class LoadedFiles;
struct Workbench;

class RingtoneTransfer {
 public:
  // Returns the listed ringtones.
  using Listed = std::function<const RingtoneList&()>;
  // Returns the chosen ringtone, or null.
  using ChosenRingtone = std::function<const Ringtone*()>;

  // Returns the ringtones of all selected rows.
  using SelectedRingtones = std::function<std::vector<const Ringtone*>()>;

  RingtoneTransfer(Workbench& bench, Listed listed, ChosenRingtone chosen, SelectedRingtones selected)
      : bench_(bench),
        listed_(std::move(listed)),
        chosen_(std::move(chosen)),
        selected_(std::move(selected)) {}
  // Removes the files of SaveToPlay.
  ~RingtoneTransfer();
  RingtoneTransfer(const RingtoneTransfer&) = delete;
  RingtoneTransfer& operator=(const RingtoneTransfer&) = delete;

  // The entries of the panel's menu.
  [[nodiscard]] std::vector<PanelCommand> Commands();

  // Each does nothing if it has no ringtone to work on.
  void SaveRing_Click();
  void SaveAllRing_Click();
  void LoadRing_Click();
  void LoadAllRing_Click();

  // Remembers how much room each listed ringtone has. After a shorter one has replaced it, one as long as the
  // original still fits.
  void KeepPlaces() { places_ = listed_().ringtones; }

  // Saves a ringtone for another program to play, in a temporary folder. Throws FileError.
  std::filesystem::path SaveToPlay(const Ringtone& ringtone);

 private:
  std::filesystem::path SaveOne(const Ringtone& ringtone, RingtoneFormat format);
  std::filesystem::path SaveFormats(const Ringtone& ringtone);
  void SaveSelected(const std::vector<const Ringtone*>& ringtones);
  std::size_t SaveEach(const std::vector<const Ringtone*>& ringtones);
  void LoadFile(const Ringtone& ringtone, const std::filesystem::path& file);
  void LoadNumber(int number, std::string_view extension, LoadedFiles& loaded);
  void LoadListed(const Ringtone& ringtone, const std::filesystem::path& file, LoadedFiles& loaded);
  [[nodiscard]] Ringtone PlaceOf(const Ringtone& ringtone) const;
  [[nodiscard]] wxString Why(const RefusedRingtone& refused, const Ringtone& ringtone) const;
  [[nodiscard]] std::filesystem::path Folder() const;
  [[nodiscard]] std::string Stem() const;

  Workbench& bench_;
  Listed listed_;
  std::vector<Ringtone> places_;
  ChosenRingtone chosen_;
  SelectedRingtones selected_;
  std::filesystem::path temporary_;  // empty until it is needed
  int played_ = 0;                   // files saved there, each in a folder of its own
  bool saveMidi_ = false;
};

}  // namespace tarvelo
