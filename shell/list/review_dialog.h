// Shows a list that the user looks through before anything is done, and what surrounds its current row.
#pragma once

#include <wx/dialog.h>

#include "shell/services/review.h"

class wxStaticText;
class wxTextCtrl;

namespace tarvelo {

class ListView;
class Messages;

// ShowModal returns wxID_OK, wxID_APPLY for the selected rows alone, or wxID_CANCEL.
class ReviewDialog final : public wxDialog {
 public:
  // All must outlive the dialog; `parent` may be null.
  ReviewDialog(wxWindow* parent, const Messages& messages, const Review& review);

  [[nodiscard]] ListView& List() { return *list_; }
  // The list of what surrounds the current row; null if there are no details.
  [[nodiscard]] ListView* Details() { return details_; }

 private:
  [[nodiscard]] wxTextCtrl* MakeHeading(const Messages& messages);
  [[nodiscard]] wxSizer* MakeButtons(const Messages& messages);
  void ShowDetails(std::size_t row);
  void FitScreen();

  const Review& review_;
  ListView* list_;
  wxStaticText* text_ = nullptr;
  ListView* details_ = nullptr;
};

}  // namespace tarvelo
