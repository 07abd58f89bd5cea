// The list beside the rows: what the bytes at the cursor mean, and other values for them.
#pragma once

#include <wx/panel.h>

#include <vector>

#include "document/hex_values.h"
#include "resources/messages.h"
#include "shell/services/workbench.h"

class wxDataViewListCtrl;

namespace tarvelo {

class ValuePanel final : public wxPanel {
 public:
  ValuePanel(wxWindow* parent, Workbench& bench);

  // Reads the values at an offset of the open image.
  void Read(Offset at);
  void Clear();
  void Recaption(const Messages& messages);

  // Follows the chosen value if it is a pointer, or else edits it.
  void Follow_Click();
  // Asks for another text of the chosen value and writes it. If that is impossible, tells the user why.
  void Edit_Click();

  [[nodiscard]] wxDataViewListCtrl& List() { return *list_; }
  // The values as they are listed.
  [[nodiscard]] const std::vector<HexValue>& Values() const { return values_; }

 private:
  void ShowValues();
  void Write(std::size_t value, const std::string& text);
  void PressKey(wxKeyEvent& event);

  Workbench& bench_;
  wxDataViewListCtrl* list_;
  std::vector<HexValue> values_;
  Offset at_ = 0;
};

}  // namespace tarvelo
