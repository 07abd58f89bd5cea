// The editor of the patch document: plain text in a fixed font. It greys out comments, and marks and colours
// lines by what was found out about them.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "patch/document_check.h"
#include "shell/view/text_pane.h"

namespace tarvelo {

class PatchEditor final : public TextPane {
 public:
  explicit PatchEditor(wxWindow* parent);

  // The whole current text, in UTF-8.
  [[nodiscard]] std::string Document() const;
  [[nodiscard]] bool IsEmpty() const { return GetLength() == 0; }

  // The lines without their ends.
  [[nodiscard]] std::vector<std::string> Lines() const;
  // Replaces lines by new texts. One step to undo.
  void ReplaceLines(const std::map<std::size_t, std::string>& texts);

  // Replaces the whole text and stays in the same line. One step to undo.
  void ReplaceAll(std::string_view text);
  // Shows another text, from its start. Forgets the undo history.
  void Open(std::string_view text);
  // Appends a text and scrolls to it. One step to undo.
  void Append(std::string_view text);
  // Clears the text and the undo history.
  void Forget();

  // Lines are numbered from 1.
  [[nodiscard]] std::size_t CaretLine() const {
    return static_cast<std::size_t>(LineFromPosition(GetCurrentPos())) + 1;
  }
  void GoToLine(std::size_t line);
  // The text of the caret's line, without its end.
  [[nodiscard]] std::string LineAtCaret() const;

  // Sets where the verdict on a line comes from; nothing while it is not known yet.
  std::function<std::optional<LineVerdict>(std::size_t line)> verdictOn;
  // Marks and colours the visible lines, whose verdicts have changed.
  void ShowVerdicts();

  // The place below the caret, in the window's coordinates.
  [[nodiscard]] wxPoint BelowCaret();

  // Selects the next occurrence behind or before the selection, ignoring case, and wraps around. False if
  // there is none.
  bool SelectNext(std::string_view wanted, bool backwards);

 private:
  void ChooseColours() override;
  void FitNumbers();
  void DefineMarks(const wxColour& text, const wxColour& window);
  void StyleLines(wxStyledTextEvent& event);
  void StyleLine(int line);
  [[nodiscard]] std::string LineText(int line) const;
  [[nodiscard]] int StyleOf(int line) const;
  void MarkLine(int line);
  void UpdateSeen();

  int seenFirst_ = -1;  // the lines that were marked last
  int seenLast_ = -1;
};

}  // namespace tarvelo
