// What stands in the place of the information text while no fullflash is open: how to begin.
#pragma once

#include <wx/scrolwin.h>

#include <array>
#include <filesystem>

#include "shell/base/recent_files.h"

class wxButton;
class wxStaticText;

namespace tarvelo {

class Main;
class Messages;

class Welcome final : public wxScrolledWindow {
 public:
  Welcome(wxWindow* parent, Main& main);

  void Recaption(const Messages& messages);
  // Offers the files opened last.
  void ShowRecent(const RecentFiles& files);

  // What takes the keyboard first.
  [[nodiscard]] wxButton& OpenButton() { return *open_; }

 private:
  void Arrange(wxWindow& title);
  void ShowHint();
  // A button that runs a command of MenuId.
  wxButton* AddButton(int command, long style = 0);

  Main& main_;
  wxStaticText* hint_;
  wxString hintText_;
  wxButton* open_;
  wxStaticText* recentTitle_;
  std::array<wxButton*, RecentFiles::count> recent_;
  wxButton* demonstration_;
  wxButton* help_;
};

// Writes the demonstration fullflash into a folder, or into the system's folder for temporary files
// where that fails, and returns its path. No file is overwritten: one that holds just this already is
// taken as it is, and where another has the name a number is added. Throws FileError.
[[nodiscard]] std::filesystem::path WriteDemonstration(const std::filesystem::path& folder);

// Writes the demonstration fullflash into the user's documents, opens it and says where it lies.
void OpenDemonstration(Main& main);

}  // namespace tarvelo
