// Lists the lines of a patch that do not fit and asks whether to apply the others, or to take them out.
#pragma once

#include <wx/dialog.h>

namespace tarvelo {

class ListView;
class Messages;
class MisfitTable;

// ShowModal returns wxID_OK if the lines that fit are to be written.
class PatchCheckDialog final : public wxDialog {
 public:
  // The misfits must outlive the dialog; `parent` may be null.
  PatchCheckDialog(wxWindow* parent, const Messages& messages, const MisfitTable& misfits);

  [[nodiscard]] ListView& List() { return *list_; }

 private:
  [[nodiscard]] wxTextCtrl* MakeHeader(const Messages& messages, const wxString& text);
  [[nodiscard]] wxSizer* MakeButtons(const Messages& messages, const MisfitTable& misfits);
  void FitScreen();

  ListView* list_;
};

}  // namespace tarvelo
