// The editor of the patch document: plain text in a fixed font. It greys out comments and marks lines that
// are not valid patch lines.
#pragma once

#include <wx/stc/stc.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tarvelo {

class PatchEditor final : public wxStyledTextCtrl {
 public:
  explicit PatchEditor(wxWindow* parent);

  // The whole current text, in UTF-8.
  [[nodiscard]] std::string Document() const;
  [[nodiscard]] bool IsEmpty() const { return GetLength() == 0; }

  // The lines without their ends.
  [[nodiscard]] std::vector<std::string> Lines() const;
  // Replaces lines by new texts. One step to undo.
  void ReplaceLines(const std::map<std::size_t, std::string>& texts);

  // Appends a text and scrolls to it. One step to undo.
  void Append(std::string_view text);
  // Clears the text and the undo history.
  void Forget();

  // The place below the caret, in the window's coordinates.
  [[nodiscard]] wxPoint BelowCaret();

  // Selects the next occurrence behind or before the selection, ignoring case, and wraps around. False if
  // there is none.
  bool SelectNext(std::string_view wanted, bool backwards);

 private:
  void ChooseColours();
  void FitScrollWidth();
  void StyleLines(wxStyledTextEvent& event);
};

}  // namespace tarvelo
