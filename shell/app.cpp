#include "shell/app.h"

#include <wx/msgdlg.h>

#include "shell/main.h"
#include "shell/platform/arguments.h"
#include "shell/product.h"

namespace tarvelo {

bool App::OnInit() {
#ifdef NDEBUG
  wxDISABLE_DEBUG_SUPPORT();  // a user can do nothing about an assertion of the library
#endif
  SetAppName(productName);
  auto* window = new Main({Settings(Settings::DefaultFile())});
  window->Show();
  const std::vector<std::string> arguments = platform::Arguments();
  if (!arguments.empty()) window->OpenWhenShown(arguments.front());
  return true;
}

bool App::OnExceptionInMainLoop() try { throw; } catch (const std::exception& fault) {
  wxMessageBox(wxString::FromUTF8(fault.what()), productName, wxOK | wxICON_ERROR);
  return true;
}

}  // namespace tarvelo
