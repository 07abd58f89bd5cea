// Messages and questions to the user in the current language, and reports of failed commands.
#pragma once

#include <cstdint>
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

  // Shows a message.
  void Tell(const wxString& text);
  // Reports that something was done: a text, an empty line, the path.
  void Tell(const wxString& text, const std::filesystem::path& path);
  void Tell(Text text, const std::filesystem::path& path);
  // Reports that something could not be done.
  void Complain(const wxString& text);
  void Complain(Text text);
  // Reports that a command takes at most `most` bytes, and not `bytes`.
  void ComplainOfSize(Text command, std::int64_t bytes, std::int64_t most);
  // Reports an addition to a text, in a dialog with the title "Tarvelo - " followed by `title`.
  void Announce(const wxString& title, const wxString& text);

  // Asks for a line of text. Nothing if the user cancels or leaves it empty.
  [[nodiscard]] std::optional<std::string> Ask(Text prompt, const std::string& initial);
  // Likewise, but an empty line is an answer.
  [[nodiscard]] std::optional<std::string> AskLine(Text prompt, const std::string& initial);
  // Asks for a byte pattern and suggests the last one.
  [[nodiscard]] std::optional<std::string> AskPattern();
  // Asks before something that may be regretted, or about something harmless (dialogs.h).
  [[nodiscard]] bool Confirm(const wxString& question) { return dialogs_.Confirm(question); }
  [[nodiscard]] bool Offer(const wxString& question) { return dialogs_.Offer(question); }
  // Asks for a file (dialogs.h).
  [[nodiscard]] std::optional<std::filesystem::path> OpenFile(Text title, const wxString& filter,
                                                              const std::filesystem::path& current);
  [[nodiscard]] std::optional<std::filesystem::path> SaveFile(Text title, const wxString& filter,
                                                              const std::filesystem::path& current);
  // Shows a list before anything is done (dialogs.h).
  [[nodiscard]] std::optional<ReviewAnswer> Show(const Review& review);

  // Runs a command with this name. If it throws, reports the fault under that name.
  void Guard(const wxString& command, const std::function<void()>& run);
  // Reports that a command failed, and why.
  void TellFault(const wxString& command, const wxString& cause);
  // Runs an access to a file. If it fails, tells the user ("Can't open file !" and the path) and returns
  // true.
  [[nodiscard]] bool fOpenErr(const std::function<void()>& access);

 private:
  void TellFileError(const FileError& error);
  [[nodiscard]] wxString Msg(Text text) const;

  Dialogs& dialogs_;
  const Messages& messages_;
  std::string lastPattern_;
};

}  // namespace tarvelo
