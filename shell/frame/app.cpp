#include "shell/frame/app.h"

#include <wx/msgdlg.h>

#include "shell/base/product.h"
#include "shell/calculator/calc166.h"
#include "shell/frame/main.h"
#include "shell/platform/arguments.h"
#include "shell/settings/interface_language.h"

namespace tarvelo {

bool App::OnInit() {
#ifdef NDEBUG
  wxDISABLE_DEBUG_SUPPORT();  // a user can do nothing about an assertion in the library
#endif
  SetAppName(productName);
  const std::vector<std::string> arguments = platform::Arguments();
  Settings settings(Settings::DefaultFile());
  if (arguments == std::vector<std::string>{"166"}) {
    auto* calculator = new Calc166(nullptr, Messages(StoredLanguage(settings)), {});
    calculator->Centre();
    return calculator->Show();
  }
  auto* window = new Main({std::move(settings)});
  window->Show();
  if (!arguments.empty()) window->OpenWhenShown(arguments.front());
  return true;
}

bool App::OnExceptionInMainLoop() try { throw; } catch (const std::exception& fault) {
  wxMessageBox(wxString::FromUTF8(fault.what()), productName, wxOK | wxICON_ERROR);
  return true;
}

}  // namespace tarvelo
