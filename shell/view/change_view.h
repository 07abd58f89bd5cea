// A pane that shows a change of bytes as instructions, before and after.
#pragma once

#include <optional>
#include <string>

#include "core/image_edits.h"
#include "shell/view/text_pane.h"

namespace tarvelo {

struct Workbench;

class ChangeView final : public TextPane {
 public:
  ChangeView(wxWindow* parent, Workbench& bench);

  // Shows a change of the open image, or nothing. The first time after an edit this searches for functions,
  // which takes up to 0.2 seconds. If the image holds no C166 code, or not all of the change, says so.
  void ShowChange(const std::optional<Change>& change);

 private:
  void ChooseColours() override;
  [[nodiscard]] std::string TextOf(const Change& change);

  Workbench& bench_;
};

}  // namespace tarvelo
