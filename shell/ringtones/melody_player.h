// Plays melodies on the beeper.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

namespace tarvelo {

struct Workbench;

class MelodyPlayer {
 public:
  explicit MelodyPlayer(Workbench& bench) : bench_(bench) {}

  // Plays a melody in text form (melody.h) tone by tone, and returns when it ends or is stopped. Meanwhile
  // the window repaints, but no other command runs. Any key, any command, choosing a row, dropping a file and
  // closing the window stop the melody and take effect after it; Escape and the command StopPlaying only stop
  // it. Does nothing if a melody is already playing.
  void PlayRing(std::string_view text);

  void Stop() { isStopped_ = true; }
  [[nodiscard]] bool IsPlaying() const { return isPlaying_; }

  // Called about fifty times a second with the position in the melody, in milliseconds from its start; then,
  // without a value, when it is over.
  std::function<void(std::optional<std::int64_t> time)> onTime;

 private:
  void PlayTones(std::string_view text);
  bool Attend(std::int64_t time);

  Workbench& bench_;
  bool isPlaying_ = false;
  bool isStopped_ = false;
};

}  // namespace tarvelo
