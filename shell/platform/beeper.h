// The system's beeper.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace tarvelo {

class Beeper {
 public:
  // Called about fifty times a second while a tone sounds; false ends the tone.
  using GoOn = std::function<bool()>;

  virtual ~Beeper() = default;

  // Sounds one tone of a melody and returns when it is over or goOn ends it: frequency in hertz (0 is
  // silence), length in milliseconds. A tone that follows at once is timed from the planned end of the
  // previous one, so that the gaps between tones do not add up. False if goOn ended it.
  virtual bool BeepOn(int frequency, int milliseconds, const GoOn& goOn) = 0;
  // Ends the melody: no tone follows the last one at once.
  virtual void Finish() {}

  // Sounds a single tone and returns when it is over.
  void Beep(int frequency, int milliseconds);

 protected:
  // Waits for the length of a tone. False if goOn ended it.
  bool Wait(int milliseconds, const GoOn& goOn);

 private:
  std::chrono::steady_clock::time_point end_;  // the planned end of the last tone
};

// The real beeper. Without a sound device it is silent for the same length.
[[nodiscard]] std::unique_ptr<Beeper> SystemBeeper();

}  // namespace tarvelo
