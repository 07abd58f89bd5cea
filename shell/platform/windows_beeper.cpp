#include <windows.h>

#include <thread>

#include "shell/platform/beeper.h"

namespace tarvelo {
namespace {

class WindowsBeeper final : public Beeper {
 public:
  bool BeepOn(int frequency, int milliseconds, const GoOn& goOn) override {
    // ::Beep returns when the tone is over, so it has a thread of its own; a tone that takes another's
    // place, or the one of 0 Hz and 0 ms, silences what still sounds.
    if (frequency > 0 && milliseconds > 0)
      std::thread([=] { ::Beep(static_cast<DWORD>(frequency), static_cast<DWORD>(milliseconds)); }).detach();
    if (Wait(milliseconds, goOn)) return true;
    ::Beep(0, 0);
    return false;
  }
};

}  // namespace

std::unique_ptr<Beeper> SystemBeeper() { return std::make_unique<WindowsBeeper>(); }

}  // namespace tarvelo
