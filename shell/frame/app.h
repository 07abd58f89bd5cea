// The desktop program: starts the main window.
#pragma once

#include <wx/app.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvelo {

class Messages;

// What an argument asks the program to say instead of opening a window: --help, --version.
[[nodiscard]] std::optional<std::string> AnswerTo(std::string_view argument, const Messages& messages);

// A fullflash, a patch, or a fullflash and a patch for it.
using FilesOfWindow = std::vector<std::string>;

// The windows that the files named on the command line get: one for each, but a patch behind a fullflash is
// shown with it.
[[nodiscard]] std::vector<FilesOfWindow> WindowsFor(const std::vector<std::string>& files);

class App final : public wxApp {
 public:
  bool OnInit() override;
  int OnRun() override;
  // Reports an exception from an event that is not a command, and keeps the program running.
  bool OnExceptionInMainLoop() override;

 private:
  bool isDone_ = false;  // it has said what it was asked
};

}  // namespace tarvelo
