// The panels of the main window. One is shown at a time.
#pragma once

#include <wx/gdicmn.h>

#include <memory>
#include <utility>
#include <vector>

#include "shell/services/panel.h"

class wxFrame;
class wxSizer;
class wxWindow;

namespace tarvelo {

class Menus;
class Messages;

class PanelStack {
 public:
  // All must outlive the stack. The panels are shown in a part of the window.
  PanelStack(wxFrame& window, wxSizer& part, Menus& menus, const Messages& texts)
      : window_(window), part_(part), menus_(menus), texts_(texts) {}

  // Takes ownership of a panel.
  template <typename P>
  P& Add(std::unique_ptr<P> panel) {
    P& added = *panel;
    Take(std::move(panel));
    return added;
  }

  // Shows a panel unless it is already visible: builds it, hides all others, sets the window's title.
  void ShowPanel(Panel& panel);
  // Hides all panels.
  void UnVis();
  [[nodiscard]] Panel* Visible() const { return visible_; }
  [[nodiscard]] const std::vector<std::unique_ptr<Panel>>& All() const { return panels_; }
  // The panel that a menu entry shows, or null.
  [[nodiscard]] Panel* Of(int menuEntry) const;

  // Empties all panels: the document is closed.
  void Clear();
  // Rebuilds the menu of a panel if it is visible.
  void RenewMenu(Panel& panel);
  // Switches all captions to the current language.
  void Recaption();
  // Ticks the menu entry of the visible panel.
  void CheckMenu();
  // Shows the context menu of the visible panel at a place on the screen. Returns the chosen id, or 0.
  [[nodiscard]] int PopUp(const wxPoint& place);

 private:
  void Take(std::unique_ptr<Panel> panel);
  void ShowTitle();

  wxFrame& window_;
  wxSizer& part_;
  Menus& menus_;
  const Messages& texts_;
  std::vector<std::unique_ptr<Panel>> panels_;
  Panel* visible_ = nullptr;
};

}  // namespace tarvelo
