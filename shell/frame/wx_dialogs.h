// The dialogs of the desktop program.
#pragma once

#include "shell/services/dialogs.h"

class wxWindow;

namespace tarvelo {

class Messages;

// The filter of a file dialog as the system needs it. Linux distinguishes DUMP.BIN from dump.bin and takes
// "*.*" literally.
[[nodiscard]] wxString FilterForSystem(const wxString& filter);

// The text in lines of at most 80 columns, because a message box cuts off the end of a long path. A line
// breaks behind a blank or a separator of a path, or anywhere if there is none in its second half.
[[nodiscard]] wxString BreakLongLines(const wxString& text);

// wx dialogs with buttons in the current language.
class WxDialogs final : public Dialogs {
 public:
  // Both must outlive the object; `parent` may be null.
  WxDialogs(wxWindow* parent, const Messages& messages) : parent_(parent), messages_(messages) {}

  void Message(const wxString& text, Icon icon) override;
  void Announce(const wxString& title, const wxString& text) override;
  bool Confirm(const wxString& text) override;
  bool Offer(const wxString& text) override;
  // The same, but returns the button: wxID_YES, wxID_NO (the default) or wxID_CANCEL (Escape).
  int AnswerTo(const wxString& question);
  std::optional<wxString> Ask(const wxString& prompt, const wxString& initial) override;
  std::optional<std::filesystem::path> OpenFile(const wxString& title, const wxString& filter,
                                                const std::filesystem::path& current) override;
  std::optional<std::filesystem::path> SaveFile(const wxString& title, const wxString& filter,
                                                const std::filesystem::path& current) override;
  std::optional<ReviewAnswer> Show(const Review& review) override;

 private:
  wxWindow* parent_;
  const Messages& messages_;
};

}  // namespace tarvelo
