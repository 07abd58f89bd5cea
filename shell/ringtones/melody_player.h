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

  // Plays a melody in text form (melody.h) tone by tone, and returns when it is over or stopped.
  // Meanwhile the window repaints, but no other command runs. Escape and the command StopPlaying stop
  // the melody, other keys do nothing; a row or a command chosen with the mouse, a file that is dropped
  // and closing the window stop it and are done after it. Nothing happens where a melody plays already.
  void PlayRing(std::string_view text);

  void Stop() { isStopped_ = true; }
  [[nodiscard]] bool IsPlaying() const { return isPlaying_; }

  // Told where the melody is, in milliseconds from its start, some fifty times a second; then, with
  // nothing, that it is over.
  std::function<void(std::optional<std::int64_t> time)> onTime;

 private:
  void PlayTones(std::string_view text);
  bool Attend(std::int64_t time);

  Workbench& bench_;
  bool isPlaying_ = false;
  bool isStopped_ = false;
};

}  // namespace tarvelo
