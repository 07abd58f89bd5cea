// Talking to the user: what is said and asked in boxes, in the current language, and what is said when a
// command fails.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "core/file.h"
#include "resources/texts.h"
#include "shell/services/dialogs.h"

namespace tarvelo {

class Messages;

class Talk {
 public:
  // Both must outlive the object.
  Talk(Dialogs& dialogs, const Messages& messages) : dialogs_(dialogs), messages_(messages) {}

  // Says something that needs no answer.
  void Tell(const wxString& text);
  // Says that something was done: a text, an empty line, the path.
  void Tell(const wxString& text, const std::filesystem::path& path);
  void Tell(Text text, const std::filesystem::path& path);
  // Says that something could not be done.
  void Complain(const wxString& text);
  void Complain(Text text);
  // Says in a box with a title of its own, "Tarvelo - " and this, what was added to a text.
  void Announce(const wxString& title, const wxString& text);

  // Asks for a line of text. Nothing when the user cancels or leaves it empty.
  [[nodiscard]] std::optional<std::string> Ask(Text prompt, const std::string& initial);
  // Asks for a byte pattern. The last one is offered.
  [[nodiscard]] std::optional<std::string> AskPattern();
  // Asks a question. True only for Yes.
  [[nodiscard]] bool Confirm(const wxString& question);
  // Asks for a file (dialogs.h).
  [[nodiscard]] std::optional<std::filesystem::path> OpenFile(Text title, const wxString& filter,
                                                              const std::filesystem::path& current);
  [[nodiscard]] std::optional<std::filesystem::path> SaveFile(Text title, const wxString& filter,
                                                              const std::filesystem::path& current);
  // Shows which lines of a patch do not fit. True where the others are to be applied.
  [[nodiscard]] bool ApplyOthers(const MisfitTable& misfits) { return dialogs_.ApplyOthers(misfits); }

  // Runs a command of this name. A fault ends it with a message that names it.
  void Guard(const wxString& command, const std::function<void()>& run);
  // Says that a command failed, and why.
  void TellFault(const wxString& command, const wxString& cause);
  // Runs an access to a file. Where it fails the user is told ("Can't open file !" and the path) and the
  // result is true.
  [[nodiscard]] bool fOpenErr(const std::function<void()>& access);

 private:
  void TellFileError(const FileError& error);
  [[nodiscard]] wxString Msg(Text text) const;

  Dialogs& dialogs_;
  const Messages& messages_;
  std::string lastPattern_;
};

}  // namespace tarvelo
