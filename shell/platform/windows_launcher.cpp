#include <windows.h>
#include <wx/log.h>
#include <wx/msw/registry.h>
#include <wx/utils.h>

#include "shell/base/strings.h"
#include "shell/platform/launcher.h"

namespace tarvelo {
namespace {

class WindowsLauncher final : public Launcher {
 public:
  [[nodiscard]] std::string RegRead(const std::string& key) const override {
    const wxLogNull quiet;  // a missing key is not an error
    wxString name = Wx(key);
    if (name.EndsWith("\\")) name.RemoveLast();
    wxRegKey registry(name);
    wxString value;
    if (!registry.Exists() || !registry.Open(wxRegKey::Read) || !registry.QueryValue(wxString(), value))
      return {};
    return Utf8(value);
  }

  [[nodiscard]] std::string CalculatorCommand() const override {
    wxString windows;
    if (!wxGetEnv("windir", &windows)) return {};
    return Utf8(windows) + "\\System32\\Calc.exe";
  }
};

}  // namespace

std::unique_ptr<Launcher> SystemLauncher() { return std::make_unique<WindowsLauncher>(); }

}  // namespace tarvelo
