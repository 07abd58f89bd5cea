#include "shell/services/talk.h"

#include <stdexcept>

#include "core/progress.h"
#include "resources/messages.h"
#include "shell/base/product.h"
#include "shell/base/strings.h"
#include "shell/services/review.h"

namespace tarvelo {

wxString Talk::Msg(Text text) const { return Wx(messages_.Msg(text)); }

// --- messages ---

void Talk::Tell(const wxString& text) { dialogs_.Message(text, Dialogs::Icon::Information); }

void Talk::Tell(const wxString& text, const std::filesystem::path& path) {
  Tell(text + "\n\n" + WxPath(path));
}

void Talk::Tell(Text text, const std::filesystem::path& path) { Tell(Msg(text), path); }

void Talk::Complain(const wxString& text) { dialogs_.Message(text, Dialogs::Icon::Critical); }

void Talk::Complain(Text text) { Complain(Msg(text)); }

void Talk::ComplainOfSize(Text command, std::int64_t bytes, std::int64_t most) {
  const std::string sizes = " (" + std::to_string(bytes) + " > " + std::to_string(most) + ")";
  Complain(Msg(command) + ": " + Msg(Text::TooManyBytesAtOnce) + sizes);
}

void Talk::Announce(const wxString& title, const wxString& text) {
  dialogs_.Announce(wxString(productName) + " - " + title, text);
}

// --- questions ---

std::optional<std::string> Talk::Ask(Text prompt, const std::string& initial) {
  const auto answer = dialogs_.Ask(Msg(prompt), Wx(initial));
  if (!answer || answer->empty()) return {};
  return Utf8(*answer);
}

std::optional<std::string> Talk::AskLine(Text prompt, const std::string& initial) {
  const auto answer = dialogs_.Ask(Msg(prompt), Wx(initial));
  if (!answer) return {};
  return Utf8(*answer);
}

std::optional<std::string> Talk::AskPattern() {
  const wxString examples = "\n\nExamples:\nE6,FC,41,00,E6\nE6??4100E6\ne6??41,00 e6";
  const auto answer = dialogs_.Ask(Msg(Text::AskSearchString) + examples, Wx(lastPattern_));
  if (!answer || answer->empty()) return {};
  lastPattern_ = Utf8(*answer);
  return lastPattern_;
}

std::optional<std::filesystem::path> Talk::OpenFile(Text title, const wxString& filter,
                                                    const std::filesystem::path& current) {
  return dialogs_.OpenFile(Msg(title), filter, current);
}

std::optional<std::filesystem::path> Talk::SaveFile(Text title, const wxString& filter,
                                                    const std::filesystem::path& current) {
  return dialogs_.SaveFile(Msg(title), filter, current);
}

std::optional<ReviewAnswer> Talk::Show(const Review& review) { return dialogs_.Show(review); }

// --- faults ---

void Talk::Guard(const wxString& command, const std::function<void()>& run) try {
  run();
} catch (const Stopped&) {
  // as the user wished
} catch (const FileError& error) {
  TellFileError(error);
} catch (const std::out_of_range& fault) {
  TellFault(command, Msg(Text::ReadPastEnd) + "\n" + Wx(fault.what()));
} catch (const std::overflow_error& fault) {
  TellFault(command, Msg(Text::ImageNumberTooLarge) + "\n" + Wx(fault.what()));
} catch (const std::bad_alloc&) {
  TellFault(command, Msg(Text::NotEnoughMemory));
} catch (const std::exception& fault) {
  TellFault(command, Wx(fault.what()));
}

void Talk::TellFault(const wxString& command, const wxString& cause) {
  Complain(Wx(messages_.MsgS(Text::CommandFailed, Utf8(command))) + "\n\n" + cause);
}

void Talk::TellFileError(const FileError& error) {
  const bool isTooLarge = error.Reason() == FileError::Kind::TooLarge;
  const bool isWriting = error.Reason() == FileError::Kind::CantWrite;
  wxString told = isTooLarge ? WithNumber(Msg(Text::FileTooLarge), static_cast<std::int64_t>(error.Limit()))
                             : Msg(isWriting ? Text::CantWriteFile : Text::CantOpenFile);
  told += "\n\n" + WxPath(error.Path());
  const bool toWrite = error.OpenedTo() == FileError::Purpose::Write;
  if (!isTooLarge) told += "\n\n" + Msg(toWrite ? Text::AdviceOnWriting : Text::AdviceOnReading);
  Complain(told);
}

bool Talk::fOpenErr(const std::function<void()>& access) try {
  access();
  return false;
} catch (const FileError& error) {
  TellFileError(error);
  return true;
}

}  // namespace tarvelo
