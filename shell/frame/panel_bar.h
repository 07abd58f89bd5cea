// The bar at the left of the window: going back and forth, and a button for each panel that exists. Tab stops
// at it once; the arrow keys move between its buttons. In a narrow window it shows the pictures alone.
#pragma once

#include <wx/scrolwin.h>

#include <functional>
#include <optional>
#include <vector>

class wxBoxSizer;

namespace tarvelo {

class Messages;
class PanelButton;

class PanelBar final : public wxScrolledWindow {
 public:
  // `panels`: the ids of the panels, in order.
  PanelBar(wxWindow* parent, const std::vector<int>& panels);

  void Recaption(const Messages& messages);

  // What the bar shows; cheap if nothing has changed.
  struct State {
    int visible = 0;  // the id of the visible panel
    bool canGoBack = false;
    bool canGoForward = false;
    std::function<bool(int id)> isEnabled;
    std::function<std::optional<std::size_t>(int id)> figure;
  };
  void Update(const State& state);
  using wxScrolledWindow::Update;

  // Fits the bar to a window of this size.
  void FitWindow(const wxSize& window);

  // The button for a panel, or for Id::GoBack or Id::GoForward; null if there is none.
  [[nodiscard]] PanelButton* Button(int id) const;

  std::function<void(int id)> onRun;
  std::function<void()> onLeave;  // Escape

 private:
  PanelButton& Add(int id, const std::string& icon, char letter, wxBoxSizer& sizer);
  void Key(wxKeyEvent& event, PanelButton& button);
  void Step(PanelButton& from, int direction);

  std::vector<PanelButton*> buttons_;  // from top to bottom
  PanelButton* stepTo_ = nullptr;      // where an arrow key is going
  std::size_t panelCount_ = 0;
  wxSize window_;
};

}  // namespace tarvelo
