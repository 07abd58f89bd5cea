// Everything that asks the user or tells him something in a box of its own. The desktop shows wx
// dialogs; the tests answer from a script and record what was asked.
#pragma once

#include <wx/string.h>

#include <filesystem>
#include <optional>

namespace tarvelo {

class MisfitTable;

class Dialogs {
 public:
  enum class Icon { Information, Critical };

  virtual ~Dialogs() = default;

  // Shows a text until the user has seen it.
  virtual void Message(const wxString& text, Icon icon) = 0;
  // Shows a text under a title of its own, which says what has happened. However long the text is, the
  // box fits the screen.
  virtual void Announce(const wxString& title, const wxString& text) = 0;
  // Asks with Yes, No and Cancel; true only for Yes.
  virtual bool Confirm(const wxString& text) = 0;
  // Asks for a line of text. Nothing when the user cancels.
  virtual std::optional<wxString> Ask(const wxString& prompt, const wxString& initial) = 0;
  // A file to open, resp. to write to (asking before one is overwritten). The filter is a list of
  // "name|patterns" joined by "|"; `current` is offered. Nothing when the user cancels.
  virtual std::optional<std::filesystem::path> OpenFile(const wxString& title, const wxString& filter,
                                                        const std::filesystem::path& current) = 0;
  virtual std::optional<std::filesystem::path> SaveFile(const wxString& title, const wxString& filter,
                                                        const std::filesystem::path& current) = 0;
  // Shows which lines of a patch do not fit. True where the others are to be applied.
  virtual bool ApplyOthers(const MisfitTable& misfits) = 0;
};

}  // namespace tarvelo
