// The part that is the same on every system.
#include "shell/platform/launcher.h"

#include <wx/log.h>
#include <wx/utils.h>

#include "shell/base/strings.h"

namespace tarvelo {

long Launcher::shel(const std::string& commandLine) {
  if (commandLine.empty()) return 0;
  const wxLogNull quiet;
  return wxExecute(Wx(commandLine), wxEXEC_ASYNC);
}

bool Launcher::OpenWithSystem(const std::filesystem::path& file) {
  const wxLogNull quiet;
  return wxLaunchDefaultApplication(WxPath(file));
}

}  // namespace tarvelo
