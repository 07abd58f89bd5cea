// The list of functions beside the code, with a filter. It follows the cursor of the code, and the code
// follows the list.
#pragma once

#include <wx/panel.h>

#include <functional>

#include "shell/code/code_view.h"

namespace tarvelo {

class ListView;
class Messages;

class FunctionSide final : public wxPanel {
 public:
  FunctionSide(wxWindow* parent, const Messages& texts);

  // Lists the functions of a view, or none (null). The view must stay valid until the next call.
  void SetView(const CodeView* view);
  // Makes the function that holds a place the current one. Keeps the filter: a function that it hides is not
  // selected.
  void Follow(Offset offset);
  void Recaption(const Messages& messages);

  [[nodiscard]] ListView& List() { return *list_; }

  std::function<void(const Function&)> onChoose;    // the user selected a function
  std::function<void(const Function&)> onActivate;  // double click, Enter

 private:
  [[nodiscard]] TableRows Rows() const;
  void Call(const std::function<void(const Function&)>& handler, std::size_t row) const;
  void Change(const std::function<void()>& change);

  const Messages& texts_;
  const CodeView* view_ = nullptr;
  ListView* list_;
  bool isSelecting_ = false;  // the program, not the user
};

}  // namespace tarvelo
