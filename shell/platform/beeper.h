// The system's beeper.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace tarvelo {

class Beeper {
 public:
  // Asked again and again while a tone lasts, some fifty times a second; false ends the tone.
  using GoOn = std::function<bool()>;

  virtual ~Beeper() = default;

  // Sounds one tone of a melody and returns when it is over, or when goOn says so: frequency in hertz
  // (0 is silence), length in milliseconds. A tone that follows at once counts from where the last one
  // was to end, so that the moments between tones do not add up. False when goOn ended it.
  virtual bool BeepOn(int frequency, int milliseconds, const GoOn& goOn) = 0;
  // The melody is over: nothing follows its last tone at once.
  virtual void Finish() {}

  // Sounds a single tone and returns when it is over.
  void Beep(int frequency, int milliseconds);

 protected:
  // Waits for the length of a tone. False when goOn ended it.
  bool Wait(int milliseconds, const GoOn& goOn);

 private:
  std::chrono::steady_clock::time_point end_;  // of the last tone
};

// The real one. Where there is no sound device it is silent for the same length.
[[nodiscard]] std::unique_ptr<Beeper> SystemBeeper();

}  // namespace tarvelo
