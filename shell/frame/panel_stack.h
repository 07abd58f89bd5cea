// The panels of the main window, of which one is shown at a time.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "shell/services/panel.h"

class wxFrame;
class wxWindow;

namespace tarvelo {

class Menus;
class Messages;

class PanelStack {
 public:
  // All must outlive the stack.
  PanelStack(wxFrame& window, Menus& menus, const Messages& texts)
      : window_(window), menus_(menus), texts_(texts) {}

  // Takes over a panel.
  template <typename P>
  P& Add(std::unique_ptr<P> panel) {
    P& added = *panel;
    Take(std::move(panel));
    return added;
  }

  // Shows a panel, unless it is shown already: builds it, hides all others, titles the window.
  void ShowPanel(Panel& panel);
  // Hides all.
  void UnVis();
  [[nodiscard]] Panel* Visible() const { return visible_; }
  // The panel that a menu entry shows, or null.
  [[nodiscard]] Panel* Of(int menuEntry) const;

  // Empties all: the document is closed.
  void Clear();
  // Puts all captions in the current language.
  void Recaption();
  // Ticks the menu entry of the visible panel.
  void CheckMenu();
  // Shows the context menu of the visible panel. Returns the id that was chosen, 0 for none.
  [[nodiscard]] int PopUp();

 private:
  void Take(std::unique_ptr<Panel> panel);
  void ShowTitle();

  wxFrame& window_;
  Menus& menus_;
  const Messages& texts_;
  std::vector<std::unique_ptr<Panel>> panels_;
  Panel* visible_ = nullptr;
};

}  // namespace tarvelo
