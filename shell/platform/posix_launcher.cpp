#include <cstdlib>
#include <sstream>

#include "core/file.h"
#include "shell/platform/launcher.h"

namespace tarvelo {
namespace {

bool IsInstalled(const std::string& program) {
  const char* path = std::getenv("PATH");
  std::istringstream folders(path ? path : "/usr/local/bin:/usr/bin:/bin");
  for (std::string folder; std::getline(folders, folder, ':');)
    if (FileExist(PathOf(folder) / program)) return true;
  return false;
}

class PosixLauncher final : public Launcher {
 public:
  [[nodiscard]] std::string RegRead(const std::string&) const override { return {}; }

  [[nodiscard]] std::string CalculatorCommand() const override {
    for (const char* name :
         {"gnome-calculator", "kcalc", "mate-calc", "galculator", "qalculate-gtk", "xcalc"})
      if (IsInstalled(name)) return name;
    return {};
  }
};

}  // namespace

std::unique_ptr<Launcher> SystemLauncher() { return std::make_unique<PosixLauncher>(); }

}  // namespace tarvelo
