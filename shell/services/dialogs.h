// Every dialog that asks the user or tells them something. The desktop program shows wx dialogs; the tests
// answer from a script and record the questions.
#pragma once

#include <wx/string.h>

#include <filesystem>
#include <optional>

namespace tarvelo {

struct Review;
struct ReviewAnswer;

class Dialogs {
 public:
  enum class Icon { Information, Critical };

  virtual ~Dialogs() = default;

  // Shows a text until the user dismisses it.
  virtual void Message(const wxString& text, Icon icon) = 0;
  // Shows a text of any length under a title that says what happened. The dialog fits the screen.
  virtual void Announce(const wxString& title, const wxString& text) = 0;
  // Warns and asks with Yes, No and Cancel, No by default; true only for Yes.
  virtual bool Confirm(const wxString& text) = 0;
  // Asks about something harmless with Yes and No, Yes by default.
  virtual bool Offer(const wxString& text) = 0;
  // Asks for a line of text. Nothing if the user cancels.
  virtual std::optional<wxString> Ask(const wxString& prompt, const wxString& initial) = 0;
  // Asks for a file to open, or to write to, which includes a warning if it exists. The filter is a list of
  // "name|patterns" joined by "|"; `current` is the suggestion. Nothing if the user cancels.
  virtual std::optional<std::filesystem::path> OpenFile(const wxString& title, const wxString& filter,
                                                        const std::filesystem::path& current) = 0;
  virtual std::optional<std::filesystem::path> SaveFile(const wxString& title, const wxString& filter,
                                                        const std::filesystem::path& current) = 0;
  // Shows a list before anything is done. Nothing if the user cancels.
  virtual std::optional<ReviewAnswer> Show(const Review& review) = 0;
};

}  // namespace tarvelo
