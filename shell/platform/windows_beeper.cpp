#include <windows.h>

#include "shell/platform/beeper.h"

namespace tarvelo {
namespace {

class WindowsBeeper final : public Beeper {
 public:
  void Beep(int frequency, int milliseconds) override {
    const auto length = static_cast<DWORD>(milliseconds);
    if (frequency <= 0 || !::Beep(static_cast<DWORD>(frequency), length)) Sleep(length);
  }
};

}  // namespace

std::unique_ptr<Beeper> SystemBeeper() { return std::make_unique<WindowsBeeper>(); }

}  // namespace tarvelo
