// The system's beeper.
#pragma once

#include <memory>

namespace tarvelo {

class Beeper {
 public:
  virtual ~Beeper() = default;

  // Sounds a tone and returns when it is over: frequency in hertz (0 is silence), length in
  // milliseconds.
  virtual void Beep(int frequency, int milliseconds) = 0;
};

// The real one. Where there is no sound device it is silent for the same length.
[[nodiscard]] std::unique_ptr<Beeper> SystemBeeper();

}  // namespace tarvelo
