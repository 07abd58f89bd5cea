#include <wx/app.h>

#include "shell/base/strings.h"
#include "shell/platform/arguments.h"

namespace tarvelo::platform {

std::vector<std::string> Arguments() {
  std::vector<std::string> arguments;
  for (int i = 1; i < wxTheApp->argc; ++i) arguments.push_back(Utf8(wxString(wxTheApp->argv[i])));
  return arguments;
}

}  // namespace tarvelo::platform
