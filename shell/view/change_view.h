// A pane that shows a change of bytes as instructions, before and after.
#pragma once

#include <wx/stc/stc.h>

#include <optional>

#include "core/image_edits.h"

namespace tarvelo {

struct Workbench;

class ChangeView final : public wxStyledTextCtrl {
 public:
  ChangeView(wxWindow* parent, Workbench& bench);

  // Shows a change of the open image, or nothing. The first time after an edit this searches for functions,
  // which takes up to 0.2 seconds. If the image holds no C166 code, or not all of the change, says so.
  void ShowChange(const std::optional<Change>& change);

 private:
  void ChooseColours();
  void FitScrollWidth();
  [[nodiscard]] std::string TextOf(const Change& change);

  Workbench& bench_;
};

}  // namespace tarvelo
