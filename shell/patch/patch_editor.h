// The editor of the patch document: plain text in a fixed font. Comments stand back, and lines that are
// no patch lines are marked.
#pragma once

#include <wx/stc/stc.h>

#include <string>
#include <string_view>

namespace tarvelo {

class PatchEditor final : public wxStyledTextCtrl {
 public:
  explicit PatchEditor(wxWindow* parent);

  // The whole text as it is edited, UTF-8.
  [[nodiscard]] std::string Document() const;
  [[nodiscard]] bool IsEmpty() const { return GetLength() == 0; }

  // Adds to the end and shows it. One step to undo.
  void Append(std::string_view text);
  // Empties the text; it cannot be brought back.
  void Forget();

  // Selects the next occurrence behind the selection, upper and lower case alike; behind the end it goes
  // on at the top. False where there is none.
  bool SelectNext(std::string_view wanted);

 private:
  void ChooseColours();
  void FitScrollWidth();
  void StyleLines(wxStyledTextEvent& event);
};

}  // namespace tarvelo
