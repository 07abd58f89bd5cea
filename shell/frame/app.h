// The desktop program: starts the main window.
#pragma once

#include <wx/app.h>

namespace tarvelo {

class App final : public wxApp {
 public:
  bool OnInit() override;
  // A fault in an event that is no command: told, and the program goes on.
  bool OnExceptionInMainLoop() override;
};

}  // namespace tarvelo
