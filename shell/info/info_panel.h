// The Info panel: the summary of the open dump, beside the program's picture.
#pragma once

#include <wx/string.h>

#include <string>
#include <string_view>

#include "shell/services/panel.h"
#include "shell/services/workbench.h"

class wxStaticBitmap;
class wxStaticBox;
class wxStaticText;
class wxTextCtrl;

namespace tarvelo {

class RecentFiles;
class Welcome;

class InfoPanel final : public Panel {
 public:
  explicit InfoPanel(Workbench& bench);

  [[nodiscard]] wxWindow& Window() override;
  // Before a dump is open the keyboard is at what opens one.
  [[nodiscard]] wxWindow& FirstFocus() override;
  void Build() override {}
  // Writes the text to the dump's path with extension ".info".
  void Save() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;

  // What is offered to be opened again while no document is open.
  void ShowRecent(const RecentFiles& files);

  // The information text. Explorers add lines to what the summary begins.
  void SetText(const wxString& text);
  void AppendText(const wxString& text);
  [[nodiscard]] wxString GetText() const;

  // Appends a named piece of information, of any length, and announces it; says that it is absent where
  // `body` is empty.
  void AddText(const std::string& name, const std::string& body);

 private:
  void Layout();
  void AppendLong(std::string_view text);

  Workbench& bench_;
  wxWindow* window_;
  wxWindow* sheet_;  // the white page around the text
  wxTextCtrl* Text;
  wxStaticBox* Frame;
  wxStaticBitmap* PicAbout;
  Welcome* welcome_;  // in the place of the text while that is empty
};

}  // namespace tarvelo
