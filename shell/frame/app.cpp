#include "shell/frame/app.h"

#include <wx/msgdlg.h>

#include "core/file.h"
#include "resources/texts.h"
#include "shell/base/product.h"
#include "shell/base/strings.h"
#include "shell/calculator/calc166.h"
#include "shell/frame/main.h"
#include "shell/patch/apply_patch.h"
#include "shell/platform/arguments.h"
#include "shell/settings/interface_language.h"

namespace tarvelo {

std::optional<std::string> AnswerTo(std::string_view argument, const Messages& messages) {
  if (argument == "--version") return productTitle;
  if (argument != "--help" && argument != "-h") return {};
  return std::string(messages.Msg(Text::ProgramUsage)) + "\n" +
         std::string(messages.Msg(Text::ProgramOptions));
}

std::vector<FilesOfWindow> WindowsFor(const std::vector<std::string>& files) {
  std::vector<FilesOfWindow> windows;
  for (const std::string& file : files) {
    const bool isPatch = IsPatchFile(PathOf(file));
    if (isPatch && !windows.empty() && windows.back().size() == 1 && !IsPatchFile(PathOf(windows.back()[0])))
      windows.back().push_back(file);
    else
      windows.push_back({file});
  }
  return windows;
}

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
  if (arguments.size() == 1)
    if (const auto answer = AnswerTo(arguments.front(), Messages(StoredLanguage(settings)))) {
      wxMessageBox(Wx(*answer), productName, wxOK | wxICON_INFORMATION);
      isDone_ = true;
      return true;
    }
  auto* window = new Main({std::move(settings)});
  window->Show();
  const std::vector<FilesOfWindow> windows = WindowsFor(arguments);
  for (const FilesOfWindow& files : windows)
    if (&files == &windows.front())
      window->OpenWhenShown(files);
    else
      window->Bench().frame.OpenInNewWindow(PathOf(files[0]),
                                            files.size() > 1 ? PathOf(files[1]) : PathOf(""));
  return true;
}

int App::OnRun() { return isDone_ ? 0 : wxApp::OnRun(); }

bool App::OnExceptionInMainLoop() try { throw; } catch (const std::exception& fault) {
  wxMessageBox(wxString::FromUTF8(fault.what()), productName, wxOK | wxICON_ERROR);
  return true;
}

}  // namespace tarvelo
