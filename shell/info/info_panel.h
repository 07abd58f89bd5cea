// The Info panel: the summary of the open dump, beside the program's picture.
#pragma once

#include <wx/string.h>

#include <string>
#include <string_view>
#include <vector>

#include "shell/services/panel.h"
#include "shell/services/panel_commands.h"
#include "shell/services/workbench.h"

class wxButton;
class wxSizer;
class wxStaticBitmap;
class wxStaticBox;
class wxTextCtrl;

namespace tarvelo {

class RecentFiles;
class Welcome;

class InfoPanel final : public Panel {
 public:
  explicit InfoPanel(Workbench& bench);

  [[nodiscard]] wxWindow& Window() override;
  // The button that opens a dump, until one is open.
  [[nodiscard]] wxWindow& FirstFocus() override;
  [[nodiscard]] const PanelCommands* Commands() override { return &commands_; }
  void Build() override { ShowFigures(); }
  // Writes the text to the dump's path with extension ".info".
  void Save() override;
  void Clear() override;
  void Recaption(const Messages& messages) override;

  // Sets the files that the panel offers to open while no document is open.
  void ShowRecent(const RecentFiles& files);

  // The information text: starts with the summary; explorers append lines.
  // SetSummary replaces it by the summary of the open document, which was read from this file. The summary
  // follows the language and the model; what is added below it stays.
  void SetSummary(const std::filesystem::path& file);
  void SetText(const wxString& text);
  void AppendText(const wxString& text);
  [[nodiscard]] wxString GetText() const;

  // Appends a named piece of information of any length and announces it. If `body` is empty, says that there
  // is nothing to add.
  void AddText(const std::string& name, const std::string& body);

 private:
  void ChooseColours();
  void Layout();
  // A button for each explorer, with its figure if that is known.
  void AddButtons(wxSizer& line);
  void ShowFigures();
  // What the figures of the line under the mouse mean.
  void Explain(const wxPoint& mouse);
  [[nodiscard]] wxString SummaryText() const;
  void UpdateSummary();
  void AppendLong(std::string_view text);

  Workbench& bench_;
  PanelCommands commands_;
  wxWindow* window_;
  wxWindow* sheet_;  // the white page around the text
  wxTextCtrl* text_;
  std::string file_;  // that the summary names
  wxString summary_;  // in the current language
  Document::Watch watch_;
  wxStaticBox* box_;
  wxStaticBitmap* picture_;
  wxSizer* found_ = nullptr;        // the buttons,
  std::vector<wxButton*> buttons_;  // in the order of Explorers()
  long explained_ = -1;             // the line whose tooltip is shown
  Welcome* welcome_;                // shown instead of the text while that is empty
};

}  // namespace tarvelo
