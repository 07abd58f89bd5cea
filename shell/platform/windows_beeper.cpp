#include <windows.h>

#include <thread>

#include "shell/platform/beeper.h"

namespace tarvelo {
namespace {

class WindowsBeeper final : public Beeper {
 public:
  bool BeepOn(int frequency, int milliseconds, const GoOn& goOn) override {
    // ::Beep returns when the tone is over, so it runs in a thread of its own. A new tone, or one of 0 Hz and
    // 0 ms, silences the previous one.
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
