// Shown instead of the information text while no fullflash is open: how to begin.
#pragma once

#include <wx/scrolwin.h>

#include <array>

#include "shell/settings/recent_files.h"

class wxButton;
class wxStaticText;

namespace tarvelo {

struct Workbench;
class Messages;

class Welcome final : public wxScrolledWindow {
 public:
  Welcome(wxWindow* parent, Workbench& bench);

  void Recaption(const Messages& messages);
  // Offers the most recently opened files.
  void ShowRecent(const RecentFiles& files);

  // The button that gets the keyboard focus first.
  [[nodiscard]] wxButton& FirstButton() { return continue_->IsShown() ? *continue_ : *open_; }

 private:
  void Arrange(wxWindow& title);
  void ChooseColours();
  void ShowHint();
  void Wrap(wxStaticText& control, const wxString& text, int width);
  // A button that runs a command.
  wxButton* AddButton(int id, long style = 0);

  Workbench& bench_;
  wxStaticText* hint_;
  wxString hintText_;
  wxStaticText* abilities_;
  wxString abilitiesText_;
  wxButton* continue_;  // shown if the program knows where the user left off
  wxButton* open_;
  wxStaticText* recentTitle_;
  std::array<wxButton*, RecentFiles::count> recent_;
  wxButton* demonstration_;
  wxButton* secondDemonstration_;
  wxButton* help_;
};

}  // namespace tarvelo
