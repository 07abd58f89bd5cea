// The bar above the rows of the hex view in which the user says what to search for, and with what to replace
// it.
#pragma once

#include <wx/panel.h>

#include <functional>
#include <string>

#include "document/byte_query.h"
#include "resources/messages.h"

class wxButton;
class wxChoice;
class wxStaticText;
class wxTextCtrl;

namespace tarvelo {

class FindBar final : public wxPanel {
 public:
  explicit FindBar(wxWindow* parent);

  void Recaption(const Messages& messages);
  // Moves the keyboard to what is searched for. In the text of the hex view, that is text rather than digits.
  void Start(bool inText);

  [[nodiscard]] QueryKind Kind() const;
  [[nodiscard]] std::string Wanted() const;
  [[nodiscard]] std::string Replacement() const;

  // Enter in the upper line, or with Shift; the buttons; Escape.
  std::function<void()> onNext;
  std::function<void()> onPrevious;
  std::function<void()> onAll;
  std::function<void()> onReplace;
  std::function<void()> onReplaceAll;
  std::function<void()> onClose;

  // The controls, for those who look at them.
  [[nodiscard]] wxChoice& Kinds() { return *kind_; }
  [[nodiscard]] wxTextCtrl& WantedField() { return *wanted_; }
  [[nodiscard]] wxTextCtrl& ReplacementField() { return *replacement_; }

 private:
  void Arrange();
  void FitKind(int width);
  void PressKey(wxKeyEvent& event);

  wxChoice* kind_;
  wxTextCtrl* wanted_;
  wxButton* previous_;
  wxButton* next_;
  wxButton* all_;
  wxStaticText* caption_;
  wxTextCtrl* replacement_;
  wxButton* replace_;
  wxButton* replaceAll_;
};

}  // namespace tarvelo
