#include <gio/gio.h>

#include <cstdlib>
#include <memory>
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

  // The starter that wxWidgets uses reports neither a missing program nor its own absence. It alone knows
  // the user's BROWSER.
  bool OpenWithSystem(const std::filesystem::path& file) override {
    const std::unique_ptr<GFile, decltype(&g_object_unref)> object(g_file_new_for_path(file.c_str()),
                                                                   &g_object_unref);
    const std::unique_ptr<char, decltype(&g_free)> uri(g_file_get_uri(object.get()), &g_free);
    if (g_app_info_launch_default_for_uri(uri.get(), nullptr, nullptr)) return true;
    return std::getenv("BROWSER") && Launcher::OpenWithSystem(file);
  }
};

}  // namespace

std::unique_ptr<Launcher> SystemLauncher() { return std::make_unique<PosixLauncher>(); }

}  // namespace tarvelo
