#include "shell/app.h"

#include <wx/msgdlg.h>

#include "shell/main.h"
#include "shell/product.h"
#include "shell/strings.h"

namespace tarvelo {

bool App::OnInit() {
#ifdef NDEBUG
  wxDISABLE_DEBUG_SUPPORT();  // a user can do nothing about an assertion of the library
#endif
  SetAppName(productName);
  auto* window = new Main(Settings(Settings::DefaultFile()), SystemBeeper());
  window->Show();
  if (argc > 1) window->CallAfter([window, file = wxString(argv[1])] { window->OpenNamed(Utf8(file)); });
  return true;
}

bool App::OnExceptionInMainLoop() try { throw; } catch (const std::exception& fault) {
  wxMessageBox(wxString::FromUTF8(fault.what()), productName, wxOK | wxICON_ERROR);
  return true;
}

}  // namespace tarvelo
