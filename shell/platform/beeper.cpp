#include "shell/platform/beeper.h"

#include <algorithm>
#include <thread>

namespace tarvelo {

using namespace std::chrono_literals;

void Beeper::Beep(int frequency, int milliseconds) {
  BeepOn(frequency, milliseconds, [] { return true; });
  Finish();
}

bool Beeper::Wait(int milliseconds, const GoOn& goOn) {
  constexpr auto slice = 15ms;
  constexpr auto longestPause = 100ms;  // after a longer pause a tone no longer follows at once
  if (milliseconds <= 0) return true;
  const auto now = std::chrono::steady_clock::now();
  if (now < end_ || now - end_ > longestPause) end_ = now;
  end_ += std::chrono::milliseconds(milliseconds);
  while (goOn()) {
    const auto left = end_ - std::chrono::steady_clock::now();
    if (left <= 0ms) return true;
    std::this_thread::sleep_for(std::min<std::chrono::nanoseconds>(left, slice));
  }
  return false;
}

}  // namespace tarvelo
