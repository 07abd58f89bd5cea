// What the hex view and the code panel share: the whole image in rows, a line above for going to a place, and
// a line below about the cursor.
#pragma once

#include <string>

#include "shell/services/panel.h"
#include "shell/services/workbench.h"
#include "shell/view/place_line.h"

class wxPanel;
class wxSizer;
class wxStaticText;

namespace tarvelo {

class RowCanvas;

class ImagePanel : public Panel {
 public:
  [[nodiscard]] wxWindow& Window() override;
  [[nodiscard]] wxWindow& FirstFocus() override;
  bool StartGoTo() override;
  void Recaption(const Messages& messages) override;

  [[nodiscard]] PlaceLine& Place() { return *place_; }
  [[nodiscard]] wxStaticText& Information() { return *information_; }

 protected:
  // `form`: what two numbers with a colon mean in this view.
  ImagePanel(Workbench& bench, PanelTraits traits, ColonForm form);
  // Puts `content`, which holds the rows, between the two lines. Call once, from the constructor.
  void Arrange(RowCanvas& rows, wxSizer* content);

  // Shows a place that the user entered.
  virtual void GoTo(Offset offset) = 0;
  // The command that Ctrl+C runs in the rows.
  [[nodiscard]] virtual int CopyCommand() const = 0;
  // The text of the line below.
  [[nodiscard]] virtual std::string InformationText() const = 0;
  void ShowInformation();

  // Whether the keyboard is in the line above, whose text the commands of editing then change.
  [[nodiscard]] bool IsPlaceFocused() const;
  // Selects the text of the line above, if the keyboard is there; otherwise the whole image.
  void SelectAll_Click();

  Workbench& bench_;

 private:
  void PressKey(wxKeyEvent& event);

  wxPanel* window_;
  PlaceLine* place_;
  wxStaticText* information_;
  RowCanvas* rows_ = nullptr;
};

}  // namespace tarvelo
