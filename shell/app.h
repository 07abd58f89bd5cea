// The desktop program: starts the main window.
#pragma once

#include <wx/app.h>

namespace tarvelo {

class App final : public wxApp {
 public:
  bool OnInit() override;
  // A fault that no command caught: told, and the program goes on.
  bool OnExceptionInMainLoop() override;
};

}  // namespace tarvelo
