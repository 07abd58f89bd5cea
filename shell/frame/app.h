// The desktop program: starts the main window.
#pragma once

#include <wx/app.h>

namespace tarvelo {

class App final : public wxApp {
 public:
  bool OnInit() override;
  // Reports an exception from an event that is not a command, and keeps the program running.
  bool OnExceptionInMainLoop() override;
};

}  // namespace tarvelo
